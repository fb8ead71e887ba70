#include "message_bytes.h"

#include <algorithm>
#include <cstring>

namespace {

const std::size_t IPC_HEADER_LENGTH = 72;
const std::size_t HEADER_LENGTH = 88;
const std::size_t RESULT_PLACE = 80;

} // namespace

std::string word_bytes(std::int32_t number) {
    std::string bytes(sizeof number, '\0');
    std::memcpy(&bytes[0], &number, sizeof number);
    return bytes;
}

std::string message_bytes(std::int32_t func_id, std::int32_t pcnt, const std::vector<RECORD>& records) {
    std::string bytes =
        std::string(IPC_HEADER_LENGTH, '\0') + word_bytes(func_id) + word_bytes(pcnt) + std::string(4, '\0');
    for (const RECORD& record : records) {
        bytes += word_bytes(record.id) + word_bytes(record.value);
    }
    bytes.resize(std::max(bytes.size(), HEADER_LENGTH), '\0');
    return bytes;
}

std::string request_bytes(std::int32_t func_id, const std::vector<RECORD>& records) {
    std::string bytes = message_bytes(func_id, static_cast<std::int32_t>(records.size()), records);
    bytes.resize(HEADER_LENGTH + 8 * records.size(), '\0');
    return bytes;
}

std::string reply_bytes(std::int32_t result) {
    return std::string(HEADER_LENGTH, '\xEE').replace(RESULT_PLACE, 4, word_bytes(result));
}
