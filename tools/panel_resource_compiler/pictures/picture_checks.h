#ifndef PICTURE_CHECKS_H
#define PICTURE_CHECKS_H

namespace velarion {

// What can be found in pictures; each name stands behind its reports, in "[...]".

inline constexpr char CHECK_NO_FILE[] = "no-file";
inline constexpr char CHECK_NO_ROW[] = "no-row";
inline constexpr char CHECK_NO_STATE[] = "no-state";
inline constexpr char CHECK_NO_TWIN[] = "no-twin";
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

inline constexpr char CHECK_GLYPH[] = "glyph";
inline constexpr char CHECK_FALLBACK[] = "fallback";
inline constexpr char CHECK_FAMILY[] = "family";
inline constexpr char CHECK_FIT[] = "fit";

inline constexpr const char* PICTURE_CHECKS[] = {
    CHECK_NO_FILE,    CHECK_NO_ROW,       CHECK_NO_STATE,     CHECK_NO_TWIN,   CHECK_SAME_PICTURE,
    CHECK_SAME_STATE, CHECK_VARIANT_SIZE, CHECK_BITMAP,       CHECK_RSVG,      CHECK_SVG_LOAD,
    CHECK_SVG_SIZE,   CHECK_SVG_ELEMENT,  CHECK_SVG_PROPERTY, CHECK_SVG_COLOR, CHECK_SVG_UNIT,
    CHECK_SVG_STYLE,  CHECK_SVG_HREF,     CHECK_SVG_OPACITY,  CHECK_GLYPH,     CHECK_FALLBACK,
    CHECK_FAMILY,     CHECK_FIT};

} // namespace velarion

#endif
