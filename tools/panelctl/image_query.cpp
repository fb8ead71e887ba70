#include "image_query.h"

#include "command_line.h"
#include "output_file.h"
#include "panel_session.h"

#include <QBuffer>

namespace velarion {

image_session::image_session() {
    report_missing_device_tree();
    images_ = dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_create_instance();
}

image_session::~image_session() {
    dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_delete_instance();
}

delivered_image image_session::request(const QString& id, const QString& suffix, const QSize& size) {
    delivered_image image;
    std::string found_name;
    image.result =
        images_->dvc_pnl_rmg_get_image(id, &image.pixmap, suffix, found_name, size.width(), size.height());
    image.found_name = QString::fromUtf8(found_name.c_str());
    return image;
}

std::vector<const DVC_PNL_RMG_IMPL_IMAGE_NAME*> find_images(const QString& text) {
    std::vector<const DVC_PNL_RMG_IMPL_IMAGE_NAME*> found;
    for (int i = 0; i < dvc_pnl_rmg_imple_image_name_table_size; ++i) {
        const DVC_PNL_RMG_IMPL_IMAGE_NAME& row = dvc_pnl_rmg_impl_image_name_table[i];
        if (text == QString::number(row.image_id) ||
            QString::fromUtf8(row.image_name).contains(text, Qt::CaseInsensitive) ||
            QString::fromUtf8(row.file_name).contains(text, Qt::CaseInsensitive)) {
            found.push_back(&row);
        }
    }
    return found;
}

void report_no_match(const QString& text) {
    report_fault(QStringLiteral("no image's number, name or file holds \"%1\"").arg(text));
}

QString describe_image_result(int result) {
    switch (result) {
    case DVC_PNL_RMG_IMAGE_OK:
        return QStringLiteral("delivered");
    case DVC_PNL_RMG_IMAGE_LOAD_FAILED:
        return QStringLiteral("no bitmap can be loaded");
    case DVC_PNL_RMG_IMAGE_NO_IMAGE_NAME:
        return QStringLiteral("the image has no name");
    case DVC_PNL_RMG_IMAGE_SVG_FAILED:
        return QStringLiteral("no SVG picture can be drawn");
    case DVC_PNL_RMG_IMAGE_NOT_FOUND:
        return QStringLiteral("there is no such image");
    default:
        return QStringLiteral("unknown result");
    }
}

bool read_size(const QString& text, QSize& size) {
    const QStringList numbers = text.split(QLatin1Char('x'));
    bool is_width = false;
    bool is_height = false;
    if (numbers.size() == 2) {
        size = QSize(numbers.at(0).toInt(&is_width), numbers.at(1).toInt(&is_height));
    }
    return is_width && is_height && size.width() > 0 && size.height() > 0;
}

bool write_picture(const QImage& picture, const QString& file) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!picture.save(&buffer, "PNG")) {
        report_fault(QStringLiteral("%1: the picture cannot be made a PNG").arg(file));
        return false;
    }
    return write_output_file(file, bytes);
}

} // namespace velarion
