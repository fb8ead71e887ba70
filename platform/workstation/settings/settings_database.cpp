#include "settings_database.h"

#include "known_settings.h"
#include "platform_codes.h"
#include "platform_folder.h"
#include "settings_session.h"
#include "settings_store.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace panel_platform {

namespace {

const std::size_t LONGEST_ATTRIBUTE = ENT_SET_MESSAGE_SIZE - 1;
const char SELECT_SETTING[] = "SELECT grp, item, width, name, value FROM setting ";

std::string default_file() {
    const std::string folder = platform_folder();
    return folder.empty() ? folder : folder + "/settings.db";
}

std::string key_of(std::uint32_t group, std::uint32_t item) {
    char key[32];
    std::snprintf(key, sizeof key, "0x%08lX:0x%08lX", static_cast<unsigned long>(group),
                  static_cast<unsigned long>(item));
    return key;
}

std::string describe(const SETTING& setting) {
    return setting.name + " (" + key_of(setting.group, setting.item) + ")";
}

std::string describe(int language_id, int attribute) {
    return "attribute " + std::to_string(attribute) + " of language " + std::to_string(language_id);
}

std::vector<sql_value> numbers(std::int64_t first, std::int64_t second) {
    return {first, second};
}

SETTING default_of(const KNOWN_SETTING& known) {
    return {known.group, known.item, known.width, known.name, known.default_value, false};
}

std::int64_t largest_of(int width) {
    return (std::int64_t(1) << width) - 1;
}

bool is_width(std::int64_t width) {
    return width == 8 || width == 16 || width == 32;
}

bool is_name(const std::string& name) {
    const auto is_letter = [](char c) { return c >= 'a' && c <= 'z'; };
    const auto is_later = [&](char c) { return is_letter(c) || (c >= '0' && c <= '9') || c == '_'; };
    return !name.empty() && is_letter(name[0]) && std::all_of(name.begin(), name.end(), is_later);
}

bool parse_number(const char*& text, std::uint32_t& number) {
    if (text[0] != '0' || (text[1] != 'x' && text[1] != 'X') ||
        !std::isxdigit(static_cast<unsigned char>(text[2]))) {
        return false;
    }
    char* end = nullptr;
    errno = 0;
    const unsigned long long value = std::strtoull(text, &end, 16);
    text = end;
    number = static_cast<std::uint32_t>(value);
    return errno == 0 && value <= 0xffffffffULL;
}

bool parse_key(const std::string& key, std::uint32_t& group, std::uint32_t& item) {
    const char* text = key.c_str();
    return parse_number(text, group) && *text++ == ':' && parse_number(text, item) &&
           text == key.c_str() + key.size();
}

/** Takes a row only when its value fits its width and its width is the one of the known setting. */
bool decode(const settings_row& row, SETTING& setting) {
    std::int64_t group = 0;
    std::int64_t item = 0;
    std::int64_t width = 0;
    std::int64_t value = 0;
    if (!row.integer(0, group) || !row.integer(1, item) || !row.integer(2, width) || !row.integer(4, value) ||
        group < 0 || group > largest_of(32) || item < 0 || item > largest_of(32) || !is_width(width) ||
        value < 0 || value > largest_of(static_cast<int>(width))) {
        return false;
    }
    setting = {static_cast<std::uint32_t>(group), static_cast<std::uint32_t>(item),
               static_cast<int>(width),           row.text(3),
               static_cast<std::uint32_t>(value), true};
    const KNOWN_SETTING* const known = find_known_setting(setting.group, setting.item);
    if (known) {
        setting.name = known->name;
    }
    return !known || known->width == setting.width;
}

int take_setting(settings_session& session, const settings_row& row, SETTING& setting) {
    if (decode(row, setting)) {
        return PLATFORM_OK;
    }
    return session.fail(PLATFORM_STORE_DAMAGED, "the row of \"" + row.text(3) +
                                                    "\" holds no number of the setting's width; reset the "
                                                    "setting");
}

/** Reads within a session. @param is_found  whether there is a row. */
int read_row(settings_session& session, std::uint32_t group, std::uint32_t item, SETTING& setting,
             bool& is_found) {
    const std::string sql = std::string(SELECT_SETTING) + "WHERE grp = ? AND item = ?";
    return session.run(sql.c_str(), numbers(group, item), [&](const settings_row& row) {
        SETTING decoded;
        const int code = take_setting(session, row, decoded);
        if (code == PLATFORM_OK) {
            is_found = true;
            setting = decoded;
        }
        return code;
    });
}

int fail_unknown(const std::string& key, std::string& fault) {
    fault = "\"" + key + "\" is no setting; give the name of a listed one, or its 0xGROUP:0xITEM";
    return PLATFORM_UNKNOWN_ITEM;
}

/** Turns a key into numbers; @p session looks a name up that is not known, and may be null. */
int resolve(const std::string& key, settings_session* session, std::uint32_t& group, std::uint32_t& item,
            std::string& fault) {
    const KNOWN_SETTING* const known = find_known_setting(key);
    if (known) {
        group = known->group;
        item = known->item;
        return PLATFORM_OK;
    }
    if (parse_key(key, group, item)) {
        return PLATFORM_OK;
    }
    bool is_found = false;
    int code = PLATFORM_OK;
    if (session) {
        code = session->run("SELECT grp, item FROM setting WHERE name = ?", {key}, [&](const auto& row) {
            std::int64_t values[2] = {0, 0};
            is_found = row.integer(0, values[0]) && row.integer(1, values[1]);
            group = static_cast<std::uint32_t>(values[0]);
            item = static_cast<std::uint32_t>(values[1]);
            return static_cast<int>(PLATFORM_OK);
        });
    }
    return code == PLATFORM_OK && !is_found ? fail_unknown(key, fault) : code;
}

/** Finds what a change is about without minding a damaged row of a known setting. */
int find_for_change(settings_session& session, const std::string& key, SETTING& setting, std::string& fault) {
    std::uint32_t group = 0;
    std::uint32_t item = 0;
    const int code = resolve(key, &session, group, item, fault);
    if (code != PLATFORM_OK) {
        return code;
    }
    if (const KNOWN_SETTING* const known = find_known_setting(group, item)) {
        setting = default_of(*known);
        return PLATFORM_OK;
    }
    bool is_found = false;
    const int read_code = read_row(session, group, item, setting, is_found);
    return read_code == PLATFORM_OK && !is_found ? fail_unknown(key, fault) : read_code;
}

int store(settings_session& session, const SETTING& setting) {
    return session.run(
        "INSERT OR REPLACE INTO setting (grp, item, width, name, value) VALUES (?, ?, ?, ?, ?)",
        {std::int64_t(setting.group), std::int64_t(setting.item), std::int64_t(setting.width), setting.name,
         std::int64_t(setting.value)});
}

int check_value(const SETTING& setting, std::int64_t value, std::string& fault) {
    if (value >= 0 && value <= largest_of(setting.width)) {
        return PLATFORM_OK;
    }
    fault = std::to_string(value) + " does not fit " + describe(setting) + "; it takes 0 to " +
            std::to_string(largest_of(setting.width));
    return PLATFORM_OUT_OF_RANGE;
}

int check_new(const SETTING& setting, std::string& fault) {
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
        fault = describe(setting) + " exists already; write its value instead";
        return PLATFORM_EXISTS;
    }
    return check_value(setting, setting.value, fault);
}

