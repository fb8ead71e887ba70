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

using take_setting = std::function<void(const SETTING&)>;
using take_attribute = std::function<void(const LANGUAGE_ATTRIBUTE&)>;

/** Hands over all stored settings by group and item. */
PLATFORM_CODE read_settings(settings_connection& connection, const take_setting& take);
/** @param take  is called unless nothing is stored */
PLATFORM_CODE read_setting(settings_connection& connection, std::uint32_t group, std::uint32_t item,
                           const take_setting& take);
/** Finds the numbers of a stored setting by its name. @param is_found  receives whether there is one */
PLATFORM_CODE find_named(settings_connection& connection, const std::string& name, std::uint32_t& group,
                         std::uint32_t& item, bool& is_found);
/** @param is_taken  receives whether a stored setting has the numbers or the name of this one */
PLATFORM_CODE find_clash(settings_connection& connection, const SETTING& setting, bool& is_taken);
PLATFORM_CODE store_setting(settings_connection& connection, const SETTING& setting);
/** Removes rows, also damaged ones. */
PLATFORM_CODE remove_setting(settings_connection& connection, std::uint32_t group, std::uint32_t item);
PLATFORM_CODE remove_named(settings_connection& connection, const std::string& name);

/** Hands over all attributes by language and number. */
PLATFORM_CODE read_attributes(settings_connection& connection, const take_attribute& take);
/** @param take  is called unless it is not stored */
PLATFORM_CODE read_attribute(settings_connection& connection, int language_id, int attribute,
                             const take_attribute& take);
PLATFORM_CODE store_attribute(settings_connection& connection, const LANGUAGE_ATTRIBUTE& attribute);
PLATFORM_CODE remove_attribute(settings_connection& connection, int language_id, int attribute);

} // namespace velarion

#endif
