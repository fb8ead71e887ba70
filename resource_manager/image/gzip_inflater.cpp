#include "gzip_inflater.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velarion {

namespace {

constexpr int BITS_PER_BYTE = 8;
constexpr std::size_t TOOLKIT_CHUNK = 4096; // the toolkit looks for another member only within one

enum OUTCOME { OK, CUT, BROKEN, TOO_LARGE };

using CODE_LENGTHS = std::vector<std::uint8_t>;

std::array<std::uint32_t, 256> make_crc_table() {
    const std::uint32_t polynomial = 0xEDB88320U;
    std::array<std::uint32_t, 256> table = {};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t crc = i;
        for (int bit = 0; bit < BITS_PER_BYTE; ++bit) {
            crc = (crc >> 1) ^ ((crc & 1U) != 0 ? polynomial : 0);
        }
        table[i] = crc;
    }
    return table;
}

std::uint32_t crc_of(const std::uint8_t* bytes, std::size_t count) {
    static const std::array<std::uint32_t, 256> table = make_crc_table();
    std::uint32_t crc = 0xFFFFFFFFU;
    for (std::size_t i = 0; i < count; ++i) {
        crc = (crc >> BITS_PER_BYTE) ^ table[(crc ^ bytes[i]) & 0xFFU];
    }
    return ~crc;
}

/** Bits of the data, the lowest of each byte first. */
class bit_source {
public:
    bit_source(const std::uint8_t* bytes, std::size_t count)
        : bytes_(bytes)
        , count_(count) {}

    OUTCOME get(int count, std::uint32_t& value) {
        while (held_count_ < count) {
            if (position_ == count_) {
                return CUT;
            }
            held_ |= static_cast<std::uint32_t>(bytes_[position_++]) << held_count_;
            held_count_ += BITS_PER_BYTE;
        }
        value = held_ & ((1U << count) - 1U);
        held_ >>= count;
        held_count_ -= count;
        return OK;
    }

    /** Drops the rest of a byte; never more is held between two calls of get(). */
    void align() {
        held_ = 0;
        held_count_ = 0;
    }

    std::size_t position() const { return position_; }
    std::size_t rest() const { return count_ - position_; }
    const std::uint8_t* at(std::size_t position) const { return bytes_ + position; }
    void skip(std::size_t count) { position_ += count; }

private:
    const std::uint8_t* bytes_;
    std::size_t count_;
    std::size_t position_ = 0;
    std::uint32_t held_ = 0;
    int held_count_ = 0;
};

/** Codes of 1 to 15 bits for symbols, in the canonical order. */
class prefix_code {
public:
    /** @param may_be_single  whether one symbol alone may leave the code incomplete */
    OUTCOME build(const CODE_LENGTHS& lengths, bool may_be_single) {
        counts_.fill(0);
        for (const std::uint8_t length : lengths) {
            ++counts_[length];
        }
        const std::size_t used = lengths.size() - counts_[0];
        counts_[0] = 0;
        int left = 1; // codes of the length that no shorter one begins
        longest_ = 1;
        for (std::size_t length = 1; length <= MOST_BITS; ++length) {
            left = 2 * left - counts_[length];
            if (left < 0) {
                return BROKEN;
            }
            longest_ = counts_[length] > 0 ? length : longest_;
        }
        is_empty_ = used == 0;
        const bool is_single = may_be_single && used == 1 && counts_[1] == 1;
        if (left > 0 && used > 0 && !is_single) {
            return BROKEN;
        }
        sort(lengths);
        return OK;
    }

    bool is_empty() const { return is_empty_; }

    OUTCOME get(bit_source& source, std::uint32_t& symbol) const {
        std::uint32_t code = 0;
        std::uint32_t first = 0;
        std::uint32_t index = 0;
        for (std::size_t length = 1; length <= longest_; ++length) {
            std::uint32_t bit = 0;
            if (source.get(1, bit) != OK) {
                return CUT;
            }
            code |= bit;
            if (code - first < counts_[length]) {
                symbol = symbols_[index + (code - first)];
                return OK;
            }
            index += counts_[length];
            first = (first + counts_[length]) << 1U;
            code <<= 1U;
        }
        return BROKEN;
    }

private:
    static constexpr std::size_t MOST_BITS = 15;

