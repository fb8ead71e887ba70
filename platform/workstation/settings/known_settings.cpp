#include "known_settings.h"

#include <algorithm>
#include <iterator>

namespace velarion {

namespace {

constexpr std::uint32_t PANEL_GROUP = 0x04050300;

template <typename CONDITION> const known_setting* find_if(CONDITION condition) {
    const known_setting* const end = KNOWN_SETTINGS + KNOWN_SETTING_NUMBER;
    const known_setting* const found = std::find_if(KNOWN_SETTINGS, end, condition);
    return found == end ? nullptr : found;
}

} // namespace

const known_setting KNOWN_SETTINGS[] = {
    {PANEL_GROUP, 0x8500AB20, 16, "panel_language", 1},
    {PANEL_GROUP, 0x85024328, 16, "panel_option_language", 0},
    {PANEL_GROUP, 0x85005350, 8, "destination", 1},
    {PANEL_GROUP, 0x85024260, 16, "option_language_1", 0},
    {PANEL_GROUP, 0x85024288, 16, "option_language_2", 0},
    {PANEL_GROUP, 0x850242B0, 16, "option_language_3", 0},
    {PANEL_GROUP, 0x850242D8, 16, "option_language_4", 0},
    {PANEL_GROUP, 0x85024300, 16, "option_language_5", 0},
};
const std::size_t KNOWN_SETTING_NUMBER = std::size(KNOWN_SETTINGS);

const known_setting* find_known_setting(std::uint32_t group, std::uint32_t item) {
    return find_if(
        [=](const known_setting& setting) { return setting.group == group && setting.item == item; });
}

const known_setting* find_known_setting(const std::string& name) {
    return find_if([&](const known_setting& setting) { return name == setting.name; });
}

} // namespace velarion
