#include "device_client.h"

#include "dvc_pnl_dec_communication.h"
#include "file_descriptor.h"
#include "message_layer.h"
#include "message_socket.h"
#include "platform_codes.h"

#include <sys/socket.h>
#include <vector>

namespace velarion {

namespace {

constexpr long MODE = 1;

request_outcome outcome_of(long code) {
    switch (code) {
    case PLATFORM_OK:
        return request_outcome::ANSWERED;
    case PLATFORM_BAD_MESSAGE:
    case PLATFORM_TOO_LARGE:
        return request_outcome::NOT_UNDERSTOOD;
    default:
        return request_outcome::NO_ANSWER;
    }
}

} // namespace

request_outcome send_request(const device_message& request, device_message& reply) {
    std::vector<char> message = encode_message(request, {});
    std::vector<char> answer(IPC_LONGEST_MESSAGE);
    unsigned int length = static_cast<unsigned int>(answer.size());
    bmc_mc_client client;
    const request_outcome outcome = outcome_of(client.bmc_mc_send_sync_message(
        MODE, request.func_id, message.data(), static_cast<unsigned int>(message.size()), answer.data(),
        &length, DVC_PNL_DEC_SERVICE_NAME));
    if (outcome == request_outcome::ANSWERED && decode_message(answer.data(), length, reply) != DEVICE_OK) {
        return request_outcome::NOT_UNDERSTOOD;
    }
    return outcome;
}

request_outcome send_request_when_ready(const device_message& request, device_message& reply) {
    return bmc_mc_client::bmc_mc_check_facade(DVC_PNL_DEC_SERVICE_NAME, MODE) == 0
               ? request_outcome::NO_ANSWER
               : send_request(request, reply);
}

service_sight look_at_service() {
    file_descriptor connection;
    service_sight sight;
    sight.code = connect_to_service(DVC_PNL_DEC_SERVICE_NAME, connection);
    ucred peer = {};
    socklen_t length = sizeof peer;
    if (sight.code == PLATFORM_OK &&
        ::getsockopt(connection.get(), SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0) {
        sight.process = peer.pid;
    }
    return sight;
}

} // namespace velarion