    void sort(const CODE_LENGTHS& lengths) {
        std::vector<std::size_t> offsets(MOST_BITS + 2);
        for (std::size_t length = 1; length <= MOST_BITS; ++length) {
            offsets[length + 1] = offsets[length] + counts_[length];
        }
        symbols_.assign(lengths.size(), 0);
        for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
            if (lengths[symbol] != 0) {
                symbols_[offsets[lengths[symbol]]++] = static_cast<std::uint16_t>(symbol);
            }
        }
    }

    std::array<std::uint16_t, MOST_BITS + 1> counts_ = {};
    std::size_t longest_ = 1;
    bool is_empty_ = true;
    std::vector<std::uint16_t> symbols_;
};

class gzip_inflater {
public:
    gzip_inflater(const QByteArray& compressed, std::size_t limit, QByteArray& inflated)
        : source_(static_cast<const std::uint8_t*>(static_cast<const void*>(compressed.constData())),
                  static_cast<std::size_t>(compressed.size()))
        , limit_(limit)
        , inflated_(inflated) {}

    GZIP_RESULT run() {
        inflated_.clear();
        OUTCOME outcome = OK;
        do {
            outcome = inflate_member();
        } while (outcome == OK && source_.rest() > 0 && source_.position() % TOOLKIT_CHUNK != 0);
        return outcome == BROKEN ? GZIP_BROKEN : (outcome == TOO_LARGE ? GZIP_TOO_LARGE : GZIP_INFLATED);
    }

private:
    OUTCOME inflate_member();
    OUTCOME skip_header();
    OUTCOME skip_text();
    OUTCOME skip(std::size_t count);
    OUTCOME inflate_block(bool& is_last);
    OUTCOME copy_stored();
    OUTCOME read_codes(prefix_code& literals, prefix_code& distances);
    OUTCOME read_lengths(const prefix_code& code, CODE_LENGTHS& lengths);
    OUTCOME inflate_coded(const prefix_code& literals, const prefix_code& distances);
    OUTCOME copy_match(std::uint32_t symbol, const prefix_code& distances);
    OUTCOME check_trailer();
    OUTCOME append(std::uint8_t byte);
    const std::uint8_t* member() const {
        return static_cast<const std::uint8_t*>(static_cast<const void*>(inflated_.constData())) + member_;
    }
    std::size_t member_size() const { return static_cast<std::size_t>(inflated_.size()) - member_; }

    bit_source source_;
    std::size_t limit_;
    QByteArray& inflated_;
    std::size_t member_ = 0; ///< where the bytes of the member begin
};

OUTCOME gzip_inflater::inflate_member() {
    member_ = static_cast<std::size_t>(inflated_.size());
    OUTCOME outcome = skip_header();
    for (bool is_last = false; outcome == OK && !is_last;) {
        outcome = inflate_block(is_last);
    }
    return outcome == OK ? check_trailer() : outcome;
}

OUTCOME gzip_inflater::skip(std::size_t count) {
    if (source_.rest() < count) {
        source_.skip(source_.rest());
        return CUT;
    }
    source_.skip(count);
    return OK;
}

OUTCOME gzip_inflater::skip_text() {
    std::uint32_t byte = 1;
    OUTCOME outcome = OK;
    while (outcome == OK && byte != 0) {
        outcome = source_.get(BITS_PER_BYTE, byte);
    }
    return outcome;
}

OUTCOME gzip_inflater::skip_header() {
    enum FLAG : std::uint32_t { HEADER_CRC = 2, EXTRA = 4, NAME = 8, COMMENT = 16, RESERVED = 0xE0 };
    const std::size_t begin = source_.position();
    const std::uint32_t mark = 0x8B1F;
    const std::uint32_t deflated = 8;
    std::uint32_t value = 0;
    OUTCOME outcome = source_.get(2 * BITS_PER_BYTE, value);
    if (outcome == OK && value != mark) {
        return BROKEN;
    }
    outcome = outcome == OK ? source_.get(2 * BITS_PER_BYTE, value) : outcome;
    const std::uint32_t flags = value >> BITS_PER_BYTE;
    if (outcome == OK && ((value & 0xFFU) != deflated || (flags & RESERVED) != 0)) {
        return BROKEN;
    }
    const std::size_t time_and_system = 6;
    outcome = outcome == OK ? skip(time_and_system) : outcome;
    if (outcome == OK && (flags & EXTRA) != 0) {
        outcome = source_.get(2 * BITS_PER_BYTE, value);
        outcome = outcome == OK ? skip(value) : outcome;
    }
    if (outcome == OK && (flags & NAME) != 0) {
        outcome = skip_text();
    }
    if (outcome == OK && (flags & COMMENT) != 0) {
        outcome = skip_text();
    }
    if (outcome == OK && (flags & HEADER_CRC) != 0) {
        const std::uint32_t crc = crc_of(source_.at(begin), source_.position() - begin) & 0xFFFFU;
        outcome = source_.get(2 * BITS_PER_BYTE, value);
        return outcome == OK && value != crc ? BROKEN : outcome;
    }
    return outcome;
}

