#include "panel_hardware.h"

namespace velarion {

void absent_hardware::set_led(int led, int status) {
    wanted_[led] = status;
    Q_EMIT led_changed(led);
}

led_state absent_hardware::led(int led) const {
    led_state state;
    const auto wanted = wanted_.find(led);
    if (wanted != wanted_.end()) {
        state.wanted = wanted->second;
    }
    return state;
}

} // namespace velarion
