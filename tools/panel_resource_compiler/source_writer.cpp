#include "source_writer.h"

#include "output_folder.h"

#include <array>
#include <cstdio>

namespace velarion {

namespace {

/** Whether a character that turns the direction of text begins here: a compiler warns of one without its end.
 */
bool is_direction_mark_at(const std::string& text, std::size_t i) {
    const std::string character = text.substr(i, 3);
    return (character >= "\xE2\x80\xAA" && character <= "\xE2\x80\xAE") ||
           (character >= "\xE2\x81\xA6" && character <= "\xE2\x81\xA9");
}

/** Three digits, so that one behind it is none of it. */
std::string octal_escape(char c) {
    std::array<char, 8> escape{};
    std::snprintf(escape.data(), escape.size(), "\\%03o",
                  static_cast<unsigned int>(static_cast<unsigned char>(c)));
    return escape.data();
}

} // namespace

std::string cpp_literal(const std::string& text) {
    std::string literal = "\"";
    std::size_t direction_mark_end = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\xE2' && is_direction_mark_at(text, i)) {
            direction_mark_end = i + 3;
        }
        if (c == '\n') {
            literal += "\\n";
        } else if (c == '"' || c == '\\' || c == '?') { // two "?" in a row could start a trigraph
            literal += std::string("\\") + c;
        } else if (static_cast<unsigned char>(c) < ' ' || i < direction_mark_end) {
            literal += octal_escape(c);
        } else {
            literal += c;
        }
    }
    return literal + '"';
}

bool source_writer::finish(std::string& fault) const {
    return output_folder(folder_).write(name_, contents_.str(), fault);
}

} // namespace velarion
