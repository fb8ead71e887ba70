#ifndef FONT_LOOK_H
#define FONT_LOOK_H

#include "look_options.h"
#include "panel_fonts.h"

#include <optional>
#include <string>
#include <vector>

namespace velarion {

/** What commands that look at texts in their fonts take: the languages, and a device's fonts. */
struct font_look {
    look_options look;
    std::string device_tree = {};
    std::vector<std::string> wanted_languages = {};
    std::vector<panel_language> languages = {}; ///< found by read_font_look()
};

void add_font_look_options(command_options& options, font_look& line);

/**
 * Reads the command line and finds the languages that it names; faults of both are told.
 *
 * @return what the command ends with, or nothing when it is to go on
 */
std::optional<int> read_font_look(command_options& options, const std::vector<std::string>& arguments,
                                  font_look& line, diagnostics& report);

} // namespace velarion

#endif
