#include "settings_key.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace velarion {

namespace {

bool parse_number(const char*& text, std::uint32_t& number) {
    if (text[0] != '0' || (text[1] != 'x' && text[1] != 'X') ||
        !std::isxdigit(static_cast<unsigned char>(text[2]))) {
        return false;
    }
    char* end = nullptr;
    errno = 0;
    const unsigned long long value = std::strtoull(text, &end, 16);
    text = end;
    number = static_cast<std::uint32_t>(value);
    return errno == 0 && value <= 0xffffffffULL;
}

} // namespace

std::string key_of(std::uint32_t group, std::uint32_t item) {
    char key[32];
    std::snprintf(key, sizeof key, "0x%08lX:0x%08lX", static_cast<unsigned long>(group),
                  static_cast<unsigned long>(item));
    return key;
}

bool parse_key(const std::string& key, std::uint32_t& group, std::uint32_t& item) {
    const char* text = key.c_str();
    return parse_number(text, group) && *text++ == ':' && parse_number(text, item) &&
           text == key.c_str() + key.size();
}

std::string describe(const device_setting& setting) {
    return setting.name + " (" + key_of(setting.group, setting.item) + ")";
}

std::string describe(int language_id, int attribute) {
    return "attribute " + std::to_string(attribute) + " of language " + std::to_string(language_id);
}

bool is_name(const std::string& name) {
    const auto is_letter = [](char c) { return c >= 'a' && c <= 'z'; };
    const auto is_later = [&](char c) { return is_letter(c) || (c >= '0' && c <= '9') || c == '_'; };
    return !name.empty() && is_letter(name[0]) && std::all_of(name.begin(), name.end(), is_later);
}

bool is_width(std::int64_t width) {
    return width == 8 || width == 16 || width == 32;
}

std::int64_t largest_of(int width) {
    return (std::int64_t(1) << width) - 1;
}

} // namespace velarion
