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
    KEY_ENERGY_SAVER = 17
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

} // namespace velarion

#endif
