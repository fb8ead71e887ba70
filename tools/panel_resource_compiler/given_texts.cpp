#include "given_texts.h"

#include "checks.h"
#include "file_replacement.h"
#include "text_diff.h"
#include "text_lines.h"
#include "tsv_table.h"

namespace velarion {

namespace {

constexpr char HEADER[] = "language\ttext";
constexpr char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";

void take_text(const source_place& place, const std::string& line, char separator,
               std::vector<given_text>& texts, diagnostics& report) {
    const std::size_t end = line.find(separator);
    if (end == std::string::npos || end == 0) {
        report.error(CHECK_TABLE, place,
                     separator == '=' ? "\"" + line + "\" is no LANGUAGE=TEXT"
                                      : "is no language, a tab and a text: \"" + line + "\"");
        return;
    }
    const std::string field = line.substr(end + 1);
    given_text given{place, line.substr(0, end), {}};
    std::string fault;
    std::size_t position = 0;
    if (!is_valid_utf8(field)) {
        report.error(CHECK_ENCODING, place, "the " + given.language + " text is not valid UTF-8");
    } else if (field.find('\r') != std::string::npos) {
        report.error(CHECK_ENCODING, place,
                     "the " + given.language + " text holds a carriage return, which the panel cannot show");
    } else if (separator == '\t' && field.find('\t') != std::string::npos) {
        report.error(CHECK_TABLE, place, "the " + given.language + " text holds a tab; write \\t");
    } else if (!resolve_escapes(field, given.text, fault, position)) {
        report.error(CHECK_ESCAPE, place, "the " + given.language + " text: " + fault);
    } else {
        texts.push_back(std::move(given));
    }
}

} // namespace

void read_text_option(const std::string& option, std::vector<given_text>& texts, diagnostics& report) {
    take_text({"--text", 0}, option, '=', texts, report);
}

void read_text_file(const std::string& path, std::vector<given_text>& texts, diagnostics& report) {
    std::string contents;
    std::string fault;
    if (!(path == "-" ? read_standard_input(contents, fault) : read_whole_file(path, contents, fault))) {
        report.error(CHECK_FILE, {path, 0}, "cannot be read: " + fault);
        return;
    }
    source_place place{path, 0};
    for (std::string line : lines_with_ends(contents)) {
        ++place.line;
        line.erase(0, place.line == 1 && line.compare(0, 3, BYTE_ORDER_MARK) == 0 ? 3 : 0);
        line.erase(line.back() == '\n' ? line.size() - 1 : line.size());
        line.erase(!line.empty() && line.back() == '\r' ? line.size() - 1 : line.size());
        if (!line.empty() && line[0] != '#' && line != HEADER) {
            take_text(place, line, '\t', texts, report);
        }
    }
}

} // namespace velarion
