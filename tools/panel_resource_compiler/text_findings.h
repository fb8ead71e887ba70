#ifndef TEXT_FINDINGS_H
#define TEXT_FINDINGS_H

#include "message_catalogue.h"

#include <string>

namespace velarion {

/**
 * What a check finds in a text of a language, as a warning at the text's place.
 *
 * @param character  which character of the text shows it
 */
finding text_finding(const char* check, const std::string& language, const row_text& text,
                     std::size_t character, const std::string& what);

/** A text for people: between quotation marks, on one line, and cut when it is long. */
std::string quoted_text(const std::string& text);

} // namespace velarion

#endif
