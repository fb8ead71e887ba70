#include "catalogue_rules.h"

#include "characters.h"
#include "checks.h"
#include "text_findings.h"
#include "text_rules.h"

#include <algorithm>
#include <map>
#include <unordered_map>

namespace velarion {

namespace {

bool is_blank_text(const std::string& text) {
    return trimmed(characters_of(text)).empty();
}

const std::string& english_of(const message_catalogue& catalogue, std::int32_t row) {
    return catalogue.rows[static_cast<std::size_t>(row)].texts[ENGLISH_INDEX];
}

/** A row that messages show, and the first of them. */
using used_rows = std::map<std::int32_t, const catalogue_message*>;

used_rows used_rows_of(const message_catalogue& catalogue) {
    used_rows used;
    for (const catalogue_message& message : catalogue.messages) {
        used.emplace(message.row, &message);
    }
    return used;
}

/** Reports the rows that a language has no text in, of some rows. */
class missing_texts {
public:
    missing_texts(const text_file& language, diagnostics& report)
        : language_(language)
        , report_(report) {
        for (const row_text& text : language.texts) {
            texts_.emplace(text.row, &text);
        }
    }

    void check(std::int32_t row, const std::string& other, const std::string& other_language) {
        const auto next = texts_.lower_bound(row);
        const bool is_there = next != texts_.end() && next->first == row;
        if (is_there && !is_blank_text(next->second->text)) {
            return;
        }
        row_text text{{language_.file, 1}, row, {}};
        if (is_there) {
            text.place = next->second->place;
        } else if (next != texts_.begin()) {
            text.place = {language_.file, std::prev(next)->second->place.line};
        }
        const std::string how = !is_there ? "has no line here, where it belongs behind this one"
                                : next->second->text.empty() ? "is empty"
                                                             : "is blank";
        report_.add(text_finding(CHECK_MISSING, language_.language, text, 0,
                                 how + "; the text in " + other_language + " is " + quoted_text(other)));
    }

private:
    const text_file& language_;
    diagnostics& report_;
    std::map<std::int32_t, const row_text*> texts_;
};

/** The language whose text stands for a row's others: English, or the first that has one. */
std::size_t language_with_text(const catalogue_row& row) {
    if (!is_blank_text(row.texts[ENGLISH_INDEX])) {
        return ENGLISH_INDEX;
    }
    const auto first = std::find_if(row.texts.begin(), row.texts.end(),
                                    [](const std::string& text) { return !is_blank_text(text); });
    return static_cast<std::size_t>(first - row.texts.begin());
}

/** Messages of which no language has a text. */
void check_textless(const message_catalogue& catalogue, const used_rows& used, diagnostics& report) {
    for (const auto& [row, message] : used) {
        const catalogue_row& texts = catalogue.rows[static_cast<std::size_t>(row)];
        if (row == ROW_WITHOUT_TEXT || language_with_text(texts) != texts.texts.size()) {
            continue;
        }
        const std::string id = std::to_string(message->id);
        report.add({message->place,
                    severity::WARNING,
                    CHECK_MISSING,
                    "message " + id + ", " + message->name + ": row " + std::to_string(row) +
                        " has no text in any language; row 1 is for messages without one",
                    {},
                    id});
    }
}

/**
 * Whether a text that is the English one is a name, as of a place: another language takes it over as well,
 * where yet another does not. What nobody has translated is none, nor what has words in small letters.
 */
bool is_international(const catalogue_row& row, const std::u32string& text) {
    const std::string& english = row.texts[ENGLISH_INDEX];
    const auto same = std::count(row.texts.begin(), row.texts.end(), english);
    const bool is_translated = std::any_of(row.texts.begin(), row.texts.end(), [&english](const auto& other) {
        return other != english && !is_blank_text(other);
    });
    constexpr int ENGLISH_AND_THIS = 2;
    return !has_small_word(text) && same > ENGLISH_AND_THIS && is_translated;
}

} // namespace

void check_missing(const message_catalogue& catalogue, const std::vector<text_file>& packs,
                   diagnostics& report) {
    const used_rows used = used_rows_of(catalogue);
    check_textless(catalogue, used, report);
    std::vector<const text_file*> languages;
    for (const auto* group : {&catalogue.languages, &packs}) {
        for (const text_file& language : *group) {
            languages.push_back(&language);
        }
    }
    for (const text_file* language : languages) {
        missing_texts missing(*language, report);
        for (const auto& [row, message] : used) {
            const catalogue_row& texts = catalogue.rows[static_cast<std::size_t>(row)];
            const std::size_t other = language_with_text(texts);
            if (other != texts.texts.size()) {
                missing.check(row, texts.texts[other], STANDARD_LANGUAGE_NAMES[other]);
            }
        }
    }
}

void check_slips(const message_catalogue& catalogue, const text_file& language, diagnostics& report) {
    const bool is_english = language.language == STANDARD_LANGUAGE_NAMES[ENGLISH_INDEX];
    for (const row_text& text : language.texts) {
        const std::u32string characters = characters_of(text.text);
        const std::u32string english = characters_of(english_of(catalogue, text.row));
        std::vector<text_fault> faults = slips_of(characters, language.language);
        if (!is_english && !trimmed(characters).empty() && !trimmed(english).empty()) {
            const std::vector<text_fault> more =
                slips_against_english(characters, english, language.language);
            faults.insert(faults.end(), more.begin(), more.end());
        }
        if (!is_english && is_untranslated(characters, english) &&
            !is_international(catalogue.rows[static_cast<std::size_t>(text.row)], characters)) {
            faults.push_back({CHECK_SAME_AS_ENGLISH, 0, "is the same as the English text"});
        }
        for (const text_fault& fault : faults) {
            report.add(text_finding(fault.check, language.language, text, fault.character, fault.text));
        }
    }
}

void check_renderings(const message_catalogue& catalogue, const text_file& language, diagnostics& report) {
    struct rendering {
        const row_text* first;
        std::size_t count;
    };
    std::unordered_map<std::string, std::map<std::string, rendering>> renderings;
    for (const row_text& text : language.texts) {
        const std::string& english = english_of(catalogue, text.row);
        if (!text.text.empty() && !english.empty()) {
            ++renderings[english].emplace(text.text, rendering{&text, 0}).first->second.count;
        }
    }
    for (const row_text& text : language.texts) {
        const auto found = renderings.find(english_of(catalogue, text.row));
        if (text.text.empty() || found == renderings.end() || found->second.size() < 2) {
            continue;
        }
        // The most frequent one, and among equals the one that stands first, is taken for the usual one.
        const auto usual =
            std::max_element(found->second.begin(), found->second.end(), [](const auto& a, const auto& b) {
                return std::make_pair(a.second.count, b.second.first->row) <
                       std::make_pair(b.second.count, a.second.first->row);
            });
        if (text.text != usual->first) {
            report.add(text_finding(CHECK_RENDERINGS, language.language, text, 0,
                                    quoted_text(found->first) + " is " + quoted_text(usual->first) +
                                        " in row " + std::to_string(usual->second.first->row) + ", and " +
                                        quoted_text(text.text) + " here"));
        }
    }
}

void check_duplicate_names(const message_catalogue& catalogue, diagnostics& report) {
    std::unordered_map<std::string, const catalogue_message*> first;
    for (const catalogue_message& message : catalogue.messages) {
        const auto [entry, is_new] = first.emplace(message.name, &message);
        if (!is_new) {
            report.add({message.place,
                        severity::REMARK,
                        CHECK_DUPLICATE_NAMES,
                        "the name " + message.name + " stands in line " +
                            std::to_string(entry->second->place.line) + " already, for the id " +
                            std::to_string(entry->second->id),
                        {},
                        std::to_string(message.id)});
        }
    }
}

void check_unused_rows(const message_catalogue& catalogue, const std::vector<text_file>& packs,
                       diagnostics& report) {
    const used_rows used = used_rows_of(catalogue);
    std::map<std::int32_t, const row_text*> unused;
    const auto take = [&used, &unused](const text_file& language) {
        for (const row_text& text : language.texts) {
            if (!text.text.empty() && used.count(text.row) == 0) {
                unused.emplace(text.row, &text);
            }
        }
    };
    take(catalogue.languages[ENGLISH_INDEX]);
    std::for_each(catalogue.languages.begin(), catalogue.languages.end(), take);
    std::for_each(packs.begin(), packs.end(), take);
    for (const auto& [row, text] : unused) {
        finding found =
            text_finding(CHECK_UNUSED_ROWS, "", *text, 0, "no message uses " + quoted_text(text->text));
        found.kind = severity::REMARK;
        report.add(std::move(found));
    }
}

} // namespace velarion
