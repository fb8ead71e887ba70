#include "message_delivery.h"

#include "message_socket.h"
#include "message_watch.h"
#include "platform_codes.h"
#include "signal_block.h"

#include <cstring>
#include <poll.h>
#include <sys/eventfd.h>
#include <utility>

namespace velarion {

namespace {

constexpr int RETRY_PAUSE = 100; // milliseconds
constexpr int FOR_EVER = -1;

} // namespace

message_delivery::message_delivery(facade_template& receiver, std::string name, std::uint32_t interest)
    : receiver_(receiver)
    , name_(std::move(name))
    , interest_(interest)
    , stop_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    const signal_block block;
    thread_ = std::thread([this] { run(); });
}

message_delivery::~message_delivery() {
    is_ending_ = true;
    ::eventfd_write(stop_.get(), 1);
    thread_.join();
}

void message_delivery::run() {
    do {
        file_descriptor socket;
        if (connect_to_service(name_, socket) == PLATFORM_OK) {
            serve_connection(socket.get());
        }
    } while (wait_while_running(-1, RETRY_PAUSE));
}

/** @return false when this object is being destroyed */
bool message_delivery::wait_while_running(int socket, int milliseconds) {
    pollfd watched[2] = {{stop_.get(), POLLIN, 0}, {socket, POLLIN, 0}};
    ::poll(watched, 2, stop_.get() < 0 ? RETRY_PAUSE : milliseconds);
    return !is_ending_;
}

platform_code message_delivery::attach(int socket) {
    ipc_header header;
    header.kind = IPC_ATTACH;
    header.destination = interest_;
    header.host = host_number();
    return send_message(socket, header, nullptr, 0);
}

/** @return false when the connection is of no use any more */
bool message_delivery::deliver_next(int socket, bool& is_greeted) {
    char message[IPC_LONGEST_MESSAGE];
    ipc_header header;
    const platform_code code = receive_message(socket, message, header);
    if (code != PLATFORM_OK) {
        return code == PLATFORM_WOULD_BLOCK;
    }
    if (header.kind != (is_greeted ? IPC_NOTIFICATION : IPC_GREETING)) {
        return false;
    }
    if (!is_greeted && attach(socket) != PLATFORM_OK) {
        return false;
    }
    is_greeted = true;
    dispatch(header, message);
    return true;
}

void message_delivery::serve_connection(int socket) {
    bool is_greeted = false;
    while (wait_while_running(socket, FOR_EVER)) {
        if (!deliver_next(socket, is_greeted)) {
            break;
        }
    }
    if (is_greeted) {
        ipc_header header;
        header.kind = IPC_LOST;
        header.length = IPC_HEADER_LENGTH;
        char message[IPC_HEADER_LENGTH];
        write_ipc_header(header, message);
        dispatch(header, message);
    }
}

void message_delivery::dispatch(const ipc_header& header, char* message) {
    gen_ipc_msghdr head;
    std::memcpy(head.bytes, message, sizeof head.bytes);
    tell_of_notification(message, header.length);
    receiver_.dispatch(header.func_id, message, header.length, head);
}

} // namespace velarion
