#ifndef CHECKS_H
#define CHECKS_H

#include <string>

namespace velarion {

/** What the findings of a check mean. */
enum class check_class {
    OTHER,     ///< what no command counts by itself
    BROKEN,    ///< the panel would show it wrongly: an error unless told otherwise
    MISSING,   ///< a text is not there
    STALE,     ///< a text may say what the English one said earlier
    SUSPICIOUS ///< likely a slip
};

/** What looks for a finding. */
enum class check_area {
    CATALOGUE, ///< the build and "check"
    PICTURES,  ///< "images"
    GLYPHS,    ///< "glyphs"
    FIT        ///< "fit"
};

/** What can be found in a catalogue; the name stands behind each report, in "[...]". */
struct catalogue_check {
    const char* name;
    const char* summary;
    check_class kind = check_class::OTHER;
    check_area area = check_area::CATALOGUE;
};

// Faults: what the build cannot take.
inline constexpr char CHECK_FILE[] = "file";
inline constexpr char CHECK_ENCODING[] = "encoding";
inline constexpr char CHECK_TABLE[] = "table";
inline constexpr char CHECK_ESCAPE[] = "escape";
inline constexpr char CHECK_NUMBER[] = "number";
inline constexpr char CHECK_ID[] = "id";
inline constexpr char CHECK_NAME[] = "name";
inline constexpr char CHECK_ROW[] = "row";
inline constexpr char CHECK_PICTURE[] = "picture";
inline constexpr char CHECK_PACK[] = "pack";
inline constexpr char CHECK_KEYBOARD[] = "keyboard";
inline constexpr char CHECK_FIGURES[] = "figures";
inline constexpr char CHECK_EXCHANGE[] = "exchange";
inline constexpr char CHECK_CONFLICT[] = "conflict";

// What can be left out, or made an error.
inline constexpr char CHECK_PLACEHOLDERS[] = "placeholders";
inline constexpr char CHECK_CONTROL_CHARACTERS[] = "control-characters";
inline constexpr char CHECK_LENGTH[] = "length";
inline constexpr char CHECK_MISSING[] = "missing";
inline constexpr char CHECK_STALE[] = "stale";
inline constexpr char CHECK_UNCONFIRMED[] = "unconfirmed";
inline constexpr char CHECK_EDGE_BLANKS[] = "edge-blanks";
inline constexpr char CHECK_LINE_BREAKS[] = "line-breaks";
inline constexpr char CHECK_END_PUNCTUATION[] = "end-punctuation";
inline constexpr char CHECK_INVERTED_MARKS[] = "inverted-marks";
inline constexpr char CHECK_NO_BREAK_BLANKS[] = "no-break-blanks";
inline constexpr char CHECK_SAME_AS_ENGLISH[] = "same-as-english";
inline constexpr char CHECK_RENDERINGS[] = "renderings";
inline constexpr char CHECK_QUOTED_NAMES[] = "quoted-names";
inline constexpr char CHECK_DUPLICATE_NAMES[] = "duplicate-names";
inline constexpr char CHECK_UNUSED_ROWS[] = "unused-rows";
inline constexpr char CHECK_UNKNOWN_FILES[] = "unknown-files";
inline constexpr char CHECK_IGNORE_LIST[] = "ignore-list";
inline constexpr char CHECK_FONTS[] = "fonts";
inline constexpr char CHECK_EXTENSIONS[] = "extensions";
inline constexpr char CHECK_STANDARD[] = "standard";

// Pictures.
inline constexpr char CHECK_NO_FILE[] = "no-file";
inline constexpr char CHECK_NO_ROW[] = "no-row";
inline constexpr char CHECK_NO_STATE[] = "no-state";
inline constexpr char CHECK_NO_TWIN[] = "no-twin";
inline constexpr char CHECK_GENERIC[] = "generic";
inline constexpr char CHECK_SAME_PICTURE[] = "same-picture";
inline constexpr char CHECK_SAME_STATE[] = "same-state";
inline constexpr char CHECK_VARIANT_SIZE[] = "variant-size";
inline constexpr char CHECK_BITMAP[] = "bitmap";
inline constexpr char CHECK_RSVG[] = "rsvg";
inline constexpr char CHECK_SVG_LOAD[] = "svg-load";
inline constexpr char CHECK_SVG_SIZE[] = "svg-size";
inline constexpr char CHECK_SVG_ELEMENT[] = "svg-element";
inline constexpr char CHECK_SVG_PROPERTY[] = "svg-property";
inline constexpr char CHECK_SVG_COLOR[] = "svg-color";
inline constexpr char CHECK_SVG_UNIT[] = "svg-unit";
inline constexpr char CHECK_SVG_STYLE[] = "svg-style";
inline constexpr char CHECK_SVG_HREF[] = "svg-href";
inline constexpr char CHECK_SVG_OPACITY[] = "svg-opacity";

// Texts as they are drawn.
inline constexpr char CHECK_GLYPH[] = "glyph";
inline constexpr char CHECK_FALLBACK[] = "fallback";
inline constexpr char CHECK_FAMILY[] = "family";
inline constexpr char CHECK_FIT[] = "fit";

/** The checks that -W takes, in the order in which they are told; ends with a null name. */
extern const catalogue_check SELECTABLE_CHECKS[];

/** @return the check of SELECTABLE_CHECKS with a name, or null */
const catalogue_check* find_selectable_check(const std::string& name);
bool is_selectable_check(const std::string& name);

/** The names of all SELECTABLE_CHECKS, or of those of an area, for people: "a, b, c". */
std::string selectable_check_names();
std::string selectable_check_names(check_area area);

} // namespace velarion

#endif
