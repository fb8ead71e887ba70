#ifndef JAM_GUIDANCE_H
#define JAM_GUIDANCE_H

#include "message_text.h"
#include "paper_jam.h"

namespace velarion {

/** What the user is to do in a step of removing jammed paper. @param step  0 to the number of steps - 1 */
message_text jam_step_text(const jam_place& place, int step);

} // namespace velarion

#endif
