#include "build_subcommands.h"
#include "catalogue_options.h"
#include "id_header_writer.h"
#include "output_folder.h"

#include <iostream>

namespace velarion {

int run_header_command(const std::vector<std::string>& arguments) {
    catalogue_options line;
    std::string output;
    command_options options(
        "header", "Writes a C++ header with a constant for the id of each message and image, such as\n"
                  "MSG_NORMAL_TITLE_COPY. A header that would not change is not touched.");
    add_catalogue_options(options, line);
    options.require("output", "FILE", output, "the header");
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    diagnostics report(std::cerr);
    std::string fault = apply_catalogue_options(line, report);
    if (!fault.empty()) {
        return options.usage_fault(fault);
    }
    const std::vector<catalogue_message> messages = read_message_list(line.catalogue, report);
    const std::vector<catalogue_image> images = read_image_catalogue(line.catalogue, report);
    report.write_summary();
    if (report.error_count() != 0) {
        return EXIT_CATALOGUE_FAULT;
    }
    return write_named_file(output, id_header(messages, images), fault) ? EXIT_GOOD : file_fault(fault);
}

} // namespace velarion
