#include "subcommand.h"

#include <algorithm>
#include <iostream>

namespace velarion {

namespace {

constexpr std::size_t SUMMARY_COLUMN = 18;

std::vector<subcommand> all_subcommands() {
    std::vector<subcommand> all = build_subcommands();
    const std::vector<subcommand> more = authoring_subcommands();
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

void print_help() {
    std::cout
        << "panel_resource_compiler - the panel's catalogue: checked, worked on, and turned into what the "
           "library loads\n\n"
           "Usage: panel_resource_compiler COMMAND [OPTION...]\n\nCommands:\n";
    for (const subcommand& command : all_subcommands()) {
        const std::string name = "  " + std::string(command.name);
        std::cout << name << std::string(SUMMARY_COLUMN - name.size(), ' ') << command.summary << '\n';
    }
    std::cout
        << "\n\"panel_resource_compiler COMMAND --help\" tells more. Faults of a catalogue are reported as\n"
           "\"file:line:column: severity: text [check]\" on standard error.\n"
           "Exit codes: 0 good, 1 the catalogue has errors, 2 usage, 3 a file cannot be read or written.\n";
}

int usage_fault(const std::string& fault) {
    std::cerr << "panel_resource_compiler: " << fault << "; see panel_resource_compiler --help\n";
    return EXIT_USAGE;
}

int run(const std::vector<std::string>& arguments) {
    if (arguments.empty()) {
        return usage_fault("no command");
    }
    const std::string& name = arguments[0];
    if (name == "--help" || name == "-h") {
        print_help();
        return EXIT_GOOD;
    }
    if (name == "--version") {
        std::cout << "panel_resource_compiler " PANEL_VIEW_VERSION "\n";
        return EXIT_GOOD;
    }
    for (const subcommand& command : all_subcommands()) {
        if (name == command.name) {
            return command.run({arguments.begin() + 1, arguments.end()});
        }
    }
    return usage_fault("unknown command \"" + name + "\"");
}

} // namespace

int file_fault(const std::string& fault) {
    std::cerr << "panel_resource_compiler: " << fault << '\n';
    return EXIT_FILE_FAULT;
}

} // namespace velarion

int main(int argc, char** argv) {
    using namespace velarion;
    const int exit_code = run({argv + 1, argv + argc});
    return std::cout.flush() ? exit_code : file_fault("standard output cannot be written");
}
