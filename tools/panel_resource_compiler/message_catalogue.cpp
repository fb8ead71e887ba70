#include "message_catalogue.h"

#include "checks.h"
#include "placeholder_rules.h"
#include "text_findings.h"
#include "text_rules.h"
#include "tsv_table.h"

#include <algorithm>

namespace velarion {

const std::array<const char*, DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT> STANDARD_LANGUAGE_NAMES = {
    "ja", "en", "de", "fr", "es", "it", "nl", "ru"};

namespace {

constexpr std::int32_t FIRST_TEXT_ROW = 2;

bool is_printable_ascii_or_tab(const std::string& name) {
    return std::all_of(name.begin(), name.end(), [](char c) { return c == '\t' || (c >= ' ' && c <= '~'); });
}

/** Whether a text may stand in its row; reports why not. */
bool check_row(const tsv_record& record, const row_text& entry, diagnostics& report) {
    const std::string row = "row " + std::to_string(entry.row);
    if (entry.row < 0 || entry.row >= NULL_ROW) {
        report.error(CHECK_ROW, record.place_of(0), row + " is outside 0 to " + std::to_string(NULL_ROW - 1));
        return false;
    }
    if (entry.row < FIRST_TEXT_ROW && !entry.text.empty()) {
        report.error(CHECK_ROW, entry.place, row + " must stay empty");
        return false;
    }
    return true;
}

/** Reports what of a text the panel could not show or hold. */
void check_text(const row_text& text, const std::string& language, diagnostics& report) {
    for (const text_fault& fault : broken_parts_of(text.text)) {
        report.add(text_finding(fault.check, language, text, fault.character, fault.text));
    }
}

} // namespace

std::string message_name_fault(const std::string& name) {
    if (name.empty()) {
        return "the message has no name";
    }
    return is_printable_ascii_or_tab(name)
               ? std::string()
               : "the name \"" + name + "\" holds more than printable ASCII and tabs";
}

std::vector<row_text> read_row_texts(const std::string& path, const std::string& language,
                                     diagnostics& report) {
    std::vector<row_text> texts;
    ascending_numbers rows("row", CHECK_ROW);
    for (const tsv_record& record : read_tsv_table(path, {"row", "text"}, report)) {
        row_text text{record.place_of(1), 0, record.fields[1]};
        if (!read_number_field(record, 0, "row", report, text.row)) {
            continue;
        }
        rows.take(record.place_of(0), text.row, report);
        if (check_row(record, text, report)) {
            check_text(text, language, report);
            texts.push_back(std::move(text));
        }
    }
    return texts;
}

std::vector<catalogue_message> read_message_list(const std::string& folder, diagnostics& report) {
    const std::string path = folder + "/messages.tsv";
    std::vector<catalogue_message> messages;
    ascending_numbers ids("id", CHECK_ID);
    for (const tsv_record& record : read_tsv_table(path, {"id", "name", "row"}, report)) {
        catalogue_message message{0, record.fields[1], 0, record.place};
        if (!read_number_field(record, 0, "id", report, message.id) ||
            !read_number_field(record, 2, "row", report, message.row)) {
            continue;
        }
        if (message.id < 1) {
            report.error(CHECK_ID, record.place_of(0),
                         "id " + std::to_string(message.id) + " is less than 1");
        } else {
            ids.take(record.place_of(0), message.id, report);
        }
        const std::string name_fault = message_name_fault(message.name);
        if (!name_fault.empty()) {
            report.error(CHECK_NAME, record.place_of(1), name_fault);
        }
        if (message.row < ROW_WITHOUT_TEXT || message.row >= NULL_ROW) {
            report.error(CHECK_ROW, record.place_of(2),
                         "row " + std::to_string(message.row) + " is outside " +
                             std::to_string(ROW_WITHOUT_TEXT) + " to " + std::to_string(NULL_ROW - 1));
        }
        messages.push_back(std::move(message));
    }
    if (messages.empty()) {
        report.error(CHECK_TABLE, {path, 0}, "holds no message");
    }
    return messages;
}

message_catalogue read_message_catalogue(const std::string& folder, diagnostics& report) {
    message_catalogue catalogue;
    catalogue.messages = read_message_list(folder, report);
    catalogue.rows.resize(DVC_PNL_RMG_STANDARD_MESSAGE_ROWS);
    for (std::size_t language = 0; language < STANDARD_LANGUAGE_NAMES.size(); ++language) {
        const std::string name = STANDARD_LANGUAGE_NAMES[language];
        const std::string path = folder + "/texts/" + name + ".tsv";
        catalogue.languages.push_back({name, path, read_row_texts(path, name, report)});
        for (const row_text& text : catalogue.languages.back().texts) {
            catalogue.rows[static_cast<std::size_t>(text.row)].texts[language] = text.text;
        }
    }
    check_placeholders(catalogue, report);
    return catalogue;
}

} // namespace velarion
