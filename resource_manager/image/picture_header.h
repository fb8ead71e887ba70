#ifndef PICTURE_HEADER_H
#define PICTURE_HEADER_H

#include <QSize>
#include <QString>

class QImageReader;

namespace velarion {

/** @return the size that a PNG or GIF file of that name comes out with; empty for any other file */
QSize size_by_name(const QString& path);

/**
 * The size that a bitmap comes out with, in device pixels. The toolkit's own answer is that of an icon's
 * directory, of an animation's frame, and negative for a bitmap that begins with its top row.
 *
 * @param reader  not read from yet; its device is moved
 * @return an invalid or empty size when the header tells none
 */
QSize bitmap_size(QImageReader& reader);

} // namespace velarion

#endif
