#include "hardware_screen.h"

#include "dvc_pnl_dec_types.h"
#include "hard_key.h"
#include "key_map.h"
#include "led_tile.h"
#include "machine_state.h"
#include "message_label.h"
#include "panel_frame.h"
#include "panel_hardware.h"
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
    {"led_power", "348"}, {"led_saver", "173"},   {"led_start", "32"}, {"led_stop", "33"},
    {"led_data", "251"},  {"led_alert", "21202"}, {"led_fax", "4"},    {"led_print", "5"},
};
constexpr int COLUMNS = 2;
constexpr int STATUSES = 4;
constexpr int KEYS_WIDTH = 264; // dp

struct key_text {
    int key;
    const char* text;
};

constexpr key_text KEYS[] = {
    {KEY_CLEAR, "35"}, {KEY_RESET, "34"},         {KEY_STOP, "33"}, {KEY_START, "32"},
    {KEY_HOME, "15"},  {KEY_ENERGY_SAVER, "173"}, {KEY_BACK, "28"}, {KEY_HELP, "12"},
    {KEY_COPY, "1"},   {KEY_SCAN, "3"},           {KEY_FAX, "4"},   {KEY_DOCUMENTS, "6"},
    {KEY_STATUS, "8"},
};

message_text text_of(int key) {
    for (const key_text& entry : KEYS) {
        if (entry.key == key) {
            return entry.text;
        }
    }
    return message_text::ordered(sign_of_key(key));
}

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
    return "31394"; // "Operation panel"
}

void hardware_screen::show_led(int led) {
    leds_[static_cast<std::size_t>(led)]->set_state(hardware().led(led));
}

void hardware_screen::show_last_key() {
    note_->set_message({QStringLiteral("28001"), {last_key_.read()}}); // MSG_MNT_KEY_CHECK
}

/** Off, on, slow, fast, and off again. */
void hardware_screen::change(int led) {
    const int wanted = hardware().led(led).wanted;
    hardware().set_led(led,
                       wanted == led_state::UNKNOWN ? DVC_PNL_DEC_LED_STATUS_ON : (wanted + 1) % STATUSES);
}

void hardware_screen::give_leds_back() {
    const auto leds = machine().leds();
    for (std::size_t led = 0; led < leds.size(); ++led) {
        hardware().set_led(static_cast<int>(led), leds[led]);
    }
}

/** Every key is tested here and does nothing else. */
bool hardware_screen::take_key(int key) {
    keys_->set_pressed(key);
    last_key_ = text_of(key);
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
