#include "placeholder_rules.h"

#include "characters.h"
#include "checks.h"
#include "text_findings.h"

#include <algorithm>
#include <map>

namespace velarion {

namespace {

bool is_placeholder_at(const std::string& text, std::size_t i) {
    return text[i] == '%' && i + 1 < text.size() && text[i + 1] >= '1' && text[i + 1] <= '9';
}

/** What the texts of a row are to hold, and the languages that say so. */
struct wanted_placeholders {
    placeholder_counts counts{};
    std::string languages; ///< empty when the row has no text
};

/** The languages of a row whose texts hold the same, in the order of their indexes. */
using language_groups = std::map<placeholder_counts, std::vector<std::size_t>>;

wanted_placeholders wanted_in(const catalogue_row& row) {
    language_groups groups;
    for (std::size_t language = 0; language < row.texts.size(); ++language) {
        if (!row.texts[language].empty()) {
            groups[count_placeholders(row.texts[language])].push_back(language);
        }
    }
    const auto weight = [](const language_groups::value_type& group) {
        const bool has_english = std::count(group.second.begin(), group.second.end(), ENGLISH_INDEX) != 0;
        return std::make_pair(group.second.size(), has_english);
    };
    const auto best = std::max_element(groups.begin(), groups.end(), [&weight](const auto& a, const auto& b) {
        return weight(a) < weight(b);
    });
    wanted_placeholders wanted;
    if (best != groups.end()) {
        wanted.counts = best->first;
        for (const std::size_t language : best->second) {
            wanted.languages += (wanted.languages.empty() ? "" : ", ");
            wanted.languages += STANDARD_LANGUAGE_NAMES[language];
        }
    }
    return wanted;
}

std::string times(std::size_t count) {
    return count == 1 ? "once" : count == 2 ? "twice" : std::to_string(count) + " times";
}

/** The place of a placeholder's last appearance, in characters; 0 when it does not appear. */
std::size_t place_of(const std::string& text, std::size_t number) {
    const std::size_t at = text.rfind("%" + std::to_string(number));
    return at == std::string::npos ? 0 : characters_of(text.substr(0, at)).size();
}

std::vector<text_fault> faults_of(const std::string& text, const wanted_placeholders& wanted) {
    std::vector<text_fault> faults;
    const placeholder_counts found = count_placeholders(text);
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (text.empty() || found[i] == wanted.counts[i]) {
            continue;
        }
        std::string what = "%" + std::to_string(i + 1);
        if (found[i] == 0) {
            what += " is missing; it stands in " + wanted.languages;
        } else if (wanted.counts[i] == 0) {
            what += " is too many; it does not stand in " + wanted.languages;
        } else {
            what += " stands " + times(found[i]) + "; " + times(wanted.counts[i]) + " in " + wanted.languages;
        }
        faults.push_back({CHECK_PLACEHOLDERS, place_of(text, i + 1), what});
    }
    return faults;
}

void check_text(const row_text& text, const std::string& language, const wanted_placeholders& wanted,
                diagnostics& report) {
    for (const text_fault& fault : faults_of(text.text, wanted)) {
        report.add(text_finding(fault.check, language, text, fault.character, fault.text));
    }
}

} // namespace

placeholder_counts count_placeholders(const std::string& text) {
    placeholder_counts counts{};
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (is_placeholder_at(text, i)) {
            ++counts[static_cast<std::size_t>(text[i + 1] - '1')];
        }
    }
    return counts;
}

std::vector<text_fault> placeholder_faults(const catalogue_row& row, const std::string& text) {
    const wanted_placeholders wanted = wanted_in(row);
    return wanted.languages.empty() ? std::vector<text_fault>() : faults_of(text, wanted);
}

void check_placeholders(const message_catalogue& catalogue, diagnostics& report) {
    std::vector<wanted_placeholders> wanted;
    for (const catalogue_row& row : catalogue.rows) {
        wanted.push_back(wanted_in(row));
    }
    for (const text_file& language : catalogue.languages) {
        for (const row_text& text : language.texts) {
            check_text(text, language.language, wanted[static_cast<std::size_t>(text.row)], report);
        }
    }
}

void check_pack_placeholders(const message_catalogue& catalogue, const text_file& pack, diagnostics& report) {
    for (const row_text& text : pack.texts) {
        const wanted_placeholders wanted = wanted_in(catalogue.rows[static_cast<std::size_t>(text.row)]);
        if (!wanted.languages.empty()) {
            check_text(text, pack.language, wanted, report);
        }
    }
}

} // namespace velarion
