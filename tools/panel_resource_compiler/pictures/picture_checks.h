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

} // namespace velarion

#endif
