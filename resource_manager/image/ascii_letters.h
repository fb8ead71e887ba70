#ifndef ASCII_LETTERS_H
#define ASCII_LETTERS_H

#include <QChar>

namespace velarion {

inline unsigned int code_of(char character) {
    return static_cast<unsigned char>(character);
}

inline unsigned int code_of(QChar character) {
    return character.unicode();
}

/**
 * Compares ASCII letters in any case, as the toolkit does with a text made lower case.
 *
 * @param at     at least as many characters
 * @param lower  lower-case letters alone; not k, which the toolkit makes of another character too
 */
template <typename CHARACTER> bool are_letters(const CHARACTER* at, const char* lower) {
    const unsigned int case_bit = 0x20; // what distinguishes the cases
    for (; *lower != '\0'; ++at, ++lower) {
        if ((code_of(*at) | case_bit) != code_of(*lower)) {
            return false;
        }
    }
    return true;
}

} // namespace velarion

#endif
