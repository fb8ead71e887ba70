#include "settings_rows.h"

#include "known_settings.h"
#include "settings_key.h"
#include "settings_store.h"

#include <limits>

namespace velarion {

namespace {

static_assert(LONGEST_ATTRIBUTE + 1 == ENT_SET_MESSAGE_SIZE, "a text and its NUL fill the caller's buffer");

constexpr char ALL_SETTINGS[] = "SELECT grp, item, width, name, value FROM setting ORDER BY grp, item";
constexpr char ONE_SETTING[] = "SELECT grp, item, width, name, value FROM setting WHERE grp = ? AND item = ?";
constexpr char ALL_ATTRIBUTES[] = "SELECT language_id, attribute, text FROM language_attribute ORDER BY 1, 2";
constexpr char ONE_ATTRIBUTE[] =
    "SELECT language_id, attribute, text FROM language_attribute WHERE language_id = ? AND attribute = ?";

std::vector<sql_value> numbers(std::int64_t first, std::int64_t second) {
    return {first, second};
}

bool read_number(const settings_row& row, int column, std::uint32_t& number) {
    std::int64_t value = -1;
    if (!row.integer(column, value) || value < 0 || value > largest_of(32)) {
        return false;
    }
    number = static_cast<std::uint32_t>(value);
    return true;
}

bool read_number(const settings_row& row, int column, int& number) {
    std::int64_t value = 0;
    if (!row.integer(column, value) || value < std::numeric_limits<int>::min() ||
        value > std::numeric_limits<int>::max()) {
        return false;
    }
    number = static_cast<int>(value);
    return true;
}

/** Takes a row only when its value fits its width and its width is the one of the known setting. */
bool decode(const settings_row& row, device_setting& setting) {
    if (!read_number(row, 0, setting.group) || !read_number(row, 1, setting.item) ||
        !read_number(row, 2, setting.width) || !read_number(row, 4, setting.value) ||
        !is_width(setting.width) || setting.value > largest_of(setting.width)) {
        return false;
    }
    const known_setting* const known = find_known_setting(setting.group, setting.item);
    setting.name = known ? known->name : row.text(3);
    setting.is_stored = true;
    return !known || known->width == setting.width;
}

platform_code read_settings(settings_connection& connection, const char* sql,
                            const std::vector<sql_value>& values, const take_setting& take) {
    return connection.run(sql, values, [&](const settings_row& row) {
        device_setting setting;
        if (!decode(row, setting)) {
            return connection.fail(PLATFORM_STORE_DAMAGED,
                                   "the row of \"" + row.text(3) +
                                       "\" holds no number of the setting's width; reset the setting");
        }
        take(setting);
        return PLATFORM_OK;
    });
}

platform_code read_attributes(settings_connection& connection, const char* sql,
                              const std::vector<sql_value>& values, const take_attribute& take) {
    return connection.run(sql, values, [&](const settings_row& row) {
        language_attribute attribute;
        if (!read_number(row, 0, attribute.language_id) || !read_number(row, 1, attribute.attribute)) {
            return connection.fail(PLATFORM_STORE_DAMAGED,
                                   "the row of the language attribute with the text \"" + row.text(2) +
                                       "\" has no number; move the file away to start with the defaults");
        }
        attribute.text = row.text(2);
        if (attribute.text.size() > LONGEST_ATTRIBUTE) {
            return connection.fail(PLATFORM_STORE_DAMAGED,
                                   describe(attribute.language_id, attribute.attribute) + " has " +
                                       std::to_string(attribute.text.size()) + " bytes; set or remove it");
        }
        take(attribute);
        return PLATFORM_OK;
    });
}

} // namespace

platform_code read_settings(settings_connection& connection, const take_setting& take) {
    return read_settings(connection, ALL_SETTINGS, {}, take);
}

platform_code read_setting(settings_connection& connection, std::uint32_t group, std::uint32_t item,
                           const take_setting& take) {
    return read_settings(connection, ONE_SETTING, numbers(group, item), take);
}

platform_code find_named(settings_connection& connection, const std::string& name, std::uint32_t& group,
                         std::uint32_t& item, bool& is_found) {
    is_found = false;
    return connection.run("SELECT grp, item FROM setting WHERE name = ?", {name}, [&](const auto& row) {
        is_found = read_number(row, 0, group) && read_number(row, 1, item);
        return is_found ? PLATFORM_OK
                        : connection.fail(PLATFORM_STORE_DAMAGED,
                                          "the row of \"" + name + "\" has no number; reset the setting");
    });
}

platform_code find_clash(settings_connection& connection, const device_setting& setting, bool& is_taken) {
    is_taken = false;
    return connection.run("SELECT 1 FROM setting WHERE (grp = ? AND item = ?) OR name = ?",
                          {std::int64_t(setting.group), std::int64_t(setting.item), setting.name},
                          [&](const settings_row&) {
                              is_taken = true;
                              return PLATFORM_OK;
                          });
}

platform_code store_setting(settings_connection& connection, const device_setting& setting) {
    return connection.run(
        "INSERT OR REPLACE INTO setting (grp, item, width, name, value) VALUES (?, ?, ?, ?, ?)",
        {std::int64_t(setting.group), std::int64_t(setting.item), std::int64_t(setting.width), setting.name,
         std::int64_t(setting.value)});
}

platform_code remove_setting(settings_connection& connection, std::uint32_t group, std::uint32_t item) {
    return connection.run("DELETE FROM setting WHERE grp = ? AND item = ?", numbers(group, item));
}

platform_code remove_named(settings_connection& connection, const std::string& name) {
    return connection.run("DELETE FROM setting WHERE name = ?", {name});
}

platform_code read_attributes(settings_connection& connection, const take_attribute& take) {
    return read_attributes(connection, ALL_ATTRIBUTES, {}, take);
}

platform_code read_attribute(settings_connection& connection, int language_id, int attribute,
                             const take_attribute& take) {
    return read_attributes(connection, ONE_ATTRIBUTE, numbers(language_id, attribute), take);
}

platform_code store_attribute(settings_connection& connection, const language_attribute& attribute) {
    return connection.run(
        "INSERT OR REPLACE INTO language_attribute (language_id, attribute, text) VALUES (?, ?, ?)",
        {std::int64_t(attribute.language_id), std::int64_t(attribute.attribute), attribute.text});
}

platform_code remove_attribute(settings_connection& connection, int language_id, int attribute) {
    return connection.run("DELETE FROM language_attribute WHERE language_id = ? AND attribute = ?",
                          numbers(language_id, attribute));
}

} // namespace velarion
