#include "dvc_pnl_dec_serialize.h"

#include <algorithm>
#include <iterator>

namespace velarion {

namespace {

constexpr unsigned long TIMER_CONTROL_KIND = 0x24000;
constexpr std::int32_t UNDECODED = 1;

} // namespace

dvc_pnl_dec_serialize::dvc_pnl_dec_serialize()
    : unused_head_(0)
    , decoded_id(UNDECODED)
    , decoded_status(UNDECODED)
    , timer_control_(TIMER_CONTROL_KIND)
    , unused_tail_{}
    , serialize_cnt_(0) {}

dvc_pnl_dec_serialize::~dvc_pnl_dec_serialize() = default;

void dvc_pnl_dec_serialize::serialize(DVC_PNL_DEC_COMMUNICATION_PARAMETER_ID id, void* value, void* dst,
                                      int& size) {
    if (dst) {
        dvc_pnl_dec_store(dst, id);
        ++serialize_cnt_;
        dvc_pnl_dec_store(static_cast<char*>(dst) + DVC_PNL_DEC_RECORD_VALUE_OFFSET, dvc_pnl_dec_load(value));
    }
    size += static_cast<int>(DVC_PNL_DEC_RECORD_LENGTH);
}

int dvc_pnl_dec_serialize::deserialize(void* dst, void* record, int& size) {
    const std::int32_t id = dvc_pnl_dec_load(record);
    dvc_pnl_dec_store(dst, dvc_pnl_dec_load(static_cast<char*>(record) + DVC_PNL_DEC_RECORD_VALUE_OFFSET));
    size += static_cast<int>(DVC_PNL_DEC_RECORD_LENGTH);
    return id;
}

int dvc_pnl_dec_serialize::decode(DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER* head) {
    reset_decoded();
    char* const message = static_cast<char*>(static_cast<void*>(head));
    const std::int32_t count = dvc_pnl_dec_load(message + DVC_PNL_DEC_PCNT_OFFSET);
    char* record = message + DVC_PNL_DEC_PARAMETERS_OFFSET;
    int size = 0;
    for (std::int32_t i = 0; i < count; ++i) {
        size = 0;
        decode_record(record, size);
        if (size == 0) {
            return 0;
        }
        record += size;
    }
    return size;
}

int dvc_pnl_dec_serialize::get_serialize_cnt() {
    return serialize_cnt_;
}

void dvc_pnl_dec_serialize::reset_decoded() {
    unused_head_ = 0;
    decoded_id = UNDECODED;
    decoded_status = UNDECODED;
    std::fill(std::begin(unused_tail_), std::end(unused_tail_), 0);
}

void dvc_pnl_dec_serialize::decode_record(char* record, int& size) {
    switch (dvc_pnl_dec_load(record)) {
    case DVC_PNL_DEC_PARAMETER_ID:
        deserialize(&decoded_id, record, size);
        break;
    case DVC_PNL_DEC_PARAMETER_STATUS:
        deserialize(&decoded_status, record, size);
        break;
    default:
        break;
    }
}

} // namespace velarion
