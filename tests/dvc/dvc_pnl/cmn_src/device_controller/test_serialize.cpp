#include "dvc_pnl_dec_serialize.h"

#include "fake_platform.h"
#include "message_bytes.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <memory>

using namespace velarion;

namespace {

const int MOST = std::numeric_limits<int>::max();
const int LEAST = std::numeric_limits<int>::min();

/** A message in memory that ends with its last byte, so that the address sanitizer sees any step beyond. */
class received_message {
public:
    /** @param shift  bytes between an aligned address and the message */
    explicit received_message(const std::string& bytes, std::size_t shift = 0)
        : memory_(new char[shift + bytes.size()])
        , message_(memory_.get() + shift) {
        bytes.copy(message_, bytes.size());
    }

    DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER* header() const {
        return static_cast<DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER*>(static_cast<void*>(message_));
    }

private:
    std::unique_ptr<char[]> memory_;
    char* message_;
};

} // namespace

TEST(serialize, a_record_is_id_and_value_in_native_order) {
    dvc_pnl_dec_serialize serializer;
    int value = 300;
    std::array<char, 10> record;
    record.fill('\x5A');
    int size = 100;
    serializer.serialize(DVC_PNL_DEC_PARAMETER_TIMER_VALUE_1, &value, record.data() + 1, size);
    EXPECT_EQ(size, 108);

    std::string expected("\x00\x00\x00\x05\x00\x00\x01\x2C", 8);
    if (word_bytes(1)[0] == '\x01') { // little-endian
        expected = std::string("\x05\x00\x00\x00\x2C\x01\x00\x00", 8);
    }
    EXPECT_EQ(std::string(record.begin(), record.end()), "\x5A" + expected + "\x5A");
}

TEST(serialize, takes_four_bytes_of_a_larger_object) {
    dvc_pnl_dec_serialize serializer;
    char object[] = {'\x01', '\xFF', '\x80', '\x7F', '\x55', '\x66'};
    std::array<char, 8> record{};
    int size = 0;
    serializer.serialize(DVC_PNL_DEC_PARAMETER_TIMER, object, record.data(), size);
    EXPECT_EQ(std::string(record.begin() + 4, record.end()), std::string(object, 4));
}

TEST(serialize, measuring_counts_nothing_and_reads_no_value) {
    dvc_pnl_dec_serialize serializer;
    int length = 88;
    for (int i = 0; i < 5; ++i) {
        serializer.serialize(DVC_PNL_DEC_PARAMETER_TIMER, nullptr, nullptr, length);
    }
    EXPECT_EQ(length, 128);
    EXPECT_EQ(serializer.get_serialize_cnt(), 0);
}

TEST(serialize, what_was_written_is_read_back) {
    dvc_pnl_dec_serialize serializer;
    std::array<char, 24> records{};
    int written = 0;
    for (int value : {MOST, LEAST, -2}) {
        serializer.serialize(DVC_PNL_DEC_PARAMETER_OBSERVER, &value, records.data() + written, written);
    }
    EXPECT_EQ(written, 24);
    EXPECT_EQ(serializer.get_serialize_cnt(), 3);

    int read = 0;
    for (const int expected : {MOST, LEAST, -2}) {
        int value = 0;
        EXPECT_EQ(serializer.deserialize(&value, records.data() + read, read), 9);
        EXPECT_EQ(value, expected);
    }
    EXPECT_EQ(read, 24);
}

TEST(serialize, holds_a_timer_control_of_its_own) {
    fake_platform_instance().reset();
    { const dvc_pnl_dec_serialize serializer; }
    const auto calls = fake_platform_instance().calls();
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[0].function, "OSW_Timer_Control");
    EXPECT_EQ(calls[0].numbers.at(0), 147456);
    EXPECT_EQ(calls[1].function, "~OSW_Timer_Control");
    EXPECT_EQ(calls[1].numbers, calls[0].numbers);
}

TEST(decode, rows) {
    const struct {
        const char* name;
        std::int32_t pcnt;
        std::vector<RECORD> records;
        int result, id, status;
    } rows[] = {
        {"both", 2, {{0, 7}, {1, 2}}, 8, 7, 2},
        {"other order", 2, {{1, 0}, {0, -5}}, 8, -5, 0},
        {"id alone", 1, {{0, MOST}}, 8, MOST, 1},
        {"status alone", 1, {{1, LEAST}}, 8, 1, LEAST},
        {"no records", 0, {}, 0, 1, 1},
        {"records that the header does not announce", 0, {{0, 7}, {1, 2}}, 0, 1, 1},
        {"fewer announced than there are", 1, {{0, 7}, {1, 2}}, 8, 7, 1},
        {"negative count", -1, {{0, 7}}, 0, 1, 1},
        {"least count", LEAST, {{0, 7}}, 0, 1, 1},
        {"the last of one id counts", 3, {{1, 4}, {0, 9}, {1, 5}}, 8, 9, 5},
        {"stops at another id", 3, {{0, 7}, {9, 3}, {1, 2}}, 0, 7, 1},
        {"begins with another id", 2, {{2, 7}, {0, 8}}, 0, 1, 1},
        {"negative id", 2, {{0, 3}, {-1, 0}}, 0, 3, 1},
        {"other id behind a greatest count", MOST, {{1, 6}, {LEAST, 0}}, 0, 1, 6},
        {"id whose low half is known", 1, {{0x10000, 7}}, 0, 1, 1},
        {"id whose high half is known", 1, {{0x0100, 7}}, 0, 1, 1},
    };
    dvc_pnl_dec_serialize serializer; // one for all rows: each begins from the reset values
    int value = 0;
    int size = 0;
    std::array<char, 8> record{};
    serializer.serialize(DVC_PNL_DEC_PARAMETER_ID, &value, record.data(), size);
    for (const auto& row : rows) {
        for (const std::size_t shift : {std::size_t(0), std::size_t(1)}) {
            SCOPED_TRACE(row.name);
            const received_message message(message_bytes(110, row.pcnt, 0, row.records), shift);
            EXPECT_EQ(serializer.decode(message.header()), row.result);
            EXPECT_EQ(serializer.decoded_id, row.id);
            EXPECT_EQ(serializer.decoded_status, row.status);
        }
    }
    EXPECT_EQ(serializer.get_serialize_cnt(), 1);
}

TEST(is_complete, refuses_what_decode_would_read_beyond) {
    const struct {
        const char* name;
        std::int32_t pcnt;
        std::size_t length;
        bool is_complete;
    } rows[] = {
        {"nothing", 0, 0, false},
        {"a header but one byte", 0, 87, false},
        {"a header", 0, 88, true},
        {"a header with a record", 1, 88, false},
        {"a record but one byte", 1, 91, false},
        {"a record to its end", 1, 92, true},
        {"a record as requests count it", 1, 96, true},
        {"two records but one byte", 2, 99, false},
        {"two records", 2, 100, true},
        {"more records than announced", 1, 100, true},
        {"negative count", -1, 100, false},
        {"least count", LEAST, 100, false},
        {"greatest count", MOST, 100, false},
        {"count whose bytes overflow 32 bits to 8", 0x20000001, 100, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string bytes = message_bytes(110, row.pcnt, 0, {{0, 1}, {0, 1}}).substr(0, row.length);
        const received_message message(bytes);
        EXPECT_EQ(dvc_pnl_dec_is_complete(message.header(), bytes.size()), row.is_complete);
    }
    EXPECT_FALSE(dvc_pnl_dec_is_complete(nullptr, 0));
}
