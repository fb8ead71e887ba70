#include "device_client.h"

#include "dvc_pnl_dec_communication.h"
#include "file_descriptor.h"
#include "message_layer.h"
#include "message_socket.h"
#include "platform_codes.h"

#include <sys/socket.h>
#include <vector>

namespace panel_device {

namespace {

using velarion::bmc_mc_client;
using velarion::DVC_PNL_DEC_SERVICE_NAME;

constexpr long MODE = 1;

request_outcome outcome_of(long code) {
    switch (code) {
    case panel_platform::PLATFORM_OK:
        return request_outcome::ANSWERED;
    case panel_platform::PLATFORM_BAD_MESSAGE:
    case panel_platform::PLATFORM_TOO_LARGE:
        return request_outcome::NOT_UNDERSTOOD;
    default:
        return request_outcome::NO_ANSWER;
    }
}

} // namespace

request_outcome send_request(const device_message& request, device_message& reply) {
    std::vector<char> message = encode_message(request, {});
    std::vector<char> answer(panel_platform::IPC_LONGEST_MESSAGE);
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
    panel_platform::file_descriptor connection;
    service_sight sight;
    sight.code = panel_platform::connect_to_service(DVC_PNL_DEC_SERVICE_NAME, connection);
    ucred peer = {};
    socklen_t length = sizeof peer;
    if (sight.code == panel_platform::PLATFORM_OK &&
        ::getsockopt(connection.get(), SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0) {
        sight.process = peer.pid;
    }
    return sight;
}

} // namespace panel_device
