#ifndef KNOWN_SETTINGS_H
#define KNOWN_SETTINGS_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace velarion {

/** A setting of the machine that exists without being stored. */
struct known_setting {
    std::uint32_t group;
    std::uint32_t item;
    int width; // bits
    const char* name;
    std::uint32_t default_value;
};

extern const known_setting KNOWN_SETTINGS[];
extern const std::size_t KNOWN_SETTING_NUMBER;

/** @return the known setting, or null */
const known_setting* find_known_setting(std::uint32_t group, std::uint32_t item);
const known_setting* find_known_setting(const std::string& name);

} // namespace velarion

#endif
