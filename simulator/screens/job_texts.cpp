#include "job_texts.h"

namespace velarion {

message_text name_of(job_kind kind) {
    switch (kind) {
    case job_kind::SCAN:
        return "3"; // MSG_NORMAL_TITLE_SCAN
    case job_kind::FAX:
        return "4"; // MSG_NORMAL_TITLE_FAX
    case job_kind::PRINT:
        return "5"; // MSG_NORMAL_TITLE_PRINT
    default:
        return "1"; // MSG_NORMAL_TITLE_COPY
    }
}

const char* picture_of(job_kind kind) {
    switch (kind) {
    case job_kind::SCAN:
        return "5"; // ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_SCAN
    case job_kind::FAX:
        return "6"; // ..._FAX
    case job_kind::PRINT:
        return "7"; // ..._PRINT
    default:
        return "4"; // ..._COPY
    }
}

QString movie_of(const machine_job& job) {
    switch (job.phase()) {
    case job_phase::READING:
        return QStringLiteral("543"); // ICON_NORMAL_OTHER_JOB_STATUS_READING_ORIGINAL
    case job_phase::DIALING:
        return QStringLiteral("541"); // ..._DIALING
    default:
        return job.kind == job_kind::COPY    ? QStringLiteral("533")  // ..._COPYING
               : job.kind == job_kind::PRINT ? QStringLiteral("550")  // ..._PRINTING
                                             : QStringLiteral("535"); // ..._SENDING
    }
}

message_text short_text_of(const machine_job& job) {
    return job.destination.isEmpty() ? name_of(job.kind) : message_text::ordered(job.destination);
}

message_text state_of(const machine_job& job) {
    switch (job.state) {
    case job_state::WAITING:
        return "318"; // MSG_NORMAL_JOBLIST_STATE_WAITING
    case job_state::COMPLETED:
        return "321"; // ..._COMPLETED
    case job_state::CANCELED:
        return "322"; // ..._CANCELLED
    case job_state::PAUSED:
        return "320"; // ..._SUSPENDED
    default:
        return "319"; // ..._PRINTING
    }
}

message_text detail_of(const machine_job& job) {
    if (job.phase() == job_phase::READING) {
        return {"144", {QString::number(job.original_in_work() - 1)}}; // MSG_NORMAL_STATUS_ORIGINALS_SCANNED
    }
    if (job.prints()) {
        return {"135", {QString::number(job.all_pages() - job.pages_done())}}; // ..._REMAINING_SHEETS
    }
    return message_text::ordered(job.destination);
}

} // namespace velarion
