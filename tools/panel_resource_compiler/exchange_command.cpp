#include "authoring_subcommands.h"
#include "catalogue_figures.h"
#include "catalogue_lock.h"
#include "catalogue_source.h"
#include "checks.h"
#include "command_options.h"
#include "exchange_import.h"
#include "file_guard.h"
#include "ignore_list.h"
#include "output_folder.h"
#include "po_file.h"
#include "ts_file.h"

#include <filesystem>
#include <iostream>

namespace velarion {

namespace {

namespace fs = std::filesystem;

constexpr char LANGUAGE_HELP[] = "\"de\" or 49, or the number of a pack below DIR/packs";

struct exchange_line {
    std::string catalogue;
    std::string language;
    std::string format;
    std::string file;
    import_rules rules;
    bool is_dry_run = false;
    bool shows_all = false;
};

void add_common_options(command_options& options, exchange_line& line) {
    options.require("catalogue", "DIR", line.catalogue,
                    "folder that holds messages.tsv and texts/<language>.tsv");
    options.require("language", "LANGUAGE", line.language, LANGUAGE_HELP);
}

/** Reads the command line, and finds the language's name. @return what to end with when that is a fault */
std::optional<int> read_line(command_options& options, const std::vector<std::string>& arguments,
                             exchange_line& line) {
    if (const std::optional<int> end = options.read(arguments)) {
        return end;
    }
    const std::string language = language_of(line.catalogue, line.language);
    if (language.empty()) {
        return options.usage_fault("the catalogue has no language \"" + line.language + "\"");
    }
    line.language = language;
    return std::nullopt;
}

/** @return what to end with when the language cannot be used; its faults are reported */
std::optional<int> read_language(exchange_language& language) {
    diagnostics report(std::cerr);
    report.disable_all(); // only what makes the catalogue unusable
    const bool is_read = language.read(report);
    report.write_summary();
    return is_read ? std::nullopt : std::optional<int>(EXIT_CATALOGUE_FAULT);
}

bool read_file(const std::string& path, std::string& contents, std::string& fault) {
    if (is_special_file(path.c_str())) {
        fault = path + ": is a pipe or device; give a file";
        return false;
    }
    return read_whole_file(path, contents, fault);
}

void print_counts(const exchange_line& line, const import_counts& counts) {
    std::cout << line.language << ": " << counts.fresh << " new, " << counts.changed << " changed, "
              << counts.same << " same, " << counts.removed << " removed\n";
    const struct {
        std::size_t count;
        const char* text;
    } more[] = {
        {counts.unfinished, "unfinished or fuzzy, not taken (--accept-unfinished takes them)"},
        {counts.kept, "changed in the catalogue since the export and not in the file: kept"},
        {counts.conflicts, "in conflict, not taken"},
        {counts.absent, "of the catalogue not in the file: they stay as they are"},
    };
    for (const auto& [count, text] : more) {
        if (count != 0) {
            std::cout << line.language << ": " << count << ' ' << text << '\n';
        }
    }
}

int save(const exchange_line& line, const exchange_language& language) {
    file_replacement files;
    language.save_texts(files);
    if (line.is_dry_run) {
        files.write_diff(std::cout);
        return EXIT_GOOD;
    }
    language.save_confirmed(files);
    std::string fault;
    return files.commit(fault) ? EXIT_GOOD : file_fault(fault);
}

/** Tells of figures that new texts have made untrue. */
void tell_figures(const std::string& catalogue) {
    diagnostics report(std::cerr);
    report.be_silent();
    report.disable_all();
    const catalogue_source source = read_catalogue(catalogue, report);
    if (report.error_count() == 0) {
        check_catalogue_figures(catalogue, source.messages, source.images, report);
        if (report.error_count() != 0) {
            std::cout << catalogue << "/figures.tsv: check will report figures until "
                      << "\"panel_resource_compiler figures\" brings them up to date\n";
        }
    }
}

/** Reads the file by its ending. @return whether it is of the language */
bool read_document(const exchange_line& line, const std::string& contents, exchange_document& document,
                   diagnostics& report) {
    const bool is_ts = fs::path(line.file).extension() == ".ts";
    document = is_ts ? read_ts(line.file, contents, report) : read_po(line.file, contents, report);
    if (report.error_count() == 0 && !document.language.empty() && document.language != line.language) {
        report.error(CHECK_EXCHANGE, {line.file, 0},
                     "holds the language " + document.language + ", not " + line.language);
    }
    return report.error_count() == 0;
}

void add_import_options(command_options& options, exchange_line& line) {
    options.word("FILE", line.file, "the file: FILE.po or FILE.ts");
    options.flag("accept-unfinished", line.rules.accepts_unfinished,
                 "takes unfinished and fuzzy texts too, and removes those that were emptied");
    options.flag("skip-conflicts", line.rules.skips_conflicts,
                 "leaves texts in conflict as they are, and takes the others");
    options.flag("dry-run", line.is_dry_run, "writes no file, but what would change in the texts");
    options.flag("all", line.shows_all, "shows all findings, not only the first 20 of a kind");
}

/** Takes the file's texts over, and tells what became of them. @return what to end with */
int import_file(const exchange_line& line, exchange_language& language) {
    std::string fault;
    std::string contents;
    if (!read_file(line.file, contents, fault)) {
        return file_fault(fault);
    }
    diagnostics report(std::cerr);
    if (line.shows_all) {
        report.show_all();
    }
    use_ignore_list(line.catalogue, report);
    exchange_document document;
    import_counts counts;
    if (read_document(line, contents, document, report)) {
        counts = import_document(document, line.rules, language, report);
    }
    report.write_summary();
    if (report.error_count() != 0) {
        std::cerr << "panel_resource_compiler: nothing is taken from " << line.file << '\n';
        return EXIT_CATALOGUE_FAULT;
    }
    const int exit_code = save(line, language);
    if (exit_code == EXIT_GOOD) {
        print_counts(line, counts);
        tell_figures(line.catalogue);
    }
    return exit_code;
}

} // namespace

int run_export_command(const std::vector<std::string>& arguments) {
    exchange_line line;
    command_options options(
        "export", "Writes the texts of a language or pack for a translator's program. Rows without a\n"
                  "text are unfinished, and so are those whose English text changed since they were\n"
                  "confirmed. The sign of the empty set stands for an intentionally empty text.");
    add_common_options(options, line);
    options.choice("format", {"po", "ts"}, true, line.format, "gettext PO, or Qt Linguist TS");
    options.require("output", "FILE", line.file, "the file to write; its folder is made when missing");
    if (const std::optional<int> end = read_line(options, arguments, line)) {
        return *end;
    }
    exchange_language language(line.catalogue, line.language);
    if (const std::optional<int> end = read_language(language)) {
        return *end;
    }
    std::string contents;
    std::string fault;
    const exchange_document document = language.to_document();
    if (line.format == "ts") {
        contents = write_ts(document);
    } else if (!write_po(document, contents, fault)) {
        return file_fault(fault);
    }
    return write_named_file(line.file, contents, fault) ? EXIT_GOOD : file_fault(fault);
}

int run_import_command(const std::vector<std::string>& arguments) {
    exchange_line line;
    command_options options(
        "import", "Takes the texts of a file over that \"export\" has written and a translator worked\n"
                  "on. Nothing is taken while there is a conflict: an English text that changed, a row\n"
                  "that the catalogue lacks, a text that changed on both sides. Texts that are taken\n"
                  "count as confirmed against their English text. Comments and order of the\n"
                  "catalogue's files stay.");
    add_common_options(options, line);
    add_import_options(options, line);
    if (const std::optional<int> end = read_line(options, arguments, line)) {
        return *end;
    }
    const std::string ending = fs::path(line.file).extension().string();
    if (ending != ".po" && ending != ".ts") {
        return options.usage_fault("\"" + line.file + "\" ends neither in .po nor in .ts");
    }
    std::string fault;
    catalogue_lock lock; // until the files are in place
    if (!lock.take(line.catalogue, fault)) {
        return file_fault(fault);
    }
    exchange_language language(line.catalogue, line.language);
    if (const std::optional<int> end = read_language(language)) {
        return *end;
    }
    return import_file(line, language);
}

} // namespace velarion
