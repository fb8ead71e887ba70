#ifndef DVC_PNL_RMG_IMAGE_INSPECTION_H
#define DVC_PNL_RMG_IMAGE_INSPECTION_H

#include <QByteArray>
#include <QPixmap>
#include <QSize>
#include <QString>

/**
 * Pictures as the toolkit reads them, looked at before, so that a damaged or hostile one costs neither the
 * process nor its memory. GUI thread only.
 */
namespace velarion {

/**
 * Reads the document of an SVG file, inflated when it is compressed.
 *
 * @param size      that it will be drawn at, in device pixels; an empty one is its natural size
 * @param document  receives bytes that may be drawn, with absolute references; undefined on failure
 * @return false when it is no ordinary file, is too large or would exhaust whoever draws it; true also for
 *         what is no SVG document
 */
[[nodiscard]] bool dvc_pnl_rmg_read_svg_file(const QString& path, const QSize& size, QByteArray& document);
/** The same for bytes. */
[[nodiscard]] bool dvc_pnl_rmg_read_svg(const QByteArray& bytes, const QSize& size, QByteArray& document);

/**
 * Loads a picture of any format, an SVG document at its natural size.
 *
 * @param path    completed by the toolkit with the extension of a known format when it has none
 * @param pixmap  receives the picture; unchanged on failure
 * @return whether there is one and it is of an allowed size
 */
[[nodiscard]] bool dvc_pnl_rmg_load_image_file(const QString& path, QPixmap& pixmap);
/** The same for an encoded picture in memory. */
[[nodiscard]] bool dvc_pnl_rmg_load_image(const QByteArray& bytes, QPixmap& pixmap);

} // namespace velarion

#endif
