#ifndef SETTINGS_KEY_H
#define SETTINGS_KEY_H

#include "settings_database.h"

#include <cstdint>
#include <string>

namespace velarion {

/** What names a setting or attribute to people, and whether it may. */

/** @return "0xGROUP:0xITEM" */
std::string key_of(std::uint32_t group, std::uint32_t item);
/** @return whether @p key was "0xGROUP:0xITEM"; the numbers are undefined otherwise */
bool parse_key(const std::string& key, std::uint32_t& group, std::uint32_t& item);
/** @return the setting's name and key */
std::string describe(const device_setting& setting);
std::string describe(int language_id, int attribute);

bool is_name(const std::string& name);
bool is_width(std::int64_t width);
std::int64_t largest_of(int width);

} // namespace velarion

#endif
