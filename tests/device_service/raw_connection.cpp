#include "raw_connection.h"

#include "dvc_pnl_dec_communication.h"
#include "message_socket.h"
#include "platform_codes.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <sys/socket.h>

using namespace panel_device;
using namespace panel_platform;

namespace {

const std::int64_t PATIENCE = 60000; // milliseconds until a test gives up

} // namespace

raw_connection::raw_connection(std::uint64_t host)
    : host_(host) {
    EXPECT_EQ(PLATFORM_OK, connect_to_service(velarion::DVC_PNL_DEC_SERVICE_NAME, socket_));
    DEVICE_MESSAGE greeting;
    EXPECT_TRUE(receive(greeting));
    EXPECT_EQ(IPC_GREETING, header_.kind);
}

bool raw_connection::send_bytes(const std::string& bytes) {
    while (::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) < 0) {
        if (errno != EAGAIN || !wait_for_socket(socket_.get(), true, monotonic_milliseconds() + PATIENCE)) {
            return false;
        }
    }
    return true;
}

bool raw_connection::send_request(std::int32_t func_id, const std::string& payload) {
    IPC_HEADER header;
    header.kind = IPC_REQUEST;
    header.length = static_cast<std::uint32_t>(IPC_HEADER_LENGTH + payload.size());
    header.sequence = ++sequence_;
    header.func_id = func_id;
    header.host = host_;
    std::string bytes(IPC_HEADER_LENGTH, '\0');
    write_ipc_header(header, &bytes[0]);
    return send_bytes(bytes + payload);
}

bool raw_connection::attach(std::uint32_t interest) {
    IPC_HEADER header;
    header.kind = IPC_ATTACH;
    header.destination = interest;
    header.host = host_;
    return send_message(socket_.get(), header, nullptr, 0) == PLATFORM_OK;
}

bool raw_connection::send(const DEVICE_MESSAGE& request) {
    const std::vector<char> bytes = encode_message(request, {});
    return send_request(request.func_id, std::string(bytes.begin() + IPC_HEADER_LENGTH, bytes.end()));
}

std::int32_t raw_connection::ask(const DEVICE_MESSAGE& request) {
    if (!send(request)) {
        return -1;
    }
    DEVICE_MESSAGE reply;
    do {
        if (!receive(reply)) {
            return -1;
        }
    } while (header_.kind != IPC_REPLY || header_.sequence != sequence_);
    return reply.result;
}

bool raw_connection::receive(DEVICE_MESSAGE& message) {
    char bytes[IPC_LONGEST_MESSAGE];
    const std::int64_t deadline = monotonic_milliseconds() + PATIENCE;
    int code = PLATFORM_WOULD_BLOCK;
    while ((code = receive_message(socket_.get(), bytes, header_)) == PLATFORM_WOULD_BLOCK) {
        if (!wait_for_socket(socket_.get(), false, deadline)) {
            ADD_FAILURE() << "nothing came";
            return false;
        }
    }
    if (code != PLATFORM_OK) {
        EXPECT_EQ(PLATFORM_CONNECTION_LOST, code);
        return false;
    }
    if (header_.kind != IPC_GREETING) {
        EXPECT_EQ(DEVICE_OK, decode_message(bytes, header_.length, message));
    }
    return true;
}

bool raw_connection::wait_for_event(std::int32_t func_id, DEVICE_MESSAGE& message) {
    while (receive(message)) {
        if (header_.kind == IPC_NOTIFICATION && message.func_id == func_id) {
            return true;
        }
    }
    return false;
}

bool raw_connection::is_closed_by_service() {
    DEVICE_MESSAGE message;
    while (receive(message)) {
    }
    return !testing::Test::HasFailure();
}
