#include "device_message.h"

#include "dvc_pnl_dec_communication.h"

namespace velarion {

device_message make_message(std::int32_t func_id, const std::vector<std::int32_t>& values) {
    device_message message;
    message.func_id = func_id;
    for (const std::int32_t value : values) {
        message.records.push_back({static_cast<std::int32_t>(message.records.size()), value});
    }
    return message;
}

device_result decode_message(const char* bytes, std::size_t length, device_message& message) {
    const bool holds_func_id = length >= DVC_PNL_DEC_PCNT_OFFSET;
    message.func_id = holds_func_id ? dvc_pnl_dec_load(bytes + DVC_PNL_DEC_FUNC_ID_OFFSET) : 0;
    if (length < DVC_PNL_DEC_HEADER_LENGTH) {
        return DEVICE_BAD_LENGTH;
    }
    const std::int32_t count = dvc_pnl_dec_load(bytes + DVC_PNL_DEC_PCNT_OFFSET);
    if (count < 0) {
        return DEVICE_BAD_COUNT;
    }
    const std::size_t records_length = length - DVC_PNL_DEC_HEADER_LENGTH;
    if (records_length % DVC_PNL_DEC_RECORD_LENGTH != 0 ||
        records_length / DVC_PNL_DEC_RECORD_LENGTH != static_cast<std::size_t>(count)) {
        return DEVICE_BAD_LENGTH;
    }
    message.result = dvc_pnl_dec_load(bytes + DVC_PNL_DEC_RESULT_OFFSET);
    message.records.clear();
    message.records.reserve(static_cast<std::size_t>(count));
    const char* record = bytes + DVC_PNL_DEC_PARAMETERS_OFFSET;
    for (std::int32_t i = 0; i < count; ++i, record += DVC_PNL_DEC_RECORD_LENGTH) {
        message.records.push_back(
            {dvc_pnl_dec_load(record), dvc_pnl_dec_load(record + DVC_PNL_DEC_RECORD_VALUE_OFFSET)});
    }
    return DEVICE_OK;
}

std::vector<char> encode_message(const device_message& message, ipc_header header) {
    std::vector<char> bytes(DVC_PNL_DEC_HEADER_LENGTH + DVC_PNL_DEC_RECORD_LENGTH * message.records.size());
    header.length = static_cast<std::uint32_t>(bytes.size());
    header.func_id = message.func_id;
    write_ipc_header(header, bytes.data());
    dvc_pnl_dec_store(&bytes[DVC_PNL_DEC_FUNC_ID_OFFSET], message.func_id);
    dvc_pnl_dec_store(&bytes[DVC_PNL_DEC_PCNT_OFFSET], static_cast<std::int32_t>(message.records.size()));
    dvc_pnl_dec_store(&bytes[DVC_PNL_DEC_RESULT_OFFSET], message.result);
    char* place = &bytes[DVC_PNL_DEC_PARAMETERS_OFFSET];
    for (const device_record& record : message.records) {
        dvc_pnl_dec_store(place, record.id);
        dvc_pnl_dec_store(place + DVC_PNL_DEC_RECORD_VALUE_OFFSET, record.value);
        place += DVC_PNL_DEC_RECORD_LENGTH;
    }
    return bytes;
}

} // namespace velarion
