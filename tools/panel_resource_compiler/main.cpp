#include "catalogue_figures.h"
#include "diagnostics.h"
#include "image_catalogue.h"
#include "image_table_writer.h"
#include "message_catalogue.h"
#include "message_table_writer.h"
#include "option_pack.h"
#include "output_folder.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <vector>

namespace velarion {

namespace {

enum exit_status { EXIT_GOOD = 0, EXIT_CATALOGUE_FAULT = 1, EXIT_USAGE = 2, EXIT_FILE_FAULT = 3 };

const std::string NO_CLASS = "-Wno-";
const std::string ERROR_CLASS = "-Werror=";
const std::array<const char*, 4> WARNING_CLASSES = {WARNING_PLACEHOLDERS, WARNING_FONTS, WARNING_EXTENSIONS,
                                                    WARNING_STANDARD};

constexpr char HELP[] =
    R"(panel_resource_compiler - turns the panel's catalogue into what the library loads

Usage:
  panel_resource_compiler check    --catalogue DIR [-W...]
  panel_resource_compiler messages --catalogue DIR --output DIR [-W...]
  panel_resource_compiler images   --catalogue DIR --output DIR [-W...]
  panel_resource_compiler pack     --catalogue DIR --pack DIR --output DIR [--no-fill] [-W...]

Commands:
  check      checks messages, texts, images and every pack below DIR/packs, and compares them with
             DIR/figures.tsv if there is one; writes nothing
  messages   writes message_id_table.cpp and message_text_table.cpp
  images     writes image_name_table.cpp
  pack       writes option_pack.cpp and the pack's other files below tree/panel/, and removes what
             an earlier build of the pack wrote there and this one does not; rows without a
             text get the English one, and how many is printed

Options:
  --catalogue DIR      folder that holds messages.tsv, texts/<language>.tsv and images.tsv
  --pack DIR           pack folder, named like its language id
  --output DIR         where to write; made when missing; links inside are not followed
  --no-fill            leaves rows of a pack without a text; the panel shows their messages' names
  -Wno-CLASS           leaves out the warnings of a class: placeholders, fonts, extensions, standard
  -Werror=CLASS        makes them errors
  --help, --version

Faults are reported as "file:line: error: ..." on standard error.
Exit codes: 0 good, 1 the catalogue has errors, 2 usage, 3 a file cannot be written.
)";

struct command_line {
    std::string command;
    std::string catalogue;
    std::string pack;
    std::string output;
    bool is_filled = true;
    std::vector<std::string> disabled_classes;
    std::vector<std::string> error_classes;
};

bool starts_with(const std::string& text, const std::string& prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

bool read_warning_class(const std::string& name, std::vector<std::string>& classes, std::string& fault) {
    if (std::find(WARNING_CLASSES.begin(), WARNING_CLASSES.end(), name) == WARNING_CLASSES.end()) {
        fault = "unknown warning class \"" + name + "\"; known are";
        for (std::size_t i = 0; i < WARNING_CLASSES.size(); ++i) {
            fault += std::string(i == 0 ? " " : ", ") + WARNING_CLASSES[i];
        }
        return false;
    }
    classes.push_back(name);
    return true;
}

bool read_option(const std::vector<std::string>& arguments, std::size_t& i, command_line& line,
                 std::string& fault) {
    const std::string& argument = arguments[i];
    if (starts_with(argument, NO_CLASS)) {
        return read_warning_class(argument.substr(NO_CLASS.size()), line.disabled_classes, fault);
    }
    if (starts_with(argument, ERROR_CLASS)) {
        return read_warning_class(argument.substr(ERROR_CLASS.size()), line.error_classes, fault);
    }
    if (argument == "--no-fill" && line.command == "pack") {
        line.is_filled = false;
        return true;
    }
    std::string* value = argument == "--catalogue" ? &line.catalogue
                         : argument == "--pack"    ? &line.pack
                         : argument == "--output"  ? &line.output
                                                   : nullptr;
    if (!value) {
        fault = "unknown option \"" + argument + "\"";
        return false;
    }
    if (i + 1 == arguments.size()) {
        fault = argument + " needs a folder";
        return false;
    }
    *value = arguments[++i];
    return true;
}

bool read_command_line(const std::vector<std::string>& arguments, command_line& line, std::string& fault) {
    if (arguments.empty()) {
        fault = "no command";
        return false;
    }
    line.command = arguments[0];
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (!read_option(arguments, i, line, fault)) {
            return false;
        }
    }
    const bool writes = line.command == "messages" || line.command == "images" || line.command == "pack";
    if (!writes && line.command != "check") {
        fault = "unknown command \"" + line.command + "\"";
    } else if (line.catalogue.empty()) {
        fault = "--catalogue is missing";
    } else if (writes && line.output.empty()) {
        fault = "--output is missing";
    } else if (line.command == "pack" && line.pack.empty()) {
        fault = "--pack is missing";
    }
    return fault.empty();
}

void check_all_packs(const std::string& folder, const message_catalogue& catalogue, diagnostics& report) {
    std::error_code no_packs;
    for (const auto& entry : std::filesystem::directory_iterator(folder + "/packs", no_packs)) {
        if (entry.is_directory()) {
            read_option_pack(entry.path().string(), catalogue, report);
        }
    }
}

/** What a command works on, as far as it needs it. */
struct catalogue {
    message_catalogue messages;
    std::vector<catalogue_image> images;
    option_pack pack;
};

catalogue read_catalogue(const command_line& line, diagnostics& report) {
    catalogue read;
    if (line.command != "images") {
        read.messages = read_message_catalogue(line.catalogue, report);
    }
    if (line.command == "images" || line.command == "check") {
        read.images = read_image_catalogue(line.catalogue, report);
    }
    if (line.command == "pack") {
        read.pack = read_option_pack(line.pack, read.messages, report);
    } else if (line.command == "check") {
        check_all_packs(line.catalogue, read.messages, report);
        if (report.error_count() == 0) {
            check_catalogue_figures(line.catalogue, read.messages, read.images, report);
        }
    }
    return read;
}

/** Fills the rows without a text, if wanted, and tells how many they are. */
void complete_pack(const command_line& line, catalogue& read) {
    const std::size_t own = read.pack.texts.size();
    std::cout << "pack " << read.pack.language_id << ": " << own << " rows with texts of its own, ";
    if (line.is_filled) {
        std::cout << fill_option_pack(read.messages, read.pack) << " filled with English ones\n";
    } else {
        std::cout << "none filled\n";
    }
}

bool write_output(const command_line& line, const catalogue& read, std::string& fault) {
    if (!output_folder(line.output).make(fault)) {
        return false;
    }
    return line.command == "pack"     ? write_option_pack(read.pack, line.output, fault)
           : line.command == "images" ? write_image_table(read.images, line.output, fault)
                                      : write_message_tables(read.messages, line.output, fault);
}

/** Writes nothing while the catalogue has errors. */
int run(const command_line& line) {
    diagnostics report(std::cerr);
    for (const std::string& name : line.disabled_classes) {
        report.disable_class(name);
    }
    for (const std::string& name : line.error_classes) {
        report.make_class_an_error(name);
    }
    catalogue read = read_catalogue(line, report);
    report.write_summary();
    if (report.error_count() != 0) {
        return EXIT_CATALOGUE_FAULT;
    }
    if (line.command == "pack") {
        complete_pack(line, read);
    }
    std::string fault;
    if (line.command != "check" && !write_output(line, read, fault)) {
        std::cerr << "panel_resource_compiler: " << fault << '\n';
        return EXIT_FILE_FAULT;
    }
    return EXIT_GOOD;
}

} // namespace

} // namespace velarion

int main(int argc, char** argv) {
    using namespace velarion;
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    for (const std::string& argument : arguments) {
        if (argument == "--help" || argument == "-h") {
            std::cout << HELP;
            return EXIT_GOOD;
        }
        if (argument == "--version") {
            std::cout << "panel_resource_compiler " PANEL_VIEW_VERSION "\n";
            return EXIT_GOOD;
        }
    }
    command_line line;
    std::string fault;
    if (!read_command_line(arguments, line, fault)) {
        std::cerr << "panel_resource_compiler: " << fault << "; see --help\n";
        return EXIT_USAGE;
    }
    return run(line);
}
