#include "whole_number.h"

#include <charconv>
#include <limits>

namespace velarion {

std::string read_whole_number(const std::string& text, std::int32_t& number) {
    using limits = std::numeric_limits<std::int32_t>;
    const char* end = text.data() + text.size();
    std::int32_t found = 0;
    const std::from_chars_result result = std::from_chars(text.data(), end, found);
    if (result.ptr != end || result.ec == std::errc::invalid_argument) {
        return "is not a whole number";
    }
    if (result.ec == std::errc::result_out_of_range) {
        return text[0] == '-' ? "is below " + std::to_string(limits::min()) + ", the lowest number"
                              : "is above " + std::to_string(limits::max()) + ", the highest number";
    }
    number = found;
    return {};
}

} // namespace velarion
