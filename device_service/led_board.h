#ifndef LED_BOARD_H
#define LED_BOARD_H

#include "device_protocol.h"

#include <array>
#include <cstdint>
#include <vector>

namespace velarion {

/** A change that a watcher is told. */
struct led_change {
    std::int32_t led;
    std::int32_t status;
    bool is_lit;
    bool is_edge; ///< a blinking LED turned on or off; its status is what it was
};

/** What the timer procedure of the print-service LED is to do. Times in milliseconds. */
struct led_timer {
    std::uint64_t host;     ///< process that owns the timer
    std::int32_t timer;     ///< its number there
    std::int32_t lit_time;  ///< 0 stops the procedure; otherwise 10 to 60000
    std::int32_t dark_time; ///< 10 to 60000
    std::int32_t cycles;    ///< times to be lit, up to 1000000; 0: until something else is asked for
    std::int32_t end_status;
};

/**
 * The panel's LEDs: what each shows now and when that changes next. Knows no clock: the time is passed in,
 * in milliseconds, and must never go back.
 */
class led_board {
public:
    led_board();

    /** Lets an LED show a status from now on. @return DEVICE_OK, DEVICE_UNKNOWN_LED, DEVICE_UNKNOWN_STATUS */
    device_result set(std::int32_t led, std::int32_t status, std::int64_t now,
                      std::vector<led_change>& changes);

    /** Lets every LED show a status, which must be one that can be set. */
    void set_all(std::int32_t status, std::int64_t now, std::vector<led_change>& changes);

    /**
     * Starts the timer procedure of the print-service LED in place of whatever the LED shows, or stops it:
     * only the process and timer that started a procedure can stop it.
     *
     * @return DEVICE_OK, DEVICE_BAD_VALUE, DEVICE_UNKNOWN_STATUS (of the end), DEVICE_NO_TIMER
     */
    device_result run_timer(const led_timer& timer, std::int64_t now, std::vector<led_change>& changes);

    /** Brings the LEDs to @p now; of several edges that passed unseen only the last is told. */
    void advance(std::int64_t now, std::vector<led_change>& changes);

    /** @return when advance() will have something to do; -1: never */
    std::int64_t next_change() const;

    std::int32_t status(std::int32_t led) const { return leds_[index(led)].status; }
    bool is_lit(std::int32_t led) const { return leds_[index(led)].is_lit; }

private:
    struct blink_pattern {
        std::int32_t lit_time; // 0: does not blink
        std::int32_t dark_time;
        std::int32_t cycles;
        std::int32_t end_status;
    };
    struct led_state {
        std::int32_t status;
        bool is_lit;
        blink_pattern pattern;
        std::int64_t since;
        std::int64_t next_change;
    };

    static std::size_t index(std::int32_t led) { return static_cast<std::size_t>(led); }
    static void show(led_state& led, std::int32_t status, std::int64_t now);
    static void start(led_state& led, const blink_pattern& pattern, std::int64_t now);
    static void bring_to(led_state& led, std::int64_t now);
    static bool is_settable(std::int32_t status);
    void tell(std::int32_t led, bool is_edge, std::vector<led_change>& changes) const;

    std::array<led_state, LED_COUNT> leds_;
    std::uint64_t timer_host_ = 0;
    std::int32_t timer_ = 0;
};

} // namespace velarion

#endif
