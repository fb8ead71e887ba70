#include "quoted_name_rules.h"

#include "characters.h"
#include "checks.h"
#include "text_findings.h"
#include "text_rules.h"

#include <algorithm>

namespace velarion {

namespace {

constexpr std::size_t USUAL = 3; // texts that quote a name

} // namespace

known_names::known_names(const text_file& language)
    : language_(language.language) {
    for (const row_text& text : language.texts) {
        const std::u32string characters = characters_of(text.text);
        shown_.insert(as_quoted(characters, language_));
        for (const std::u32string& part : label_and_value_of(characters)) {
            shown_.insert(as_quoted(part, language_));
        }
        std::unordered_set<std::u32string> names;
        for (const quoted_name& quoted : quoted_names_of(characters, language_)) {
            names.insert(as_quoted(quoted.name, language_));
        }
        for (const std::u32string& name : names) {
            ++quoting_texts_[name];
        }
    }
}

bool known_names::is_known(const std::u32string& name) const {
    return shown_.count(as_quoted(name, language_)) != 0;
}

bool known_names::is_usual(const std::u32string& name) const {
    const auto quoting = quoting_texts_.find(as_quoted(name, language_));
    return quoting != quoting_texts_.end() && quoting->second >= USUAL;
}

std::size_t known_names::count_unknown(const std::string& text) const {
    const std::vector<quoted_name> names = quoted_names_of(characters_of(text), language_);
    return static_cast<std::size_t>(std::count_if(
        names.begin(), names.end(), [this](const quoted_name& quoted) { return !is_known(quoted.name); }));
}

quoted_name_rule::quoted_name_rule(const message_catalogue& catalogue)
    : catalogue_(catalogue)
    , english_(catalogue.languages[ENGLISH_INDEX]) {}

void quoted_name_rule::check(const text_file& language, diagnostics& report) const {
    const bool is_english = language.language == STANDARD_LANGUAGE_NAMES[ENGLISH_INDEX];
    const known_names names(language);
    for (const row_text& text : language.texts) {
        const std::size_t unknown = names.count_unknown(text.text);
        const std::string& english = catalogue_.rows[static_cast<std::size_t>(text.row)].texts[ENGLISH_INDEX];
        if (unknown == 0 || (!is_english && unknown <= english_.count_unknown(english))) {
            continue;
        }
        for (const quoted_name& quoted : quoted_names_of(characters_of(text.text), language.language)) {
            if (!names.is_known(quoted.name) && !(is_english && names.is_usual(quoted.name))) {
                report.add(
                    text_finding(CHECK_QUOTED_NAMES, language.language, text, quoted.character,
                                 "quotes " + quoted_text(as_utf8(quoted.name)) + ", which is no text"));
            }
        }
    }
}

} // namespace velarion
