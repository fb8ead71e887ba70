#ifndef SETTINGS_ROWS_H
#define SETTINGS_ROWS_H

#include "settings_connection.h"
#include "settings_database.h"

#include <cstddef>
#include <functional>
#include <string>

namespace velarion {

/**
 * The rows of the settings store's tables as settings and attributes. A row that cannot be one is
 * PLATFORM_STORE_DAMAGED, with its name and what to do in the fault text.
 */

constexpr std::size_t LONGEST_ATTRIBUTE = 107; ///< bytes

using take_setting = std::function<void(const device_setting&)>;
using take_attribute = std::function<void(const language_attribute&)>;

/** Hands over all stored settings by group and item. */
platform_code read_settings(settings_connection& connection, const take_setting& take);
/** @param take  is called unless nothing is stored */
platform_code read_setting(settings_connection& connection, std::uint32_t group, std::uint32_t item,
                           const take_setting& take);
/** Finds the numbers of a stored setting by its name. @param is_found  receives whether there is one */
platform_code find_named(settings_connection& connection, const std::string& name, std::uint32_t& group,
                         std::uint32_t& item, bool& is_found);
/** @param is_taken  receives whether a stored setting has the numbers or the name of this one */
platform_code find_clash(settings_connection& connection, const device_setting& setting, bool& is_taken);
platform_code store_setting(settings_connection& connection, const device_setting& setting);
/** Removes rows, also damaged ones. */
platform_code remove_setting(settings_connection& connection, std::uint32_t group, std::uint32_t item);
platform_code remove_named(settings_connection& connection, const std::string& name);

/** Hands over all attributes by language and number. */
platform_code read_attributes(settings_connection& connection, const take_attribute& take);
/** @param take  is called unless it is not stored */
platform_code read_attribute(settings_connection& connection, int language_id, int attribute,
                             const take_attribute& take);
platform_code store_attribute(settings_connection& connection, const language_attribute& attribute);
platform_code remove_attribute(settings_connection& connection, int language_id, int attribute);

} // namespace velarion

#endif
