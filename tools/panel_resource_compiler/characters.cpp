#include "characters.h"

#include <array>
#include <cstdio>

namespace velarion {

namespace {

constexpr char32_t BLANKS[] = U" \t\n\r\u00A0\u1680\u202F\u205F\u3000";

/** Blocks and signs that belong to no word, beyond ASCII and Latin-1. */
bool is_punctuation_beyond_latin(char32_t c) {
    return (c >= 0x2000 && c <= 0x206F) || (c >= 0x2190 && c <= 0x2BFF) || (c >= 0x3000 && c <= 0x3004) ||
           (c >= 0x3007 && c <= 0x3020) || c == 0x30FB || (c >= 0xFE10 && c <= 0xFE6F) ||
           (c >= 0xFF01 && c <= 0xFF0F) || (c >= 0xFF1A && c <= 0xFF20) || (c >= 0xFF3B && c <= 0xFF40) ||
           (c >= 0xFF5B && c <= 0xFF65) || c == 0x061F || c == 0x06D4 || c == 0x060C || c == 0x0964;
}

} // namespace

std::u32string characters_of(const std::string& text) {
    std::u32string characters;
    characters.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const unsigned char lead = static_cast<unsigned char>(text[i++]);
        int count = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
        char32_t character = count == 0 ? lead : lead & (0x3FU >> count);
        for (; count > 0 && i < text.size(); --count) {
            character = character << 6 | (static_cast<unsigned char>(text[i++]) & 0x3FU);
        }
        characters += character;
    }
    return characters;
}

std::string as_utf8(const std::u32string& characters) {
    std::string text;
    for (const char32_t c : characters) {
        if (c < 0x80) {
            text += static_cast<char>(c);
            continue;
        }
        const int count = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
        constexpr std::array<unsigned int, 4> LEADS = {0, 0xC0, 0xE0, 0xF0};
        text += static_cast<char>(LEADS[static_cast<std::size_t>(count)] | c >> (6 * count));
        for (int k = count - 1; k >= 0; --k) {
            text += static_cast<char>(0x80U | (c >> (6 * k) & 0x3FU));
        }
    }
    return text;
}

std::string character_code(char32_t character) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "U+%04X", static_cast<unsigned int>(character));
    return text.data();
}

bool is_blank(char32_t c) {
    return std::u32string_view(BLANKS).find(c) != std::u32string_view::npos || (c >= 0x2000 && c <= 0x200B);
}

bool is_no_break_blank(char32_t c) {
    return c == 0xA0 || c == 0x202F;
}

bool is_ascii_digit(char32_t c) {
    return c >= U'0' && c <= U'9';
}

bool is_word_character(char32_t c) {
    if (c < 0x80) {
        return is_ascii_digit(c) || ((c | 0x20U) >= U'a' && (c | 0x20U) <= U'z');
    }
    return c >= 0xAA && c != 0xAB && c != 0xBB && c != 0xBF && c != 0xD7 && c != 0xF7 &&
           !(c >= 0xAC && c <= 0xB1) && !(c >= 0xB6 && c <= 0xB8) && !is_blank(c) &&
           !is_punctuation_beyond_latin(c);
}

char32_t small_letter_of(char32_t c) {
    const bool is_32_below = (c >= U'A' && c <= U'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7) ||
                             (c >= 0x391 && c <= 0x3A9) || (c >= 0x410 && c <= 0x42F);
    if (is_32_below) {
        return c + 32;
    }
    if (c >= 0x400 && c <= 0x40F) {
        return c + 80;
    }
    const bool is_odd_capital = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
    const bool is_even_capital = (c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177);
    return is_odd_capital ? c + (c & 1U) : is_even_capital ? c | 1U : c;
}

std::u32string trimmed(const std::u32string& text) {
    std::size_t first = 0;
    std::size_t end = text.size();
    while (first < end && is_blank(text[first])) {
        ++first;
    }
    while (end > first && is_blank(text[end - 1])) {
        --end;
    }
    return text.substr(first, end - first);
}

} // namespace velarion
