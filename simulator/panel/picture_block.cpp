#include "picture_block.h"

#include "dvc_pnl_rmg_image_resource_manager.h"
#include "picture_requests.h"

#include <QPainter>
#include <qdrawutil.h>

namespace velarion {

namespace {

constexpr int GROUND_CORNER = 14; // px of a component's picture that are not stretched

/** Has what is painted into a box mirrored there, when it reads from right to left. */
void turn(QPainter& painter, const QRect& box, Qt::LayoutDirection direction) {
    if (direction == Qt::RightToLeft) {
        painter.translate(2 * box.left() + box.width(), 0);
        painter.scale(-1, 1);
    }
}

} // namespace

void picture_block::set_picture(const QString& id, const QString& suffix) {
    if (id != id_ || suffix != suffix_) {
        id_ = id;
        suffix_ = suffix;
        is_loaded_ = false;
    }
}

void picture_block::reload() {
    is_loaded_ = is_loaded_ && generation_ == picture_requests::generation();
}

void picture_block::load(const QSize& size) const {
    if (is_loaded_ && size == size_) {
        return;
    }
    is_loaded_ = true;
    generation_ = picture_requests::generation();
    size_ = size;
    pixmap_ = QPixmap();
    int result =
        picture_requests::get_image(id_, suffix_, size, pixmap_, shown_.found_name, shown_.was_cached);
    if (result != DVC_PNL_RMG_IMAGE_OK && !suffix_.isEmpty()) {
        result =
            picture_requests::get_image(id_, QString(), size, pixmap_, shown_.found_name, shown_.was_cached);
    }
    shown_.id = id_;
    shown_.suffix = suffix_;
    shown_.requested_size = size;
    shown_.result = result;
}

void picture_block::draw(QPainter& painter, const QRect& box, Qt::LayoutDirection direction) const {
    if (!is_empty() && !box.isEmpty()) {
        load(box.size());
        painter.save();
        turn(painter, box, direction);
        painter.drawPixmap(box.topLeft(), pixmap_);
        painter.restore();
    }
}

void picture_block::draw_ground(QPainter& painter, const QRect& box, Qt::LayoutDirection direction) const {
    load(QSize());
    if (pixmap_.isNull()) {
        return;
    }
    const int corner = qMin(GROUND_CORNER, qMin(pixmap_.width(), pixmap_.height()) / 2 - 1);
    const QMargins margins(corner, corner, corner, corner);
    painter.save();
    turn(painter, box, direction);
    qDrawBorderPixmap(&painter, box, margins, pixmap_);
    painter.restore();
}

void picture_block::describe(const QRect& box, panel_contents& contents) const {
    if (is_empty()) {
        return;
    }
    if (!is_loaded_) {
        load(box.size());
    }
    shown_picture shown = shown_;
    shown.box = box;
    contents.pictures.push_back(shown);
}

} // namespace velarion
