#include "device_link.h"

#include "dvc_pnl_dec_communication.h"
#include "led_sender.h"

namespace velarion {

namespace {

constexpr int RETRY_PAUSE = 1000; // ms between requests to a service that refuses

bool is_led(int led) {
    return led >= 0 && led < LED_COUNT;
}

} // namespace

device_link::device_link()
    : sender_(std::make_shared<led_sender>([this](int result, int ms) {
        results_.post([this, result, ms] { watch_.take_result(result, ms); });
    })) {
    receiver_.set_service_hook([this] { sender_->begin_anew(); });
    receiver_.set_refusal_hook([this](auto*, int result) { watch_.take_result(result, 0); });
    connect(&watch_, &service_watch::changed, this, &device_link::take_condition);
}

device_link::~device_link() {
    sender_->end();
}

void device_link::start() {
    if (control_) {
        return;
    }
    delivery_.emplace(receiver_, DVC_PNL_DEC_SERVICE_NAME);
    receiver_.add_observer(this);
    control_.emplace(
        control_connection::listener{[this](service_look look) { take_look(look); },
                                     [this](const device_message& reply, int ms) { take_status(reply, ms); },
                                     [this](const device_message& event) { take_event(event); }});
    for (int led = 0; led < LED_COUNT; ++led) {
        if (leds_[static_cast<std::size_t>(led)].wanted != led_state::UNKNOWN) {
            sender_->want(led, leds_[static_cast<std::size_t>(led)].wanted);
        }
    }
}

void device_link::set_led(int led, int status) {
    if (is_led(led) && leds_[static_cast<std::size_t>(led)].wanted != status) {
        leds_[static_cast<std::size_t>(led)].wanted = status;
        if (control_) {
            sender_->want(led, status);
        }
        Q_EMIT led_changed(led);
    }
}

led_state device_link::led(int led) const {
    return is_led(led) ? leds_[static_cast<std::size_t>(led)] : led_state{};
}

void device_link::move_key(int key, bool is_pressed, control_connection::reply_taker done) {
    if (control_) {
        control_->send(CONTROL_KEY_EVENT,
                       {key, is_pressed ? DVC_PNL_DEC_KEY_PRESSED : DVC_PNL_DEC_KEY_RELEASED},
                       std::move(done));
    }
}

void device_link::set_fault(int kind, int value, int requests) {
    if (control_) {
        control_->send(CONTROL_SET_FAULT, {kind, value, requests});
    }
}

void device_link::dvc_pnl_dec_key_pressed(int key_id) {
    Q_EMIT key_changed(key_id, true);
}

void device_link::dvc_pnl_dec_key_released(int key_id) {
    Q_EMIT key_changed(key_id, false);
}

/** Events of LEDs and the list of them have the same three values of each. */
void device_link::take_event(const device_message& event) {
    const bool is_of_leds =
        event.func_id == EVENT_LED || event.func_id == EVENT_LED_EDGE || event.func_id == CONTROL_LIST_LEDS;
    has_keys_ = has_keys_ || event.func_id == EVENT_OBSERVER;
    for (std::size_t i = 0; is_of_leds && i + 2 < event.records.size(); i += 3) {
        take_led(event.records[i].value, event.records[i + 1].value, event.records[i + 2].value != 0);
    }
}

void device_link::take_led(int led, int status, bool is_lit) {
    if (is_led(led)) {
        leds_[static_cast<std::size_t>(led)].told = status;
        leds_[static_cast<std::size_t>(led)].is_lit = is_lit;
        Q_EMIT led_changed(led);
    }
}

void device_link::take_look(service_look look) {
    has_keys_ = has_keys_ && (look == service_look::ANSWERING || look == service_look::SILENT);
    watch_.take_look(look);
    for (int led = 0; look == service_look::ABSENT && led < LED_COUNT; ++led) {
        take_led(led, led_state::UNKNOWN, false);
    }
}

void device_link::take_status(const device_message& reply, int ms) {
    has_keys_ = reply.records.size() > STATUS_OBSERVERS && reply.records[STATUS_OBSERVERS].value > 0;
    watch_.take_status(reply, ms);
    if (watch_.condition() == service_condition::REFUSING && !since_retry_.hasExpired(RETRY_PAUSE)) {
        return;
    }
    since_retry_.start();
    if (watch_.condition() == service_condition::REFUSING) {
        ask_again();
    }
}

void device_link::ask_again() {
    sender_->begin_anew();
    receiver_.add_observer(this);
}

/** What a service refused or lost while something was wrong with it, it gets once more. */
void device_link::take_condition() {
    if (watch_.condition() == service_condition::RUNNING && watch_.is_just_back()) {
        ask_again();
    }
    if (is_there() != was_there_) {
        was_there_ = is_there();
        Q_EMIT presence_changed(was_there_);
    }
}

} // namespace velarion
