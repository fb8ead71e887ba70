#include "guidance_view.h"

#include "machine_state.h"
#include "movie_view.h"
#include "units.h"

#include <QPainter>

namespace velarion {

namespace {

constexpr int SLIDE_STEPS = 3; // tenths of a second

} // namespace

guidance_view::guidance_view(const QSize& size, const machine_state& clock)
    : clock_(clock)
    , movie_(new movie_view(size, clock)) {
    setFixedSize(px(size.width()), px(size.height()));
    movie_->setParent(this);
    movie_->hide();
    connect(&clock, &machine_state::stepped, this, [this] {
        if (clock_.steps() - begin_ <= SLIDE_STEPS) {
            update();
        }
    });
}

void guidance_view::show_picture(const QString& id, dvc_pnl_vwm_animation_request request) {
    request_ = request;
    begin_ = clock_.steps();
    const bool is_movie = request_.dvc_pnl_vwm_type() == ANIMATION_MOVIE;
    if (is_movie) {
        movie_->set_movie(id);
    } else {
        last_ = picture_;
        picture_.set_picture(id);
    }
    movie_->setVisible(is_movie);
    update();
}

/** How far the picture is from its place, px to the right. */
int guidance_view::shift() const {
    dvc_pnl_vwm_animation_request request = request_;
    const int steps = clock_.steps() - begin_;
    if (request.dvc_pnl_vwm_type() != ANIMATION_SLIDE || steps >= SLIDE_STEPS) {
        return 0;
    }
    const int way = width() * (SLIDE_STEPS - steps) / SLIDE_STEPS;
    const bool is_from_left = (request.dvc_pnl_vwm_direction() == ANIMATION_BACK) == !isRightToLeft();
    return is_from_left ? -way : way;
}

void guidance_view::describe(panel_contents& contents) const {
    if (!movie_->isVisibleTo(this)) {
        picture_.describe(rect(), contents);
    }
}

void guidance_view::reload() {
    picture_.reload();
    last_.reload();
}

void guidance_view::paintEvent(QPaintEvent*) {
    if (movie_->isVisibleTo(this)) {
        return;
    }
    QPainter painter(this);
    const int way = shift();
    if (way != 0) {
        last_.draw(painter, rect().translated(way > 0 ? way - width() : way + width(), 0));
    }
    picture_.draw(painter, rect().translated(way, 0));
}

} // namespace velarion