/** The end of a change: stored as a whole when all went well. */
int finish(settings_session& session, int code) {
    return code == PLATFORM_OK ? session.commit() : code;
}

} // namespace

settings_database::settings_database()
    : file_(default_file()) {}

settings_database::settings_database(const std::string& file)
    : file_(file) {}

int settings_database::list(std::vector<SETTING>& settings, std::string& fault) const {
    std::vector<SETTING> known;
    std::for_each(KNOWN_SETTINGS, KNOWN_SETTINGS + KNOWN_SETTING_NUMBER,
                  [&](const KNOWN_SETTING& setting) { known.push_back(default_of(setting)); });
    settings = known;
    settings_session session(file_, fault);
    int code = session.begin_reading();
    if (code == PLATFORM_OK) {
        const std::string sql = std::string(SELECT_SETTING) + "ORDER BY grp, item";
        code = session.run(sql.c_str(), {}, [&](const settings_row& row) {
            SETTING setting;
            const int row_code = take_setting(session, row, setting);
            const auto place = std::find_if(settings.begin(), settings.end(), [&](const SETTING& other) {
                return other.group == setting.group && other.item == setting.item;
            });
            place == settings.end() ? settings.push_back(setting) : void(*place = setting);
            return row_code;
        });
    }
    if (code == PLATFORM_OK || code == PLATFORM_NOT_FOUND) {
        return PLATFORM_OK;
    }
    settings = known;
    return code;
}

