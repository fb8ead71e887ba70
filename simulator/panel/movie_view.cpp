#include "movie_view.h"

#include "dvc_pnl_rmg_image_resource_manager.h"
#include "machine_state.h"
#include "units.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

namespace velarion {

namespace {

constexpr int STEP_TIME = 100;       // ms
constexpr int LEAST_FRAME_TIME = 20; // ms

} // namespace

movie_view::movie_view(const QSize& size, const machine_state& clock)
    : clock_(clock) {
    setFixedSize(px(size.width()), px(size.height()));
    connect(&clock, &machine_state::stepped, this, [this] {
        if (current_frame() != shown_) {
            update();
        }
    });
}

void movie_view::set_movie(const QString& id) {
    if (id != id_) {
        id_ = id;
        begin_ = clock_.steps();
        load();
        update();
    }
}

void movie_view::load() {
    frames_.clear();
    QString path;
    auto* images = dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_instance();
    description_.id = id_;
    description_.result = images->dvc_pnl_rmg_get_movie_filepath(id_, path);
    QImageReader reader(path);
    int end = 0;
    for (QImage image = reader.read(); !image.isNull(); image = reader.read()) {
        end += qMax(LEAST_FRAME_TIME, reader.nextImageDelay());
        const QImage fitted = image.scaled(size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
        frames_.push_back({QPixmap::fromImage(fitted), end});
        description_.natural_size = image.size();
    }
    if (frames_.empty() && description_.result == DVC_PNL_RMG_IMAGE_OK) {
        description_.result = DVC_PNL_RMG_IMAGE_LOAD_FAILED;
    }
    description_.found_name = frames_.empty() ? QString() : QFileInfo(path).fileName();
}

std::size_t movie_view::current_frame() const {
    if (frames_.empty()) {
        return 0;
    }
    const int time = (clock_.steps() - begin_) * STEP_TIME % frames_.back().end;
    std::size_t frame = 0;
    while (frames_[frame].end <= time) {
        ++frame;
    }
    return frame;
}

void movie_view::describe(panel_contents& contents) const {
    if (!id_.isEmpty()) {
        shown_picture shown = description_;
        shown.box = rect();
        contents.pictures.push_back(shown);
    }
}

void movie_view::reload() {
    load();
}

void movie_view::paintEvent(QPaintEvent*) {
    shown_ = current_frame();
    if (shown_ < frames_.size()) {
        QPainter painter(this);
        const QPixmap& picture = frames_[shown_].picture;
        QRect box(QPoint(), picture.size());
        box.moveCenter(rect().center());
        painter.drawPixmap(box.topLeft(), picture);
    }
}

} // namespace velarion
