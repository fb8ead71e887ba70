#ifndef DEVICE_MESSAGE_H
#define DEVICE_MESSAGE_H

#include "device_protocol.h"
#include "ipc_header.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velarion {

struct device_record {
    std::int32_t id;
    std::int32_t value;
};

/** A message of the panel device service, unpacked. */
struct device_message {
    std::int32_t func_id = 0;
    std::int32_t result = DEVICE_OK;
    std::vector<device_record> records;
};

/** @return a message whose records have the ids 0, 1, 2, ... and these values */
device_message make_message(std::int32_t func_id, const std::vector<std::int32_t>& values);

/**
 * Unpacks what arrived, trusting none of it.
 *
 * @param bytes    @p length bytes, the message layer's header included
 * @param message  undefined on failure, but for its func_id: 0 when the bytes are too few to hold it
 * @return DEVICE_OK; DEVICE_BAD_LENGTH or DEVICE_BAD_COUNT
 */
device_result decode_message(const char* bytes, std::size_t length, device_message& message);

/** @return the message as it is sent; its length and function id are put into the header as well */
std::vector<char> encode_message(const device_message& message, ipc_header header);

} // namespace velarion

#endif
