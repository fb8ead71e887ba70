#include "catalogue_options.h"

#include <algorithm>
#include <iterator>

namespace velarion {

namespace {

const struct {
    const char* start;
    void (diagnostics::*apply)(const std::string& check);
} FORMS[] = {{"no-error=", &diagnostics::make_no_errors},
             {"no-", &diagnostics::disable},
             {"error=", &diagnostics::make_errors}};

bool starts_with(const std::string& text, const std::string& prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

std::string check_help(check_area area) {
    std::string help = "makes errors of what a check finds; the checks are";
    for (const catalogue_check* check = SELECTABLE_CHECKS; check->name; ++check) {
        if (check->area == area) {
            help += std::string("\n  ") + check->name + ": " + check->summary;
        }
    }
    return help;
}

} // namespace

void add_catalogue_options(command_options& options, catalogue_options& line, check_area area) {
    options.require("catalogue", "DIR", line.catalogue,
                    "folder that holds messages.tsv, texts/<language>.tsv and images.tsv");
    options.letter('W', "no-CHECK", line.warnings, "leaves out what a check finds");
    options.letter('W', "no-error=CHECK", line.warnings, "makes no errors of what a check finds");
    options.letter('W', "error=CHECK", line.warnings, check_help(area).c_str());
    options.flag("all", line.shows_all, "shows all findings of each check, not only the first 20");
}

std::string apply_catalogue_options(const catalogue_options& line, diagnostics& report) {
    if (line.shows_all) {
        report.show_all();
    }
    for (const std::string& warning : line.warnings) {
        const auto* form = std::find_if(std::begin(FORMS), std::end(FORMS), [&warning](const auto& each) {
            return starts_with(warning, each.start);
        });
        if (form == std::end(FORMS)) {
            return "unknown option \"-W" + warning + "\"";
        }
        const std::string check = warning.substr(std::string(form->start).size());
        if (!is_selectable_check(check)) {
            return "unknown check \"" + check + "\"; known are " + selectable_check_names();
        }
        (report.*form->apply)(check);
    }
    return {};
}

} // namespace velarion
