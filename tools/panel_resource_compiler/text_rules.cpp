#include "text_rules.h"

#include "characters.h"
#include "checks.h"
#include "language_conventions.h"

#include <algorithm>

namespace velarion {

namespace {

constexpr std::size_t LONGEST_ABBREVIATION = 5; // letters
constexpr std::size_t SHORTEST_WORD = 4;        // what is shorter may be an abbreviation: "min", "col."
constexpr char32_t LINE_BREAK = U'\n';

bool is_unshowable(char32_t c) {
    const bool is_control = (c < 0x20 && c != LINE_BREAK) || (c >= 0x7F && c < 0xA0);
    const bool is_noncharacter = (c & 0xFFFE) == 0xFFFE || (c >= 0xFDD0 && c <= 0xFDEF);
    return is_control || is_noncharacter || c == 0xFFFD || c == 0xFEFF || c == 0x2028 || c == 0x2029;
}

bool is_small_letter(char32_t c) {
    return c >= U'a' && c <= U'z';
}

/** Whether the character is the last of a text's word. */
bool is_followed_by_blank(const std::u32string& text, std::size_t at) {
    return at + 1 == text.size() || is_blank(text[at + 1]);
}

void check_edges(const std::u32string& text, std::vector<text_fault>& faults) {
    if (text.empty() || trimmed(text).empty()) {
        return; // not a slip at the edge: the text is missing
    }
    if (is_blank(text.front())) {
        faults.push_back({CHECK_EDGE_BLANKS, 0, "begins with a blank, " + character_code(text.front())});
    }
    if (is_blank(text.back())) {
        faults.push_back(
            {CHECK_EDGE_BLANKS, text.size() - 1, "ends with a blank, " + character_code(text.back())});
    }
}

void check_inverted_marks(const std::u32string& text, std::vector<text_fault>& faults) {
    const struct {
        char32_t opening;
        char32_t closing;
    } PAIRS[] = {{U'¿', U'?'}, {U'¡', U'!'}};
    for (const auto& pair : PAIRS) {
        const auto opened = std::count(text.begin(), text.end(), pair.opening);
        const auto closed = std::count(text.begin(), text.end(), pair.closing);
        if (opened != closed) {
            const std::size_t at = text.find_first_of(std::u32string{pair.opening, pair.closing});
            faults.push_back({CHECK_INVERTED_MARKS, at,
                              "has " + std::to_string(opened) + " \"" + as_utf8({pair.opening}) + "\" and " +
                                  std::to_string(closed) + " \"" + as_utf8({pair.closing}) + "\""});
        }
    }
}

/** Marks inside words, as in addresses and times of day, stand without blanks. */
void check_blanks_at_marks(const std::u32string& text, std::vector<text_fault>& faults) {
    const std::u32string_view marks = U"!?;:»";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool is_mark = marks.find(text[i]) != marks.npos && i > 0 && is_followed_by_blank(text, i);
        if (is_mark && !is_no_break_blank(text[i - 1]) && marks.find(text[i - 1]) == marks.npos) {
            faults.push_back(
                {CHECK_NO_BREAK_BLANKS, i, "has no no-break blank before \"" + as_utf8({text[i]}) + "\""});
        }
        if (text[i] == U'«' && i + 1 < text.size() && !is_no_break_blank(text[i + 1])) {
            faults.push_back({CHECK_NO_BREAK_BLANKS, i, "has no no-break blank behind \"«\""});
        }
    }
}

/** Whether the last word of a text that ends with a full stop is short enough for "approx." or "Min.". */
bool ends_with_abbreviation(const std::u32string& text) {
    const std::size_t stop = text.find_last_of(U'.');
    std::size_t start = stop;
    while (start != text.npos && start > 0 && is_word_character(text[start - 1])) {
        --start;
    }
    return stop != text.npos && stop - start <= LONGEST_ABBREVIATION;
}

/** The same of English, where "Wait." is a sentence. */
bool ends_with_small_abbreviation(const std::u32string& text) {
    std::size_t start = text.find_last_of(U'.');
    while (start != text.npos && start > 0 && is_word_character(text[start - 1])) {
        --start;
    }
    return ends_with_abbreviation(text) && is_small_letter(text[start]);
}

bool is_same_end(const std::u32string& text, const std::u32string& english,
                 const language_conventions& conventions) {
    const text_end found = end_of(text);
    const text_end wanted = end_of(english);
    if (found == wanted) {
        return true;
    }
    if (found == text_end::NOTHING && wanted == text_end::FULL_STOP) {
        return !conventions.has_full_stops || ends_with_small_abbreviation(english);
    }
    if (found == text_end::FULL_STOP && wanted == text_end::NOTHING) {
        return ends_with_abbreviation(text);
    }
    // Chinese and Japanese write "…中です。" where others break off.
    return !conventions.has_words_apart && found == text_end::FULL_STOP && wanted == text_end::ELLIPSIS;
}

bool is_letter(char32_t c) {
    return is_word_character(c) && !is_ascii_digit(c);
}

/** The words of a text, which begin and end at what is no letter and are no abbreviations such as "OK". */
std::vector<std::u32string> words_of(const std::u32string& text) {
    std::vector<std::u32string> words;
    std::u32string word;
    for (const char32_t c : text + U' ') {
        if (is_letter(c)) {
            word += c;
            continue;
        }
        if (word.size() >= SHORTEST_WORD && std::any_of(word.begin(), word.end(), is_small_letter)) {
            words.push_back(word);
        }
        word.clear();
    }
    return words;
}

/** Whether a mark at @p at can open or close a quotation, and is no apostrophe or part of an abbreviation. */
bool is_quotation_mark(const std::u32string& text, std::size_t at, bool is_opening,
                       const language_conventions& conventions) {
    if (!conventions.has_words_apart) {
        return true;
    }
    return is_opening ? at == 0 || !is_word_character(text[at - 1])
                      : at + 1 == text.size() || !is_word_character(text[at + 1]);
}

bool has_placeholder(const std::u32string& text) {
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i - 1] == U'%' && text[i] >= U'1' && text[i] <= U'9') {
            return true;
        }
    }
    return false;
}

} // namespace

