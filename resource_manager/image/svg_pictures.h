#ifndef SVG_PICTURES_H
#define SVG_PICTURES_H

#include "svg_budget.h"

#include <QString>

namespace velarion {

/**
 * Looks at a picture that an SVG document draws by reference, a document within it with all that it draws.
 *
 * @param reference  as it stands in the document: a file, or the data themselves
 * @param path       of the document's file, from whose folder the reference counts; empty without one
 * @param budget     what the picture takes is added
 * @return whether it may be drawn; true also when there is none
 */
[[nodiscard]] bool is_drawable_picture(const QString& reference, const QString& path, svg_budget& budget);

} // namespace velarion

#endif
