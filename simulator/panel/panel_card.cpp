#include "panel_card.h"

#include "theme.h"
#include "units.h"

#include <QVBoxLayout>

namespace velarion {

panel_card::panel_card() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(px(grid::margin), px(grid::margin), px(grid::margin), px(grid::margin));
    column->setSpacing(px(grid::space));
}

QVBoxLayout& panel_card::column() const {
    return *static_cast<QVBoxLayout*>(layout());
}

void panel_card::paintEvent(QPaintEvent*) {
    paint_surface(*this);
}

} // namespace velarion
