#include "gzip_inflater.h"

#include "prefix_code.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace velarion {

namespace {

constexpr std::size_t TOOLKIT_CHUNK = 4096; // the toolkit looks for another member only within one
constexpr std::uint32_t END_OF_BLOCK = 256;
constexpr std::size_t MOST_LITERALS = 286;
constexpr std::size_t MOST_DISTANCES = 30;
constexpr std::size_t WINDOW = 32768;

enum OUTCOME { GOING, CUT, BROKEN, TOO_LARGE };

/** The two codes of a block. */
struct block_codes {
    prefix_code literals; ///< and lengths of matches
    prefix_code distances;
};

std::array<std::uint32_t, 256> make_crc_table() {
    std::array<std::uint32_t, 256> table = {};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        table[i] = i;
        for (int bit = 0; bit < 8; ++bit) {
            table[i] = (table[i] >> 1U) ^ ((table[i] & 1U) != 0 ? 0xEDB88320U : 0);
        }
    }
    return table;
}

std::uint32_t crc_of(const std::uint8_t* bytes, std::size_t count) {
    static const std::array<std::uint32_t, 256> table = make_crc_table();
    std::uint32_t crc = 0xFFFFFFFFU;
    for (std::size_t i = 0; i < count; ++i) {
        crc = (crc >> 8U) ^ table[(crc ^ bytes[i]) & 0xFFU];
    }
    return ~crc;
}

block_codes make_fixed_codes() {
    std::array<std::uint8_t, prefix_code::MOST_SYMBOLS> lengths;
    std::fill(lengths.begin(), lengths.begin() + 144, std::uint8_t{8});
    std::fill(lengths.begin() + 144, lengths.begin() + 256, std::uint8_t{9});
    std::fill(lengths.begin() + 256, lengths.begin() + 280, std::uint8_t{7});
    std::fill(lengths.begin() + 280, lengths.end(), std::uint8_t{8});
    block_codes codes;
    static_cast<void>(codes.literals.build(lengths.data(), lengths.size(), false));
    lengths.fill(5);
    static_cast<void>(codes.distances.build(lengths.data(), 32, false));
    return codes;
}

/** Goes on until something fails; after that its operations do nothing of use and the first failure stays. */
class gzip_inflater {
public:
    gzip_inflater(const QByteArray& compressed, std::size_t limit, QByteArray& inflated)
        : source_(static_cast<const std::uint8_t*>(static_cast<const void*>(compressed.constData())),
                  static_cast<std::size_t>(compressed.size()))
        , limit_(limit)
        , inflated_(inflated) {}

    OUTCOME run() {
        inflated_.clear();
        do {
            inflate_member();
        } while (is_going() && source_.rest() > 0 && source_.position() % TOOLKIT_CHUNK != 0);
        return outcome_;
    }

private:
    void inflate_member();
    void skip_header();
    void skip_text();
    void check_trailer();
    void copy_stored();
    void read_codes(block_codes& codes);
    void read_lengths(const prefix_code& code, std::uint8_t* lengths, std::size_t count);
    void inflate_coded(const block_codes& codes);
    std::size_t length_of_match(std::uint32_t symbol);
    std::size_t distance_of_match(std::uint32_t symbol);
    void copy_match(std::size_t length, std::size_t distance);

    bool is_going() const { return outcome_ == GOING; }
    void fail(OUTCOME outcome) { outcome_ = is_going() ? outcome : outcome_; }
    void fail_unless(bool is_fine, OUTCOME outcome) {
        if (!is_fine) {
            fail(outcome);
        }
    }
    std::uint32_t get(int count) {
        const std::uint32_t value = source_.get(count);
        fail_unless(!source_.is_cut(), CUT);
        return value;
    }
    std::uint32_t get(const prefix_code& code) {
        const std::uint32_t symbol = code.get(source_);
        if (source_.is_cut() || symbol == prefix_code::NO_SYMBOL) {
            fail(source_.is_cut() ? CUT : BROKEN);
        }
        return symbol;
    }
    void skip(std::size_t count) {
        source_.skip(count);
        fail_unless(!source_.is_cut(), CUT);
    }
    std::size_t size() const { return static_cast<std::size_t>(inflated_.size()); }
    /** Makes room for more bytes. @return the first of them; null when there are to be none */
    char* extend(std::size_t count) {
        fail_unless(count <= limit_ - size(), TOO_LARGE);
        if (!is_going()) {
            return nullptr;
        }
        inflated_.resize(static_cast<int>(size() + count));
        return inflated_.data() + (size() - count);
    }

