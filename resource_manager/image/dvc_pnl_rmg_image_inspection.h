#ifndef DVC_PNL_RMG_IMAGE_INSPECTION_H
#define DVC_PNL_RMG_IMAGE_INSPECTION_H

#include <QByteArray>
#include <QString>

#include <cstdint>

/**
 * What is looked at before the toolkit is given a picture, so that a damaged or hostile one costs neither
 * the process nor its memory. None of these draws or decodes anything; GUI thread only.
 */
namespace velarion {

/** Most that one pixmap may take, at 4 bytes for a pixel: 4096 by 4096, for instance. */
constexpr std::int64_t DVC_PNL_RMG_PIXMAP_BYTES_LIMIT = std::int64_t{64} * 1024 * 1024;

/** @return whether a pixmap of this size, in device pixels, has pixels and keeps to the limit */
bool dvc_pnl_rmg_is_allowed_size(int width, int height);

/**
 * @param path  completed by the toolkit with the extension of a known format when it has none
 * @return whether it is an ordinary file whose header tells a known format and an allowed size
 */
bool dvc_pnl_rmg_is_loadable_image_file(const QString& path);
/** @return the same of a picture in memory */
bool dvc_pnl_rmg_is_loadable_image(const QByteArray& bytes);

/** @return whether it is an ordinary file, of at most 16 MiB, that dvc_pnl_rmg_is_drawable_svg() allows */
bool dvc_pnl_rmg_is_drawable_svg_file(const QString& path);
/**
 * @return false for what would exhaust the stack, the memory or the patience of whoever draws it: deep
 *         nesting, references in a circle or multiplying, entities that do, large bitmaps within,
 *         compression. True otherwise, also for what is no SVG document at all.
 */
bool dvc_pnl_rmg_is_drawable_svg(const QByteArray& document);

} // namespace velarion

#endif
