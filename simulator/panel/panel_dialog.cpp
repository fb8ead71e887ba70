#include "panel_dialog.h"

#include "message_label.h"
#include "panel_button.h"
#include "units.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace velarion {

namespace {

constexpr int WIDTH = 400;        // dp
constexpr int BUTTON_WIDTH = 104; // dp
constexpr int VEIL = 190;         // of 255
constexpr double RADIUS = 12.0;   // px

} // namespace

panel_dialog::panel_dialog(const message_text& message, QWidget* content,
                           const std::vector<dialog_button>& buttons)
    : buttons_(buttons)
    , box_(new QWidget) {
    box_->setFixedWidth(px(WIDTH));
    auto* inner = new QVBoxLayout(box_);
    inner->setContentsMargins(px(2 * grid::space), px(2 * grid::space), px(2 * grid::space),
                              px(2 * grid::space));
    inner->setSpacing(px(grid::margin));
    auto* label = new message_label(text_role::TITLE);
    label->set_wraps(true);
    label->set_message(message);
    inner->addWidget(label);
    if (content) {
        inner->addWidget(content, 1);
    }
    auto* row = new QHBoxLayout;
    row->setSpacing(px(grid::space));
    row->addStretch(1);
    for (const dialog_button& button : buttons) {
        auto* shown = new panel_button(button.name, button_form::TEXT, button.text);
        shown->setMinimumWidth(px(BUTTON_WIDTH));
        shown->set_primary(button.is_primary);
        connect(shown, &QAbstractButton::clicked, this, [this, act = button.act] { leave(act); });
        row->addWidget(shown);
    }
    inner->addLayout(row);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, px(grid::margin), 0, px(grid::margin));
    outer->addStretch(1);
    outer->addWidget(box_, 0, Qt::AlignHCenter);
    outer->addStretch(1);
}

void panel_dialog::take_key(int key) {
    for (const dialog_button& button : buttons_) {
        if (button.key == key) {
            leave(button.act);
            return;
        }
    }
}

void panel_dialog::leave(const std::function<void()>& act) {
    const std::function<void()> kept = act;
    Q_EMIT left();
    if (kept) {
        kept();
    }
}

void panel_dialog::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QColor veil = colors::on_accent;
    veil.setAlpha(VEIL);
    painter.fillRect(rect(), veil);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors::line, 1));
    painter.setBrush(colors::surface);
    painter.drawRoundedRect(QRectF(box_->geometry()).adjusted(0.5, 0.5, -0.5, -0.5), RADIUS, RADIUS);
}

} // namespace velarion
