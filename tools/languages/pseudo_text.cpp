#include "pseudo_text.h"

#include <algorithm>

namespace velarion {

namespace {

// Every one in the fonts of a device for Latin script.
constexpr const char* SMALL[] = {"å", "ƀ", "ç", "đ", "é", "ƒ", "ĝ", "ĥ", "î", "ĵ", "ķ", "ļ", "ɱ",
                                 "ñ", "ö", "þ", "ǫ", "ŕ", "š", "ţ", "û", "ṽ", "ŵ", "ẋ", "ý", "ž"};
constexpr const char* CAPITAL[] = {"Å", "Ɓ", "Ç", "Đ", "É", "Ƒ", "Ĝ", "Ĥ", "Î", "Ĵ", "Ķ", "Ļ", "Ṁ",
                                   "Ñ", "Ö", "Þ", "Ǫ", "Ŕ", "Š", "Ţ", "Û", "Ṽ", "Ŵ", "Ẋ", "Ý", "Ž"};
constexpr char FILLER[] = "lorem ipsum dolor sit amet ";
constexpr char RIGHT_TO_LEFT[] = "\xE2\x80\xAE"; // U+202E
constexpr char LEFT_TO_RIGHT[] = "\xE2\x80\xAD"; // U+202D
constexpr char END_OF_RUN[] = "\xE2\x80\xAC";    // U+202C

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

bool starts_character(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

/** The length of what must stay as it is at a place: a placeholder, a number, a tag; 0 for none. */
std::size_t kept_length(const std::string& line, std::size_t at) {
    if (line[at] == '<') {
        const std::size_t end = line.find('>', at);
        const char next = at + 1 < line.size() ? line[at + 1] : ' ';
        const bool is_tag = next == '/' || (next >= 'a' && next <= 'z');
        return is_tag && end != std::string::npos ? end + 1 - at : 0;
    }
    const std::size_t digits = line[at] == '%' ? at + 1 : at;
    std::size_t end = digits;
    while (end < line.size() && is_digit(line[end])) {
        ++end;
    }
    return end > digits ? end - at : 0;
}

std::string accented(char c) {
    if (c >= 'a' && c <= 'z') {
        return SMALL[c - 'a'];
    }
    return c >= 'A' && c <= 'Z' ? CAPITAL[c - 'A'] : std::string(1, c);
}

std::string accented_line(const std::string& line, bool is_mirrored) {
    std::string text;
    for (std::size_t i = 0; i < line.size();) {
        const std::size_t kept = kept_length(line, i);
        if (kept == 0) {
            text += accented(line[i++]);
            continue;
        }
        const std::string part = line.substr(i, kept);
        text += is_mirrored && part[0] != '<' ? LEFT_TO_RIGHT + part + END_OF_RUN : part;
        i += kept;
    }
    return text;
}

/** As many characters as make a line a third longer, in words that it can break between. */
std::string filler_for(const std::string& line) {
    const auto length = static_cast<std::size_t>(std::count_if(line.begin(), line.end(), starts_character));
    const std::string words = FILLER;
    std::string filler = " ";
    for (std::size_t i = 0; i + 1 < (length + 2) / 3; ++i) {
        filler += accented(words[i % words.size()]);
    }
    return filler.back() == ' ' ? filler.substr(0, filler.size() - 1) + "~" : filler;
}

} // namespace

std::string pseudo_text(const std::string& english, bool is_mirrored) {
    constexpr char EDGES[] = " \n\t";
    const std::size_t first = english.find_first_not_of(EDGES);
    if (first == std::string::npos) {
        return english;
    }
    const std::size_t last = english.find_last_not_of(EDGES);
    const std::string begin = is_mirrored ? RIGHT_TO_LEFT : "";
    const std::string end = is_mirrored ? END_OF_RUN : "";
    std::string text = english.substr(0, first) + begin + "[";
    for (std::size_t start = first; start <= last + 1;) {
        const std::size_t line_end = std::min(english.find('\n', start), last + 1);
        const std::string line = english.substr(start, line_end - start);
        const bool is_last = line_end == last + 1;
        text += accented_line(line, is_mirrored) + (line.empty() ? "" : filler_for(line));
        text += is_last ? "]" + end : end + '\n' + begin; // a run ends with its line
        start = line_end + 1;
        if (is_last) {
            break;
        }
    }
    return text + english.substr(last + 1);
}

} // namespace velarion
