#include "json_text.h"

#include "text_lines.h"

#include <array>
#include <cstdio>

namespace velarion {

std::string json_text(const std::string& text) {
    const bool is_utf8 = is_valid_utf8(text);
    std::string json = "\"";
    for (const char c : text) {
        const unsigned char byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            json += std::string("\\") + c;
        } else if (c == '\n') {
            json += "\\n";
        } else if (byte < ' ' || byte == 0x7F) {
            std::array<char, 8> code{};
            std::snprintf(code.data(), code.size(), "\\u%04x", static_cast<unsigned int>(byte));
            json += code.data();
        } else {
            json += byte < 0x80 || is_utf8 ? std::string(1, c) : "\\ufffd";
        }
    }
    return json + '"';
}

} // namespace velarion
