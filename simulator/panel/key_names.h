#ifndef KEY_NAMES_H
#define KEY_NAMES_H

#include "message_text.h"

namespace velarion {

/** What a hard key is called on the panel; of a digit, star or hash key its sign. */
message_text name_of_key(int key);

} // namespace velarion

#endif
