#ifndef SATURATED_H
#define SATURATED_H

#include <algorithm>
#include <cstdint>
#include <limits>

namespace velarion {

/** The number as an int, the nearest limit of one where it is beyond. */
inline int saturated(std::int64_t number) {
    const std::int64_t least = std::numeric_limits<int>::min();
    const std::int64_t most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(number, least, most));
}

} // namespace velarion

#endif
