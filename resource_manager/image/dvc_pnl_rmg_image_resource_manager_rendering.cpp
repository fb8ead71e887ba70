// Drawing, loading and scaling, and the placeholders for pictures that are missing.
#include "dvc_pnl_rmg_image_resource_manager.h"

#include "dvc_pnl_rmg_image_inspection.h"
#include "dvc_pnl_rmg_property.h"
#include "dvc_pnl_utl_toolkit.h"

#include <QColor>
#include <QFont>
#include <QMovie>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdlib>
#include <memory>

namespace velarion {

namespace {

const char ERROR_IMAGE_FILE[] = "ERROR_IMAGE.png";
const char ERROR_MOVIE_FILE[] = "ERROR_MOVIE.gif";
const int PLACEHOLDER_TEXT_LINES = 5;

} // namespace

bool dvc_pnl_rmg_image_resource_manager::is_requested_size(int width, int height) {
    return width > 0 && height > 0;
}

bool dvc_pnl_rmg_image_resource_manager::load_bitmap(const QString& path, QPixmap& pixmap) {
    QPixmap loaded;
    if (!dvc_pnl_rmg_is_loadable_image_file(path) || !loaded.load(path) || loaded.isNull()) {
        return false;
    }
    pixmap = loaded;
    return true;
}

QPixmap* dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_convert_svg_image_data(QSvgRenderer& renderer,
                                                                                int width, int height) {
    if (!renderer.isValid()) {
        return new QPixmap;
    }
    const QSize size = is_requested_size(width, height) ? QSize(width, height) : renderer.viewBox().size();
    if (!dvc_pnl_rmg_is_allowed_size(size.width(), size.height())) {
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
    const QString path = resource_dir_ + name;
    QSvgRenderer renderer;
    if (dvc_pnl_rmg_is_drawable_svg_file(path)) {
        renderer.load(path);
    }
    return dvc_pnl_rmg_convert_svg_image_data(renderer, width, height);
}

QPixmap* dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_create_svg_image_data(QByteArray document, int width,
                                                                               int height) {
    QSvgRenderer renderer;
    if (dvc_pnl_rmg_is_drawable_svg(document)) {
        renderer.load(document);
    }
    return dvc_pnl_rmg_convert_svg_image_data(renderer, width, height);
}

void dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_qpixmap_size_convert(QPixmap& pixmap, int width,
                                                                          int height) {
    if (!is_requested_size(width, height)) {
        return;
    }
    const bool is_allowed = dvc_pnl_rmg_is_allowed_size(width, height);
    pixmap = is_allowed ? pixmap.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                        : QPixmap();
}

void dvc_pnl_rmg_image_resource_manager::get_error_image(QPixmap* pixmap) {
    if (std::getenv(DVC_PNL_RMG_TEST_AID) == nullptr) {
        return;
    }
    if (error_image_ == nullptr) {
        error_image_ = new QPixmap;
        load_bitmap(resource_dir_ + QLatin1String(ERROR_IMAGE_FILE), *error_image_);
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
    if (error_movie_ == nullptr) {
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
