#include "authoring_subcommands.h"
#include "font_look.h"
#include "ignore_list.h"
#include "message_catalogue.h"
#include "offscreen_application.h"

#include <QChar>

#include <algorithm>
#include <iostream>
#include <map>
#include <set>

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

QString code_of(uint character) {
    return QStringLiteral("U+") + QStringLiteral("%1").arg(character, 4, 16, QLatin1Char('0')).toUpper();
}

void report_families(const panel_language& language, diagnostics& report) {
    const source_place place = {language.texts};
    for (const QString& family : families_of(language.family)) {
        const QString shown = shown_family(QFont(family));
        if (family.compare(shown, Qt::CaseInsensitive) != 0) {
            report.add({place, severity::REMARK, CHECK_FAMILY,
                        "the font \"" + family.toStdString() + "\" is not here; checked with \"" +
                            shown.toStdString() + "\" in its place",
                        language.name, family.toStdString()});
        }
    }
}

void check_language(const panel_language& language, const std::multimap<std::int32_t, std::int32_t>& ids,
                    diagnostics& report) {
    const QFont font(language.family);
    const QString shown = shown_family(font);
    report_families(language, report);
    for (const auto& [character, use] : characters_of(language.texts, language.name, report)) {
        QString fallback;
        const glyph_origin origin = find_glyph(font, character, fallback);
        const std::string code = code_of(character).toStdString();
        const std::string what = code + " \"" + QString::fromUcs4(&character, 1).toStdString() + '"';
        if (origin == glyph_origin::NONE) {
            report.add({use.first, severity::ERROR, CHECK_GLYPH,
                        what + " is in no font: " + describe_rows(use, ids), language.name, code});
        } else if (origin == glyph_origin::FALLBACK) {
            report.add({use.first, severity::REMARK, CHECK_FALLBACK,
                        what + " is not in \"" + shown.toStdString() + "\" but in \"" +
                            fallback.toStdString() + "\": " + describe_rows(use, ids),
                        language.name, code});
        }
    }
}

int check(const font_look& line, diagnostics& report) {
    const std::string& catalogue = line.look.catalogue.catalogue;
    load_panel_fonts(catalogue, line.device_tree);
    const auto ignored = use_ignore_list(catalogue, report);
    std::multimap<std::int32_t, std::int32_t> ids;
    for (const catalogue_message& message : read_message_list(catalogue, report)) {
        ids.emplace(message.row, message.id);
    }
    std::set<std::string> checked;
    for (const panel_language& language : line.languages) {
        check_language(language, ids, report);
        checked.insert(language.name);
    }
    ignored->report_unused(
        [&](const std::string& check, const std::string& language) {
            return find_selectable_check(check)->area == check_area::GLYPHS && !report.is_disabled(check) &&
                   (language == "*" ? line.wanted_languages.empty() : checked.count(language) != 0);
        },
        report);
    return finish_look(line.look, report);
}

} // namespace

int run_glyphs_command(const std::vector<std::string>& arguments) {
    font_look line = {{check_area::GLYPHS}};
    command_options options(
        "glyphs",
        "Looks for each character of each text in the font that its language uses on the panel. A "
        "character that\nonly another font has is a remark, one that no font has an error. Leaves out "
        "what DIR/ignore.tsv lists:\nsubject is the character, \"U+00E4\".");
    add_font_look_options(options, line);
    diagnostics report(std::cerr);
    if (const std::optional<int> end = read_font_look(options, arguments, line, report)) {
        return *end;
    }
    const offscreen_application application;
    return check(line, report);
}

} // namespace velarion
