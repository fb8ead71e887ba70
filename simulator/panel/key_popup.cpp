#include "key_popup.h"

#include "key_button.h"
#include "panel_view_ids.h"
#include "theme.h"
#include "units.h"

#include <QHBoxLayout>
#include <QKeyEvent>
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

/** Arrows go through the offers and no further. */
void key_popup::keyPressEvent(QKeyEvent* event) {
    const bool is_back = event->key() == Qt::Key_Left;
    const QList<QAbstractButton*> keys = findChildren<QAbstractButton*>();
    const int place =
        keys.indexOf(qobject_cast<QAbstractButton*>(window()->focusWidget())) + (is_back ? -1 : 1);
    if ((is_back || event->key() == Qt::Key_Right) && place >= 0 && place < keys.size()) {
        keys[place]->setFocus(Qt::OtherFocusReason);
    }
}

void key_popup::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    ground_.draw_ground(painter, rect());
}

} // namespace velarion
