#ifndef CATALOGUE_OPTIONS_H
#define CATALOGUE_OPTIONS_H

#include "checks.h"
#include "command_options.h"
#include "diagnostics.h"

#include <string>
#include <vector>

namespace velarion {

/** The options of every command that reads a catalogue: --catalogue, -W and --all. */
struct catalogue_options {
    std::string catalogue;
    std::vector<std::string> warnings; ///< "no-CHECK" and "error=CHECK"
    bool shows_all = false;
};

/** @param area  whose checks the help tells */
void add_catalogue_options(command_options& options, catalogue_options& line,
                           check_area area = check_area::CATALOGUE);

/**
 * Lets the reports be as the options say.
 * @return a fault of usage, or nothing
 */
std::string apply_catalogue_options(const catalogue_options& line, diagnostics& report);

} // namespace velarion

#endif
