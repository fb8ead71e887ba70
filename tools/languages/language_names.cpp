#include "language_names.h"

#include <algorithm>
#include <charconv>

namespace velarion {

namespace {

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

} // namespace

const language_name* find_language(int id) {
    return find_where([id](const language_name& each) { return each.id == id; });
}

bool read_language(const std::string& text, int& id) {
    const std::string wanted = comparable(text);
    const language_name* named = find_where([&wanted](const language_name& each) {
        return comparable(each.tag) == wanted || comparable(each.english) == wanted;
    });
    if (named) {
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
