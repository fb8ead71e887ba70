#include "panel_card.h"

#include "theme.h"
#include "units.h"

#include <QPainter>
#include <QVBoxLayout>

namespace velarion {

namespace {

constexpr double RADIUS = 8.0; // px

} // namespace

panel_card::panel_card() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(px(grid::margin), px(grid::margin), px(grid::margin), px(grid::margin));
    column->setSpacing(px(grid::space));
}

QVBoxLayout& panel_card::column() const {
    return *static_cast<QVBoxLayout*>(layout());
}

void panel_card::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors::surface);
    painter.drawRoundedRect(rect(), RADIUS, RADIUS);
}

} // namespace velarion
