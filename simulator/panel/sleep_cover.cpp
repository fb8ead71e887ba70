#include "sleep_cover.h"

#include "machine_state.h"

#include <QPainter>

namespace velarion {

sleep_cover::sleep_cover(machine_state& machine, QWidget* panel)
    : QWidget(panel)
    , machine_(machine) {
    setGeometry(panel->rect());
    setFocusPolicy(Qt::StrongFocus);
    hide();
    connect(&machine, &machine_state::changed, this, [this] { refresh(); });
}

/** What had the focus gets it back. */
void sleep_cover::refresh() {
    const bool is_asleep = machine_.condition() == machine_condition::ASLEEP;
    if (is_asleep == isVisibleTo(parentWidget())) {
        return;
    }
    if (is_asleep) {
        focus_before_ = window()->focusWidget();
    }
    setVisible(is_asleep);
    raise();
    if (QWidget* next = is_asleep ? this : focus_before_.data()) {
        next->setFocus(Qt::OtherFocusReason);
    }
}

void sleep_cover::keyPressEvent(QKeyEvent*) {
    machine_.set_asleep(false);
}

bool sleep_cover::focusNextPrevChild(bool) {
    return true;
}

void sleep_cover::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Qt::black);
}

void sleep_cover::mousePressEvent(QMouseEvent*) {
    machine_.set_asleep(false);
}

} // namespace velarion
