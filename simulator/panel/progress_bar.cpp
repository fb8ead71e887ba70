#include "progress_bar.h"

#include "panel_view_ids.h"
#include "theme.h"
#include "units.h"

#include <QPainter>
#include <QStyle>

namespace velarion {

namespace {

constexpr const char* BASE = ICON_CMN_OTHER_PROGRESS_BASE;
constexpr const char* BAR = ICON_CMN_OTHER_PROGRESS_BAR;
constexpr int HEIGHT = 12; // dp

} // namespace

progress_bar::progress_bar()
    : base_(BASE)
    , bar_(BAR) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void progress_bar::set_percent(int percent) {
    if (percent != percent_) {
        percent_ = percent;
        update();
    }
}

QSize progress_bar::sizeHint() const {
    return {px(120), px(HEIGHT)};
}

/** Nothing, or long enough for its round ends. */
QRect progress_bar::bar() const {
    const int length = percent_ <= 0 ? 0 : qMax(height(), width() * qMin(percent_, 100) / 100);
    return QStyle::visualRect(layoutDirection(), rect(), QRect(0, 0, length, height()));
}

void progress_bar::describe(panel_contents& contents) const {
    base_.describe(rect(), contents);
    bar_.describe(bar(), contents);
}

void progress_bar::reload() {
    base_.reload();
    bar_.reload();
}

void progress_bar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    base_.draw_ground(painter, rect());
    if (percent_ > 0) {
        bar_.draw_ground(painter, bar());
    }
}

} // namespace velarion