    bit_source source_;
    std::size_t limit_;
    QByteArray& inflated_;
    std::size_t member_ = 0; ///< where the bytes of the member begin
    OUTCOME outcome_ = GOING;
};

void gzip_inflater::inflate_member() {
    enum TYPE : std::uint32_t { STORED, FIXED, DYNAMIC };
    static const block_codes fixed_codes = make_fixed_codes();
    block_codes codes;
    member_ = size();
    skip_header();
    for (bool is_last = false; is_going() && !is_last;) {
        is_last = get(1) != 0;
        const std::uint32_t type = get(2);
        if (type == STORED) {
            copy_stored();
        } else if (type == FIXED) {
            inflate_coded(fixed_codes);
        } else if (type == DYNAMIC) {
            read_codes(codes);
            inflate_coded(codes);
        } else {
            fail(BROKEN);
        }
    }
    check_trailer();
}

void gzip_inflater::skip_text() {
    while (is_going() && get(8) != 0) {
    }
}

void gzip_inflater::skip_header() {
    enum FLAG : std::uint32_t { HEADER_CRC = 2, EXTRA = 4, NAME = 8, COMMENT = 16, RESERVED = 0xE0 };
    const std::size_t begin = source_.position();
    const std::size_t time_and_system = 6;
    fail_unless(get(16) == 0x8B1F, BROKEN);
    const std::uint32_t method = get(8);
    const std::uint32_t flags = get(8);
    fail_unless(method == 8 && (flags & RESERVED) == 0, BROKEN);
    skip(time_and_system);
    if ((flags & EXTRA) != 0) {
        skip(get(16));
    }
    if ((flags & NAME) != 0) {
        skip_text();
    }
    if ((flags & COMMENT) != 0) {
        skip_text();
    }
    if ((flags & HEADER_CRC) != 0 && is_going()) {
        const std::uint32_t crc = crc_of(source_.at(begin), source_.position() - begin);
        fail_unless(get(16) == (crc & 0xFFFFU), BROKEN);
    }
}

void gzip_inflater::check_trailer() {
    source_.align();
    const std::uint32_t crc = get(32);
    if (is_going()) {
        const void* const bytes = inflated_.constData() + member_;
        fail_unless(crc == crc_of(static_cast<const std::uint8_t*>(bytes), size() - member_), BROKEN);
        fail_unless(get(32) == size() - member_, BROKEN);
    }
}

void gzip_inflater::copy_stored() {
    source_.align();
    const std::size_t told = get(16);
    fail_unless((get(16) ^ 0xFFFFU) == told, BROKEN);
    const std::size_t count = std::min(told, source_.rest());
    if (char* const bytes = extend(count)) {
        std::copy_n(source_.at(source_.position()), count, bytes);
    }
    skip(told);
}

void gzip_inflater::read_codes(block_codes& codes) {
    const std::uint8_t order[] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    std::array<std::uint8_t, MOST_LITERALS + MOST_DISTANCES> lengths = {};
    const std::size_t literals = get(5) + 257;
    const std::size_t distances = get(5) + 1;
    const std::size_t ordered = get(4) + 4;
    fail_unless(literals <= MOST_LITERALS && distances <= MOST_DISTANCES, BROKEN);
    for (std::size_t i = 0; i < ordered; ++i) {
        lengths[order[i]] = static_cast<std::uint8_t>(get(3));
    }
    prefix_code code;
    fail_unless(code.build(lengths.data(), sizeof order, false), BROKEN);
    if (!is_going()) {
        return;
    }
    read_lengths(code, lengths.data(), literals + distances);
    if (is_going()) {
        fail_unless(lengths[END_OF_BLOCK] != 0 && codes.literals.build(lengths.data(), literals, true) &&
                        codes.distances.build(lengths.data() + literals, distances, true),
                    BROKEN);
    }
}

