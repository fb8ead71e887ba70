#ifndef SUBCOMMAND_H
#define SUBCOMMAND_H

#include <string>
#include <vector>

namespace velarion {

enum exit_status : int {
    EXIT_GOOD = 0,
    EXIT_CATALOGUE_FAULT = 1, ///< the catalogue, or what is to go into it, has errors
    EXIT_USAGE = 2,
    EXIT_FILE_FAULT = 3 ///< a file cannot be read or written
};

/** One subcommand: what it is called, and what it does with the words behind its name. */
struct subcommand {
    const char* name;
    const char* summary; ///< a line of --help
    int (*run)(const std::vector<std::string>& arguments);
};

/** What a build calls: needs neither toolkit nor other libraries. */
std::vector<subcommand> build_subcommands();
/** What people call who write and draw; none where the program is built without a toolkit. */
std::vector<subcommand> authoring_subcommands();

/** Tells on standard error why a file cannot be read or written. @return EXIT_FILE_FAULT */
int file_fault(const std::string& fault);

} // namespace velarion

#endif
