#include "text_pool.h"

#include <algorithm>
#include <tuple>

namespace velarion {

namespace {

constexpr std::size_t SEVERAL_LANGUAGES = 0; ///< their common texts lie in front of the first language's own

struct used_text {
    std::string_view text;
    std::size_t group; ///< SEVERAL_LANGUAGES, or the index of the one language, plus 1
    std::size_t first_row;
};

std::vector<used_text> used_texts(const message_catalogue& catalogue) {
    std::map<std::string_view, used_text> found;
    for (std::size_t row = 0; row < catalogue.rows.size(); ++row) {
        std::size_t group = 0;
        for (const std::string& text : catalogue.rows[row].texts) {
            used_text& used = found.insert({text, {text, ++group, row}}).first->second;
            used.group = used.group == group ? group : SEVERAL_LANGUAGES;
        }
    }
    std::vector<used_text> used;
    for (const auto& entry : found) {
        used.push_back(entry.second);
    }
    return used;
}

bool ends_before(const used_text& first, const used_text& second) {
    return std::lexicographical_compare(first.text.rbegin(), first.text.rend(), second.text.rbegin(),
                                        second.text.rend());
}

bool ends_with(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

} // namespace

text_pool::text_pool(const message_catalogue& catalogue) {
    std::vector<used_text> used = used_texts(catalogue);
    std::sort(used.begin(), used.end(), ends_before); // what ends with a text follows it
    std::vector<used_text> holders;
    std::vector<std::pair<std::string_view, std::string_view>> held; // a text, and what ends with it
    for (auto place = used.rbegin(); place != used.rend(); ++place) {
        if (place->text.empty() || holders.empty() || !ends_with(holders.back().text, place->text)) {
            holders.push_back(*place);
            continue;
        }
        used_text& holder = holders.back();
        held.emplace_back(place->text, holder.text);
        holder.group = holder.group == place->group ? holder.group : SEVERAL_LANGUAGES;
        holder.first_row = std::min(holder.first_row, place->first_row);
    }
    std::sort(holders.begin(), holders.end(), [](const used_text& first, const used_text& second) {
        return std::make_tuple(!first.text.empty(), first.group, first.first_row, first.text) <
               std::make_tuple(!second.text.empty(), second.group, second.first_row, second.text);
    });
    std::size_t end = 0;
    for (const used_text& holder : holders) {
        texts_.push_back(holder.text);
        places_[holder.text] = end;
        end += holder.text.size() + 1;
    }
    for (const auto& [text, holder] : held) {
        places_[text] = places_[holder] + holder.size() - text.size();
    }
}

} // namespace velarion
