#ifndef SVG_SHAPE_H
#define SVG_SHAPE_H

#include <QString>
#include <QVector>
#include <QXmlStreamAttributes>

namespace velarion {

/** Numbers as the toolkit reads them: separated by blanks and commas, up to what is none. */
QVector<double> svg_numbers(const QString& text);

/** @return the first of them with the blanks before it; 0 without one */
double svg_number(const QString& text);

/** @return about how far a transformation stretches a length, never less */
double svg_stretch(const QString& transform);

/** @return a length that the outline of path data does not exceed */
double svg_path_length(const QString& data);

/** The same for an element of that name: a path or one of the basic shapes; 0 for all others. */
double svg_outline_length(const QString& element, const QXmlStreamAttributes& attributes);

} // namespace velarion

#endif
