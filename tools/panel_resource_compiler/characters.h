#ifndef CHARACTERS_H
#define CHARACTERS_H

#include <string>

namespace velarion {

/** The characters of a well-formed UTF-8 text. */
std::u32string characters_of(const std::string& text);

/** A text of characters as UTF-8. */
std::string as_utf8(const std::u32string& characters);

/** "U+00A0". */
std::string character_code(char32_t character);

/** Whether a character leaves nothing to see: blanks of every width, tab and line break. */
bool is_blank(char32_t character);

/** Whether it is a blank at which no line is broken. */
bool is_no_break_blank(char32_t character);

bool is_ascii_digit(char32_t character);

/** Letters, digits and marks of every script, as far as punctuation is to be told from them. */
bool is_word_character(char32_t character);

/** The small letter of a capital one, Latin, Greek and Cyrillic; any other character as it is. */
char32_t small_letter_of(char32_t character);

/** A text without the blanks around it. */
std::u32string trimmed(const std::u32string& text);

} // namespace velarion

#endif
