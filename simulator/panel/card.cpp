#include "card.h"

#include <QPainter>

namespace velarion {

namespace {

constexpr char GROUND[] = "187"; // ICON_CMN_OTHER_FRAME_GROUP

} // namespace

card::card()
    : ground_(GROUND) {}

void card::describe(panel_contents& contents) const {
    ground_.describe(rect(), contents);
}

void card::reload() {
    ground_.reload();
}

void card::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    ground_.draw_ground(painter, rect());
}

} // namespace velarion
