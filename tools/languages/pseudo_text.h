#ifndef PSEUDO_TEXT_H
#define PSEUDO_TEXT_H

#include <string>

namespace velarion {

/**
 * An English text as a language that shows what a panel makes of long and foreign texts: accented letters,
 * each line a third longer, brackets at both ends. Placeholders, numbers, tags, line breaks and blanks at the
 * edges stay; a text without a character to show does too.
 *
 * @param is_mirrored  the letters run from right to left; placeholders and numbers do not
 */
std::string pseudo_text(const std::string& english, bool is_mirrored);

} // namespace velarion

#endif
