#include "screen_layout.h"

#include "theme.h"
#include "units.h"

#include <QBoxLayout>
#include <QWidget>

namespace velarion {

QBoxLayout* lay_out_column(QWidget& screen, std::initializer_list<QWidget*> parts) {
    auto* layout = new QVBoxLayout(&screen);
    layout->setContentsMargins(px(grid::margin), px(grid::margin), px(grid::margin), px(grid::margin));
    layout->setSpacing(px(grid::space));
    for (QWidget* part : parts) {
        layout->addWidget(part);
    }
    return layout;
}

QWidget* make_row(std::initializer_list<QWidget*> parts) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(px(grid::space));
    for (QWidget* part : parts) {
        layout->addWidget(part);
    }
    return row;
}

} // namespace velarion
