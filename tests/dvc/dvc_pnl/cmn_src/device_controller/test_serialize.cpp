#include "dvc_pnl_dec_serialize.h"

#include "message_bytes.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace velarion;

namespace {

const int MOST = std::numeric_limits<int>::max();
const int LEAST = std::numeric_limits<int>::min();

using HEADER = DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER;

HEADER* header_at(char* message) {
    return static_cast<HEADER*>(static_cast<void*>(message));
}

/** @return memory that ends with its last byte, so that the address sanitizer sees any step beyond */
std::vector<char> received(const std::string& bytes) {
    return {bytes.begin(), bytes.end()};
}

} // namespace

TEST(serialize, a_record_is_id_and_value_in_native_order) {
    dvc_pnl_dec_serialize serializer;
    int value = 300;
    int size = 100;
    serializer.serialize(DVC_PNL_DEC_PARAMETER_TIMER_VALUE_1, nullptr, nullptr, size);
    EXPECT_EQ(size, 108);
    EXPECT_EQ(serializer.get_serialize_cnt(), 0) << "measuring counts nothing";

    std::string record(10, '\x5A');
    serializer.serialize(DVC_PNL_DEC_PARAMETER_TIMER_VALUE_1, &value, &record[1], size);
    EXPECT_EQ(size, 116);
    EXPECT_EQ(serializer.get_serialize_cnt(), 1);
    const bool is_little_endian = word_bytes(1)[0] == '\x01';
    EXPECT_EQ(record, is_little_endian ? std::string("\x5A\x05\0\0\0\x2C\x01\0\0\x5A", 10)
                                       : std::string("\x5A\0\0\0\x05\0\0\x01\x2C\x5A", 10));

    value = 0;
    EXPECT_EQ(serializer.deserialize(&value, &record[1], size), 5);
    EXPECT_EQ(value, 300);
    EXPECT_EQ(size, 124);
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
        {"id alone, the status stays reset", 1, {{0, MOST}}, 8, MOST, 1},
        {"no records", 0, {}, 0, 1, 1},
        {"records that the header does not announce", 0, {{0, 7}, {1, 2}}, 0, 1, 1},
        {"fewer announced than there are", 1, {{0, 7}, {1, 2}}, 8, 7, 1},
        {"negative count", -1, {{0, 7}}, 0, 1, 1},
        {"the last of one id counts", 3, {{1, 4}, {0, 9}, {1, 5}}, 8, 9, 5},
        {"stops at another id", 3, {{0, 7}, {9, 3}, {1, 2}}, 0, 7, 1},
        {"other id behind a greatest count", MOST, {{1, 6}, {LEAST, 0}}, 0, 1, 6},
        {"id whose low half is known", 1, {{0x10000, 7}}, 0, 1, 1},
        {"id whose high half is known", 1, {{0x0100, 7}}, 0, 1, 1},
    };
    dvc_pnl_dec_serialize serializer; // one for all rows: each begins from the reset values
    for (const auto& row : rows) {
        for (const std::size_t shift : {std::size_t(0), std::size_t(1)}) {
            SCOPED_TRACE(row.name);
            auto memory = received(std::string(shift, 'x') + message_bytes(110, row.pcnt, row.records));
            EXPECT_EQ(serializer.decode(header_at(memory.data() + shift)), row.result);
            EXPECT_EQ(serializer.decoded_id, row.id);
            EXPECT_EQ(serializer.decoded_status, row.status);
        }
    }
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
        auto memory = received(message_bytes(110, row.pcnt, {{0, 1}, {0, 1}}).substr(0, row.length));
        EXPECT_EQ(dvc_pnl_dec_is_complete(header_at(memory.data()), memory.size()), row.is_complete);
    }
    EXPECT_FALSE(dvc_pnl_dec_is_complete(nullptr, 0));
}
