#include "led_board.h"

#include "dvc_pnl_dec_types.h"

namespace velarion {

namespace {

constexpr std::int32_t SLOW_HALF = 500; // milliseconds
constexpr std::int32_t FAST_HALF = 125;
constexpr std::int32_t SHORTEST_TIME = 10;
constexpr std::int32_t LONGEST_TIME = 60000;
constexpr std::int32_t MOST_CYCLES = 1000000;
constexpr std::int64_t NEVER = -1;
constexpr std::int32_t PRINT_SERVICE = DVC_PNL_DEC_LED_PRINT_SERVICE;

bool is_time(std::int32_t time) {
    return time >= SHORTEST_TIME && time <= LONGEST_TIME;
}

} // namespace

led_board::led_board() {
    for (led_state& led : leds_) {
        show(led, DVC_PNL_DEC_LED_STATUS_OFF, 0);
    }
}

device_result led_board::set(std::int32_t led, std::int32_t status, std::int64_t now,
                             std::vector<led_change>& changes) {
    if (led < 0 || led >= LED_COUNT) {
        return DEVICE_UNKNOWN_LED;
    }
    if (!is_settable(status)) {
        return DEVICE_UNKNOWN_STATUS;
    }
    show(leds_[index(led)], status, now);
    tell(led, false, changes);
    return DEVICE_OK;
}

void led_board::set_all(std::int32_t status, std::int64_t now, std::vector<led_change>& changes) {
    for (std::int32_t led = 0; led < LED_COUNT; ++led) {
        set(led, status, now, changes);
    }
}

device_result led_board::run_timer(const led_timer& timer, std::int64_t now,
                                   std::vector<led_change>& changes) {
    led_state& led = leds_[index(PRINT_SERVICE)];
    if (!is_settable(timer.end_status)) {
        return DEVICE_UNKNOWN_STATUS;
    }
    if (timer.lit_time == 0) {
        if (led.status != LED_STATUS_TIMER || timer.host != timer_host_ || timer.timer != timer_) {
            return DEVICE_NO_TIMER;
        }
        return set(PRINT_SERVICE, timer.end_status, now, changes);
    }
    if (!is_time(timer.lit_time) || !is_time(timer.dark_time) || timer.cycles < 0 ||
        timer.cycles > MOST_CYCLES) {
        return DEVICE_BAD_VALUE;
    }
    timer_host_ = timer.host;
    timer_ = timer.timer;
    led.status = LED_STATUS_TIMER;
    start(led, {timer.lit_time, timer.dark_time, timer.cycles, timer.end_status}, now);
    tell(PRINT_SERVICE, false, changes);
    return DEVICE_OK;
}

void led_board::advance(std::int64_t now, std::vector<led_change>& changes) {
    for (std::int32_t number = 0; number < LED_COUNT; ++number) {
        led_state& led = leds_[index(number)];
        if (led.next_change == NEVER || now < led.next_change) {
            continue;
        }
        const led_state before = led;
        bring_to(led, now);
        if (led.status != before.status) {
            tell(number, false, changes);
        } else if (led.is_lit != before.is_lit) {
            tell(number, true, changes);
        }
    }
}

std::int64_t led_board::next_change() const {
    std::int64_t next = NEVER;
    for (const led_state& led : leds_) {
        if (led.next_change != NEVER && (next == NEVER || led.next_change < next)) {
            next = led.next_change;
        }
    }
    return next;
}

void led_board::show(led_state& led, std::int32_t status, std::int64_t now) {
    led.status = status;
    switch (status) {
    case DVC_PNL_DEC_LED_STATUS_BLINK_SLOW:
        return start(led, {SLOW_HALF, SLOW_HALF, 0, status}, now);
    case DVC_PNL_DEC_LED_STATUS_BLINK_FAST:
        return start(led, {FAST_HALF, FAST_HALF, 0, status}, now);
    default:
        led.is_lit = status == DVC_PNL_DEC_LED_STATUS_ON;
        led.pattern = {};
        led.since = now;
        led.next_change = NEVER;
    }
}

void led_board::start(led_state& led, const blink_pattern& pattern, std::int64_t now) {
    led.pattern = pattern;
    led.since = now;
    bring_to(led, now);
}

/** Follows from the time alone, however many edges have passed since the last call. */
void led_board::bring_to(led_state& led, std::int64_t now) {
    const blink_pattern pattern = led.pattern;
    if (pattern.lit_time == 0) {
        return;
    }
    const std::int64_t period = static_cast<std::int64_t>(pattern.lit_time) + pattern.dark_time;
    const std::int64_t cycle = (now - led.since) / period;
    if (pattern.cycles > 0 && cycle >= pattern.cycles) {
        show(led, pattern.end_status, led.since + period * pattern.cycles);
        return bring_to(led, now); // the end status may blink, without an end of its own
    }
    const std::int64_t start_of_cycle = led.since + cycle * period;
    led.is_lit = now - start_of_cycle < pattern.lit_time;
    led.next_change = start_of_cycle + (led.is_lit ? pattern.lit_time : period);
}

bool led_board::is_settable(std::int32_t status) {
    return status >= DVC_PNL_DEC_LED_STATUS_OFF && status < LED_STATUS_TIMER;
}

void led_board::tell(std::int32_t led, bool is_edge, std::vector<led_change>& changes) const {
    changes.push_back({led, status(led), is_lit(led), is_edge});
}

} // namespace velarion
