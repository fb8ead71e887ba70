#include "job_texts.h"

#include "panel_view_ids.h"

namespace velarion {

message_text name_of(job_kind kind) {
    switch (kind) {
    case job_kind::SCAN:
        return MSG_NORMAL_TITLE_SCAN;
    case job_kind::FAX:
        return MSG_NORMAL_TITLE_FAX;
    case job_kind::PRINT:
        return MSG_NORMAL_TITLE_PRINT;
    default:
        return MSG_NORMAL_TITLE_COPY;
    }
}

const char* picture_of(job_kind kind) {
    switch (kind) {
    case job_kind::SCAN:
        return ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_SCAN;
    case job_kind::FAX:
        return ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_FAX;
    case job_kind::PRINT:
        return ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_PRINT;
    default:
        return ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_COPY;
    }
}

QString movie_of(const machine_job& job) {
    switch (job.phase()) {
    case job_phase::READING:
        return QLatin1String(ICON_NORMAL_OTHER_JOB_STATUS_READING_ORIGINAL);
    case job_phase::DIALING:
        return QLatin1String(ICON_NORMAL_OTHER_JOB_STATUS_DIALING);
    default:
        return job.kind == job_kind::COPY    ? QLatin1String(ICON_NORMAL_OTHER_JOB_STATUS_COPYING)
               : job.kind == job_kind::PRINT ? QLatin1String(ICON_NORMAL_OTHER_JOB_STATUS_PRINTING)
                                             : QLatin1String(ICON_NORMAL_OTHER_JOB_STATUS_SENDING);
    }
}

message_text short_text_of(const machine_job& job) {
    return job.destination.isEmpty() ? name_of(job.kind) : message_text::ordered(job.destination);
}

message_text state_of(const machine_job& job) {
    switch (job.state) {
    case job_state::WAITING:
        return MSG_NORMAL_JOBLIST_STATE_WAITING;
    case job_state::COMPLETED:
        return MSG_NORMAL_JOBLIST_STATE_COMPLETED;
    case job_state::CANCELED:
        return MSG_NORMAL_JOBLIST_STATE_CANCELLED;
    case job_state::PAUSED:
        return MSG_NORMAL_JOBLIST_STATE_SUSPENDED;
    default:
        return MSG_NORMAL_JOBLIST_STATE_PRINTING;
    }
}

message_text detail_of(const machine_job& job) {
    if (job.phase() == job_phase::READING) {
        return {MSG_NORMAL_STATUS_ORIGINALS_SCANNED, {QString::number(job.original_in_work() - 1)}};
    }
    if (job.prints()) {
        return {MSG_NORMAL_STATUS_REMAINING_SHEETS, {QString::number(job.all_pages() - job.pages_done())}};
    }
    return message_text::ordered(job.destination);
}

} // namespace velarion
