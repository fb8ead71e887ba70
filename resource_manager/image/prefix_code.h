#ifndef PREFIX_CODE_H
#define PREFIX_CODE_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace velarion {

/** Bits of compressed data, the lowest of each byte first. */
class bit_source {
public:
    bit_source(const std::uint8_t* bytes, std::size_t count)
        : bytes_(bytes)
        , count_(count) {}

    /** @return the next bits, 32 at most; meaningless once the data are cut */
    std::uint32_t get(int count) {
        while (held_count_ < count) {
            if (position_ < count_) {
                held_ |= std::uint64_t{bytes_[position_++]} << held_count_;
            } else {
                is_cut_ = true;
            }
            held_count_ += 8;
        }
        const std::uint64_t value = held_ & ((std::uint64_t{1} << count) - 1);
        held_ >>= count;
        held_count_ -= count;
        return static_cast<std::uint32_t>(value);
    }

    /** Drops the rest of a byte; never more is held between two calls of get(). */
    void align() {
        held_ = 0;
        held_count_ = 0;
    }

    /** Goes on behind so many bytes, from the beginning of one. */
    void skip(std::size_t count) {
        is_cut_ = is_cut_ || count > rest();
        position_ += is_cut_ ? rest() : count;
    }

    /** Whether more was asked for than there is. */
    bool is_cut() const { return is_cut_; }
    std::size_t position() const { return position_; }
    std::size_t rest() const { return count_ - position_; }
    const std::uint8_t* at(std::size_t position) const { return bytes_ + position; }

private:
    const std::uint8_t* bytes_;
    std::size_t count_;
    std::size_t position_ = 0;
    std::uint64_t held_ = 0;
    int held_count_ = 0;
    bool is_cut_ = false;
};

/** Codes of 1 to 15 bits for symbols, in the canonical order. */
class prefix_code {
public:
    static constexpr std::size_t MOST_SYMBOLS = 288;
    static constexpr std::uint32_t NO_SYMBOL = 0xFFFF;

    /**
     * @param lengths        of the symbols' codes; 0 for a symbol without a code
     * @param may_be_single  whether one symbol alone may leave the code incomplete
     * @return whether the lengths fit together; a code without any symbol does
     */
    [[nodiscard]] bool build(const std::uint8_t* lengths, std::size_t count, bool may_be_single);

    bool is_empty() const { return is_empty_; }

    /** @return the symbol of the next code; NO_SYMBOL when there is none */
    std::uint32_t get(bit_source& source) const {
        std::uint32_t code = 0;
        std::uint32_t first = 0; // code of the length
        std::uint32_t index = 0; // of its symbol
        for (std::size_t length = 1; length <= longest_; ++length) {
            code |= source.get(1);
            const std::uint32_t count = counts_[length];
            if (code - first < count) {
                return symbols_[index + code - first];
            }
            index += count;
            first = (first + count) << 1U;
            code <<= 1U;
        }
        return NO_SYMBOL;
    }

private:
    static constexpr std::size_t MOST_BITS = 15;

    std::array<std::uint16_t, MOST_BITS + 1> counts_ = {}; ///< of codes, by length
    std::array<std::uint16_t, MOST_SYMBOLS> symbols_ = {}; ///< in the order of their codes
    std::size_t longest_ = 1;
    bool is_empty_ = true;
};

} // namespace velarion

#endif
