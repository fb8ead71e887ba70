#include "message_layer.h"

#include "ipc_header.h"
#include "platform_codes.h"
#include "service_connection.h"

#include <cstdint>
#include <limits>

namespace velarion {

facade_template::facade_template() {}

facade_template::~facade_template() {}

void facade_template::dispatch(long, char*, unsigned int, gen_ipc_msghdr) {}

bmc_mc_client::bmc_mc_client() {}

bmc_mc_client::~bmc_mc_client() {}

long bmc_mc_client::bmc_mc_check_facade(const char* name, long) {
    return name && connection_to_service(name).is_ready() ? 1 : 0;
}

long bmc_mc_client::bmc_mc_send_sync_message(long, long func_id, char* send_buf, unsigned int send_len,
                                             char* rcv_buf, unsigned int* rcv_len, const char* name) {
    const bool is_func_id = func_id >= std::numeric_limits<std::int32_t>::min() &&
                            func_id <= std::numeric_limits<std::int32_t>::max();
    if (!rcv_len) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    if (!is_func_id || !send_buf || send_len < IPC_HEADER_LENGTH || !name || (!rcv_buf && *rcv_len > 0)) {
        *rcv_len = 0;
        return PLATFORM_INVALID_ARGUMENT;
    }
    return connection_to_service(name).exchange(static_cast<std::int32_t>(func_id), send_buf, send_len,
                                                rcv_buf, *rcv_len);
}

} // namespace velarion
