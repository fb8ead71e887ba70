#include "device_names.h"

#include "device_protocol.h"

#include <cstddef>

namespace velarion {

namespace {

constexpr const char* LED_NAMES[] = {"main_power", "energy_saver", "start", "stop",
                                     "data_in",    "alert",        "fax",   "print_service"};
constexpr const char* LED_STATUS_NAMES[] = {"off", "on", "blink_slow", "blink_fast", "timer"};
constexpr const char* FAULT_NAMES[] = {"none", "delay", "drop", "fail", "crash", "crash_now"};
constexpr const char* RESULT_TEXTS[] = {"done",
                                        "wrong length",
                                        "wrong number of parameters",
                                        "unknown function",
                                        "wrong parameter",
                                        "unknown LED",
                                        "unknown status",
                                        "unknown key",
                                        "value out of range",
                                        "no such timer procedure",
                                        "too many observers"};
static_assert(sizeof LED_NAMES / sizeof *LED_NAMES == LED_COUNT, "every LED has a name");

template <std::size_t SIZE> std::string name_of(const char* const (&names)[SIZE], std::int32_t number) {
    const bool is_named = number >= 0 && static_cast<std::size_t>(number) < SIZE;
    return is_named ? names[number] : std::to_string(number);
}

bool find_name(const char* const* names, std::int32_t count, const std::string& name, std::int32_t& number) {
    for (std::int32_t i = 0; i < count; ++i) {
        if (name == names[i] || name == std::to_string(i)) {
            number = i;
            return true;
        }
    }
    return false;
}

std::string list_names(const char* const* names, std::int32_t count) {
    std::string list = names[0];
    for (std::int32_t i = 1; i < count; ++i) {
        list += std::string(", ") + names[i];
    }
    return list;
}

} // namespace

std::string led_name(std::int32_t led) {
    return name_of(LED_NAMES, led);
}

std::string led_status_name(std::int32_t status) {
    return name_of(LED_STATUS_NAMES, status);
}

std::string fault_name(std::int32_t kind) {
    return name_of(FAULT_NAMES, kind);
}

std::string result_text(std::int32_t result) {
    return name_of(RESULT_TEXTS, result);
}

bool find_led(const std::string& name, std::int32_t& led) {
    return find_name(LED_NAMES, LED_COUNT, name, led);
}

bool find_led_status(const std::string& name, std::int32_t& status) {
    return find_name(LED_STATUS_NAMES, LED_STATUS_TIMER, name, status);
}

std::string known_leds() {
    return list_names(LED_NAMES, LED_COUNT);
}

std::string known_led_statuses() {
    return list_names(LED_STATUS_NAMES, LED_STATUS_TIMER);
}

} // namespace velarion
