#include "message_bytes.h"

#include <algorithm>

namespace {

const std::size_t IPC_HEADER_LENGTH = 72;
const std::size_t HEADER_LENGTH = 88;
const std::size_t RESULT_PLACE = 80;

bool is_big_endian() {
    const std::uint16_t number = 0x0102;
    return *static_cast<const unsigned char*>(static_cast<const void*>(&number)) == 0x01;
}

} // namespace

std::string word_bytes(std::int64_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>(static_cast<unsigned char>((number >> shift) & 0xFF));
    }
    if (!is_big_endian()) {
        std::reverse(bytes.begin(), bytes.end());
    }
    return bytes;
}

std::string message_bytes(std::int32_t func_id, std::int32_t pcnt, std::int32_t result,
                          const std::vector<RECORD>& records) {
    std::string bytes(IPC_HEADER_LENGTH, '\0');
    bytes += word_bytes(func_id) + word_bytes(pcnt) + word_bytes(result);
    for (const RECORD& record : records) {
        bytes += word_bytes(record.id) + word_bytes(record.value);
    }
    bytes.resize(std::max(bytes.size(), HEADER_LENGTH), '\0');
    return bytes;
}

std::string request_bytes(std::int32_t func_id, const std::vector<RECORD>& records) {
    std::string bytes = message_bytes(func_id, static_cast<std::int32_t>(records.size()), 0, records);
    bytes.resize(HEADER_LENGTH + 8 * records.size(), '\0');
    return bytes;
}

std::string reply_bytes(std::int32_t result) {
    std::string bytes(HEADER_LENGTH, '\xEE');
    return bytes.replace(RESULT_PLACE, 4, word_bytes(result));
}
