#ifndef SVG_PATH_H
#define SVG_PATH_H

#include <QString>

namespace velarion {

/** @return a length that the outline of path data does not exceed */
double svg_path_length(const QString& data);

/** The same for the points of a polygon, or of an open line. */
double svg_polygon_length(const QString& points, bool is_closed);

} // namespace velarion

#endif
