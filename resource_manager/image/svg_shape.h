#ifndef SVG_SHAPE_H
#define SVG_SHAPE_H

#include <QString>
#include <QXmlStreamAttributes>

namespace velarion {

/** @return about how far a transformation stretches a length, never less */
double svg_stretch(const QString& transform);

/**
 * @return a length that the outline of an element of that name does not exceed: a path or one of the basic
 *         shapes; 0 for all others
 */
double svg_outline_length(const QString& element, const QXmlStreamAttributes& attributes);

/** @return whether a document of these attributes tells its size itself */
bool svg_has_box(const QXmlStreamAttributes& attributes);

} // namespace velarion

#endif
