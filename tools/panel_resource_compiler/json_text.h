#ifndef JSON_TEXT_H
#define JSON_TEXT_H

#include <string>

namespace velarion {

/** A text as JSON writes it, quotation marks included; bytes that are no UTF-8 become U+FFFD. */
std::string json_text(const std::string& text);

} // namespace velarion

#endif
