#ifndef CONDITION_TEXT_H
#define CONDITION_TEXT_H

#include "message_text.h"

#include <QColor>

namespace velarion {

class machine_state;

/** What the machine does at the moment, in a few words: "Copying. Set 3 of 10". */
message_text condition_text(const machine_state& machine);

/** The colour and the picture that go with it. */
QColor condition_color(const machine_state& machine);
const char* condition_picture(const machine_state& machine);

} // namespace velarion

#endif
