#include "level_bar.h"

#include "theme.h"
#include "units.h"

#include <QPainter>
#include <QStyle>

namespace velarion {

namespace {

constexpr int STEP_WIDTH = 8; // dp, as all below
constexpr int LOWEST = 8;
constexpr int HEIGHT = 32;
constexpr double RADIUS = 2; // px

} // namespace

level_bar::level_bar(int most)
    : most_(most) {
    setFixedSize(px(most * (STEP_WIDTH + grid::gap) - grid::gap), px(HEIGHT));
}

void level_bar::set_level(int level) {
    level_ = level;
    update();
}

void level_bar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int step = 0; step < most_; ++step) {
        const int rise = px(LOWEST) + (height() - px(LOWEST)) * step / qMax(1, most_ - 1);
        const QRect box(px(STEP_WIDTH + grid::gap) * step, height() - rise, px(STEP_WIDTH), rise);
        painter.setBrush(step < level_ ? colors::accent : colors::line);
        painter.drawRoundedRect(QStyle::visualRect(layoutDirection(), rect(), box), RADIUS, RADIUS);
    }
}

} // namespace velarion
