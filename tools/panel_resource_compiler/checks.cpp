#include "checks.h"

namespace velarion {

const catalogue_check SELECTABLE_CHECKS[] = {
    {CHECK_PLACEHOLDERS, "placeholders that differ between the languages of a row"},
    {CHECK_FONTS, "a font of a pack that is not installed"},
    {CHECK_EXTENSIONS, "a file that the panel takes for no picture"},
    {CHECK_STANDARD, "a pack named like a standard language"},
    {nullptr, nullptr},
};

bool is_selectable_check(const std::string& name) {
    for (const catalogue_check* check = SELECTABLE_CHECKS; check->name; ++check) {
        if (name == check->name) {
            return true;
        }
    }
    return false;
}

std::string selectable_check_names() {
    std::string names;
    for (const catalogue_check* check = SELECTABLE_CHECKS; check->name; ++check) {
        names += (names.empty() ? "" : ", ") + std::string(check->name);
    }
    return names;
}

} // namespace velarion
