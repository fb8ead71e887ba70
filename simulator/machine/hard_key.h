#ifndef HARD_KEY_H
#define HARD_KEY_H

#include <QString>

#include <vector>

namespace velarion {

/** The keys beside the display, by their numbers at the panel device service. The digits have 0 to 9. */
enum hard_key : int {
    KEY_STAR = 10,
    KEY_HASH = 11,
    KEY_CLEAR = 12, ///< takes back the digit or entry that was made last
    KEY_RESET = 13, ///< all settings of the function as they are at power-on
    KEY_STOP = 14,
    KEY_START = 15,
    KEY_HOME = 16,
    KEY_ENERGY_SAVER = 17,
    KEY_BACK = 18, ///< to the screen before
    KEY_HELP = 19,
    KEY_COPY = 20, ///< this and the next ones open the screen of the name
    KEY_SCAN = 21,
    KEY_FAX = 22,
    KEY_DOCUMENTS = 23,
    KEY_STATUS = 24
};

/** A hard key as scripts and people know it. */
struct hard_key_entry {
    int key;
    const char* name;  ///< "start"; of a digit the digit
    const char* label; ///< in the simulator's own words, English
};

/** All keys, in the order of their numbers. */
const std::vector<hard_key_entry>& hard_keys();

/** Finds a key by name or decimal number. @param key  unchanged when there is none. @return whether found */
bool find_hard_key(const QString& name, int& key);

inline bool is_digit_key(int key) {
    return key >= 0 && key <= 9;
}

/** @return the sign that a digit, star or hash key stands for; empty for another key */
QString sign_of_key(int key);

} // namespace velarion

#endif
