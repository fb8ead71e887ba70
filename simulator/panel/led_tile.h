#ifndef LED_TILE_H
#define LED_TILE_H

#include "panel_button.h"
#include "panel_hardware.h"

namespace velarion {

/** An LED of the panel: the status that the device service tells, or that which was asked for while it tells
 * none. */
class led_tile : public panel_button {
public:
    /** @param name  for scripts */
    led_tile(const char* name, const message_text& text);

    void set_state(const led_state& state);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    led_state state_;
};

} // namespace velarion

#endif