int settings_database::find(const std::string& key, SETTING& setting, std::string& fault) const {
    std::uint32_t group = 0;
    std::uint32_t item = 0;
    std::string session_fault;
    int code = resolve(key, nullptr, group, item, session_fault);
    if (code != PLATFORM_OK) {
        settings_session session(file_, fault);
        code = session.begin_reading();
        if (code == PLATFORM_NOT_FOUND) {
            return fail_unknown(key, fault);
        }
        code = code == PLATFORM_OK ? resolve(key, &session, group, item, fault) : code;
    }
    return code == PLATFORM_OK ? read(group, item, setting, fault) : code;
}

int settings_database::read(std::uint32_t group, std::uint32_t item, SETTING& setting,
                            std::string& fault) const {
    settings_session session(file_, fault);
    bool is_found = false;
    int code = session.begin_reading();
    if (code == PLATFORM_OK) {
        code = read_row(session, group, item, setting, is_found);
    } else if (code == PLATFORM_NOT_FOUND) {
        code = PLATFORM_OK;
    }
    if (is_found) {
        return code;
    }
    if (const KNOWN_SETTING* const known = find_known_setting(group, item)) {
        setting = default_of(*known);
        return code;
    }
    return code == PLATFORM_OK ? fail_unknown(key_of(group, item), fault) : code;
}

int settings_database::write(const std::string& key, std::int64_t value, std::string& fault) {
    settings_session session(file_, fault);
    SETTING setting;
    int code = begin_change(session);
    if (code == PLATFORM_OK) {
        code = find_for_change(session, key, setting, fault);
    }
    if (code == PLATFORM_OK) {
        code = check_value(setting, value, fault);
    }
    if (code == PLATFORM_OK) {
        setting.value = static_cast<std::uint32_t>(value);
        code = store(session, setting);
    }
    return finish(session, code);
}

int settings_database::add(const SETTING& setting, std::string& fault) {
    int code = check_new(setting, fault);
    if (code != PLATFORM_OK) {
        return code;
    }
    settings_session session(file_, fault);
    code = begin_change(session);
    if (code == PLATFORM_OK) {
        code = session.run("SELECT 1 FROM setting WHERE (grp = ? AND item = ?) OR name = ?",
                           {std::int64_t(setting.group), std::int64_t(setting.item), setting.name},
                           [&](const settings_row&) {
                               fault = describe(setting) + " exists already; write its value instead";
                               return static_cast<int>(PLATFORM_EXISTS);
                           });
    }
    return finish(session, code == PLATFORM_OK ? store(session, setting) : code);
}

int settings_database::reset(const std::string& key, std::string& fault) {
    settings_session session(file_, fault);
    std::uint32_t group = 0;
    std::uint32_t item = 0;
    int code = begin_change(session);
    if (code == PLATFORM_OK) {
        code = resolve(key, &session, group, item, fault);
    }
    if (code == PLATFORM_OK) {
        code = session.run("DELETE FROM setting WHERE grp = ? AND item = ?", numbers(group, item));
    }
    if (code == PLATFORM_OK && session.changed_rows() == 0 && !find_known_setting(group, item)) {
        code = fail_unknown(key, fault);
    }
    return finish(session, code);
}

