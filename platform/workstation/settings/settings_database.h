#ifndef SETTINGS_DATABASE_H
#define SETTINGS_DATABASE_H

#include "panel_platform_export.h"
#include "platform_codes.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velarion {

class settings_session;

/** One device setting. */
struct device_setting {
    std::uint32_t group = 0;
    std::uint32_t item = 0;
    int width = 0;    ///< bits: 8, 16 or 32
    std::string name; ///< readable, unique: a lower-case letter, then lower-case letters, digits and "_"
    std::uint32_t value = 0;
    bool is_stored = false; ///< false: a known setting at its default
};

/** One attribute of a language. */
struct language_attribute {
    int language_id = 0;
    int attribute = 0;
    std::string text; ///< up to 107 bytes without NUL
};

/**
 * The settings store of a workstation: device settings and language attributes in one file.
 *
 * Known settings exist with their defaults while nothing is stored; further ones can be added.
 * The file is opened for each operation, so changes of other processes are seen at once, and every
 * change replaces the file: all of it is stored or none. Reading waits for no change and needs neither
 * room nor the right to write.
 *
 * On failure @p fault receives one clear sentence with the file or the name it is about; it is unchanged
 * otherwise. A change that returns PLATFORM_NOT_DURABLE is stored, but a loss of power may undo it. Any
 * thread.
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
    platform_code list(std::vector<device_setting>& settings, std::string& fault) const;

    /**
     * Finds a setting by its name or by "0xGROUP:0xITEM".
     * @param setting  receives it; on failure as read() leaves it, unchanged when the key names nothing
     */
    platform_code find(const std::string& key, device_setting& setting, std::string& fault) const;

    /**
     * Reads a setting.
     * @param setting  receives it; when the store cannot be read, a known setting at its default; else
     *                 unchanged
     * @return PLATFORM_UNKNOWN_ITEM when it is neither known nor stored
     */
    platform_code read(std::uint32_t group, std::uint32_t item, device_setting& setting,
                       std::string& fault) const;

    /** Stores a value. @return PLATFORM_OUT_OF_RANGE unless it is 0 to the largest of the setting's width */
    platform_code write(const std::string& key, std::int64_t value, std::string& fault);

    /** Stores a setting that does not exist yet. @return PLATFORM_EXISTS when its numbers or name are taken
     */
    platform_code add(const device_setting& setting, std::string& fault);

    /** Removes what is stored: a known setting is at its default again, any other one is gone. */
    platform_code reset(const std::string& key, std::string& fault);

    /** Lists by language and attribute. @param attributes  receives them; empty on failure */
    platform_code list_attributes(std::vector<language_attribute>& attributes, std::string& fault) const;

    /** @param text  receives the attribute; unchanged on failure. @return PLATFORM_NOT_FOUND when not stored
     */
    platform_code get_attribute(int language_id, int attribute, std::string& text, std::string& fault) const;

    /** @return PLATFORM_OUT_OF_RANGE when the text is longer than 107 bytes or holds a NUL */
    platform_code set_attribute(const language_attribute& attribute, std::string& fault);

    /** @return PLATFORM_NOT_FOUND when the attribute is not stored */
    platform_code remove_attribute(int language_id, int attribute, std::string& fault);

private:
    platform_code begin_change(settings_session& session) const;

    std::string file_;
};

} // namespace velarion

#endif