std::vector<text_fault> broken_parts_of(const std::string& text) {
    std::vector<text_fault> faults;
    if (text.size() > LONGEST_TEXT) {
        faults.push_back({CHECK_LENGTH, 0,
                          "has " + std::to_string(text.size()) + " bytes; a text may have " +
                              std::to_string(LONGEST_TEXT)});
    }
    const std::u32string characters = characters_of(text);
    const auto bad = std::find_if(characters.begin(), characters.end(), is_unshowable);
    if (bad != characters.end()) {
        faults.push_back({CHECK_CONTROL_CHARACTERS, static_cast<std::size_t>(bad - characters.begin()),
                          "holds " + character_code(*bad) +
                              ", which the panel cannot show; remove it (a line break is \\n)"});
    }
    return faults;
}

std::vector<text_fault> slips_of(const std::u32string& text, const std::string& language) {
    std::vector<text_fault> faults;
    const language_conventions& conventions = conventions_of(language);
    check_edges(text, faults);
    if (conventions.has_inverted_marks) {
        check_inverted_marks(text, faults);
    }
    if (conventions.has_blank_before_marks) {
        check_blanks_at_marks(text, faults);
    }
    return faults;
}

std::vector<text_fault> slips_against_english(const std::u32string& text, const std::u32string& english,
                                              const std::string& language) {
    std::vector<text_fault> faults;
    if (text == english) {
        return faults;
    }
    const auto found = std::count(text.begin(), text.end(), LINE_BREAK);
    const auto wanted = std::count(english.begin(), english.end(), LINE_BREAK);
    if (found != wanted) {
        faults.push_back({CHECK_LINE_BREAKS, 0,
                          "has " + std::to_string(found) + (found == 1 ? " line break" : " line breaks") +
                              "; the English text has " + std::to_string(wanted)});
    }
    if (!is_same_end(text, english, conventions_of(language))) {
        faults.push_back({CHECK_END_PUNCTUATION, text.size() - 1,
                          std::string("ends with ") + describe(end_of(text)) +
                              "; the English text ends with " + describe(end_of(english))});
    }
    return faults;
}

bool is_untranslated(const std::u32string& text, const std::u32string& english) {
    return text == english && !words_of(text).empty();
}

bool has_small_word(const std::u32string& text) {
    const std::vector<std::u32string> words = words_of(text);
    return std::any_of(words.begin(), words.end(),
                       [](const std::u32string& word) { return is_small_letter(word.front()); });
}

std::vector<quoted_name> quoted_names_of(const std::u32string& text, const std::string& language) {
    std::vector<quoted_name> names;
    const language_conventions& conventions = conventions_of(language);
    std::size_t open = text.npos;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (open != text.npos && text[i] == conventions.closing_quote &&
            is_quotation_mark(text, i, false, conventions)) {
            const std::u32string name = trimmed(text.substr(open + 1, i - open - 1));
            if (!has_placeholder(name) && std::any_of(name.begin(), name.end(), is_letter)) {
                names.push_back({open + 1, name});
            }
            open = text.npos;
        } else if (text[i] == conventions.opening_quote && is_quotation_mark(text, i, true, conventions)) {
            open = i;
        }
    }
    return names;
}

std::u32string as_quoted(const std::u32string& text, const std::string& language) {
    std::u32string line = text;
    if (conventions_of(language).has_words_apart) {
        std::replace_if(line.begin(), line.end(), is_blank, U' ');
    } else {
        line.erase(std::remove(line.begin(), line.end(), LINE_BREAK), line.end());
    }
    const std::u32string_view ends = U"….。:：!！?？";
    while (!line.empty() && (ends.find(line.back()) != ends.npos || is_blank(line.back()))) {
        line.pop_back();
    }
    std::transform(line.begin(), line.end(), line.begin(), small_letter_of);
    return trimmed(line);
}

std::vector<std::u32string> label_and_value_of(const std::u32string& text) {
    const std::size_t colon = text.find_first_of(U":：");
    if (colon == text.npos) {
        return {};
    }
    return {text.substr(0, colon), text.substr(colon + 1)};
}

} // namespace velarion
