#ifndef DVC_PNL_DEC_TYPES_H
#define DVC_PNL_DEC_TYPES_H

#include <cstdint>

namespace velarion {

/**
 * Arguments of the device controller facade.
 *
 * Each takes any 32-bit value: the facade forwards those of the LEDs unchanged and ignores the others.
 * What an LED value means is the panel device service's to say; the names below are those it knows.
 * Plain values: for any thread.
 */

/** An LED of the operation panel. */
enum DVC_PNL_DEC_LED_ID : std::int32_t {
    DVC_PNL_DEC_LED_MAIN_POWER = 0,
    DVC_PNL_DEC_LED_ENERGY_SAVER = 1,
    DVC_PNL_DEC_LED_START = 2,
    DVC_PNL_DEC_LED_STOP = 3,
    DVC_PNL_DEC_LED_DATA_IN = 4,
    DVC_PNL_DEC_LED_ALERT = 5,
    DVC_PNL_DEC_LED_FAX = 6,
    DVC_PNL_DEC_LED_PRINT_SERVICE = 7 ///< the LED that the timer procedure drives
};

/** What an LED shows. */
enum DVC_PNL_DEC_LED_STATUS_ID : std::int32_t {
    DVC_PNL_DEC_LED_STATUS_OFF = 0,
    DVC_PNL_DEC_LED_STATUS_ON = 1,
    DVC_PNL_DEC_LED_STATUS_BLINK_SLOW = 2,
    DVC_PNL_DEC_LED_STATUS_BLINK_FAST = 3
};

/** Arguments without effect: no value has a meaning. */
enum DVC_PNL_DEC_BRIGHT_STATUS : std::int32_t {};
enum DVC_PNL_DEC_PM_MODE : std::int32_t {};
enum DVC_PNL_DEC_BUZZER_PATTERN : std::int32_t {};
enum DVC_PNL_DEC_BUZZER_KIND : std::int32_t {};
enum DVC_PNL_DEC_RP_CONNECT_MODE : std::int32_t {};
enum DVC_PNL_DEC_RP_OPERATION_MODE : std::int32_t {};

} // namespace velarion

#endif
