#include "checks.h"

namespace velarion {

const catalogue_check SELECTABLE_CHECKS[] = {
    {CHECK_PLACEHOLDERS, "placeholders missing, doubled or strange", check_class::BROKEN},
    {CHECK_CONTROL_CHARACTERS, "characters that a panel cannot show", check_class::BROKEN},
    {CHECK_LENGTH, "a text of more than 4096 bytes", check_class::BROKEN},
    {CHECK_KEYBOARD, "a keyboard or language file that cannot be read", check_class::BROKEN},
    {CHECK_MISSING, "a message without a text in a language", check_class::MISSING},
    {CHECK_STALE, "the English text is another one than the confirmed", check_class::STALE},
    {CHECK_UNCONFIRMED, "a text that nobody has confirmed"},
    {CHECK_EDGE_BLANKS, "blanks around a text", check_class::SUSPICIOUS},
    {CHECK_LINE_BREAKS, "more or fewer line breaks than in English", check_class::SUSPICIOUS},
    {CHECK_END_PUNCTUATION, "another sign at the end than in English", check_class::SUSPICIOUS},
    {CHECK_INVERTED_MARKS, "Spanish questions without both marks", check_class::SUSPICIOUS},
    {CHECK_NO_BREAK_BLANKS, "French marks without their blank", check_class::SUSPICIOUS},
    {CHECK_SAME_AS_ENGLISH, "a text that is the English one", check_class::SUSPICIOUS},
    {CHECK_RENDERINGS, "two renderings of one English text", check_class::SUSPICIOUS},
    {CHECK_QUOTED_NAMES, "a quoted name that is no text", check_class::SUSPICIOUS},
    {CHECK_DUPLICATE_NAMES, "two messages of one name"},
    {CHECK_UNUSED_ROWS, "texts that no message uses"},
    {CHECK_UNKNOWN_FILES, "files that nothing reads"},
    {CHECK_IGNORE_LIST, "entries of ignore.tsv that stand for nothing"},
    {CHECK_FONTS, "a font of a pack that is not installed"},
    {CHECK_EXTENSIONS, "a file that the panel takes for no picture"},
    {CHECK_STANDARD, "a pack named like a standard language"},
    {nullptr, nullptr},
};

const catalogue_check* find_selectable_check(const std::string& name) {
    for (const catalogue_check* check = SELECTABLE_CHECKS; check->name; ++check) {
        if (name == check->name) {
            return check;
        }
    }
    return nullptr;
}

bool is_selectable_check(const std::string& name) {
    return find_selectable_check(name) != nullptr;
}

std::string selectable_check_names() {
    std::string names;
    for (const catalogue_check* check = SELECTABLE_CHECKS; check->name; ++check) {
        names += (names.empty() ? "" : ", ") + std::string(check->name);
    }
    return names;
}

} // namespace velarion
