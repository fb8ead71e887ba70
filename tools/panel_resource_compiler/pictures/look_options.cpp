#include "look_options.h"

#include "findings_json.h"
#include "subcommand.h"

#include <algorithm>

namespace velarion {

namespace {

constexpr char ALL_WARNINGS[] = "warnings";

bool fails(const look_options& line, const finding& found) {
    const auto is_named = [&line](const std::string& name) {
        return std::find(line.failing.begin(), line.failing.end(), name) != line.failing.end();
    };
    return found.kind == severity::ERROR || is_named(found.check) ||
           (found.kind == severity::WARNING && is_named(ALL_WARNINGS));
}

} // namespace

void add_look_options(command_options& options, look_options& line) {
    add_catalogue_options(options, line.catalogue, line.area);
    options.values("fail-on", "CHECK", line.failing,
                   "ends with 1 also when the check, or \"warnings\", finds something");
    options.flag("json", line.is_json, "writes all findings as JSON to standard output");
}

std::string apply_look_options(const look_options& line, diagnostics& report) {
    for (const std::string& name : line.failing) {
        const catalogue_check* check = find_selectable_check(name);
        if (name != ALL_WARNINGS && (!check || check->area != line.area)) {
            return "unknown check \"" + name + "\"; known are " + ALL_WARNINGS + ", " +
                   selectable_check_names(line.area);
        }
    }
    if (line.is_json) {
        report.be_silent();
    }
    return apply_catalogue_options(line.catalogue, report);
}

int finish_look(const look_options& line, const diagnostics& report) {
    const bool is_failure = std::any_of(report.findings().begin(), report.findings().end(),
                                        [&line](const finding& found) { return fails(line, found); });
    if (line.is_json) {
        print_findings_json(report, !is_failure);
    } else {
        report.write_summary();
    }
    return is_failure ? EXIT_CATALOGUE_FAULT : EXIT_GOOD;
}

} // namespace velarion
