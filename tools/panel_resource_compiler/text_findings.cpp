#include "text_findings.h"

#include "characters.h"

namespace velarion {

namespace {

constexpr std::size_t MOST_CHARACTERS = 60;

bool is_escaped(char32_t c) {
    return c == U'\n' || c == U'\t' || c == U'\\';
}

} // namespace

finding text_finding(const char* check, const std::string& language, const row_text& text,
                     std::size_t character, const std::string& what) {
    source_place place = text.place;
    const std::u32string characters = character == 0 ? std::u32string() : characters_of(text.text);
    for (std::size_t i = 0; i < character && i < characters.size(); ++i) {
        place.column += is_escaped(characters[i]) ? 2U : 1U;
    }
    const std::string row = std::to_string(text.row);
    return {place, severity::WARNING, check, "row " + row + ": " + what, language, row};
}

std::string quoted_text(const std::string& text) {
    std::u32string line;
    for (const char32_t c : characters_of(text)) {
        if (line.size() == MOST_CHARACTERS) {
            return "\"" + as_utf8(line) + "…\"";
        }
        line += c < U' ' ? U' ' : c;
    }
    return "\"" + as_utf8(line) + "\"";
}

} // namespace velarion
