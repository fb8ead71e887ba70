#include "build_subcommands.h"
#include "catalogue_figures.h"
#include "catalogue_options.h"
#include "catalogue_rules.h"
#include "catalogue_source.h"
#include "checks.h"
#include "findings_json.h"
#include "ignore_list.h"
#include "keyboard_rules.h"
#include "progress.h"
#include "quoted_name_rules.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <set>

namespace velarion {

namespace {

const struct {
    const char* name;
    check_class kind;
} CLASSES[] = {{"broken", check_class::BROKEN},
               {"missing", check_class::MISSING},
               {"stale", check_class::STALE},
               {"suspicious", check_class::SUSPICIOUS}};

struct check_line {
    catalogue_options catalogue;
    std::vector<std::string> languages;
    std::vector<std::string> keyboards;
    std::vector<std::string> failing;
    bool is_json = false;
    bool is_progress_wanted = false;
};

bool is_class(const std::string& name) {
    return std::any_of(std::begin(CLASSES), std::end(CLASSES),
                       [&name](const auto& each) { return each.name == name; });
}

/** One run of the command over a catalogue. */
class catalogue_check_run {
public:
    catalogue_check_run(const check_line& line, diagnostics& report)
        : line_(line)
        , folder_(line.catalogue.catalogue)
        , report_(report)
        , progress_(line.is_progress_wanted) {}

    /** @return a fault of usage, or nothing */
    std::string check() {
        ignored_.read(folder_, report_);
        report_.set_filter([this](const finding& found) {
            progress_.clear();
            const bool is_of_all = found.language.empty() && found.kind != severity::ERROR;
            return !is_wanted(found.language) || (is_of_all && !wanted_.empty()) || ignored_.accepts(found);
        });
        if (std::string fault = read(); !fault.empty()) {
            return fault;
        }
        check_unknown_files(folder_, report_);
        check_all_keyboards();
        if (!is_sound()) {
            std::cerr << (report_.is_silent() ? "" : "the texts are looked at when the tables can be read\n");
            report_.set_filter(nullptr);
            return {};
        }
        check_texts();
        ignored_.report_unused(
            [this](const std::string& check, const std::string& language) {
                return ran(check) && (language == "*" ? wanted_.empty() : is_wanted(language));
            },
            report_);
        report_.set_filter(nullptr);
        return {};
    }

    bool fails() const {
        if (report_.error_count() != 0) {
            return true;
        }
        return std::any_of(
            report_.findings().begin(), report_.findings().end(), [this](const finding& found) {
                const catalogue_check* check = find_selectable_check(found.check);
                return check &&
                       std::any_of(std::begin(CLASSES), std::end(CLASSES), [this, check](const auto& each) {
                           return each.kind == check->kind &&
                                  std::count(line_.failing.begin(), line_.failing.end(), each.name) != 0;
                       });
            });
    }

private:
    bool is_wanted(const std::string& language) const {
        return language.empty() || wanted_.empty() || wanted_.count(language) != 0;
    }

    /** Whether this command looks for what a check finds. */
    bool ran(const std::string& check) const {
        const bool is_of_texts = find_selectable_check(check)->kind != check_class::OTHER ||
                                 check == CHECK_DUPLICATE_NAMES || check == CHECK_UNUSED_ROWS ||
                                 check == CHECK_UNKNOWN_FILES || check == CHECK_UNCONFIRMED;
        return is_of_texts && !report_.is_disabled(check);
    }

    /** The languages are known, and wanted ones picked out, only when all is read: reports wait so long. */
    std::string read() {
        progress_.tell("reading " + folder_);
        for (const std::string& given : line_.languages) {
            const std::string language = language_of(folder_, given);
            if (language.empty()) {
                return "--language \"" + given + "\" is no language of the catalogue";
            }
            wanted_.insert(language);
        }
        source_ = read_catalogue(folder_, report_);
        return {};
    }

