#include "message_layer.h"

#include "ipc_header.h"
#include "message_socket.h"
#include "message_watch.h"
#include "platform_codes.h"
#include "service_connection.h"

#include <chrono>
#include <cstdint>
#include <limits>

namespace velarion {

namespace {

platform_code watched_exchange(service_connection& connection, std::int32_t func_id, const char* request,
                               std::size_t request_length, char* reply, unsigned int& reply_length) {
    const std::int64_t begun = monotonic_milliseconds();
    const auto start = std::chrono::steady_clock::now();
    const platform_code code = connection.exchange(func_id, request, request_length, reply, reply_length);
    const auto time = std::chrono::steady_clock::now() - start;
    tell_of_request({request, request_length, code == PLATFORM_OK ? reply : nullptr, reply_length, code,
                     begun, std::chrono::duration_cast<std::chrono::microseconds>(time).count()});
    return code;
}

} // namespace

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
    service_connection& connection = connection_to_service(name);
    return is_message_watched() ? watched_exchange(connection, static_cast<std::int32_t>(func_id), send_buf,
                                                   send_len, rcv_buf, *rcv_len)
                                : connection.exchange(static_cast<std::int32_t>(func_id), send_buf, send_len,
                                                      rcv_buf, *rcv_len);
}

} // namespace velarion
