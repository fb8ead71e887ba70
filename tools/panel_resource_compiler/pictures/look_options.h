#ifndef LOOK_OPTIONS_H
#define LOOK_OPTIONS_H

#include "catalogue_options.h"

#include <string>
#include <vector>

namespace velarion {

/** The options of every command that looks at what is drawn: those of a catalogue, --fail-on and --json. */
struct look_options {
    check_area area;
    catalogue_options catalogue = {};
    std::vector<std::string> failing = {}; ///< checks, or "warnings"
    bool is_json = false;
};

void add_look_options(command_options& options, look_options& line);

/**
 * Lets the reports be as the options say.
 * @return a fault of usage, or nothing
 */
std::string apply_look_options(const look_options& line, diagnostics& report);

/** Writes the summary, or all findings as JSON. @return what the command ends with */
int finish_look(const look_options& line, const diagnostics& report);

} // namespace velarion

#endif
