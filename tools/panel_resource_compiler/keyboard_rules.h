#ifndef KEYBOARD_RULES_H
#define KEYBOARD_RULES_H

#include "diagnostics.h"

#include <string>

namespace velarion {

/**
 * Reports the keyboard and language files of a folder, and of those in it, that the panel could not read:
 * *.kbd, lang_info.txt and proh_info.txt. A program without the toolkit reads none.
 *
 * @param folder    one that is not there holds none
 * @param language  whose they are, for the reports; may be empty
 */
void check_keyboards(const std::string& folder, const std::string& language, diagnostics& report);

} // namespace velarion

#endif
