#include "stop_question.h"

#include "hard_key.h"
#include "machine_state.h"
#include "panel_dialog.h"
#include "panel_frame.h"
#include "panel_view_ids.h"

namespace velarion {

void ask_to_stop(panel_frame& frame, machine_state& machine) {
    const machine_job* job = machine.current_job();
    if (!job) {
        return;
    }
    machine.pause_job();
    frame.show_dialog(new panel_dialog(
        job->kind == job_kind::COPY ? MSG_NORMAL_CONFIRM_STOP_COPYING : MSG_NORMAL_CONFIRM_CANCEL_JOB,
        nullptr,
        {{"continue_job", MSG_NORMAL_KEY_CONTINUE, [&machine] { machine.resume_job(); }, false, KEY_START},
         {"stop_job", MSG_CMN_STOP_TEXT, [&machine] { machine.cancel_job(); }, true, KEY_STOP}}));
}

} // namespace velarion
