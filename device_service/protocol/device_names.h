#ifndef DEVICE_NAMES_H
#define DEVICE_NAMES_H

#include <cstdint>
#include <string>

namespace velarion {

/** @return the name, or the number as text when it has none */
std::string led_name(std::int32_t led);
std::string led_status_name(std::int32_t status);
std::string fault_name(std::int32_t kind);
std::string result_text(std::int32_t result);

/** Finds an LED by name or decimal number. @param led  unchanged when there is none. @return whether found */
bool find_led(const std::string& name, std::int32_t& led);
/** Finds a status that can be set. @param status  unchanged when there is none. @return whether found */
bool find_led_status(const std::string& name, std::int32_t& status);

/** @return every name that find_led() or find_led_status() knows, ", " between them */
std::string known_leds();
std::string known_led_statuses();

} // namespace velarion

#endif
