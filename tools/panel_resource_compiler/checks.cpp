#include "checks.h"

namespace velarion {

namespace {

template <typename PREDICATE> std::string names_of(PREDICATE is_wanted) {
    std::string names;
    for (const catalogue_check* check = SELECTABLE_CHECKS; check->name; ++check) {
        if (is_wanted(*check)) {
            names += (names.empty() ? "" : ", ") + std::string(check->name);
        }
    }
    return names;
}

} // namespace

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
    {CHECK_NO_FILE, "a row whose file is not there", check_class::OTHER, check_area::PICTURES},
    {CHECK_NO_ROW, "a file that no row names", check_class::OTHER, check_area::PICTURES},
    {CHECK_NO_STATE, "a state that most pictures which begin alike have", check_class::OTHER,
     check_area::PICTURES},
    {CHECK_NO_TWIN, "a darker twin that most of them have", check_class::OTHER, check_area::PICTURES},
    {CHECK_GENERIC, "a picture that was made without a pictogram", check_class::OTHER, check_area::PICTURES},
    {CHECK_SAME_PICTURE, "one drawing under two names", check_class::OTHER, check_area::PICTURES},
    {CHECK_SAME_STATE, "a state that looks like another", check_class::OTHER, check_area::PICTURES},
    {CHECK_VARIANT_SIZE, "variants of different sizes", check_class::OTHER, check_area::PICTURES},
    {CHECK_BITMAP, "a bitmap that cannot be read, or is of another format", check_class::OTHER,
     check_area::PICTURES},
    {CHECK_RSVG, "a picture that librsvg draws otherwise", check_class::OTHER, check_area::PICTURES},
    {CHECK_SVG_LOAD, "a document that the panel does not load", check_class::OTHER, check_area::PICTURES},
    {CHECK_SVG_SIZE, "a document whose size is not clear", check_class::OTHER, check_area::PICTURES},
    {CHECK_SVG_ELEMENT, "an element that is not drawn", check_class::OTHER, check_area::PICTURES},
    {CHECK_SVG_PROPERTY, "a property that is not drawn", check_class::OTHER, check_area::PICTURES},
    {CHECK_SVG_COLOR, "a colour that is not understood", check_class::OTHER, check_area::PICTURES},
    {CHECK_SVG_UNIT, "a length that is not understood", check_class::OTHER, check_area::PICTURES},
    {CHECK_SVG_STYLE, "a style that is not understood", check_class::OTHER, check_area::PICTURES},
    {CHECK_SVG_HREF, "a reference that is not found", check_class::OTHER, check_area::PICTURES},
    {CHECK_SVG_OPACITY, "parts that show through others", check_class::OTHER, check_area::PICTURES},
    {CHECK_GLYPH, "a character that no font has", check_class::OTHER, check_area::GLYPHS},
    {CHECK_FALLBACK, "a character that only another font has", check_class::OTHER, check_area::GLYPHS},
    {CHECK_FAMILY, "a font that is not on this machine", check_class::OTHER, check_area::GLYPHS},
    {CHECK_FIT, "a text that is larger than its place", check_class::OTHER, check_area::FIT},
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
    return names_of([](const catalogue_check&) { return true; });
}

std::string selectable_check_names(check_area area) {
    return names_of([area](const catalogue_check& check) { return check.area == area; });
}

} // namespace velarion
