#include "panel_card.h"

#include "theme.h"
#include "units.h"

#include <QPainter>
#include <QVBoxLayout>

namespace velarion {

namespace {

constexpr double RADIUS = 8.0; // px

} // namespace

panel_card::panel_card()
    : column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(px(grid::margin), px(grid::margin), px(grid::margin), px(grid::margin));
    column_->setSpacing(px(grid::space));
}

void panel_card::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors::surface);
    painter.drawRoundedRect(rect(), RADIUS, RADIUS);
}

} // namespace velarion
