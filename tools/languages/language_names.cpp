#include "language_names.h"

#include <algorithm>
#include <charconv>

namespace velarion {

namespace {

constexpr int OPTION_LANGUAGE = 999;  // "an option language", in place of a standard one
constexpr int STANDARD_LANGUAGES = 8; // the first of LANGUAGES

constexpr language_name LANGUAGES[] = {
    {81, "ja", "Japanese"},
    {1, "en", "English"},
    {49, "de", "German"},
    {33, "fr", "French"},
    {34, "es", "Spanish"},
    {39, "it", "Italian"},
    {31, "nl", "Dutch"},
    {7, "ru", "Russian"},
    {86, "zh-CN", "Simplified Chinese"},
    {886, "zh-TW", "Traditional Chinese"},
    {972, "he", "Hebrew"},
};

std::string comparable(std::string text) {
    for (char& c : text) {
        c = c == '_' ? '-' : c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return text;
}

template <typename CONDITION> const language_name* find_where(CONDITION is_wanted) {
    const auto found = std::find_if(std::begin(LANGUAGES), std::end(LANGUAGES), is_wanted);
    return found == std::end(LANGUAGES) ? nullptr : found;
}

const language_name* find_named(const std::string& text) {
    const std::string wanted = comparable(text);
    return find_where([&wanted](const language_name& each) {
        return comparable(each.tag) == wanted || comparable(each.english) == wanted;
    });
}

} // namespace

const language_name* find_language(int id) {
    return find_where([id](const language_name& each) { return each.id == id; });
}

bool read_language(const std::string& text, int& id) {
    if (const language_name* named = find_named(text)) {
        id = named->id;
        return true;
    }
    int number = 0;
    const char* end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    const bool is_number = !text.empty() && result.ec == std::errc() && result.ptr == end;
    id = is_number ? number : id;
    return is_number;
}

bool read_selection(const std::string& text, language_selection& selection) {
    const language_name* named = find_named(text);
    if (!named) {
        return false;
    }
    const bool is_standard = named < LANGUAGES + STANDARD_LANGUAGES;
    selection = {is_standard ? named->id : OPTION_LANGUAGE, is_standard ? 0 : named->id};
    return true;
}

std::string language_tag(int id) {
    const language_name* named = find_language(id);
    return named ? named->tag : std::to_string(id);
}

std::string describe_language(int id) {
    const language_name* named = find_language(id);
    return std::to_string(id) + (named ? std::string(" (") + named->tag + ")" : "");
}

std::string known_languages() {
    std::string text = "a number, or";
    for (const language_name& each : LANGUAGES) {
        text += (&each == std::begin(LANGUAGES) ? " " : ", ") + std::string(each.tag);
    }
    return text;
}

} // namespace velarion
