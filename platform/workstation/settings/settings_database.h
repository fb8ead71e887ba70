#ifndef SETTINGS_DATABASE_H
#define SETTINGS_DATABASE_H

#include "panel_platform_export.h"

#include <cstdint>
#include <string>
#include <vector>

namespace panel_platform {

class settings_session;

/** One device setting. */
struct SETTING {
    std::uint32_t group = 0;
    std::uint32_t item = 0;
    int width = 0;    ///< bits: 8, 16 or 32
    std::string name; ///< readable, unique: a lower-case letter, then lower-case letters, digits and "_"
    std::uint32_t value = 0;
    bool is_stored = false; ///< false: a known setting at its default
};

/** One attribute of a language. */
struct LANGUAGE_ATTRIBUTE {
    int language_id = 0;
    int attribute = 0;
    std::string text; ///< up to 107 bytes without NUL
};

/**
 * The settings store of a workstation: device settings and language attributes in one file.
 *
 * Known settings exist with their defaults while nothing is stored; further ones can be added.
 * The file is opened for each operation, so changes of other processes are seen at once, and every
 * change is one transaction: all of it is stored or none.
 *
 * Every operation returns PLATFORM_OK (0) or a code of platform_codes.h. On failure @p fault receives one
 * clear sentence with the file or the name it is about; it is unchanged otherwise. Any thread.
 */
class PANEL_PLATFORM_EXPORT settings_database {
public:
    /** Uses settings.db in the platform folder. */
    settings_database();
    /** @param file  path of the store; created with the first change, its folder must exist by then */
    explicit settings_database(const std::string& file);

    /** @return the store's path; empty when the platform folder is unknown */
    const std::string& file() const { return file_; }

    /**
     * Lists all settings: the known ones first, then the others by group and item.
     * @param settings  receives them; on failure the known settings at their defaults
     */
    int list(std::vector<SETTING>& settings, std::string& fault) const;

    /**
     * Finds a setting by its name or by "0xGROUP:0xITEM".
     * @param setting  receives it; on failure as read() leaves it, unchanged when the key names nothing
     */
    int find(const std::string& key, SETTING& setting, std::string& fault) const;

    /**
     * Reads a setting.
     * @param setting  receives it; when the store cannot be read, a known setting at its default; else
     *                 unchanged
     * @return PLATFORM_UNKNOWN_ITEM when it is neither known nor stored
     */
    int read(std::uint32_t group, std::uint32_t item, SETTING& setting, std::string& fault) const;

    /** Stores a value. @return PLATFORM_OUT_OF_RANGE unless it is 0 to the largest of the setting's width */
    int write(const std::string& key, std::int64_t value, std::string& fault);

    /** Stores a setting that does not exist yet. @return PLATFORM_EXISTS when its numbers or name are taken
     */
    int add(const SETTING& setting, std::string& fault);

    /** Removes what is stored: a known setting is at its default again, any other one is gone. */
    int reset(const std::string& key, std::string& fault);

    /** Lists by language and attribute. @param attributes  receives them; empty on failure */
    int list_attributes(std::vector<LANGUAGE_ATTRIBUTE>& attributes, std::string& fault) const;

    /** @param text  receives the attribute; unchanged on failure. @return PLATFORM_NOT_FOUND when not stored
     */
    int get_attribute(int language_id, int attribute, std::string& text, std::string& fault) const;

    /** @return PLATFORM_OUT_OF_RANGE when the text is longer than 107 bytes or holds a NUL */
    int set_attribute(const LANGUAGE_ATTRIBUTE& attribute, std::string& fault);

    /** @return PLATFORM_NOT_FOUND when the attribute is not stored */
    int remove_attribute(int language_id, int attribute, std::string& fault);

private:
    int begin_change(settings_session& session) const;

    std::string file_;
};

} // namespace panel_platform

#endif
