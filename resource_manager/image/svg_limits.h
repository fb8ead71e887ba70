#ifndef SVG_LIMITS_H
#define SVG_LIMITS_H

namespace velarion {

/** From where on an SVG document is refused, each for the document and all documents within it together. */
constexpr int SVG_BYTES_LIMIT = 16 * 1024 * 1024;
constexpr int SVG_DEPTH_LIMIT = 2000;
constexpr int SVG_DRAWN_LIMIT = 200000;
constexpr int SVG_ATTRIBUTE_LIMIT = 4096;
constexpr double SVG_DASH_LIMIT = 100000;

} // namespace velarion

#endif
