#include "hardware_screen.h"

#include "dvc_pnl_dec_types.h"
#include "key_map.h"
#include "key_names.h"
#include "led_tile.h"
#include "machine_leds.h"
#include "message_label.h"
#include "panel_frame.h"
#include "panel_hardware.h"
#include "panel_view_ids.h"
#include "theme.h"
#include "units.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace velarion {

namespace {

struct led_entry {
    const char* name;
    const char* text;
};

/** In the order of their numbers. */
constexpr led_entry LEDS[] = {
    {"led_power", MSG_NORMAL_CHECK_TITLE_MACHINE_STATUS},
    {"led_saver", MSG_NORMAL_POWER_ENERGY_SAVER},
    {"led_start", MSG_CMN_START_TEXT},
    {"led_stop", MSG_CMN_STOP_TEXT},
    {"led_data", MSG_NORMAL_FAX_TEXT_RECEIVING},
    {"led_alert", MSG_STATUS_MACHINE_ATTENTION},
    {"led_fax", MSG_NORMAL_TITLE_FAX},
    {"led_print", MSG_NORMAL_TITLE_PRINT},
};
constexpr int COLUMNS = 2;
constexpr int STATUSES = 4;
constexpr int KEYS_WIDTH = 264; // dp

} // namespace

hardware_screen::hardware_screen(const panel_context& context)
    : panel_screen(context)
    , note_(new message_label(text_role::CAPTION))
    , keys_(new key_map) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(px(grid::margin), px(grid::margin), px(grid::margin), px(grid::margin));
    layout->setSpacing(px(2 * grid::space));
    layout->addWidget(make_leds(), 1);
    layout->addWidget(make_keys());
    connect(&hardware(), &panel_hardware::led_changed, this, [this](int led) { show_led(led); });
    connect(&hardware(), &panel_hardware::key_changed, keys_,
            [this](int key, bool is_pressed) { keys_->set_down(key, is_pressed); });
    connect(&hardware(), &panel_hardware::presence_changed, keys_, [this] { keys_->release_all(); });
    connect(&frame(), &panel_frame::screen_changed, this, [this] {
        if (frame().screen() != this) {
            give_leds_back();
        }
    });
    show_last_key();
}

QWidget* hardware_screen::make_leds() {
    auto* area = new QWidget;
    auto* layout = new QGridLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(px(grid::space));
    for (const led_entry& entry : LEDS) {
        const int led = static_cast<int>(leds_.size());
        auto* tile = new led_tile(entry.name, entry.text);
        connect(tile, &QAbstractButton::clicked, this, [this, led] { change(led); });
        layout->addWidget(tile, led / COLUMNS, led % COLUMNS);
        leds_.push_back(tile);
        show_led(led);
    }
    return area;
}

QWidget* hardware_screen::make_keys() {
    note_->set_wraps(true);
    note_->set_color(colors::quiet_text);
    auto* area = new QWidget;
    area->setFixedWidth(px(KEYS_WIDTH));
    auto* layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(px(grid::space));
    layout->addWidget(note_);
    layout->addWidget(keys_, 1);
    return area;
}

message_text hardware_screen::title() const {
    return MSG_TITLE_OPERATION_PANEL;
}

void hardware_screen::show_led(int led) {
    leds_[static_cast<std::size_t>(led)]->set_state(hardware().led(led));
}

void hardware_screen::show_last_key() {
    note_->set_message({MSG_MNT_KEY_CHECK, {last_key_.read()}});
}

/** Off, on, slow, fast, and off again. */
void hardware_screen::change(int led) {
    const int wanted = hardware().led(led).wanted;
    hardware().set_led(led,
                       wanted == led_state::UNKNOWN ? DVC_PNL_DEC_LED_STATUS_ON : (wanted + 1) % STATUSES);
}

void hardware_screen::give_leds_back() {
    const auto leds = leds_of(machine());
    for (std::size_t led = 0; led < leds.size(); ++led) {
        hardware().set_led(static_cast<int>(led), leds[led]);
    }
}

/** Every key is tested here and does nothing else. */
bool hardware_screen::take_key(int key) {
    keys_->set_pressed(key);
    last_key_ = name_of_key(key);
    show_last_key();
    return true;
}

void hardware_screen::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange) {
        show_last_key();
    }
    panel_screen::changeEvent(event);
}

} // namespace velarion
