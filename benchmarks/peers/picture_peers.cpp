#include "picture_peers.h"

#include <QPainter>
#include <QSvgRenderer>

#include <cairo.h>
#include <librsvg/rsvg.h>

namespace velarion {

QPixmap draw(const QString& path, int edge) {
    QSvgRenderer renderer(path);
    QPixmap pixmap(edge > 0 ? QSize(edge, edge) : renderer.viewBox().size());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

QPixmap draw_with_librsvg(const QString& path, int edge) {
    RsvgHandle* const handle = rsvg_handle_new_from_file(path.toUtf8().constData(), nullptr);
    QImage image(edge, edge, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    cairo_surface_t* const surface = cairo_image_surface_create_for_data(image.bits(), CAIRO_FORMAT_ARGB32,
                                                                         edge, edge, image.bytesPerLine());
    cairo_t* const painter = cairo_create(surface);
    const RsvgRectangle viewport = {0, 0, static_cast<double>(edge), static_cast<double>(edge)};
    rsvg_handle_render_document(handle, painter, &viewport, nullptr);
    cairo_destroy(painter);
    cairo_surface_destroy(surface);
    g_object_unref(handle);
    return QPixmap::fromImage(image);
}

} // namespace velarion
