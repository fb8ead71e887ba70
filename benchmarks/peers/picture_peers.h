#ifndef PICTURE_PEERS_H
#define PICTURE_PEERS_H

#include <QPixmap>
#include <QString>

namespace velarion {

/** What a drawing cannot do without. @param edge  px; 0: the natural size */
QPixmap draw(const QString& path, int edge);

/** The same by another renderer. */
QPixmap draw_with_librsvg(const QString& path, int edge);

} // namespace velarion

#endif
