#include "po_file.h"

#include "checks.h"
#include "file_descriptor.h"
#include "placeholder_rules.h"
#include "text_lines.h"

#include <gettext-po.h>
#include <sys/mman.h>

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>
#include <sstream>
#include <unistd.h>

namespace velarion {

namespace {

constexpr char LANGUAGE_FIELD[] = "X-Panel-Language";
constexpr char MARK[] = "exported as ";
constexpr char STALE[] = "The English text has changed since this translation was confirmed.";
constexpr char QT_FORMAT[] = "qt-format"; // lets other programs compare placeholders
constexpr std::size_t STEP = 65536;

/** gettext-po reads and writes files by their names: this one is in memory alone. */
class memory_file {
public:
    memory_file()
        : file_(memfd_create("panel_texts", MFD_CLOEXEC)) {}

    std::string path() const { return "/proc/self/fd/" + std::to_string(file_.get()); }

    bool write(const std::string& contents) const {
        for (std::size_t at = 0; at < contents.size();) {
            const ssize_t count = ::write(file_.get(), contents.data() + at, contents.size() - at);
            if (count <= 0) {
                return false;
            }
            at += static_cast<std::size_t>(count);
        }
        return file_.get() >= 0;
    }

    bool read(std::string& contents) const {
        contents.clear();
        char bytes[STEP];
        ssize_t count = 0;
        while ((count = pread(file_.get(), bytes, sizeof bytes, static_cast<off_t>(contents.size()))) > 0) {
            contents.append(bytes, static_cast<std::size_t>(count));
        }
        return count == 0;
    }

private:
    file_descriptor file_;
};

// gettext-po tells its findings to functions without an argument of the caller's.
diagnostics* current_report = nullptr;
std::string current_path;

/** Takes the findings for a report, and of a file, for its lifetime. */
class finding_scope {
public:
    finding_scope(diagnostics& report, const std::string& path) {
        current_report = &report;
        current_path = path;
    }
    ~finding_scope() { current_report = nullptr; }
    finding_scope(const finding_scope&) = delete;
    finding_scope& operator=(const finding_scope&) = delete;
};

void take_finding(int severity, const char* text, std::size_t line, std::size_t column) {
    const bool has_line = line != static_cast<std::size_t>(-1);
    source_place place{current_path, has_line ? line : 0};
    place.column = has_line && column != static_cast<std::size_t>(-1) ? column : 0;
    std::string sentence = text;
    while (!sentence.empty() && (sentence.back() == '\n' || sentence.back() == ' ')) {
        sentence.pop_back();
    }
    if (severity == PO_SEVERITY_WARNING) {
        current_report->warning(CHECK_EXCHANGE, place, sentence);
    } else {
        current_report->error(CHECK_EXCHANGE, place, sentence);
    }
    if (severity == PO_SEVERITY_FATAL_ERROR) { // may not return; nothing is written yet
        current_report->write_summary();
        std::cout.flush();
        std::_Exit(1);
    }
}

void take_report(int severity, po_message_t, const char*, std::size_t line, std::size_t column, int,
                 const char* text) {
    take_finding(severity, text, line, column);
}

/** Of a finding in two places the first tells what, the second where else. */
void take_report_of_two(int severity, po_message_t, const char*, std::size_t line, std::size_t column, int,
                        const char* text, po_message_t, const char*, std::size_t, std::size_t, int,
                        const char*) {
    take_finding(severity, text, line, column);
}

constexpr po_xerror_handler HANDLER = {take_report, take_report_of_two};

using po_file = std::unique_ptr<std::remove_pointer_t<po_file_t>, decltype(&po_file_free)>;
using po_iterator =
    std::unique_ptr<std::remove_pointer_t<po_message_iterator_t>, decltype(&po_message_iterator_free)>;

std::string header_of(const exchange_document& document) {
    const std::string locale = document.locale;
    return "Project-Id-Version: panel texts\n"
           "Report-Msgid-Bugs-To: \n"
           "POT-Creation-Date: " +
           document.english_date + "\nPO-Revision-Date: " + document.language_date +
           "\nLast-Translator: \nLanguage-Team: \nLanguage: " + locale +
           "\nMIME-Version: 1.0\nContent-Type: text/plain; charset=UTF-8\nContent-Transfer-Encoding: 8bit\n" +
           LANGUAGE_FIELD + ": " + document.language + '\n';
}

std::string comments_of(const exchange_unit& unit) {
    std::string comments;
    for (const std::string& name : unit.names) {
        comments += name + '\n';
    }
    if (unit.is_stale) {
        comments += std::string(STALE) + '\n';
    }
    return comments + MARK + unit.exported + '\n';
}

void insert(po_message_iterator_t iterator, const exchange_unit& unit) {
    const po_message_t message = po_message_create();
    po_message_set_msgctxt(message, unit.key.c_str());
    po_message_set_msgid(message, unit.source.c_str());
    po_message_set_msgstr(message, unit.translation.c_str());
    po_message_set_extracted_comments(message, comments_of(unit).c_str());
    po_message_set_fuzzy(message, unit.is_unfinished && !unit.translation.empty() ? 1 : 0);
    if (count_placeholders(unit.source) != placeholder_counts{}) {
        po_message_set_format(message, QT_FORMAT, 1);
    }
    po_message_insert(iterator, message);
}

std::string field_of(const char* header, const char* field) {
    const std::unique_ptr<char, decltype(&std::free)> value(header ? po_header_field(header, field) : nullptr,
                                                            &std::free);
    return value ? value.get() : "";
}

/** The row of a msgctxt; programs that make PO of TS put the group of messages before it. */
std::string key_of(const std::string& context) {
    return context.substr(context.rfind('|') + 1); // the whole where there is no "|"
}

/** The line of each row's msgctxt, which gettext-po does not tell. */
std::map<std::string, std::size_t> lines_of_keys(const std::string& contents) {
    const std::string word = "msgctxt \"";
    std::map<std::string, std::size_t> lines;
    std::size_t number = 1;
    for (std::size_t start = 0; start < contents.size(); ++number) {
        const std::size_t end = std::min(contents.find('\n', start), contents.size());
        if (contents.compare(start, word.size(), word) == 0) {
            const std::size_t key = start + word.size();
            lines[key_of(contents.substr(key, contents.find('"', key) - key))] =
                number; // the last of several
        }
        start = end + 1;
    }
    return lines;
}

std::string mark_of(const char* comments) {
    const std::string all = comments;
    const std::size_t start = all.find(MARK);
    if (start == std::string::npos) {
        return {};
    }
    const std::size_t mark = start + std::strlen(MARK);
    return all.substr(mark, all.find('\n', mark) - mark);
}

void take_message(po_message_t message, const std::string& path,
                  const std::map<std::string, std::size_t>& lines, exchange_document& document,
                  diagnostics& report) {
    const char* context = po_message_msgctxt(message);
    exchange_unit unit;
    unit.key = context ? key_of(context) : "";
    unit.source = po_message_msgid(message);
    const auto line = lines.find(unit.key);
    unit.place = {path, line == lines.end() ? 0 : line->second};
    if (po_message_msgid_plural(message)) {
        report.error(CHECK_EXCHANGE, unit.place,
                     "row " + unit.key + " has plural forms, which the panel does not know");
        return;
    }
    if (!context) {
        report.error(CHECK_EXCHANGE, unit.place,
                     "\"" + unit.source + "\" has no msgctxt, which names its row");
        return;
    }
    unit.translation = po_message_msgstr(message);
    unit.is_unfinished = unit.translation.empty() || po_message_is_fuzzy(message) != 0;
    unit.exported = mark_of(po_message_extracted_comments(message));
    document.units.push_back(std::move(unit));
}

/** Undoes what editors of other systems do to a text. @return false when it is no UTF-8 */
bool normalize(std::string& contents) {
    if (contents.compare(0, 3, "\xEF\xBB\xBF") == 0) {
        contents.erase(0, 3);
    }
    std::string plain;
    for (std::size_t i = 0; i < contents.size(); ++i) {
        if (contents.compare(i, 2, "\r\n") != 0) {
            plain += contents[i];
        }
    }
    contents = std::move(plain);
    return is_valid_utf8(contents) && contents.find('\0') == std::string::npos;
}

bool check_header(const char* header, const std::string& path, diagnostics& report) {
    const std::string type = field_of(header, "Content-Type");
    const std::size_t charset = type.find("charset=");
    const std::string name = charset == std::string::npos ? "" : type.substr(charset + 8);
    if (!header) {
        report.error(CHECK_EXCHANGE, {path, 0}, "has no header: it is cut, or no PO file");
    } else if (name != "UTF-8" && name != "utf-8" && name != "utf8" && name != "UTF8") {
        report.error(CHECK_ENCODING, {path, 0}, "its charset is \"" + name + "\"; save it as UTF-8");
    }
    return report.error_count() == 0;
}

} // namespace

bool write_po(const exchange_document& document, std::string& contents, std::string& fault) {
    std::ostringstream faults;
    diagnostics report(faults);
    const finding_scope scope(report, "");
    const po_file file(po_file_create(), &po_file_free);
    const po_iterator iterator(po_message_iterator(file.get(), nullptr), &po_message_iterator_free);
    const po_message_t header = po_message_create();
    po_message_set_msgid(header, "");
    po_message_set_msgstr(header, header_of(document).c_str());
    po_message_insert(iterator.get(), header);
    for (const exchange_unit& unit : document.units) {
        insert(iterator.get(), unit);
    }
    const memory_file memory;
    const bool is_written = po_file_write(file.get(), memory.path().c_str(), &HANDLER) &&
                            report.error_count() == 0 && memory.read(contents);
    fault = is_written ? "" : "the PO file cannot be made: " + faults.str();
    return is_written;
}

exchange_document read_po(const std::string& path, std::string contents, diagnostics& report) {
    exchange_document document;
    const finding_scope scope(report, path);
    if (!normalize(contents)) {
        report.error(CHECK_ENCODING, {path, 0}, "is not UTF-8 text; save it as such");
        return document;
    }
    const memory_file memory;
    if (!memory.write(contents)) {
        report.error(CHECK_FILE, {path, 0}, "does not fit into memory");
        return document;
    }
    const po_file file(po_file_read(memory.path().c_str(), &HANDLER), &po_file_free);
    if (!file || report.error_count() != 0) {
        return document;
    }
    const char* header = po_file_domain_header(file.get(), nullptr);
    if (!check_header(header, path, report)) {
        return document;
    }
    document.language = field_of(header, LANGUAGE_FIELD);
    const std::map<std::string, std::size_t> lines = lines_of_keys(contents);
    const po_iterator iterator(po_message_iterator(file.get(), nullptr), &po_message_iterator_free);
    while (po_message_t message = po_next_message(iterator.get())) {
        const bool is_header = !po_message_msgctxt(message) && *po_message_msgid(message) == '\0';
        if (!is_header && po_message_is_obsolete(message) == 0) {
            take_message(message, path, lines, document, report);
        }
    }
    return document;
}

} // namespace velarion
