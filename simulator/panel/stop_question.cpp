#include "stop_question.h"

#include "hard_key.h"
#include "machine_state.h"
#include "panel_dialog.h"
#include "panel_frame.h"

namespace velarion {

void ask_to_stop(panel_frame& frame, machine_state& machine) {
    const machine_job* job = machine.current_job();
    if (!job) {
        return;
    }
    machine.pause_job();
    // MSG_NORMAL_CONFIRM_STOP_COPYING, MSG_NORMAL_CONFIRM_CANCEL_JOB, MSG_NORMAL_KEY_CONTINUE,
    // MSG_CMN_STOP_TEXT
    frame.show_dialog(
        new panel_dialog(job->kind == job_kind::COPY ? "153" : "152", nullptr,
                         {{"continue_job", "58", [&machine] { machine.resume_job(); }, false, KEY_START},
                          {"stop_job", "33", [&machine] { machine.cancel_job(); }, true, KEY_STOP}}));
}

} // namespace velarion