    void check_language(const text_file& language, const quoted_name_rule& quoted_names) {
        if (is_wanted(language.language)) {
            progress_.tell("checking " + language.file);
            check_slips(source_.messages, language, report_);
            check_renderings(source_.messages, language, report_);
            quoted_names.check(language, report_);
            check_stale(folder_, source_.messages, language, report_);
        }
    }

    void check_texts() {
        const quoted_name_rule quoted_names(source_.messages);
        for (const text_file& language : source_.messages.languages) {
            check_language(language, quoted_names);
        }
        for (const text_file& pack : source_.packs) {
            check_language(pack, quoted_names);
        }
        progress_.tell("looking for missing texts");
        check_missing(source_.messages, source_.packs, report_);
        check_duplicate_names(source_.messages, report_);
        check_unused_rows(source_.messages, source_.packs, report_);
        if (report_.error_count() == 0) {
            check_catalogue_figures(folder_, source_.messages, source_.images, report_);
        }
    }

    /** Whether all records are there: without one, many a text would seem to be missing. */
    bool is_sound() const {
        const auto& findings = report_.findings();
        return std::all_of(findings.begin(), findings.end(), [](const finding& found) {
            return found.kind != severity::ERROR || is_selectable_check(found.check);
        });
    }

    void check_all_keyboards() {
        progress_.tell("reading keyboards");
        for (const std::string& pack : pack_folders(folder_)) {
            check_keyboards(pack + "/keymap", std::filesystem::path(pack).filename().string(), report_);
        }
        for (const std::string& keyboards : line_.keyboards) {
            check_keyboards(keyboards, "", report_);
        }
    }

    const check_line& line_;
    const std::string& folder_;
    diagnostics& report_;
    progress progress_;
    catalogue_source source_;
    ignore_list ignored_;
    std::set<std::string> wanted_; // languages; empty for all
};

void print_languages(const diagnostics& report) {
    for (const auto& [check, languages] : count_languages(report)) {
        std::cerr << check << ':';
        for (const auto& [language, count] : languages) {
            std::cerr << ' ' << language << ' ' << count;
        }
        std::cerr << '\n';
    }
}

void declare(command_options& options, check_line& line) {
    add_catalogue_options(options, line.catalogue);
    options.values("language", "L", line.languages,
                   "only what concerns a language, \"de\" or 49, and errors; may stand several times");
    options.values("fail-on", "CLASS", line.failing,
                   "fails on findings of a class, and on errors: broken, missing, stale or\n"
                   "suspicious; may stand several times");
    options.values("keyboards", "DIR", line.keyboards,
                   "a folder of keyboard files beside those of the packs; may stand several times");
    options.flag("json", line.is_json, "writes all findings as JSON to standard output");
    options.flag("progress", line.is_progress_wanted, "tells what it is at, also without a terminal");
}

} // namespace

int run_check_command(const std::vector<std::string>& arguments) {
    check_line line;
    command_options options(
        "check", "Checks messages, texts, images and every pack below DIR/packs, and compares them\n"
                 "with DIR/figures.tsv if there is one. Leaves out what DIR/ignore.tsv lists. Writes\n"
                 "no file. Ends with 1 when there are errors.");
    declare(options, line);
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    for (const std::string& name : line.failing) {
        if (!is_class(name)) {
            return options.usage_fault("--fail-on \"" + name +
                                       "\" is not one of broken|missing|stale|suspicious");
        }
    }
    diagnostics report(std::cerr);
    std::string fault = apply_catalogue_options(line.catalogue, report);
    if (!fault.empty()) {
        return options.usage_fault(fault);
    }
    if (line.is_json) {
        report.be_silent();
    }
    catalogue_check_run run(line, report);
    fault = run.check();
    if (!fault.empty()) {
        return options.usage_fault(fault);
    }
    if (line.is_json) {
        print_findings_json(report, !run.fails());
    } else {
        print_languages(report);
        report.write_summary();
    }
    return run.fails() ? EXIT_CATALOGUE_FAULT : EXIT_GOOD;
}

} // namespace velarion
