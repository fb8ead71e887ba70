#ifndef HARD_KEYS_H
#define HARD_KEYS_H

#include <QString>

#include <vector>

namespace velarion {

/** The hard keys of this machine, as the panel device service tells of them. Digits have their own value. */
enum hard_key_number : int {
    KEY_DIGIT_0 = 0,
    KEY_DIGIT_9 = 9,
    KEY_ASTERISK = 10,
    KEY_HASH = 11,
    KEY_START = 12,
    KEY_STOP = 13,
    KEY_CLEAR = 14,
    KEY_RESET = 15,
    KEY_ENERGY_SAVER = 16,
    KEY_HOME = 17,
    KEY_BACK = 18,
    KEY_HELP = 19,
    KEY_COPY = 20,
    KEY_SCAN = 21,
    KEY_FAX = 22,
    KEY_DOCUMENTS = 23,
    KEY_STATUS = 24
};

struct hard_key {
    int number;
    const char* name;    ///< "start": for scripts
    const char* message; ///< id of its label; empty for the digits and signs, which are labelled by name
    const char* picture; ///< id; empty for the digits and signs
};

/** Every key, in the order of their numbers. */
const std::vector<hard_key>& hard_keys();

/** @return the key of a name or of a decimal number that is in the table, or null */
const hard_key* find_hard_key(const QString& name);

inline bool is_digit_key(int key) {
    return key >= KEY_DIGIT_0 && key <= KEY_DIGIT_9;
}

/** @return what a digit, asterisk or hash key writes; empty for another key */
QString written_by_key(int key);

} // namespace velarion

#endif