OUTCOME gzip_inflater::check_trailer() {
    source_.align();
    std::uint32_t crc = 0;
    std::uint32_t size = 0;
    for (int shift = 0; shift < 32; shift += BITS_PER_BYTE) {
        std::uint32_t byte = 0;
        if (source_.get(BITS_PER_BYTE, byte) != OK) {
            return CUT;
        }
        crc |= byte << shift;
    }
    if (crc != crc_of(member(), member_size())) {
        return BROKEN;
    }
    for (int shift = 0; shift < 32; shift += BITS_PER_BYTE) {
        std::uint32_t byte = 0;
        if (source_.get(BITS_PER_BYTE, byte) != OK) {
            return CUT;
        }
        size |= byte << shift;
    }
    return size == member_size() ? OK : BROKEN;
}

OUTCOME gzip_inflater::inflate_block(bool& is_last) {
    enum TYPE : std::uint32_t { STORED, FIXED, DYNAMIC };
    std::uint32_t last = 0;
    std::uint32_t type = 0;
    if (source_.get(1, last) != OK || source_.get(2, type) != OK) {
        return CUT;
    }
    is_last = last != 0;
    if (type == STORED) {
        return copy_stored();
    }
    prefix_code literals;
    prefix_code distances;
    OUTCOME outcome = BROKEN;
    if (type == FIXED) {
        CODE_LENGTHS lengths(288, 8);
        std::fill(lengths.begin() + 144, lengths.begin() + 256, std::uint8_t{9});
        std::fill(lengths.begin() + 256, lengths.begin() + 280, std::uint8_t{7});
        literals.build(lengths, false);
        distances.build(CODE_LENGTHS(32, 5), false);
        outcome = OK;
    } else if (type == DYNAMIC) {
        outcome = read_codes(literals, distances);
    }
    return outcome == OK ? inflate_coded(literals, distances) : outcome;
}

OUTCOME gzip_inflater::copy_stored() {
    source_.align();
    std::uint32_t size = 0;
    std::uint32_t check = 0;
    if (source_.get(16, size) != OK || source_.get(16, check) != OK) {
        return CUT;
    }
    if (size != (check ^ 0xFFFFU)) {
        return BROKEN;
    }
    for (; size > 0; --size) {
        std::uint32_t byte = 0;
        if (source_.get(BITS_PER_BYTE, byte) != OK) {
            return CUT;
        }
        if (append(static_cast<std::uint8_t>(byte)) != OK) {
            return TOO_LARGE;
        }
    }
    return OK;
}

OUTCOME gzip_inflater::read_codes(prefix_code& literals, prefix_code& distances) {
    const std::uint8_t order[] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    const std::uint32_t end_of_block = 256;
    std::uint32_t literal_count = 0;
    std::uint32_t distance_count = 0;
    std::uint32_t order_count = 0;
    if (source_.get(5, literal_count) != OK || source_.get(5, distance_count) != OK ||
        source_.get(4, order_count) != OK) {
        return CUT;
    }
    literal_count += 257;
    distance_count += 1;
    if (literal_count > 286 || distance_count > 30) {
        return BROKEN;
    }
    CODE_LENGTHS lengths(sizeof order, 0);
    for (std::uint32_t i = 0; i < order_count + 4; ++i) {
        std::uint32_t length = 0;
        if (source_.get(3, length) != OK) {
            return CUT;
        }
        lengths[order[i]] = static_cast<std::uint8_t>(length);
    }
    prefix_code code;
    if (code.build(lengths, false) != OK) {
        return BROKEN;
    }
    lengths.assign(literal_count + distance_count, 0);
    const OUTCOME outcome = read_lengths(code, lengths);
    if (outcome != OK) {
        return outcome;
    }
    const auto middle = lengths.begin() + static_cast<std::ptrdiff_t>(literal_count);
    const bool is_fine = lengths[end_of_block] != 0 &&
                         literals.build(CODE_LENGTHS(lengths.begin(), middle), true) == OK &&
                         distances.build(CODE_LENGTHS(middle, lengths.end()), true) == OK;
    return is_fine ? OK : BROKEN;
}

