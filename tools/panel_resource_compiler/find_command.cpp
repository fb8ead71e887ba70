#include "checks.h"
#include "command_options.h"
#include "edit_commands.h"
#include "image_catalogue.h"
#include "language_names.h"
#include "message_catalogue.h"
#include "subcommand.h"
#include "text_search.h"
#include "tsv_editor.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <map>

namespace velarion {

namespace fs = std::filesystem;

namespace {

struct find_line {
    std::string catalogue;
    std::vector<std::string> words;
    std::vector<std::string> languages;
    bool is_expression = false;
    bool searches_names = false;
    bool searches_ids = false;
    bool ignores_accents = false;
    bool as_json = false;
};

/** The texts of one language by row. */
struct searched_language {
    std::string name;
    std::map<std::int32_t, std::string> texts;
};

/** What a search found: a message in a language, a text without a message (id 0), or a picture. */
struct found_entry {
    std::int32_t id;
    std::string name;
    std::int32_t row; ///< 0 for a picture
    std::string language;
    std::string text; ///< of a picture: its file
};

QString from_utf8(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

class catalogue_search {
public:
    catalogue_search(const find_line& line, text_search search)
        : line_(line)
        , search_(std::move(search)) {}

    /** @return a fault of usage, or nothing */
    std::string read(diagnostics& report) {
        messages_ = read_message_catalogue(line_.catalogue, report);
        images_ = read_image_catalogue(line_.catalogue, report);
        take_standard_languages();
        take_packs(report);
        return choose_languages();
    }

    std::vector<found_entry> find() const {
        std::vector<found_entry> found;
        std::map<std::int32_t, bool> has_message;
        for (const catalogue_message& message : messages_.messages) {
            has_message[message.row] = true;
            find_message(message, found);
        }
        for (const searched_language& language : languages_) {
            for (const auto& [row, text] : language.texts) {
                if (!has_message[row] && searches_texts() && search_.is_in(from_utf8(text))) {
                    found.push_back({0, {}, row, language.name, text});
                }
            }
        }
        for (const catalogue_image& image : images_) {
            if (line_.languages.empty() && matches(image.id, image.name, image.file)) {
                found.push_back({image.id, image.name, 0, {}, image.file});
            }
        }
        return found;
    }

private:
    bool searches_texts() const { return !line_.searches_names && !line_.searches_ids; }

    void take_standard_languages() {
        for (std::size_t i = 0; i < STANDARD_LANGUAGE_NAMES.size(); ++i) {
            searched_language language{STANDARD_LANGUAGE_NAMES[i], {}};
            for (std::size_t row = 0; row < messages_.rows.size(); ++row) {
                const std::string& text = messages_.rows[row].texts[i];
                if (!text.empty()) {
                    language.texts.emplace(static_cast<std::int32_t>(row), text);
                }
            }
            languages_.push_back(std::move(language));
        }
    }

    void take_packs(diagnostics& report) {
        std::error_code no_packs;
        std::vector<searched_language> packs;
        for (const auto& entry : fs::directory_iterator(line_.catalogue + "/packs", no_packs)) {
            const std::string texts = entry.path().string() + "/texts.tsv";
            if (entry.is_directory(no_packs)) {
                packs.push_back({entry.path().filename().string(), {}});
                for (const row_text& text : read_row_texts(texts, {}, report)) {
                    packs.back().texts.emplace(text.row, text.text);
                }
            }
        }
        std::sort(packs.begin(), packs.end(),
                  [](const searched_language& a, const searched_language& b) { return a.name < b.name; });
        languages_.insert(languages_.end(), packs.begin(), packs.end());
    }

    std::string choose_languages() {
        std::vector<searched_language> chosen;
        for (const std::string& word : line_.languages) {
            int wanted = 0;
            const bool is_known = read_language(word, wanted);
            const auto found =
                std::find_if(languages_.begin(), languages_.end(), [&](const searched_language& each) {
                    int id = 0;
                    return each.name == word || (is_known && read_language(each.name, id) && id == wanted);
                });
            if (found == languages_.end()) {
                return "--language \"" + word +
                       "\" is neither a standard language nor a pack of this catalogue";
            }
            chosen.push_back(*found);
        }
        languages_ = chosen.empty() ? languages_ : chosen;
        return {};
    }

    /** @param text  of a message, or the file of a picture; searched unless names or ids alone are */
    bool matches(std::int32_t id, const std::string& name, const std::string& text) const {
        const bool is_restricted = !searches_texts();
        if ((line_.searches_ids || !is_restricted) && is_id(QString::number(id))) {
            return true;
        }
        QStringList fields;
        if (line_.searches_names || !is_restricted) {
            fields.append(from_utf8(name));
        }
        if (!is_restricted) {
            fields.append(from_utf8(text));
        }
        return search_.is_in_any(fields);
    }

    /** A part of an id is none. */
    bool is_id(const QString& id) const {
        return line_.is_expression ? line_.searches_ids && search_.is_in(id)
                                   : std::find(line_.words.begin(), line_.words.end(),
                                               id.toUtf8().constData()) != line_.words.end() &&
                                         (line_.searches_ids || line_.words.size() == 1);
    }

    /** A message that its name or id alone leads to is told once, in English or in the languages asked for.
     */
    void find_message(const catalogue_message& message, std::vector<found_entry>& found) const {
        const bool is_named = matches(message.id, message.name, {});
        for (const searched_language& language : languages_) {
            const auto text = language.texts.find(message.row);
            const std::string shown = text == language.texts.end() ? std::string() : text->second;
            const bool is_wanted = is_named ? !line_.languages.empty() || language.name == "en"
                                            : matches(message.id, message.name, shown);
            if (is_wanted) {
                found.push_back({message.id, message.name, message.row, language.name, shown});
            }
        }
    }

    const find_line& line_;
    text_search search_;
    message_catalogue messages_;
    std::vector<catalogue_image> images_;
    std::vector<searched_language> languages_;
};

void print_as_json(const std::vector<found_entry>& found) {
    QJsonArray entries;
    for (const found_entry& entry : found) {
        QJsonObject object{{QStringLiteral("id"), entry.id}, {QStringLiteral("name"), from_utf8(entry.name)}};
        if (entry.id == 0) {
            object =
                QJsonObject{{QStringLiteral("id"), QJsonValue()}, {QStringLiteral("name"), QJsonValue()}};
        }
        object.insert(QStringLiteral("kind"),
                      entry.row == 0 ? QStringLiteral("picture") : QStringLiteral("message"));
        if (entry.row == 0) {
            object.insert(QStringLiteral("file"), from_utf8(entry.text));
        } else {
            object.insert(QStringLiteral("row"), entry.row);
            object.insert(QStringLiteral("language"), from_utf8(entry.language));
            object.insert(QStringLiteral("text"), from_utf8(entry.text));
        }
        entries.append(object);
    }
    std::cout << QJsonDocument(entries).toJson(QJsonDocument::Indented).constData();
}

/** The last column is not padded; all others are ASCII. */
void print_columns(const std::vector<found_entry>& found) {
    std::vector<std::vector<std::string>> rows;
    std::vector<std::size_t> widths(4, 0);
    for (const found_entry& entry : found) {
        rows.push_back({entry.id == 0 ? "-" : std::to_string(entry.id),
                        entry.name.empty() ? "-" : tsv_editor::escaped(entry.name),
                        entry.row == 0 ? "picture" : std::to_string(entry.row),
                        entry.row == 0 ? "-" : entry.language, tsv_editor::escaped(entry.text)});
        for (std::size_t i = 0; i < widths.size(); ++i) {
            widths[i] = std::max(widths[i], rows.back()[i].size());
        }
    }
    for (const std::vector<std::string>& row : rows) {
        for (std::size_t i = 0; i < widths.size(); ++i) {
            std::cout << row[i] << std::string(widths[i] - row[i].size() + 2, ' ');
        }
        std::cout << row.back() << '\n';
    }
}

void declare(command_options& options, find_line& line) {
    options.require("catalogue", "DIR", line.catalogue,
                    "folder that holds messages.tsv, texts/, images.tsv, packs/");
    options.values("language", "LANGUAGE", line.languages,
                   "searches the texts of \"de\", 49 or a pack's number, and no pictures; may stand\n"
                   "several times");
    options.flag("name", line.searches_names, "searches the names alone");
    options.flag("id", line.searches_ids, "searches the ids alone; each word is one");
    options.flag("regex", line.is_expression, "takes the pattern for a regular expression");
    options.flag("fold", line.ignores_accents, "ignores accents: \"eleve\" finds \"\u00E9l\u00E8ve\"");
    options.flag("json", line.as_json, "prints JSON");
    options.words("PATTERN", 1, line.words, "a whole id, or words that must all occur in name and text");
}

} // namespace

int run_find_command(const std::vector<std::string>& arguments) {
    find_line line;
    command_options options(
        "find", "Finds messages by text, name or id in every language and pack, and pictures by name,\n"
                "file or id, in any letter case. Prints id, name, row, language and text. Ends with 1\n"
                "when nothing is found.");
    declare(options, line);
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    QStringList words;
    for (const std::string& word : line.words) {
        words.append(from_utf8(word));
    }
    const QString pattern = words.join(QLatin1Char(' '));
    const text_search search = line.is_expression ? text_search::of_expression(pattern)
                                                  : text_search::of_words(pattern, line.ignores_accents);
    if (!search.fault().isEmpty()) {
        return options.usage_fault("--regex \"" + std::string(pattern.toUtf8().constData()) +
                                   "\": " + search.fault().toUtf8().constData());
    }
    diagnostics report(std::cerr);
    for (const catalogue_check* each = SELECTABLE_CHECKS; each->name; ++each) {
        report.disable(each->name);
    }
    catalogue_search catalogue(line, search);
    if (const std::string fault = catalogue.read(report); !fault.empty()) {
        return options.usage_fault(fault);
    }
    report.write_summary();
    const std::vector<found_entry> found = catalogue.find();
    line.as_json ? print_as_json(found) : print_columns(found);
    if (found.empty()) {
        std::cerr << "panel_resource_compiler: nothing holds \"" << pattern.toUtf8().constData() << "\"\n";
    }
    return found.empty() ? EXIT_CATALOGUE_FAULT : EXIT_GOOD;
}

} // namespace velarion
