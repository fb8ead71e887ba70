// Drawing, loading and scaling, and the placeholders for pictures that are missing.
#include "dvc_pnl_rmg_image_resource_manager.h"

#include "dvc_pnl_rmg_image_inspection.h"
#include "dvc_pnl_rmg_property.h"
#include "dvc_pnl_utl_toolkit.h"
#include "picture_size.h"

#include <QColor>
#include <QFont>
#include <QMovie>
#include <QPainter>
#include <QRectF>
#include <QSvgRenderer>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>

namespace velarion {

namespace {

constexpr char ERROR_IMAGE_FILE[] = "ERROR_IMAGE.png";
constexpr char ERROR_MOVIE_FILE[] = "ERROR_MOVIE.gif";
constexpr int PLACEHOLDER_TEXT_LINES = 5;

/** @return the size of the view box as an integer rectangle; an empty one when integers cannot hold it */
QSize natural_size(const QSvgRenderer& renderer) {
    const double most = std::numeric_limits<int>::max() / 2.0;
    const QRectF box = renderer.viewBoxF();
    for (const double value : {box.x(), box.y(), box.width(), box.height()}) {
        if (!(std::fabs(value) < most)) {
            return QSize();
        }
    }
    return renderer.viewBox().size();
}

} // namespace

bool dvc_pnl_rmg_image_resource_manager::is_requested_size(int width, int height) {
    return width > 0 && height > 0;
}

QSize dvc_pnl_rmg_image_resource_manager::requested_size(int width, int height) {
    return is_requested_size(width, height) ? QSize(width, height) : QSize();
}

QPixmap* dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_convert_svg_image_data(QSvgRenderer& renderer,
                                                                                int width, int height) {
    if (!renderer.isValid()) {
        return new QPixmap;
    }
    const QSize size = is_requested_size(width, height) ? QSize(width, height) : natural_size(renderer);
    if (!is_allowed_size(size)) {
        return new QPixmap;
    }
    std::unique_ptr<QPixmap> picture(new QPixmap(size));
    if (!picture->isNull()) {
        picture->fill(QColor(0, 0, 0, 0));
        QPainter painter(picture.get());
        renderer.render(&painter);
    }
    return picture.release();
}

QPixmap* dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_create_svg_image_data(QString name, int width,
                                                                               int height) {
    QByteArray document;
    QSvgRenderer renderer;
    if (dvc_pnl_rmg_read_svg_file(resource_dir_ + name, requested_size(width, height), document)) {
        renderer.load(document);
    }
    return dvc_pnl_rmg_convert_svg_image_data(renderer, width, height);
}

QPixmap* dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_create_svg_image_data(QByteArray document, int width,
                                                                               int height) {
    QByteArray drawable;
    QSvgRenderer renderer;
    if (dvc_pnl_rmg_read_svg(document, requested_size(width, height), drawable)) {
        renderer.load(drawable);
    }
    return dvc_pnl_rmg_convert_svg_image_data(renderer, width, height);
}

void dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_qpixmap_size_convert(QPixmap& pixmap, int width,
                                                                          int height) {
    if (is_requested_size(width, height) && is_allowed_size(QSize(width, height))) {
        pixmap = pixmap.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
}

void dvc_pnl_rmg_image_resource_manager::get_error_image(QPixmap* pixmap) {
    if (!std::getenv(DVC_PNL_RMG_TEST_AID)) {
        return;
    }
    if (!error_image_) {
        error_image_ = new QPixmap;
        static_cast<void>(
            dvc_pnl_rmg_load_image_file(resource_dir_ + QLatin1String(ERROR_IMAGE_FILE), *error_image_));
    }
    *pixmap = *error_image_;
    if (pixmap->isNull()) {
        return;
    }
    QFont font;
    const int text_height = pixmap->height() / PLACEHOLDER_TEXT_LINES;
    if (text_height > 0) {
        font.setPixelSize(text_height);
    }
    QPainter painter(pixmap);
    painter.setFont(font);
    painter.drawText(QRect(0, 0, pixmap->width(), pixmap->height()), Qt::TextWordWrap,
                     dvc_pnl_utl_from_8bit(current_image_.image_name));
}

QString dvc_pnl_rmg_image_resource_manager::error_movie_path() const {
    return resource_dir_ + QLatin1String(ERROR_MOVIE_FILE);
}

void dvc_pnl_rmg_image_resource_manager::get_error_movie(QMovie*& movie, QObject* parent) {
    if (!error_movie_) {
        error_movie_ = new QMovie(parent);
        error_movie_->setFileName(error_movie_path());
    }
    movie = error_movie_;
}

void dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_initilize_error_image() {
    error_image_ = nullptr;
    error_movie_ = nullptr;
}

} // namespace velarion
