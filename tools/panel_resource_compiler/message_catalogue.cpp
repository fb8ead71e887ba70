#include "message_catalogue.h"

#include "checks.h"
#include "tsv_table.h"

#include <algorithm>

namespace velarion {

const std::array<const char*, DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT> STANDARD_LANGUAGE_NAMES = {
    "ja", "en", "de", "fr", "es", "it", "nl", "ru"};

namespace {

constexpr std::int32_t FIRST_MESSAGE_ROW = 1;

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

void take_texts(const std::vector<row_text>& texts, std::size_t language, std::vector<catalogue_row>& rows) {
    for (const row_text& text : texts) {
        catalogue_row& entry = rows[static_cast<std::size_t>(text.row)];
        entry.texts[language] = text.text;
        if (entry.place.line == 0) {
            entry.place = text.place;
        }
    }
}

/** Empty texts are left out: a row may be meant for some languages only. */
void check_placeholders(const std::vector<catalogue_row>& rows, diagnostics& report) {
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const auto& texts = rows[row].texts;
        const auto first =
            std::find_if(texts.begin(), texts.end(), [](const std::string& text) { return !text.empty(); });
        for (auto text = first; text != texts.end(); ++text) {
            const unsigned int wanted = placeholders_of(*first);
            const unsigned int found = placeholders_of(*text);
            if (!text->empty() && found != wanted) {
                report.warning(CHECK_PLACEHOLDERS, rows[row].place,
                               "row " + std::to_string(row) + ": placeholders " +
                                   describe_placeholders(wanted) + " in " +
                                   STANDARD_LANGUAGE_NAMES[static_cast<std::size_t>(first - texts.begin())] +
                                   ", " + describe_placeholders(found) + " in " +
                                   STANDARD_LANGUAGE_NAMES[static_cast<std::size_t>(text - texts.begin())]);
            }
        }
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

unsigned int placeholders_of(const std::string& text) {
    unsigned int found = 0;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == '%' && text[i + 1] >= '1' && text[i + 1] <= '9') {
            found |= 1U << static_cast<unsigned int>(text[i + 1] - '0');
        }
    }
    return found;
}

std::string describe_placeholders(unsigned int placeholders) {
    std::string text;
    for (unsigned int n = 1; n <= 9; ++n) {
        if ((placeholders & (1U << n)) != 0) {
            text += (text.empty() ? "%" : " %") + std::to_string(n);
        }
    }
    return text.empty() ? "none" : text;
}

std::vector<row_text> read_row_texts(const std::string& path, diagnostics& report) {
    std::vector<row_text> texts;
    ascending_numbers rows("row", CHECK_ROW);
    for (const tsv_record& record : read_tsv_table(path, {"row", "text"}, report)) {
        row_text text{record.place_of(1), 0, record.fields[1]};
        if (!read_number_field(record, 0, "row", report, text.row)) {
            continue;
        }
        rows.take(record.place_of(0), text.row, report);
        if (check_row(record, text, report)) {
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
        catalogue_message message{0, record.fields[1], 0};
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
        if (message.row < FIRST_MESSAGE_ROW || message.row >= NULL_ROW) {
            report.error(CHECK_ROW, record.place_of(2),
                         "row " + std::to_string(message.row) + " is outside " +
                             std::to_string(FIRST_MESSAGE_ROW) + " to " + std::to_string(NULL_ROW - 1));
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
        const std::string path = folder + "/texts/" + STANDARD_LANGUAGE_NAMES[language] + ".tsv";
        take_texts(read_row_texts(path, report), language, catalogue.rows);
    }
    check_placeholders(catalogue.rows, report);
    return catalogue;
}

} // namespace velarion
