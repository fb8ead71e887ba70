#include "message_catalogue.h"

#include "tsv_table.h"

#include <algorithm>

const std::array<const char*, DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT> STANDARD_LANGUAGE_NAMES = {
    "ja", "en", "de", "fr", "es", "it", "nl", "ru"};

const char WARNING_PLACEHOLDERS[] = "placeholders";

namespace {

const std::int32_t FIRST_MESSAGE_ROW = 1;

bool is_printable_ascii_or_tab(const std::string& name) {
    return std::all_of(name.begin(), name.end(), [](char c) { return c == '\t' || (c >= ' ' && c <= '~'); });
}

void check_name(const tsv_record& record, const std::string& name, diagnostics& report) {
    if (name.empty()) {
        report.error(record.place, "the message has no name");
    } else if (!is_printable_ascii_or_tab(name)) {
        report.error(record.place, "the name \"" + name + "\" holds more than printable ASCII and tabs");
    }
}

void check_id(const tsv_record& record, std::int32_t id, const std::vector<catalogue_message>& before,
              diagnostics& report) {
    if (id < 1) {
        report.error(record.place, "id " + std::to_string(id) + " is less than 1");
    } else if (!before.empty() && before.back().id == id) {
        report.error(record.place, "id " + std::to_string(id) + " stands twice");
    } else if (!before.empty() && before.back().id > id) {
        report.error(record.place, "id " + std::to_string(id) + " stands after " +
                                       std::to_string(before.back().id) + "; ids must ascend");
    }
}

std::vector<catalogue_message> read_messages(const std::string& path, diagnostics& report) {
    std::vector<catalogue_message> messages;
    for (const tsv_record& record : read_tsv_table(path, {"id", "name", "row"}, report)) {
        catalogue_message message{0, record.fields[1], 0};
        if (!read_number_field(record, 0, "id", report, message.id) ||
            !read_number_field(record, 2, "row", report, message.row)) {
            continue;
        }
        check_id(record, message.id, messages, report);
        check_name(record, message.name, report);
        if (message.row < FIRST_MESSAGE_ROW || message.row >= NULL_ROW) {
            report.error(record.place, "row " + std::to_string(message.row) + " is outside " +
                                           std::to_string(FIRST_MESSAGE_ROW) + " to " +
                                           std::to_string(NULL_ROW - 1));
        }
        messages.push_back(std::move(message));
    }
    if (messages.empty()) {
        report.error({path, 0}, "holds no message");
    }
    return messages;
}

void take_text(const tsv_record& record, std::int32_t row, std::size_t language,
               std::vector<catalogue_row>& rows, diagnostics& report) {
    if (row < 0 || row > NULL_ROW) {
        report.error(record.place,
                     "row " + std::to_string(row) + " is outside 0 to " + std::to_string(NULL_ROW));
        return;
    }
    const std::string& text = record.fields[1];
    if (row == NULL_ROW) {
        report.error(record.place, "row " + std::to_string(row) + " is the null row and takes no text");
        return;
    }
    if (row < FIRST_TEXT_ROW && !text.empty()) {
        report.error(record.place, "row " + std::to_string(row) + " must stay empty");
        return;
    }
    catalogue_row& entry = rows[static_cast<std::size_t>(row)];
    entry.texts[language] = text;
    if (entry.place.line == 0) {
        entry.place = record.place;
    }
}

void read_texts(const std::string& path, std::size_t language, std::vector<catalogue_row>& rows,
                diagnostics& report) {
    std::int32_t before = -1;
    for (const tsv_record& record : read_tsv_table(path, {"row", "text"}, report)) {
        std::int32_t row = 0;
        if (!read_number_field(record, 0, "row", report, row)) {
            continue;
        }
        if (row <= before) {
            report.error(record.place, "row " + std::to_string(row) + " stands after " +
                                           std::to_string(before) + "; rows must ascend without repetition");
        }
        before = std::max(row, before);
        take_text(record, row, language, rows, report);
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
                report.warning(WARNING_PLACEHOLDERS, rows[row].place,
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

message_catalogue read_message_catalogue(const std::string& folder, diagnostics& report) {
    message_catalogue catalogue;
    catalogue.messages = read_messages(folder + "/messages.tsv", report);
    catalogue.rows.resize(DVC_PNL_RMG_STANDARD_MESSAGE_ROWS);
    for (std::size_t language = 0; language < STANDARD_LANGUAGE_NAMES.size(); ++language) {
        read_texts(folder + "/texts/" + STANDARD_LANGUAGE_NAMES[language] + ".tsv", language, catalogue.rows,
                   report);
    }
    check_placeholders(catalogue.rows, report);
    return catalogue;
}
