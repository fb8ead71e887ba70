#ifndef STOP_QUESTION_H
#define STOP_QUESTION_H

namespace velarion {

class machine_state;
class panel_frame;

/** Pauses the job that runs and asks whether it is to end; without effect when there is none. */
void ask_to_stop(panel_frame& frame, machine_state& machine);

} // namespace velarion

#endif
