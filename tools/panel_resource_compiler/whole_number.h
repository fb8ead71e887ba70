#ifndef WHOLE_NUMBER_H
#define WHOLE_NUMBER_H

#include <cstdint>
#include <string>

namespace velarion {

/**
 * Reads a whole number of 32 bits.
 *
 * @param number  unchanged when there is a fault
 * @return what is wrong with the text, to stand behind it: "is not a whole number"; empty when nothing is
 */
std::string read_whole_number(const std::string& text, std::int32_t& number);

} // namespace velarion

#endif
