#include "led_tile.h"

#include "dvc_pnl_dec_types.h"
#include "panel_view_ids.h"
#include "theme.h"
#include "units.h"

#include <QPainter>

namespace velarion {

namespace {

constexpr int LAMP = 14; // dp

/** Of a status: off, on, and how often it blinks. */
message_text text_of(int status) {
    switch (status) {
    case DVC_PNL_DEC_LED_STATUS_OFF:
        return MSG_CMN_OFF_TEXT;
    case DVC_PNL_DEC_LED_STATUS_ON:
        return MSG_CMN_ON_TEXT;
    case DVC_PNL_DEC_LED_STATUS_BLINK_SLOW:
        return message_text::ordered(QStringLiteral("1 Hz"));
    case DVC_PNL_DEC_LED_STATUS_BLINK_FAST:
        return message_text::ordered(QStringLiteral("4 Hz"));
    default:
        return MSG_CMN_WORD_UNKNOWN;
    }
}

} // namespace

led_tile::led_tile(const char* name, const message_text& text)
    : panel_button(name, button_form::SETTING, text) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
}

void led_tile::set_state(const led_state& state) {
    state_ = state;
    set_value(text_of(state.told != led_state::UNKNOWN ? state.told : state.wanted));
    update();
}

/** The lamp is lit as the service tells; its rim warns while that is not what was asked for. */
void led_tile::paintEvent(QPaintEvent* event) {
    panel_button::paintEvent(event);
    const QRect line = value_box();
    const int size = px(LAMP);
    QRect lamp(0, 0, size, size);
    lamp.moveCenter(line.center());
    if (layoutDirection() == Qt::LeftToRight) {
        lamp.moveRight(line.right());
    } else {
        lamp.moveLeft(line.left());
    }
    const bool is_other = state_.told != led_state::UNKNOWN && state_.told != state_.wanted;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(is_other ? colors::warn : colors::quiet_text, 2));
    painter.setBrush(state_.is_lit ? colors::ok : colors::background);
    painter.drawEllipse(lamp);
}

} // namespace velarion
