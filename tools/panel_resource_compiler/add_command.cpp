#include "catalogue_editor.h"
#include "checks.h"
#include "edit_commands.h"
#include "given_texts.h"
#include "placeholder_rules.h"
#include "subcommand.h"

#include <iostream>
#include <limits>

namespace velarion {

namespace {

constexpr std::int32_t NOT_GIVEN = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t ROW_WITHOUT_TEXT = 1;
const std::string ENGLISH = "en";

struct add_line {
    edit_options edit;
    std::string name;
    std::int32_t id = NOT_GIVEN;
    std::int32_t row = NOT_GIVEN;
    std::vector<std::string> texts;
    std::string text_file;
    bool allows_same_name = false;
    bool is_picture = false;
    std::string picture_file;
};

/** The id that is asked for, or the next one above all others. @return the reason against it, or nothing */
std::string choose_id(const tsv_editor& table, std::int32_t wanted, std::int32_t& id) {
    const std::vector<std::string> keys = table.keys();
    const std::int64_t next = keys.empty() ? 1 : std::stoll(keys.back()) + 1;
    if (wanted == NOT_GIVEN && next > std::numeric_limits<std::int32_t>::max()) {
        return "there is no id above " + keys.back() + "; give a free one with --id";
    }
    id = wanted == NOT_GIVEN ? static_cast<std::int32_t>(next) : wanted;
    if (id < 1) {
        return "id " + std::to_string(id) + " is less than 1";
    }
    const std::vector<std::string> holder = table.fields(std::to_string(id));
    return holder.empty() ? std::string() : "id " + std::to_string(id) + " is that of " + holder[1];
}

/** Puts texts onto a message's row, and remembers whether all may stand there. */
class row_writer {
public:
    row_writer(catalogue_editor& editor, std::int32_t row, diagnostics& report)
        : editor_(editor)
        , row_(row)
        , report_(report) {}

    void write(const std::vector<given_text>& texts) {
        for (const given_text& text : texts) {
            take(text);
        }
        for (const given_text& text : texts) {
            check(text);
            confirm(text);
        }
    }

    /** The languages that have no text on the row. */
    std::vector<std::string> missing() const {
        std::vector<std::string> names;
        for (const language_texts& language : editor_.languages()) {
            if (catalogue_editor::text_of(language, row_).empty()) {
                names.push_back(language.name);
            }
        }
        return names;
    }

private:
    void take(const given_text& given) {
        language_texts* language = editor_.find_language(given.language);
        if (!language) {
            report_.error(CHECK_FILE, given.place,
                          "\"" + given.language +
                              "\" is neither a standard language nor a pack of this catalogue");
            return;
        }
        const std::string before = catalogue_editor::text_of(*language, row_);
        if (!before.empty() && before != given.text) {
            report_.error(CHECK_ROW, given.place,
                          "row " + std::to_string(row_) + " has the " + language->name + " text \"" +
                              tsv_editor::escaped(before) + "\" already");
        } else if (row_ < FIRST_TEXT_ROW && !given.text.empty()) {
            report_.error(CHECK_ROW, given.place, "row " + std::to_string(row_) + " must stay empty");
        } else if (!given.text.empty()) {
            language->texts.put({std::to_string(row_), given.text});
        }
    }

    /** Reports what "check" would. */
    void check(const given_text& given) {
        catalogue_row texts;
        for (std::size_t i = 0; i < texts.texts.size(); ++i) {
            texts.texts[i] = catalogue_editor::text_of(editor_.languages()[i], row_);
        }
        std::vector<text_fault> faults = broken_parts_of(given.text);
        const std::vector<text_fault> more = placeholder_faults(texts, given.text);
        faults.insert(faults.end(), more.begin(), more.end());
        for (const text_fault& fault : faults) {
            report_.error(fault.check, given.place, "the " + given.language + " text: " + fault.text);
        }
    }

    /** What comes with the English text was written for it. */
    void confirm(const given_text& given) {
        language_texts* language = editor_.find_language(given.language);
        const std::string english = catalogue_editor::text_of(*editor_.find_language(ENGLISH), row_);
        if (language && language->name != ENGLISH && !given.text.empty() && !english.empty()) {
            language->confirmed.confirm(row_, english);
        }
    }

