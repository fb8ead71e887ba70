#include "condition_text.h"

#include "machine_state.h"
#include "panel_view_ids.h"
#include "theme.h"

namespace velarion {

namespace {

message_text sending_text(const machine_job& job) {
    if (job.phase() == job_phase::DIALING) {
        return MSG_NORMAL_FAX_TEXT_DIALING;
    }
    return {MSG_NORMAL_FAX_TEXT_SENDING_PAGE, {QString::number(qMin(job.all_pages(), job.pages_done() + 1))}};
}

} // namespace

message_text condition_text(const machine_state& machine) {
    const machine_job* job = machine.current_job();
    switch (machine.condition()) {
    case machine_condition::READING:
        return {MSG_NORMAL_STATUS_SCANNING_ORIGINAL_NUMBER, {QString::number(job->original_in_work())}};
    case machine_condition::PRINTING:
        if (job->kind == job_kind::PRINT) {
            return MSG_NORMAL_STATUS_PRINTING;
        }
        return {MSG_NORMAL_COPYSET_COPYING_SET,
                {QString::number(job->set_in_work()), QString::number(job->copies)}};
    case machine_condition::SENDING:
        return sending_text(*job);
    case machine_condition::PAUSED:
        return MSG_NORMAL_STATUS_STOPPED;
    case machine_condition::NO_PAPER:
        return {MSG_NORMAL_STATUS_LOAD_PAPER, {QString::number(qMax(1, job->tray))}};
    case machine_condition::JAMMED:
        return machine.jam()->place->message;
    default:
        return MSG_NORMAL_STATUS_READY;
    }
}

QColor condition_color(const machine_state& machine) {
    switch (machine.condition()) {
    case machine_condition::JAMMED:
    case machine_condition::NO_PAPER:
        return colors::error;
    case machine_condition::PAUSED:
        return colors::warn;
    case machine_condition::READING:
    case machine_condition::PRINTING:
    case machine_condition::SENDING:
        return colors::accent;
    default:
        return colors::ok;
    }
}

const char* condition_picture(const machine_state& machine) {
    switch (machine.condition()) {
    case machine_condition::JAMMED:
    case machine_condition::NO_PAPER:
        return ICON_CMN_OTHER_WARNING;
    case machine_condition::PAUSED:
        return ICON_CMN_OTHER_STOP_KEY;
    case machine_condition::READING:
    case machine_condition::PRINTING:
    case machine_condition::SENDING:
        return ICON_CMN_OTHER_START;
    default:
        return ICON_CMN_OTHER_CHECK;
    }
}

} // namespace velarion
