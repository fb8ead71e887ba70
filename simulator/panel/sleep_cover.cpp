#include "sleep_cover.h"

#include "machine_state.h"

#include <QPainter>

namespace velarion {

sleep_cover::sleep_cover(machine_state& machine, QWidget* panel)
    : QWidget(panel)
    , machine_(machine) {
    const auto refresh = [this] {
        setVisible(machine_.condition() == machine_condition::ASLEEP);
        raise();
    };
    setGeometry(panel->rect());
    connect(&machine, &machine_state::changed, this, refresh);
    refresh();
}

void sleep_cover::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Qt::black);
}

void sleep_cover::mousePressEvent(QMouseEvent*) {
    machine_.set_asleep(false);
}

} // namespace velarion
