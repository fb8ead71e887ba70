#ifndef PICTURE_EXTENT_H
#define PICTURE_EXTENT_H

#include <QImage>
#include <QRect>

/** The rectangle that holds all pixels of a colour. */
inline QRect extent_of(const QImage& image, QRgb color) {
    QRect extent;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            extent |= image.pixel(x, y) == color ? QRect(x, y, 1, 1) : QRect();
        }
    }
    return extent;
}

#endif
