#ifndef PLAIN_NUMBER_H
#define PLAIN_NUMBER_H

#include <limits>

namespace velarion {

/**
 * Reads the numbers that nearly every key is: at most 9 digits after an optional minus sign, which fit an int
 * and need no toolkit string. The toolkit reads them alike.
 *
 * @param text   not null
 * @param value  receives the number; unchanged when the text is none of these
 */
inline bool read_plain_number(const char* text, int& value) {
    const bool is_negative = *text == '-';
    const char* const first = is_negative ? text + 1 : text;
    const char* const end = first + std::numeric_limits<int>::digits10;
    int number = 0;
    const char* place = first;
    for (; place != end && *place >= '0' && *place <= '9'; ++place) {
        number = number * 10 + (*place - '0');
    }
    if (place == first || *place != '\0') {
        return false;
    }
    value = is_negative ? -number : number;
    return true;
}

} // namespace velarion

#endif
