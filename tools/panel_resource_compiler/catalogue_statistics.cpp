#include "catalogue_statistics.h"

#include "characters.h"

#include <algorithm>
#include <set>

namespace velarion {

namespace {

const std::string PREFIX = "MSG_";

/** The word of a message's name behind the prefix that all are to have. */
std::string area_of(const std::string& name) {
    const std::size_t start = name.compare(0, PREFIX.size(), PREFIX) == 0 ? PREFIX.size() : 0;
    return name.substr(start, name.find('_', start) - start);
}

/** Whether a text is "X: Y" on one line, with the colon of its language. */
bool is_label(const std::u32string& text) {
    const std::size_t colon = text.find_first_of(U":：");
    if (colon == text.npos || colon == 0 || text.find(U'\n') != text.npos) {
        return false;
    }
    const bool is_wide = text[colon] == U'：';
    const bool ends_word = is_wide || (colon + 1 < text.size() && is_blank(text[colon + 1]));
    return ends_word && !trimmed(text.substr(colon + 1)).empty();
}

/** The rows that messages show: how many messages, the first of them, and the screen areas. */
struct row_use {
    std::size_t messages = 0;
    std::int32_t first_id = 0;
    std::map<std::string, std::size_t> areas; ///< messages of each
};

using row_uses = std::map<std::int32_t, row_use>;

row_uses uses_of(const std::vector<catalogue_message>& messages) {
    row_uses uses;
    for (const catalogue_message& message : messages) {
        if (message.row == ROW_WITHOUT_TEXT) {
            continue;
        }
        row_use& use = uses[message.row];
        use.first_id = use.messages == 0 ? message.id : use.first_id;
        ++use.messages;
        ++use.areas[area_of(message.name)];
    }
    return uses;
}

void take_text(const std::u32string& text, std::int32_t row, const row_use& use, text_statistics& counts) {
    if (use.messages == 0) {
        ++counts.unused;
    } else {
        ++counts.texts;
        counts.shared += use.messages > 1 ? 1U : 0U;
    }
    counts.labels += is_label(text) ? 1U : 0U;
    if (text.size() > counts.longest) {
        counts.longest = text.size();
        counts.longest_row = row;
        counts.longest_id = use.first_id;
    }
}

language_statistics count_language(const row_uses& uses, const text_file& language) {
    language_statistics counts;
    counts.language = language.language;
    std::set<std::int32_t> rows_with_text;
    for (const row_text& text : language.texts) {
        if (text.text.empty()) {
            continue;
        }
        rows_with_text.insert(text.row);
        const std::u32string characters = characters_of(text.text);
        const auto found = uses.find(text.row);
        const row_use use = found == uses.end() ? row_use() : found->second;
        take_text(characters, text.row, use, counts.all);
        for (const auto& area : use.areas) {
            take_text(characters, text.row, use, counts.areas[area.first]);
        }
    }
    for (const auto& [row, use] : uses) {
        const std::size_t empty = rows_with_text.count(row) == 0 ? 1U : 0U;
        counts.all.messages += use.messages;
        counts.all.empty += empty;
        for (const auto& [area, messages] : use.areas) {
            counts.areas[area].messages += messages;
            counts.areas[area].empty += empty;
        }
    }
    return counts;
}

} // namespace

std::vector<language_statistics> count_texts(const catalogue_source& source) {
    const row_uses uses = uses_of(source.messages.messages);
    std::vector<language_statistics> counts;
    for (const auto* group : {&source.messages.languages, &source.packs}) {
        for (const text_file& language : *group) {
            counts.push_back(count_language(uses, language));
        }
    }
    return counts;
}

} // namespace velarion
