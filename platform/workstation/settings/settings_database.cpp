#include "settings_database.h"

#include "known_settings.h"
#include "platform_folder.h"
#include "settings_key.h"
#include "settings_rows.h"
#include "settings_session.h"

#include <algorithm>

namespace velarion {

namespace {

std::string default_file() {
    const std::string folder = platform_folder();
    return folder.empty() ? folder : folder + "/settings.db";
}

device_setting default_of(const known_setting& known) {
    return {known.group, known.item, known.width, known.name, known.default_value, false};
}

std::vector<device_setting> defaults() {
    std::vector<device_setting> settings;
    std::for_each(KNOWN_SETTINGS, KNOWN_SETTINGS + KNOWN_SETTING_NUMBER,
                  [&](const known_setting& known) { settings.push_back(default_of(known)); });
    return settings;
}

/** Puts a stored setting in the place of its default, or behind all. */
void put(std::vector<device_setting>& settings, const device_setting& stored) {
    const auto place = std::find_if(settings.begin(), settings.end(), [&](const device_setting& other) {
        return other.group == stored.group && other.item == stored.item;
    });
    place == settings.end() ? settings.push_back(stored) : void(*place = stored);
}

platform_code fail_unknown(const std::string& key, std::string& fault) {
    fault = "\"" + key + "\" is no setting; give the name of a listed one, or its 0xGROUP:0xITEM";
    return PLATFORM_UNKNOWN_ITEM;
}

platform_code fail_not_stored(int language_id, int attribute, std::string& fault) {
    fault = describe(language_id, attribute) + " is not stored";
    return PLATFORM_NOT_FOUND;
}

platform_code fail_existing(const device_setting& setting, std::string& fault) {
    fault = describe(setting) + " exists already; write its value instead";
    return PLATFORM_EXISTS;
}

/** @return whether a key names its numbers without the store */
bool resolve(const std::string& key, std::uint32_t& group, std::uint32_t& item) {
    const known_setting* const known = find_known_setting(key);
    if (known) {
        group = known->group;
        item = known->item;
    }
    return known || parse_key(key, group, item);
}

platform_code resolve(const std::string& key, settings_session& session, std::uint32_t& group,
                      std::uint32_t& item, std::string& fault) {
    if (resolve(key, group, item)) {
        return PLATFORM_OK;
    }
    bool is_found = false;
    const platform_code code = find_named(session.connection(), key, group, item, is_found);
    return code == PLATFORM_OK && !is_found ? fail_unknown(key, fault) : code;
}

/** Finds what a change is about without minding a damaged row of a known setting. */
platform_code find_for_change(settings_session& session, const std::string& key, device_setting& setting,
                              std::string& fault) {
    std::uint32_t group = 0;
    std::uint32_t item = 0;
    if (const platform_code failure = resolve(key, session, group, item, fault)) {
        return failure;
    }
    if (const known_setting* const known = find_known_setting(group, item)) {
        setting = default_of(*known);
        return PLATFORM_OK;
    }
    bool is_found = false;
    const platform_code code =
        read_setting(session.connection(), group, item, [&](const device_setting& stored) {
            is_found = true;
            setting = stored;
        });
    return code == PLATFORM_OK && !is_found ? fail_unknown(key, fault) : code;
}

platform_code check_value(const device_setting& setting, std::int64_t value, std::string& fault) {
    if (value >= 0 && value <= largest_of(setting.width)) {
        return PLATFORM_OK;
    }
    fault = std::to_string(value) + " does not fit " + describe(setting) + "; it takes 0 to " +
            std::to_string(largest_of(setting.width));
    return PLATFORM_OUT_OF_RANGE;
}

platform_code check_new(const device_setting& setting, std::string& fault) {
    if (!is_width(setting.width)) {
        fault = describe(setting) + " cannot be " + std::to_string(setting.width) +
                " bits wide; give 8, 16 or 32";
        return PLATFORM_INVALID_ARGUMENT;
    }
    if (!is_name(setting.name)) {
        fault = "\"" + setting.name +
                "\" cannot name a setting; use lower-case letters, digits and \"_\", a letter first";
        return PLATFORM_INVALID_ARGUMENT;
    }
    if (find_known_setting(setting.group, setting.item) || find_known_setting(setting.name)) {
        return fail_existing(setting, fault);
    }
    return check_value(setting, setting.value, fault);
}

} // namespace

settings_database::settings_database()
    : file_(default_file()) {}

settings_database::settings_database(const std::string& file)
    : file_(file) {}

platform_code settings_database::list(std::vector<device_setting>& settings, std::string& fault) const {
    settings = defaults();
    settings_session session(file_, fault);
    platform_code code = session.begin_reading();
    if (code == PLATFORM_NOT_FOUND) {
        return PLATFORM_OK;
    }
    std::vector<device_setting> found = settings;
    if (code == PLATFORM_OK) {
        code = read_settings(session.connection(), [&](const device_setting& stored) { put(found, stored); });
    }
    if (code == PLATFORM_OK) {
        settings.swap(found);
    }
    return code;
}

platform_code settings_database::find(const std::string& key, device_setting& setting,
                                      std::string& fault) const {
    std::uint32_t group = 0;
    std::uint32_t item = 0;
    if (!resolve(key, group, item)) {
        settings_session session(file_, fault);
        if (const platform_code failure = session.begin_reading()) {
            return failure == PLATFORM_NOT_FOUND ? fail_unknown(key, fault) : failure;
        }
        if (const platform_code failure = resolve(key, session, group, item, fault)) {
            return failure;
        }
    }
    return read(group, item, setting, fault);
}

platform_code settings_database::read(std::uint32_t group, std::uint32_t item, device_setting& setting,
                                      std::string& fault) const {
    settings_session session(file_, fault);
    bool is_found = false;
    platform_code code = session.begin_reading();
    if (code == PLATFORM_OK) {
        code = read_setting(session.connection(), group, item, [&](const device_setting& stored) {
            is_found = true;
            setting = stored;
        });
    } else if (code == PLATFORM_NOT_FOUND) {
        code = PLATFORM_OK;
    }
    const known_setting* const known = find_known_setting(group, item);
    if (!is_found && known) {
        setting = default_of(*known);
    }
    return code == PLATFORM_OK && !is_found && !known ? fail_unknown(key_of(group, item), fault) : code;
}

platform_code settings_database::write(const std::string& key, std::int64_t value, std::string& fault) {
    settings_session session(file_, fault);
    if (const platform_code failure = begin_change(session)) {
        return failure;
    }
    device_setting setting;
    if (const platform_code failure = find_for_change(session, key, setting, fault)) {
        return failure;
    }
    if (const platform_code failure = check_value(setting, value, fault)) {
        return failure;
    }
    setting.value = static_cast<std::uint32_t>(value);
    if (const platform_code failure = store_setting(session.connection(), setting)) {
        return failure;
    }
    return session.commit();
}

platform_code settings_database::add(const device_setting& setting, std::string& fault) {
    if (const platform_code failure = check_new(setting, fault)) {
        return failure;
    }
    settings_session session(file_, fault);
    if (const platform_code failure = begin_change(session)) {
        return failure;
    }
    bool is_taken = false;
    if (const platform_code failure = find_clash(session.connection(), setting, is_taken)) {
        return failure;
    }
    if (is_taken) {
        return fail_existing(setting, fault);
    }
    if (const platform_code failure = store_setting(session.connection(), setting)) {
        return failure;
    }
    return session.commit();
}

platform_code settings_database::reset(const std::string& key, std::string& fault) {
    settings_session session(file_, fault);
    if (const platform_code failure = begin_change(session)) {
        return failure;
    }
    std::uint32_t group = 0;
    std::uint32_t item = 0;
    const bool has_numbers = resolve(key, group, item);
    if (const platform_code failure = has_numbers ? remove_setting(session.connection(), group, item)
                                                  : remove_named(session.connection(), key)) {
        return failure;
    }
    if (session.connection().changed_rows() == 0 && !(has_numbers && find_known_setting(group, item))) {
        return fail_unknown(key, fault);
    }
    return session.commit();
}

platform_code settings_database::list_attributes(std::vector<language_attribute>& attributes,
                                                 std::string& fault) const {
    attributes.clear();
    settings_session session(file_, fault);
    platform_code code = session.begin_reading();
    if (code == PLATFORM_NOT_FOUND) {
        return PLATFORM_OK;
    }
    std::vector<language_attribute> found;
    if (code == PLATFORM_OK) {
        code = read_attributes(session.connection(),
                               [&](const language_attribute& stored) { found.push_back(stored); });
    }
    if (code == PLATFORM_OK) {
        attributes.swap(found);
    }
    return code;
}

platform_code settings_database::get_attribute(int language_id, int attribute, std::string& text,
                                               std::string& fault) const {
    settings_session session(file_, fault);
    bool is_found = false;
    platform_code code = session.begin_reading();
    if (code == PLATFORM_OK) {
        code = read_attribute(session.connection(), language_id, attribute,
                              [&](const language_attribute& stored) {
                                  is_found = true;
                                  text = stored.text;
                              });
    }
    if (code == PLATFORM_NOT_FOUND || (code == PLATFORM_OK && !is_found)) {
        return fail_not_stored(language_id, attribute, fault);
    }
    return code;
}

platform_code settings_database::set_attribute(const language_attribute& attribute, std::string& fault) {
    if (attribute.text.size() > LONGEST_ATTRIBUTE || attribute.text.find('\0') != std::string::npos) {
        fault = describe(attribute.language_id, attribute.attribute) + ": a text has up to " +
                std::to_string(LONGEST_ATTRIBUTE) + " bytes and no NUL; this one has " +
                std::to_string(attribute.text.size()) + " bytes";
        return PLATFORM_OUT_OF_RANGE;
    }
    settings_session session(file_, fault);
    if (const platform_code failure = begin_change(session)) {
        return failure;
    }
    if (const platform_code failure = store_attribute(session.connection(), attribute)) {
        return failure;
    }
    return session.commit();
}

platform_code settings_database::remove_attribute(int language_id, int attribute, std::string& fault) {
    settings_session session(file_, fault);
    if (const platform_code failure = begin_change(session)) {
        return failure;
    }
    if (const platform_code failure =
            velarion::remove_attribute(session.connection(), language_id, attribute)) {
        return failure;
    }
    return session.connection().changed_rows() == 0 ? fail_not_stored(language_id, attribute, fault)
                                                    : session.commit();
}

platform_code settings_database::begin_change(settings_session& session) const {
    if (file_.empty()) {
        return session.fail(PLATFORM_NO_FOLDER, "no folder; set PANEL_PLATFORM_DIR to one");
    }
    if (file_ == default_file()) {
        if (const platform_code failure = make_platform_folder()) {
            return session.fail(failure, "its folder cannot be made; check PANEL_PLATFORM_DIR");
        }
    }
    return session.begin_writing();
}

} // namespace velarion
