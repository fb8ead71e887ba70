#ifndef IMAGE_QUERY_H
#define IMAGE_QUERY_H

#include "dvc_pnl_rmg_image_name_table.h"
#include "dvc_pnl_rmg_image_resource_manager.h"

#include <QImage>
#include <QPixmap>
#include <QSize>
#include <QString>

#include <vector>

namespace velarion {

/** What the library answered to an image request. */
struct delivered_image {
    int result = 0;
    QString found_name;
    QPixmap pixmap;
};

/** The library's image resource manager for one run of a command; says when the device tree is missing. */
class image_session {
public:
    image_session();
    ~image_session();
    image_session(const image_session&) = delete;
    image_session& operator=(const image_session&) = delete;

    dvc_pnl_rmg_image_resource_manager& images() { return *images_; }

    /** @param size  in pixels; empty for the natural size */
    delivered_image request(const QString& id, const QString& suffix, const QSize& size);

private:
    dvc_pnl_rmg_image_resource_manager* images_;
};

/** The rows of the image table whose number, name or file holds a text, in any letter case; all for "". */
std::vector<const DVC_PNL_RMG_IMPL_IMAGE_NAME*> find_images(const QString& text);

/** Reports that find_images() found nothing for a text. */
void report_no_match(const QString& text);

/** A result of an image request for people. */
QString describe_image_result(int result);

/** Reads "48x32". @return whether both numbers are there and positive */
bool read_size(const QString& text, QSize& size);

/** Writes a PNG file whole or not at all; a fault is reported. */
bool write_picture(const QImage& picture, const QString& file);

} // namespace velarion

#endif