    catalogue_editor& editor_;
    std::int32_t row_;
    diagnostics& report_;
};

/** The row that is asked for, or a free one. @return the reason against it, or nothing */
std::string choose_row(const catalogue_editor& editor, const add_line& line, std::int32_t& row) {
    row = line.row == NOT_GIVEN ? editor.free_row() : line.row;
    if (line.row == NOT_GIVEN) {
        return row != 0 ? std::string() : "every row up to " + std::to_string(NULL_ROW - 1) + " is taken";
    }
    if (row < ROW_WITHOUT_TEXT || row >= NULL_ROW) {
        return "row " + std::to_string(row) + " is outside " + std::to_string(ROW_WITHOUT_TEXT) + " to " +
               std::to_string(NULL_ROW - 1);
    }
    return {};
}

int add_message(catalogue_editor& editor, const add_line& line, const std::vector<given_text>& texts) {
    std::int32_t id = 0;
    std::int32_t row = 0;
    const std::vector<std::string> same = catalogue_editor::find_by_name(editor.messages(), line.name);
    std::string fault = message_name_fault(line.name);
    if (fault.empty() && !same.empty() && !line.allows_same_name) {
        fault = "message " + same[0] + " is named " + line.name + "; --allow-same-name adds another one";
    }
    fault = fault.empty() ? choose_id(editor.messages(), line.id, id) : fault;
    fault = fault.empty() ? choose_row(editor, line, row) : fault;
    if (!fault.empty()) {
        return refuse(fault);
    }
    diagnostics report(std::cerr);
    row_writer writer(editor, row, report);
    writer.write(texts);
    if (report.error_count() != 0) {
        return refuse("the texts have errors");
    }
    const std::vector<std::string> missing = writer.missing();
    if (row != ROW_WITHOUT_TEXT && missing.size() == editor.languages().size()) {
        return refuse("row " + std::to_string(row) + " has no text; give --text, or --row 1");
    }
    editor.messages().put({std::to_string(id), line.name, std::to_string(row)});
    editor.say("added message " + std::to_string(id) + ": " + tsv_editor::escaped(line.name) + ", row " +
               std::to_string(row));
    if (row != ROW_WITHOUT_TEXT && !missing.empty()) {
        editor.say("without a text in " + list_of(missing));
    }
    return editor.finish();
}

int add_picture(catalogue_editor& editor, const add_line& line) {
    std::int32_t id = 0;
    const std::vector<std::string> same = catalogue_editor::find_by_name(editor.images(), line.name);
    std::string fault = image_name_fault(line.name);
    fault = fault.empty() && !same.empty() ? "picture " + same[0] + " is named " + line.name : fault;
    fault = fault.empty() ? image_file_fault(line.picture_file) : fault;
    fault = fault.empty() ? choose_id(editor.images(), line.id, id) : fault;
    if (!fault.empty()) {
        return refuse(fault);
    }
    editor.images().put({std::to_string(id), line.name, line.picture_file});
    editor.say("added picture " + std::to_string(id) + ": " + line.name + ", file \"" + line.picture_file +
               "\"");
    return editor.finish();
}

void declare(command_options& options, add_line& line) {
    add_edit_options(options, line.edit);
    options.require("name", "NAME", line.name, "symbolic name, as MSG_NORMAL_TITLE_COPY");
    options.number("id", "N", line.id, "id; otherwise the one above all others");
    options.number("row", "N", line.row,
                   "row of texts, which other messages may show as well; 1 for a message\n"
                   "without a text; otherwise the lowest one that is free");
    options.values("text", "LANGUAGE=TEXT", line.texts,
                   "a text, for \"de\", 49 or the number of a pack; in it \\n is a line break\n"
                   "and \\\\ a backslash; once for each language");
    options.value("texts", "FILE", line.text_file,
                  "texts from a file, \"-\" for standard input: a language, a tab and a text\na line");
    options.flag("allow-same-name", line.allows_same_name, "lets the message have the name of another one");
    options.flag("picture", line.is_picture, "adds a picture to images.tsv, with --file");
    options.value("file", "NAME", line.picture_file, "file of the picture; \" \" for one without a picture");
}

/** What the options mean together. @return a fault of usage, or nothing */
std::string find_contradiction(const add_line& line) {
    const bool has_texts = !line.texts.empty() || !line.text_file.empty();
    if (line.is_picture && (has_texts || line.row != NOT_GIVEN || line.allows_same_name)) {
        return "a picture has no texts, row or shared name";
    }
    if (line.is_picture && line.picture_file.empty()) {
        return "--file is missing";
    }
    return line.is_picture || line.picture_file.empty() ? std::string() : "--file needs --picture";
}

} // namespace

int run_add_command(const std::vector<std::string>& arguments) {
    add_line line;
    command_options options(
        "add", "Adds a message with its texts, or a picture's row. Texts have the placeholders of the\n"
               "English one.");
    declare(options, line);
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    if (const std::string fault = find_contradiction(line); !fault.empty()) {
        return options.usage_fault(fault);
    }
    std::vector<given_text> texts;
    diagnostics report(std::cerr);
    for (const std::string& option : line.texts) {
        read_text_option(option, texts, report);
    }
    if (!line.text_file.empty()) {
        read_text_file(line.text_file, texts, report);
    }
    if (report.error_count() != 0) {
        return refuse("the texts have errors");
    }
    catalogue_editor editor(line.edit);
    if (const int end = editor.open(true)) {
        return end;
    }
    return line.is_picture ? add_picture(editor, line) : add_message(editor, line, texts);
}

} // namespace velarion
