#include "service_connection.h"

#include "message_socket.h"
#include "platform_codes.h"

#include <cstring>
#include <map>
#include <memory>
#include <utility>

namespace panel_platform {

namespace {

const std::int64_t LONGEST_EXCHANGE = 3000; // milliseconds
const std::int64_t LONGEST_CHECK = 5;

} // namespace

service_connection::service_connection(std::string name)
    : name_(std::move(name)) {}

bool service_connection::is_ready() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return make_ready(monotonic_milliseconds() + LONGEST_CHECK) == PLATFORM_OK;
}

int service_connection::exchange(std::int32_t func_id, const char* request, std::size_t request_length,
                                 char* reply, unsigned int& reply_length) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const std::int64_t deadline = monotonic_milliseconds() + LONGEST_EXCHANGE;
    const unsigned int capacity = std::exchange(reply_length, 0);
    IPC_HEADER header;
    header.sequence = ++last_sequence_;
    header.func_id = func_id;
    header.host = host_number();
    int code = send_request(header, request, request_length, deadline);
    if (code != PLATFORM_OK) {
        return code;
    }
    char message[IPC_LONGEST_MESSAGE];
    IPC_HEADER answer;
    code = receive_whole(message, answer, deadline);
    if (code == PLATFORM_OK && (answer.kind != IPC_REPLY || answer.sequence != header.sequence)) {
        code = PLATFORM_BAD_MESSAGE;
    }
    if (code != PLATFORM_OK) {
        close(); // a reply that comes late must not answer the next request
        return code;
    }
    if (answer.length > capacity) {
        return PLATFORM_TOO_LARGE;
    }
    std::memcpy(reply, message, answer.length);
    reply_length = answer.length;
    return PLATFORM_OK;
}

void service_connection::close() {
    socket_.reset();
    is_greeted_ = false;
}

/** Nothing may come on an idle connection: what can be read is its end, or a peer out of step. */
void service_connection::close_what_is_stale() {
    if (owner_ != ::getpid() || (is_greeted_ && wait_for_socket(socket_.get(), false, 0))) {
        close();
    }
}

int service_connection::make_ready(std::int64_t deadline) {
    if (socket_.get() >= 0) {
        close_what_is_stale();
    }
    if (socket_.get() < 0) {
        const int code = connect_to_service(name_, socket_);
        if (code != PLATFORM_OK) {
            return code;
        }
        owner_ = ::getpid();
    }
    if (is_greeted_) {
        return PLATFORM_OK;
    }
    char message[IPC_LONGEST_MESSAGE];
    IPC_HEADER header;
    const int code = receive_whole(message, header, deadline);
    is_greeted_ = code == PLATFORM_OK && header.kind == IPC_GREETING;
    if (!is_greeted_ && code != PLATFORM_NO_ANSWER) {
        close();
    }
    return is_greeted_ ? PLATFORM_OK : PLATFORM_NOT_READY;
}

int service_connection::send_whole(const IPC_HEADER& header, const char* request, std::size_t request_length,
                                   std::int64_t deadline) {
    for (;;) {
        const int code = send_message(socket_.get(), header, request + IPC_HEADER_LENGTH,
                                      request_length - IPC_HEADER_LENGTH);
        if (code != PLATFORM_WOULD_BLOCK) {
            return code;
        }
        if (!wait_for_socket(socket_.get(), true, deadline)) {
            close();
            return PLATFORM_NO_ANSWER;
        }
    }
}

/** A request that could not be handed over was not seen by the service: it may go again, once. */
int service_connection::send_request(const IPC_HEADER& header, const char* request,
                                     std::size_t request_length, std::int64_t deadline) {
    int code = PLATFORM_CONNECTION_LOST;
    for (int attempt = 0; attempt < 2 && code == PLATFORM_CONNECTION_LOST; ++attempt) {
        code = make_ready(deadline);
        if (code == PLATFORM_OK) {
            code = send_whole(header, request, request_length, deadline);
        }
        if (code == PLATFORM_CONNECTION_LOST) {
            close();
        }
    }
    return code;
}

int service_connection::receive_whole(char* message, IPC_HEADER& header, std::int64_t deadline) {
    for (;;) {
        const int code = receive_message(socket_.get(), message, header);
        if (code != PLATFORM_WOULD_BLOCK) {
            return code;
        }
        if (!wait_for_socket(socket_.get(), false, deadline)) {
            return PLATFORM_NO_ANSWER;
        }
    }
}

service_connection& connection_to_service(const std::string& name) {
    static std::mutex* const opening = new std::mutex;
    static auto* const connections = new std::map<std::string, std::unique_ptr<service_connection>>;
    const std::lock_guard<std::mutex> lock(*opening);
    std::unique_ptr<service_connection>& connection = (*connections)[name];
    if (!connection) {
        connection = std::make_unique<service_connection>(name);
    }
    return *connection;
}

} // namespace panel_platform
