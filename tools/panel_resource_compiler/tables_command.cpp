#include "build_subcommands.h"
#include "catalogue_options.h"
#include "ignore_list.h"
#include "image_table_writer.h"
#include "keyboard_rules.h"
#include "message_table_writer.h"
#include "option_pack.h"
#include "output_folder.h"

#include <iostream>

namespace velarion {

namespace {

struct tables_line {
    catalogue_options catalogue;
    std::string pack;
    std::string output;
    bool leaves_empty = false;
};

void add_output_option(command_options& options, tables_line& line) {
    options.require("output", "DIR", line.output,
                    "where to write; made when missing; links inside are not followed");
}

/**
 * Reads the command line and the catalogue, and writes nothing while that has errors.
 *
 * @param read   reads what the command needs
 * @param write  writes it into line.output
 */
template <typename READ, typename WRITE>
int run_writer(command_options& options, const std::vector<std::string>& arguments, const tables_line& line,
               READ read, WRITE write) {
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    diagnostics report(std::cerr);
    std::string fault = apply_catalogue_options(line.catalogue, report);
    if (!fault.empty()) {
        return options.usage_fault(fault);
    }
    use_ignore_list(line.catalogue.catalogue, report);
    auto source = read(report);
    report.write_summary();
    if (report.error_count() != 0) {
        return EXIT_CATALOGUE_FAULT;
    }
    if (!output_folder(line.output).make(fault) || !write(source, fault)) {
        return file_fault(fault);
    }
    return EXIT_GOOD;
}

struct pack_source {
    message_catalogue messages;
    option_pack pack;
};

/** Fills the rows without a text, if wanted, and tells how many they are. */
void complete_pack(const tables_line& line, pack_source& source) {
    std::cout << "pack " << source.pack.language_id << ": " << source.pack.texts.size()
              << " rows with texts of its own, ";
    if (line.leaves_empty) {
        std::cout << "none filled\n";
    } else {
        std::cout << fill_option_pack(source.messages, source.pack) << " filled with English ones\n";
    }
}

} // namespace

int run_message_tables_command(const std::vector<std::string>& arguments) {
    tables_line line;
    command_options options("message-tables", "Writes message_id_table.cpp and message_text_table.cpp.");
    add_catalogue_options(options, line.catalogue);
    add_output_option(options, line);
    return run_writer(
        options, arguments, line,
        [&line](diagnostics& report) { return read_message_catalogue(line.catalogue.catalogue, report); },
        [&line](const message_catalogue& catalogue, std::string& fault) {
            return write_message_tables(catalogue, line.output, fault);
        });
}

int run_image_tables_command(const std::vector<std::string>& arguments) {
    tables_line line;
    command_options options("image-tables", "Writes image_name_table.cpp.");
    add_catalogue_options(options, line.catalogue);
    add_output_option(options, line);
    return run_writer(
        options, arguments, line,
        [&line](diagnostics& report) { return read_image_catalogue(line.catalogue.catalogue, report); },
        [&line](const std::vector<catalogue_image>& images, std::string& fault) {
            return write_image_table(images, line.output, fault);
        });
}

int run_pack_command(const std::vector<std::string>& arguments) {
    tables_line line;
    command_options options(
        "pack", "Writes option_pack.cpp and the pack's other files below tree/panel/, and removes\n"
                "what an earlier build of the pack wrote there and this one does not. Rows without\n"
                "a text get the English one, and how many is printed.");
    add_catalogue_options(options, line.catalogue);
    options.require("pack", "DIR", line.pack, "pack folder, named like its language id");
    add_output_option(options, line);
    options.flag("no-fill", line.leaves_empty,
                 "leaves rows without a text; the panel shows their messages' names");
    return run_writer(
        options, arguments, line,
        [&line](diagnostics& report) {
            pack_source source;
            source.messages = read_message_catalogue(line.catalogue.catalogue, report);
            source.pack = read_option_pack(line.pack, source.messages, report);
            check_keyboards(line.pack + "/keymap", std::to_string(source.pack.language_id), report);
            return source;
        },
        [&line](pack_source& source, std::string& fault) {
            complete_pack(line, source);
            return write_option_pack(source.pack, line.output, fault);
        });
}

} // namespace velarion
