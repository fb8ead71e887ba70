#include "key_popup.h"

#include "key_button.h"
#include "panel_view_ids.h"
#include "theme.h"
#include "units.h"

#include <QHBoxLayout>
#include <QPainter>

namespace velarion {

namespace {

constexpr const char* GROUND = ICON_CMN_OTHER_BACKGROUND_POPUP;

} // namespace

key_popup::key_popup(const QStringList& offers)
    : ground_(GROUND) {
    setLayoutDirection(Qt::LeftToRight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(px(grid::gap), px(grid::gap), px(grid::gap), px(grid::gap));
    layout->setSpacing(px(grid::gap));
    for (int i = 0; i < offers.size(); ++i) {
        auto* key = new key_button({offers[i], {}, {}, 1});
        key->setFixedSize(key->sizeHint());
        connect(key, &QAbstractButton::clicked, this, [this, i] { Q_EMIT chosen(i); });
        layout->addWidget(key);
    }
}

void key_popup::describe(panel_contents& contents) const {
    ground_.describe(rect(), contents);
}

void key_popup::reload() {
    ground_.reload();
}

void key_popup::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    ground_.draw_ground(painter, rect());
}

} // namespace velarion