int settings_database::list_attributes(std::vector<LANGUAGE_ATTRIBUTE>& attributes,
                                       std::string& fault) const {
    attributes.clear();
    settings_session session(file_, fault);
    int code = session.begin_reading();
    if (code == PLATFORM_OK) {
        code = session.run("SELECT language_id, attribute, text FROM language_attribute ORDER BY 1, 2", {},
                           [&](const settings_row& row) {
                               std::int64_t language_id = 0;
                               std::int64_t attribute = 0;
                               row.integer(0, language_id);
                               row.integer(1, attribute);
                               attributes.push_back(
                                   {static_cast<int>(language_id), static_cast<int>(attribute), row.text(2)});
                               return static_cast<int>(PLATFORM_OK);
                           });
    }
    if (code == PLATFORM_OK || code == PLATFORM_NOT_FOUND) {
        return PLATFORM_OK;
    }
    attributes.clear();
    return code;
}

int settings_database::get_attribute(int language_id, int attribute, std::string& text,
                                     std::string& fault) const {
    settings_session session(file_, fault);
    bool is_found = false;
    std::string found;
    int code = session.begin_reading();
    if (code == PLATFORM_OK) {
        code = session.run("SELECT text FROM language_attribute WHERE language_id = ? AND attribute = ?",
                           numbers(language_id, attribute), [&](const settings_row& row) {
                               is_found = true;
                               found = row.text(0);
                               return static_cast<int>(PLATFORM_OK);
                           });
    }
    if (code == PLATFORM_NOT_FOUND || (code == PLATFORM_OK && !is_found)) {
        fault = describe(language_id, attribute) + " is not stored";
        return PLATFORM_NOT_FOUND;
    }
    if (code == PLATFORM_OK && found.size() > LONGEST_ATTRIBUTE) {
        return session.fail(PLATFORM_STORE_DAMAGED, describe(language_id, attribute) + " has " +
                                                        std::to_string(found.size()) +
                                                        " bytes; set or remove it");
    }
    if (code == PLATFORM_OK) {
        text = found;
    }
    return code;
}

int settings_database::set_attribute(const LANGUAGE_ATTRIBUTE& attribute, std::string& fault) {
    if (attribute.text.size() > LONGEST_ATTRIBUTE || attribute.text.find('\0') != std::string::npos) {
        fault = describe(attribute.language_id, attribute.attribute) + ": a text has up to " +
                std::to_string(LONGEST_ATTRIBUTE) + " bytes and no NUL; this one has " +
                std::to_string(attribute.text.size()) + " bytes";
        return PLATFORM_OUT_OF_RANGE;
    }
    settings_session session(file_, fault);
    int code = begin_change(session);
    if (code == PLATFORM_OK) {
        code = session.run(
            "INSERT OR REPLACE INTO language_attribute (language_id, attribute, text) VALUES (?, ?, ?)",
            {std::int64_t(attribute.language_id), std::int64_t(attribute.attribute), attribute.text});
    }
    return finish(session, code);
}

int settings_database::remove_attribute(int language_id, int attribute, std::string& fault) {
    settings_session session(file_, fault);
    int code = begin_change(session);
    if (code == PLATFORM_OK) {
        code = session.run("DELETE FROM language_attribute WHERE language_id = ? AND attribute = ?",
                           numbers(language_id, attribute));
    }
    if (code == PLATFORM_OK && session.changed_rows() == 0) {
        fault = describe(language_id, attribute) + " is not stored";
        code = PLATFORM_NOT_FOUND;
    }
    return finish(session, code);
}

int settings_database::begin_change(settings_session& session) const {
    if (file_.empty()) {
        return session.fail(PLATFORM_NO_FOLDER, "no folder; set PANEL_PLATFORM_DIR to one");
    }
    const int code = file_ == default_file() ? make_platform_folder() : static_cast<int>(PLATFORM_OK);
    return code == PLATFORM_OK ? session.begin_writing()
                               : session.fail(code, "its folder cannot be made; check PANEL_PLATFORM_DIR");
}

} // namespace panel_platform
