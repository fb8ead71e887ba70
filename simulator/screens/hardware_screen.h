#ifndef HARDWARE_SCREEN_H
#define HARDWARE_SCREEN_H

#include "message_text.h"
#include "panel_screen.h"

#include <vector>

namespace velarion {

class key_map;
class led_tile;
class message_label;

/** The test of the panel's LEDs and hard keys. The machine has its LEDs back when another screen opens. */
class hardware_screen : public panel_screen {
public:
    explicit hardware_screen(const panel_context& context);
    message_text title() const override;
    bool take_key(int key) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    QWidget* make_leds();
    QWidget* make_keys();
    void show_led(int led);
    void show_last_key();
    void change(int led);
    void give_leds_back();

    std::vector<led_tile*> leds_;
    message_label* note_;
    key_map* keys_;
    message_text last_key_;
};

} // namespace velarion

#endif
