#include "authoring_subcommands.h"
#include "catalogue_options.h"
#include "message_catalogue.h"
#include "panel_fonts.h"
#include "picture_checks.h"
#include "picture_report.h"
#include "subcommand.h"

#include <QChar>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <map>

namespace velarion {

namespace {

constexpr std::size_t MOST_ROWS_NAMED = 8;

/** Where a character of a language stands. */
struct character_use {
    source_place first;
    std::vector<std::int32_t> rows;
};

/** Marks of direction, joiners and line breaks are not drawn. */
bool is_drawn(uint character) {
    const QChar::Category category = QChar::category(character);
    return category != QChar::Other_Control && category != QChar::Other_Format &&
           category != QChar::Separator_Line && category != QChar::Separator_Paragraph &&
           !(character >= 0xfe00 && character <= 0xfe0f);
}

std::map<uint, character_use> characters_of(const std::string& file, const std::string& language,
                                            diagnostics& report) {
    std::map<uint, character_use> found;
    for (const row_text& text : read_row_texts(file, language, report)) {
        std::size_t column = std::to_string(text.row).size() + 2;
        for (const uint character : QString::fromStdString(text.text).toUcs4()) {
            if (is_drawn(character)) {
                character_use& use = found[character];
                if (use.rows.empty()) {
                    use.first = {text.place.file, text.place.line, column};
                }
                if (use.rows.empty() || use.rows.back() != text.row) {
                    use.rows.push_back(text.row);
                }
            }
            column += character == '\n' || character == '\t' || character == '\\' ? 2 : 1;
        }
    }
    return found;
}

std::string list_of(const std::vector<std::string>& words, std::size_t all) {
    std::string list;
    for (const std::string& word : words) {
        list += (list.empty() ? "" : ", ") + word;
    }
    return all > words.size() ? list + " and " + std::to_string(all - words.size()) + " more" : list;
}

std::string describe_rows(const character_use& use, const std::multimap<std::int32_t, std::int32_t>& ids) {
    std::vector<std::string> rows;
    std::vector<std::string> messages;
    std::size_t all = 0;
    for (const std::int32_t row : use.rows) {
        if (rows.size() < MOST_ROWS_NAMED) {
            rows.push_back(std::to_string(row));
        }
        const auto range = ids.equal_range(row);
        for (auto id = range.first; id != range.second; ++id, ++all) {
            if (messages.size() < MOST_ROWS_NAMED) {
                messages.push_back(std::to_string(id->second));
            }
        }
    }
    return "rows " + list_of(rows, use.rows.size()) +
           (all == 0 ? "" : "; messages " + list_of(messages, all));
}

std::string describe_character(uint character) {
    return QStringLiteral("U+%1 \"%2\"")
        .arg(character, 4, 16, QLatin1Char('0'))
        .toUpper()
        .arg(QString::fromUcs4(&character, 1))
        .toStdString();
}

void check_language(const panel_language& language, const std::multimap<std::int32_t, std::int32_t>& ids,
                    diagnostics& report) {
    const QFont font(language.family);
    const QString shown = shown_family(font);
    for (const QString& family : families_of(language.family)) {
        const QString taken = shown_family(QFont(family));
        if (family.compare(taken, Qt::CaseInsensitive) != 0) {
            report.remark(CHECK_FAMILY, {language.texts, 0},
                          "the font \"" + family.toStdString() + "\" is not here; checked with \"" +
                              taken.toStdString() + "\" in its place");
        }
    }
    for (const auto& [character, use] : characters_of(language.texts, language.name, report)) {
        QString fallback;
        const glyph_origin origin = find_glyph(font, character, fallback);
        const std::string what = describe_character(character);
        if (origin == glyph_origin::NONE) {
            report.error(CHECK_GLYPH, use.first, what + " is in no font: " + describe_rows(use, ids));
        } else if (origin == glyph_origin::FALLBACK) {
            report.remark(CHECK_FALLBACK, use.first,
                          what + " is not in \"" + shown.toStdString() + "\" but in \"" +
                              fallback.toStdString() + "\": " + describe_rows(use, ids));
        }
    }
}

} // namespace

int run_glyphs_command(const std::vector<std::string>& arguments) {
    catalogue_options line;
    std::string device_tree;
    std::vector<std::string> wanted;
    std::vector<std::string> failing;
    bool is_json = false;
    command_options options(
        "glyphs", "Looks for each character of each text in the font that its language uses on the panel. A "
                  "character that\nonly another font has is a remark, one that no font has an error.");
    options.require("catalogue", "DIR", line.catalogue, "folder that holds messages.tsv, texts/ and packs/");
    options.value("device-tree", "DIR", device_tree,
                  "device whose font files are taken beside this machine's and the packs'");
    options.values("language", "LANGUAGE", wanted,
                   "only this one, \"de\" or the id of a pack; may stand several times");
    options.values("fail-on", "CHECK", failing, "ends with 1 also when fallback or family finds something");
    options.flag("json", is_json, "writes the findings as JSON on standard output");
    options.flag("all", line.shows_all, "shows all findings of each check, not only the first 20");
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    const std::string fault = unknown_check_of(failing);
    if (!fault.empty()) {
        return options.usage_fault(fault);
    }
    if (!device_tree.empty() && !std::filesystem::is_directory(device_tree)) {
        return file_fault(device_tree + ": no such folder");
    }
    const offscreen_application application;
    diagnostics report(std::cerr);
    if (is_json) {
        report.be_silent();
    }
    if (line.shows_all) {
        report.show_all();
    }
    load_panel_fonts(line.catalogue, device_tree);
    std::multimap<std::int32_t, std::int32_t> ids;
    for (const catalogue_message& message : read_message_list(line.catalogue, report)) {
        ids.emplace(message.row, message.id);
    }
    std::size_t checked = 0;
    for (const panel_language& language : panel_languages(line.catalogue)) {
        if (is_wanted_language(language, wanted)) {
            check_language(language, ids, report);
            ++checked;
        }
    }
    return checked == 0 ? options.usage_fault("the catalogue has none of these languages")
                        : finish_report(report, is_json, failing);
}

} // namespace velarion
