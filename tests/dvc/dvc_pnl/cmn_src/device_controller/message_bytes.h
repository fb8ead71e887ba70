#ifndef MESSAGE_BYTES_H
#define MESSAGE_BYTES_H

#include <cstdint>
#include <string>
#include <vector>

/** Messages of the panel device service as bytes, built from numbers and written out independently. */

struct RECORD {
    std::int32_t id;
    std::int32_t value;
};

/** @return 32 bits as this processor lays them into memory */
std::string word_bytes(std::int32_t number);

/** @return header and records as they lie in memory, without anything behind the last record */
std::string message_bytes(std::int32_t func_id, std::int32_t pcnt, const std::vector<RECORD>& records);

/** @return a request of the right length, all undefined bytes zero */
std::string request_bytes(std::int32_t func_id, const std::vector<RECORD>& records);

/** @return 88 bytes with a result code, the other bytes 0xEE */
std::string reply_bytes(std::int32_t result);

#endif