void gzip_inflater::read_lengths(const prefix_code& code, std::uint8_t* lengths, std::size_t count) {
    const struct {
        int bits;
        std::size_t least;
    } repeats[] = {{2, 3}, {3, 3}, {7, 11}}; // of symbols 16, the last length; 17 and 18, zeros
    for (std::size_t at = 0; is_going() && at < count;) {
        // The toolkit takes each bit for a 0 where there is no code, and fails at the end.
        const std::uint32_t symbol = code.is_empty() ? get(1) & 0U : get(code);
        std::size_t repeated = 1;
        std::uint8_t length = static_cast<std::uint8_t>(symbol);
        if (is_going() && symbol >= 16) {
            fail_unless(symbol > 16 || at > 0, BROKEN);
            length = symbol == 16 && at > 0 ? lengths[at - 1] : std::uint8_t{0};
            repeated = repeats[symbol - 16].least + get(repeats[symbol - 16].bits);
            fail_unless(repeated <= count - at, BROKEN);
        }
        if (is_going()) {
            std::fill_n(lengths + at, repeated, length);
            at += repeated;
        }
    }
}

void gzip_inflater::inflate_coded(const block_codes& codes) {
    while (is_going()) {
        const std::uint32_t symbol = get(codes.literals);
        if (!is_going() || symbol == END_OF_BLOCK) {
            return;
        }
        if (symbol > END_OF_BLOCK) {
            const std::size_t length = length_of_match(symbol - END_OF_BLOCK - 1);
            copy_match(length, distance_of_match(get(codes.distances)));
        } else if (size() < limit_) {
            inflated_.append(static_cast<char>(symbol));
        } else {
            fail(TOO_LARGE);
        }
    }
}

/** 28 is 258 bytes; every other symbol is a base and some more bits. */
std::size_t gzip_inflater::length_of_match(std::uint32_t symbol) {
    const std::uint32_t longest = 28;
    fail_unless(symbol <= longest, BROKEN);
    if (symbol < 8 || symbol >= longest) {
        return symbol < 8 ? symbol + 3 : 258;
    }
    const int bits = static_cast<int>(symbol / 4 - 1);
    return ((4 + symbol % 4) << static_cast<unsigned>(bits)) + 3 + get(bits);
}

std::size_t gzip_inflater::distance_of_match(std::uint32_t symbol) {
    fail_unless(symbol < MOST_DISTANCES, BROKEN);
    if (symbol < 4 || symbol >= MOST_DISTANCES) {
        return symbol + 1;
    }
    const int bits = static_cast<int>(symbol / 2 - 1);
    return ((2 + symbol % 2) << static_cast<unsigned>(bits)) + 1 + get(bits);
}

void gzip_inflater::copy_match(std::size_t length, std::size_t distance) {
    fail_unless(distance <= size() - member_ && distance <= WINDOW, BROKEN);
    if (char* const bytes = extend(length)) {
        for (std::size_t i = 0; i < length; ++i) {
            bytes[i] = *(bytes + i - distance);
        }
    }
}

} // namespace

bool is_gzip(const QByteArray& bytes) {
    return bytes.startsWith("\x1F\x8B");
}

gzip_result inflate_gzip(const QByteArray& compressed, int limit, QByteArray& inflated) {
    const OUTCOME outcome = gzip_inflater(compressed, static_cast<std::size_t>(limit), inflated).run();
    return outcome == BROKEN ? GZIP_BROKEN : (outcome == TOO_LARGE ? GZIP_TOO_LARGE : GZIP_INFLATED);
}

} // namespace velarion
