#include "build_subcommands.h"
#include "catalogue_figures.h"
#include "catalogue_options.h"
#include "option_pack.h"

#include <filesystem>
#include <iostream>

namespace velarion {

namespace {

void check_all_packs(const std::string& folder, const message_catalogue& catalogue, diagnostics& report) {
    std::error_code no_packs;
    for (const auto& entry : std::filesystem::directory_iterator(folder + "/packs", no_packs)) {
        if (entry.is_directory()) {
            read_option_pack(entry.path().string(), catalogue, report);
        }
    }
}

} // namespace

int run_check_command(const std::vector<std::string>& arguments) {
    catalogue_options line;
    command_options options(
        "check", "Checks messages, texts, images and every pack below DIR/packs, and compares them\n"
                 "with DIR/figures.tsv if there is one. Writes no file.");
    add_catalogue_options(options, line);
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    diagnostics report(std::cerr);
    const std::string fault = apply_catalogue_options(line, report);
    if (!fault.empty()) {
        return options.usage_fault(fault);
    }
    const message_catalogue messages = read_message_catalogue(line.catalogue, report);
    const std::vector<catalogue_image> images = read_image_catalogue(line.catalogue, report);
    check_all_packs(line.catalogue, messages, report);
    if (report.error_count() == 0) {
        check_catalogue_figures(line.catalogue, messages, images, report);
    }
    report.write_summary();
    return report.error_count() == 0 ? EXIT_GOOD : EXIT_CATALOGUE_FAULT;
}

} // namespace velarion
