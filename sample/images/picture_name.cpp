#include "picture_name.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <sstream>

namespace velarion {

namespace {

constexpr std::size_t MOST_WORDS_OF_A_GLYPH = 3;

const std::map<std::string, picture_state> STATES = {{"on", picture_state::SELECTED},
                                                     {"selected", picture_state::SELECTED},
                                                     {"pressed", picture_state::PRESSED},
                                                     {"off", picture_state::OFF},
                                                     {"disable", picture_state::OFF}};

const std::map<std::string, picture_mark> MARKS = {
    {"error", picture_mark::ERROR},         {"warning", picture_mark::WARNING},
    {"completed", picture_mark::COMPLETED}, {"enable", picture_mark::COMPLETED},
    {"waiting", picture_mark::WAITING},     {"suspended", picture_mark::SUSPENDED},
    {"cancelled", picture_mark::CANCELLED}, {"locked", picture_mark::LOCKED}};

const std::map<std::string, picture_motion> MOTIONS = {
    {"sending", picture_motion::OUTWARD},  {"uploading", picture_motion::OUTWARD},
    {"printing", picture_motion::OUTWARD}, {"copying", picture_motion::OUTWARD},
    {"dialing", picture_motion::OUTWARD},  {"storing", picture_motion::INWARD},
    {"receiving", picture_motion::INWARD}, {"downloading", picture_motion::INWARD},
    {"saving", picture_motion::INWARD},    {"scanning", picture_motion::SCAN},
    {"reading", picture_motion::SCAN},     {"checking", picture_motion::SCAN},
    {"searching", picture_motion::SCAN},   {"error", picture_motion::BLINK},
    {"cancelling", picture_motion::RING},  {"stopping", picture_motion::RING},
    {"processing", picture_motion::RING},  {"waiting", picture_motion::CLOCK},
    {"connecting", picture_motion::RING},  {"loading", picture_motion::RING},
    {"updating", picture_motion::RING},    {"deleting", picture_motion::RING},
    {"cleaning", picture_motion::SCAN},    {"adjusting", picture_motion::RING}};

const std::map<std::string, std::string> COLORS = {
    {"cyan", "#2bb5d8"}, {"magenta", "#e0559e"}, {"yellow", "#f0cf3c"}, {"black", "#8795a5"}};

const std::map<std::string, int> LEVELS = {{"full", 100}, {"half", 50}, {"low", 20}, {"empty", 0}};

bool is_number(const std::string& word) {
    return !word.empty() &&
           std::all_of(word.begin(), word.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool has_capital(const std::string& word) {
    return std::any_of(word.begin(), word.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

template <typename VALUE>
bool take(const std::map<std::string, VALUE>& table, const std::string& word, VALUE& value) {
    const auto entry = table.find(word);
    if (entry != table.end()) {
        value = entry->second;
    }
    return entry != table.end();
}

class name_reader {
public:
    name_reader(picture_name& name, const glyph_book& book)
        : name_(name)
        , book_(book) {}

    /** Next to a thing "waiting", "error" or "full" tell its state; alone they are the thing. */
    void read() {
        const picture_name unread = name_;
        read_words(true);
        if (name_.glyphs.empty()) {
            name_ = unread;
            read_words(false);
        }
    }

private:
    void read_words(bool states_are_qualifiers) {
        for (std::size_t i = 1; i < name_.words.size();) { // the first word tells the kind alone
            i += take_words(i, states_are_qualifiers);
        }
    }

    /** @return how many words were taken, at least one */
    std::size_t take_words(std::size_t i, bool states_are_qualifiers) {
        const std::string& word = name_.words[i];
        const bool has_motion = name_.extension == ".gif" && take(MOTIONS, word, name_.motion);
        const bool tells_state = has_motion || MARKS.count(word) != 0 || LEVELS.count(word) != 0;
        const std::size_t count = glyph_at(i, tells_state && states_are_qualifiers ? 2 : 1);
        if (count == 0) {
            take_qualifier(word);
        }
        return std::max<std::size_t>(count, 1);
    }

    std::size_t glyph_at(std::size_t i, std::size_t fewest) {
        std::size_t count = std::min(MOST_WORDS_OF_A_GLYPH, name_.words.size() - i);
        for (; count >= fewest; --count) {
            std::string joined = name_.words[i];
            for (std::size_t k = 1; k < count; ++k) {
                joined += '_' + name_.words[i + k];
            }
            if (book_.has(joined)) {
                name_.glyphs.push_back(joined);
                return count;
            }
        }
        return 0;
    }

    void take_qualifier(const std::string& word) {
        if (is_number(word) && name_.number.empty()) {
            name_.number = word;
        } else if (has_capital(word) && name_.label.empty()) {
            name_.label = word;
        } else if (word == "s" || word == "l") {
            name_.size = word;
        } else if (!take(STATES, word, name_.state) && !take(MARKS, word, name_.mark) &&
                   !take(LEVELS, word, name_.level) && !take(COLORS, word, name_.color)) {
            take_position(word);
        }
    }

    void take_position(const std::string& word) {
        name_.left = name_.left || word == "left";
        name_.right = name_.right || word == "right";
        name_.top = name_.top || word == "top" || word == "upper" || word == "up";
        name_.bottom = name_.bottom || word == "bottom" || word == "lower" || word == "down";
        name_.center = name_.center || word == "center" || word == "inside";
    }

    picture_name& name_;
    const glyph_book& book_;
};

} // namespace

picture_name read_picture_name(const std::string& file, const glyph_book& book) {
    picture_name name;
    name.file = file;
    const std::size_t dot = std::min(file.rfind('.'), file.size());
    name.extension = file.substr(dot);
    name.is_darker = file.compare(0, 2, "d_") == 0;
    name.stem = file.substr(name.is_darker ? 2 : 0, dot - (name.is_darker ? 2 : 0));
    std::istringstream words(name.stem);
    for (std::string word; std::getline(words, word, '_');) {
        name.words.push_back(word);
    }
    name_reader(name, book).read();
    return name;
}

int number_of(const std::string& word, int otherwise) {
    const std::size_t most_digits = 4;
    int number = 0;
    const char* end = word.data() + std::min(word.size(), most_digits);
    const std::from_chars_result result = std::from_chars(word.data(), end, number);
    return result.ec == std::errc() && number >= 0 ? number : otherwise;
}

palette colors_of(const picture_name& name) {
    palette colors = name.is_darker ? darker_palette() : palette();
    if (!name.color.empty()) {
        colors.accent = name.color;
    }
    if (name.state == picture_state::OFF) {
        return one_color_palette(colors, colors.dim);
    }
    return colors;
}

std::string title_of(const picture_name& name) {
    std::string title;
    for (std::size_t i = name.words.size() > 1 ? 1 : 0; i < name.words.size(); ++i) {
        title += (title.empty() ? "" : " ") + name.words[i];
    }
    if (!title.empty() && title[0] >= 'a' && title[0] <= 'z') {
        title[0] = static_cast<char>(title[0] - 'a' + 'A');
    }
    return name.is_darker ? title + ", darker" : title;
}

} // namespace velarion
