#include "authoring_subcommands.h"
#include "contact_sheet.h"
#include "ignore_list.h"
#include "look_options.h"
#include "offscreen_application.h"
#include "picture_checks.h"
#include "rsvg_comparison.h"

#include <QFileInfo>

#include <algorithm>
#include <iostream>

namespace velarion {

namespace {

struct images_line {
    look_options look = {check_area::PICTURES};
    std::string pictures;
    std::string filter;
    std::string sheet;
    std::string compared_sheet;
    bool compares = false;
};

bool draw(const images_line& line, const picture_folder& folder, diagnostics& report, std::string& fault) {
    std::vector<std::string> chosen;
    std::copy_if(folder.names.begin(), folder.names.end(), std::back_inserter(chosen),
                 [&line](const std::string& name) { return name.find(line.filter) != std::string::npos; });
    return (!line.compares ||
            compare_with_rsvg(folder, chosen, QString::fromStdString(line.compared_sheet), report, fault)) &&
           (line.sheet.empty() ||
            write_contact_sheet(line.pictures, chosen, QString::fromStdString(line.sheet), fault));
}

int check(const images_line& line, diagnostics& report) {
    const std::string& catalogue = line.look.catalogue.catalogue;
    const auto ignored = use_ignore_list(catalogue, report);
    const std::vector<catalogue_image> images = read_image_catalogue(catalogue, report);
    if (report.error_count() != 0) {
        return finish_look(line.look, report);
    }
    const picture_folder folder(line.pictures);
    check_image_rows(catalogue, images, folder, report);
    check_picture_variants(folder, report);
    check_picture_contents(folder, report);
    std::string fault;
    if (!draw(line, folder, report, fault)) {
        return file_fault(fault);
    }
    ignored->report_unused(
        [&line, &report](const std::string& check, const std::string&) {
            return find_selectable_check(check)->area == check_area::PICTURES && !report.is_disabled(check) &&
                   (check != CHECK_RSVG || (line.compares && line.filter.empty()));
        },
        report);
    return finish_look(line.look, report);
}

void declare(command_options& options, images_line& line) {
    add_look_options(options, line.look);
    options.require("pictures", "DIR", line.pictures, "folder that holds the pictures");
    options.value("filter", "TEXT", line.filter, "draws and compares only files whose names hold the text");
    options.value("sheet", "FILE.png", line.sheet,
                  "draws the pictures on dark and on light ground; many fill\nFILE-01.png and so on");
    options.flag("compare-rsvg", line.compares, "compares each SVG picture with what rsvg-convert draws");
    options.value("rsvg-sheet", "FILE.png", line.compared_sheet,
                  "the same, and draws the worst: ours, rsvg, difference");
}

} // namespace

int run_images_command(const std::vector<std::string>& arguments) {
    images_line line;
    command_options options(
        "images",
        "Compares the image list with a folder of pictures, and looks at each picture: what is "
        "missing, what is\nthere twice, what the panel's toolkit does not draw as it is meant. Leaves "
        "out what DIR/ignore.tsv lists.");
    declare(options, line);
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    line.compares = line.compares || !line.compared_sheet.empty();
    diagnostics report(std::cerr);
    const std::string fault = apply_look_options(line.look, report);
    if (!fault.empty()) {
        return options.usage_fault(fault);
    }
    if (!QFileInfo(QString::fromStdString(line.pictures)).isDir()) {
        return file_fault(line.pictures + ": no such folder");
    }
    const offscreen_application application;
    return check(line, report);
}

} // namespace velarion
