#ifndef PLAIN_NUMBER_H
#define PLAIN_NUMBER_H

#include <limits>

namespace velarion {

/**
 * Reads the numbers that nearly every key and size begins with: at most 9 digits after an optional minus
 * sign, which fit an int and need no toolkit string. The toolkit reads them alike.
 *
 * @param text   not null, ended by NUL
 * @param value  receives the number; unchanged when the text begins with none
 * @return what follows these digits; null when the text begins with none or with more
 */
inline const char* read_plain_digits(const char* text, int& value) {
    const bool is_negative = *text == '-';
    const char* const first = is_negative ? text + 1 : text;
    const char* place = first;
    unsigned int number = 0; // of more digits: without meaning
    for (;; ++place) {
        const unsigned int digit = static_cast<unsigned char>(*place) - unsigned('0');
        if (digit > 9) {
            break;
        }
        number = number * 10 + digit;
    }
    if (place == first || place - first > std::numeric_limits<int>::digits10) {
        return nullptr;
    }
    value = is_negative ? -static_cast<int>(number) : static_cast<int>(number);
    return place;
}

/** What read_number() does with every other text: the toolkit reads it. In dvc_pnl_common_utility.cpp. */
bool read_number_by_toolkit(const char* text, int& value);

/**
 * Reads a text that is wholly a number, as dvc_pnl_common_utility::string_to_int() does, without a copy of
 * it.
 *
 * @param text   not null, ended by NUL
 * @param value  receives the number; 0 on failure
 */
inline bool read_number(const char* text, int& value) {
    const char* const rest = read_plain_digits(text, value);
    return (rest && *rest == '\0') || read_number_by_toolkit(text, value);
}

} // namespace velarion

#endif
