#include "card.h"

#include "panel_view_ids.h"

#include <QPainter>

namespace velarion {

namespace {

constexpr const char* GROUND = ICON_CMN_OTHER_FRAME_GROUP;

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
