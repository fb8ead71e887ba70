#include "authoring_subcommands.h"
#include "catalogue_options.h"
#include "image_catalogue.h"
#include "picture_checks.h"
#include "picture_files_check.h"
#include "picture_report.h"
#include "picture_sheets.h"

#include <QFileInfo>
#include <QGuiApplication>

#include <iostream>

namespace velarion {

namespace {

struct images_line {
    catalogue_options catalogue;
    std::string pictures;
    std::string filter;
    std::string sheet;
    std::string compared_sheet;
    bool compares = false;
    bool is_json = false;
    std::vector<std::string> failing;
};

std::vector<std::string> chosen(const images_line& line) {
    std::vector<std::string> names;
    for (const std::string& name : picture_file_names(line.pictures)) {
        if (name.find(line.filter) != std::string::npos && name != "written_files.txt") {
            names.push_back(name);
        }
    }
    return names;
}

int check(const images_line& line, diagnostics& report) {
    const std::vector<catalogue_image> images = read_image_catalogue(line.catalogue.catalogue, report);
    if (report.error_count() != 0) {
        report.write_summary();
        return EXIT_CATALOGUE_FAULT;
    }
    std::string subject;
    use_picture_ignore_list(line.catalogue.catalogue, subject, report);
    check_picture_files(line.catalogue.catalogue, images, line.pictures, subject, report);
    std::string fault;
    const bool compares = line.compares || !line.compared_sheet.empty();
    if ((compares &&
         !compare_with_rsvg(line.pictures, chosen(line), QString::fromStdString(line.compared_sheet), subject,
                            report, fault)) ||
        (!line.sheet.empty() &&
         !write_contact_sheet(line.pictures, chosen(line), QString::fromStdString(line.sheet), fault))) {
        return file_fault(fault);
    }
    return finish_report(report, line.is_json, line.failing);
}

} // namespace

int run_images_command(const std::vector<std::string>& arguments) {
    images_line line;
    command_options options(
        "images", "Compares the image list with a folder of pictures, and looks at each picture: what is "
                  "missing, what is\nthere twice, what the panel's toolkit does not draw as it is meant.");
    options.require("catalogue", "DIR", line.catalogue.catalogue,
                    "folder that holds images.tsv, and ignore.tsv if there is one");
    options.require("pictures", "DIR", line.pictures, "folder that holds the pictures");
    options.value("filter", "TEXT", line.filter, "draws and compares only files whose names hold the text");
    options.value("sheet", "FILE.png", line.sheet,
                  "draws the pictures on dark and on light ground; many fill\nFILE-01.png and so on");
    options.flag("compare-rsvg", line.compares, "compares each SVG picture with what rsvg-convert draws");
    options.value("rsvg-sheet", "FILE.png", line.compared_sheet,
                  "the same, and draws the worst: ours, rsvg, difference");
    options.values("fail-on", "CHECK", line.failing,
                   "ends with 1 also when the check, or \"warnings\", finds something");
    options.flag("json", line.is_json, "writes the findings as JSON on standard output");
    options.flag("all", line.catalogue.shows_all, "shows all findings of each check, not only the first 20");
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    const std::string fault = unknown_check_of(line.failing);
    if (!fault.empty()) {
        return options.usage_fault(fault);
    }
    if (!QFileInfo(QString::fromStdString(line.pictures)).isDir()) {
        return file_fault(line.pictures + ": no such folder");
    }
    const offscreen_application application;
    diagnostics report(std::cerr);
    if (line.is_json) {
        report.be_silent();
    }
    if (line.catalogue.shows_all) {
        report.show_all();
    }
    return check(line, report);
}

} // namespace velarion
