#include "condition_text.h"

#include "machine_state.h"
#include "theme.h"

namespace velarion {

namespace {

message_text sending_text(const machine_job& job) {
    if (job.phase() == job_phase::DIALING) {
        return "248"; // MSG_NORMAL_FAX_TEXT_DIALING
    }
    return {"250", {QString::number(qMin(job.all_pages(), job.pages_done() + 1))}}; // ..._SENDING_PAGE
}

} // namespace

message_text condition_text(const machine_state& machine) {
    const machine_job* job = machine.current_job();
    switch (machine.condition()) {
    case machine_condition::READING:
        return {"133", {QString::number(job->original_in_work())}}; // ..._STATUS_SCANNING_ORIGINAL_NUMBER
    case machine_condition::PRINTING:
        return {"407", {QString::number(job->set_in_work()), QString::number(job->copies)}};
    case machine_condition::SENDING:
        return sending_text(*job);
    case machine_condition::PAUSED:
        return "141"; // MSG_NORMAL_STATUS_STOPPED
    case machine_condition::NO_PAPER:
        return {"148", {QString::number(qMax(1, job->tray))}}; // MSG_NORMAL_STATUS_LOAD_PAPER
    case machine_condition::JAMMED:
        return machine.jam()->place->message;
    default:
        return "126"; // MSG_NORMAL_STATUS_READY
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
        return "4125"; // ICON_..._COMMON_WARNING
    case machine_condition::PAUSED:
        return "4096"; // ..._STOP_KEY
    case machine_condition::READING:
    case machine_condition::PRINTING:
    case machine_condition::SENDING:
        return "4095"; // ..._START
    default:
        return "4083"; // ..._CHECK
    }
}

} // namespace velarion
