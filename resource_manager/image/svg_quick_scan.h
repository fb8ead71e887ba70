#ifndef SVG_QUICK_SCAN_H
#define SVG_QUICK_SCAN_H

#include <QByteArray>

namespace velarion {

/**
 * Tells from its bytes, without reading it, that an SVG document can break no limit: it refers to nothing,
 * dashes nothing, has no entities, instructions or escapes, and is small enough for all else.
 *
 * @return false also where that cannot be told
 */
bool is_surely_harmless(const QByteArray& document);

} // namespace velarion

#endif
