#include "prefix_code.h"

namespace velarion {

bool prefix_code::build(const std::uint8_t* lengths, std::size_t count, bool may_be_single) {
    counts_.fill(0);
    for (std::size_t symbol = 0; symbol < count; ++symbol) {
        ++counts_[lengths[symbol]];
    }
    const std::size_t used = count - counts_[0];
    is_empty_ = used == 0;
    longest_ = 1;
    int left = 1; // codes of the length that no shorter one begins
    std::array<std::size_t, MOST_BITS + 2> offsets = {};
    for (std::size_t length = 1; length <= MOST_BITS; ++length) {
        left = 2 * left - counts_[length];
        if (left < 0) {
            return false;
        }
        longest_ = counts_[length] > 0 ? length : longest_;
        offsets[length + 1] = offsets[length] + counts_[length];
    }
    for (std::size_t symbol = 0; symbol < count; ++symbol) {
        if (lengths[symbol] != 0) {
            symbols_[offsets[lengths[symbol]]++] = static_cast<std::uint16_t>(symbol);
        }
    }
    const bool is_single = may_be_single && used == 1 && counts_[1] == 1;
    return left == 0 || is_empty_ || is_single;
}

} // namespace velarion