OUTCOME gzip_inflater::read_lengths(const prefix_code& code, CODE_LENGTHS& lengths) {
    const struct {
        int bits;
        std::uint32_t least;
    } repeats[] = {{2, 3}, {3, 3}, {7, 11}}; // of symbols 16, the last length; 17 and 18, zeros
    for (std::size_t at = 0; at < lengths.size();) {
        std::uint32_t symbol = 0;
        OUTCOME outcome = code.get(source_, symbol);
        if (outcome == BROKEN && code.is_empty()) { // the toolkit takes each bit for a 0 and fails at the end
            symbol = 0;
            outcome = OK;
        }
        if (outcome != OK) {
            return outcome;
        }
        if (symbol < 16) {
            lengths[at++] = static_cast<std::uint8_t>(symbol);
            continue;
        }
        if (symbol == 16 && at == 0) {
            return BROKEN;
        }
        const std::uint8_t length = symbol == 16 ? lengths[at - 1] : std::uint8_t{0};
        std::uint32_t count = 0;
        outcome = source_.get(repeats[symbol - 16].bits, count);
        if (outcome != OK) {
            return outcome;
        }
        count += repeats[symbol - 16].least;
        if (count > lengths.size() - at) {
            return BROKEN;
        }
        for (; count > 0; --count) {
            lengths[at++] = length;
        }
    }
    return OK;
}

OUTCOME gzip_inflater::inflate_coded(const prefix_code& literals, const prefix_code& distances) {
    const std::uint32_t end_of_block = 256;
    while (true) {
        std::uint32_t symbol = 0;
        OUTCOME outcome = literals.get(source_, symbol);
        if (outcome != OK || symbol == end_of_block) {
            return outcome;
        }
        outcome =
            symbol < end_of_block ? append(static_cast<std::uint8_t>(symbol)) : copy_match(symbol, distances);
        if (outcome != OK) {
            return outcome;
        }
    }
}

OUTCOME gzip_inflater::copy_match(std::uint32_t symbol, const prefix_code& distances) {
    const std::uint32_t shortest = 257;
    const std::uint32_t longest = 285; // 258 bytes; every other one: a base and some more bits
    const std::uint32_t window = 32768;
    if (symbol > longest) {
        return BROKEN;
    }
    std::uint32_t length = symbol - shortest + 3;
    std::uint32_t more = 0;
    if (symbol == longest) {
        length = 258;
    } else if (symbol >= shortest + 8) {
        const std::uint32_t step = symbol - shortest;
        const int bits = static_cast<int>(step / 4 - 1);
        if (source_.get(bits, more) != OK) {
            return CUT;
        }
        length = ((4 + step % 4) << static_cast<std::uint32_t>(bits)) + 3 + more;
    }
    std::uint32_t distance = 0;
    const OUTCOME outcome = distances.get(source_, distance);
    if (outcome != OK || distance >= 30) {
        return outcome == OK ? BROKEN : outcome;
    }
    if (distance >= 4) {
        const int bits = static_cast<int>(distance / 2 - 1);
        if (source_.get(bits, more) != OK) {
            return CUT;
        }
        distance = ((2 + distance % 2) << static_cast<std::uint32_t>(bits)) + more;
    }
    ++distance;
    if (distance > member_size() || distance > window) {
        return BROKEN;
    }
    for (; length > 0; --length) {
        if (append(member()[member_size() - distance]) != OK) {
            return TOO_LARGE;
        }
    }
    return OK;
}

OUTCOME gzip_inflater::append(std::uint8_t byte) {
    if (static_cast<std::size_t>(inflated_.size()) >= limit_) {
        return TOO_LARGE;
    }
    inflated_.append(static_cast<char>(byte));
    return OK;
}

} // namespace

bool is_gzip(const QByteArray& bytes) {
    return bytes.startsWith("\x1F\x8B");
}

GZIP_RESULT inflate_gzip(const QByteArray& compressed, int limit, QByteArray& inflated) {
    return gzip_inflater(compressed, static_cast<std::size_t>(limit), inflated).run();
}

} // namespace velarion
