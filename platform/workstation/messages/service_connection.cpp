#include "service_connection.h"

#include "message_socket.h"
#include "own_process.h"
#include "platform_codes.h"

#include <atomic>
#include <chrono>
#include <cstring>
#include <map>
#include <memory>
#include <poll.h>
#include <utility>

namespace velarion {

namespace {

constexpr std::int64_t LONGEST_EXCHANGE = 3000; // milliseconds
constexpr std::int64_t LONGEST_START = 2500;    // the first check waits for a service so long
constexpr int START_PAUSE = 10;                 // between its attempts to connect
constexpr std::int64_t PROBE_PAUSE = 100;
constexpr int MOST_LATE = 1024; // messages taken at once from a connection that should be idle

/** So long what a check has seen of a connection serves the request that follows it. */
constexpr std::int64_t LOOK_LASTS = 1; // millisecond

/** What an earlier request or a probe may still bring. */
bool may_come_late(const ipc_header& header) {
    return header.kind == IPC_REPLY || header.kind == IPC_PROBE;
}

bool is_answer(const ipc_header& request, const ipc_header& header, const char* message) {
    std::int32_t func_id = 0;
    if (header.kind != IPC_REPLY || header.sequence != request.sequence ||
        header.func_id != request.func_id || header.length < IPC_HEADER_LENGTH + sizeof func_id) {
        return false;
    }
    std::memcpy(&func_id, message + IPC_HEADER_LENGTH, sizeof func_id);
    return func_id == request.func_id;
}

} // namespace

/** Gives the connection to the next thread at the end of its life. */
struct service_connection::turn {
    service_connection& connection;

    explicit turn(service_connection& taken)
        : connection(taken) {}
    ~turn() {
        {
            const std::lock_guard<std::mutex> lock(connection.mutex_);
            connection.use_ = FREE;
            connection.was_ready_ = connection.is_greeted_ && !connection.is_silent_;
        }
        connection.turn_ended_.notify_all();
    }
    turn(const turn&) = delete;
    turn& operator=(const turn&) = delete;
};

service_connection::service_connection(std::string name)
    : name_(std::move(name)) {}

bool service_connection::is_ready() {
    {
        std::unique_lock<std::mutex> lock(mutex_);
        start_anew_after_fork();
        turn_ended_.wait(lock, [this] { return use_ != IN_CHECK; });
        if (use_ == IN_EXCHANGE) {
            return was_ready_; // a request that is sent now waits for its turn
        }
        use_ = IN_CHECK;
    }
    const turn mine(*this);
    looked_through_ = NEVER;
    const std::int64_t now = monotonic_milliseconds();
    const bool is_first = !std::exchange(has_waited_, true);
    if (!wait_until_greeted(is_first ? now + LONGEST_START : now)) {
        return false;
    }
    looked_through_ = now;
    if (is_silent_) {
        probe(now);
    }
    return !is_silent_;
}

platform_code service_connection::exchange(std::int32_t func_id, const char* request,
                                           std::size_t request_length, char* reply,
                                           unsigned int& reply_length) {
    const std::int64_t deadline = monotonic_milliseconds() + LONGEST_EXCHANGE;
    const unsigned int capacity = std::exchange(reply_length, 0);
    platform_code code = take_turn(deadline);
    if (code != PLATFORM_OK) {
        return code;
    }
    const turn mine(*this);
    ipc_header header;
    header.sequence = ++last_sequence_;
    header.func_id = func_id;
    header.host = host_number();
    code = send_request(header, request, request_length, deadline);
    char message[IPC_LONGEST_MESSAGE];
    ipc_header answer;
    if (code == PLATFORM_OK) {
        code = receive_answer(header, message, answer, deadline);
    }
    if (code != PLATFORM_OK) {
        return code;
    }
    if (answer.length > capacity) {
        return PLATFORM_TOO_LARGE;
    }
    std::memcpy(reply, message, answer.length);
    reply_length = answer.length;
    return PLATFORM_OK;
}

/** With the mutex held. Threads of the parent do not exist here, so that none of them has the turn. */
void service_connection::start_anew_after_fork() {
    if (owner_ != own_process()) {
        owner_ = own_process();
        use_ = FREE;
        was_ready_ = false;
        has_waited_ = false;
        close();
    }
}

/** Who waited while the service fell silent does not try it again. */
platform_code service_connection::take_turn(std::int64_t deadline) {
    std::unique_lock<std::mutex> lock(mutex_);
    start_anew_after_fork();
    if (use_ != FREE) {
        const std::chrono::milliseconds left(deadline - monotonic_milliseconds());
        if (!turn_ended_.wait_for(lock, left, [this] { return use_ == FREE; })) {
            return PLATFORM_NO_ANSWER;
        }
        if (is_silent_) {
            return PLATFORM_NOT_READY;
        }
    }
    use_ = IN_EXCHANGE;
    return PLATFORM_OK;
}

void service_connection::close() {
    socket_.reset();
    is_greeted_ = false;
    is_silent_ = false;
    looked_through_ = NEVER;
}

/** Only a service that is not there, or not ready yet, is worth waiting for. */
bool service_connection::wait_until_greeted(std::int64_t deadline) {
    for (;;) {
        const platform_code code = make_ready(deadline);
        if (code != PLATFORM_NOT_READY || monotonic_milliseconds() >= deadline) {
            return code == PLATFORM_OK;
        }
        ::poll(nullptr, 0, START_PAUSE);
    }
}

/** Replies that nobody waits for any more are signs of life; anything else ends the connection. */
void service_connection::take_what_came() {
    char message[IPC_LONGEST_MESSAGE];
    ipc_header header;
    for (int taken = 0; taken < MOST_LATE; ++taken) {
        const platform_code code = receive_message(socket_.get(), message, header);
        if (code == PLATFORM_WOULD_BLOCK) {
            return;
        }
        if (code != PLATFORM_OK || !may_come_late(header)) {
            close();
            return;
        }
        is_silent_ = false;
    }
}

/** Asks a silent service for a sign of life; never waits. */
void service_connection::probe(std::int64_t now) {
    if (now < next_probe_) {
        return;
    }
    next_probe_ = now + PROBE_PAUSE;
    ipc_header header;
    header.kind = IPC_PROBE;
    header.sequence = ++last_sequence_;
    header.host = host_number();
    static_cast<void>(
        send_message(socket_.get(), header, nullptr, 0)); // the next check finds out what came of it
}

platform_code service_connection::make_ready(std::int64_t deadline) {
    const std::int64_t now = deadline - LONGEST_EXCHANGE; // of a request
    if (is_greeted_ && now - std::exchange(looked_through_, NEVER) > LOOK_LASTS) {
        take_what_came();
    }
    if (socket_.get() < 0) {
        const platform_code code = connect_to_service(name_, socket_);
        if (code != PLATFORM_OK) {
            return code == PLATFORM_WOULD_BLOCK ? PLATFORM_NOT_READY : code;
        }
    }
    if (is_greeted_) {
        return PLATFORM_OK;
    }
    char message[IPC_LONGEST_MESSAGE];
    ipc_header header;
    const platform_code code = receive_whole(message, header, deadline);
    is_greeted_ = code == PLATFORM_OK && header.kind == IPC_GREETING;
    if (is_greeted_) {
        let_receiving_wait(socket_.get(), LONGEST_EXCHANGE);
    } else if (code != PLATFORM_NO_ANSWER) {
        close();
    }
    return is_greeted_ ? PLATFORM_OK : PLATFORM_NOT_READY;
}

platform_code service_connection::send_whole(const ipc_header& header, const char* request,
                                             std::size_t request_length, std::int64_t deadline) {
    for (;;) {
        const platform_code code = send_message(socket_.get(), header, request + IPC_HEADER_LENGTH,
                                                request_length - IPC_HEADER_LENGTH);
        if (code != PLATFORM_WOULD_BLOCK) {
            return code;
        }
        if (!wait_for_socket(socket_.get(), true, deadline)) {
            is_silent_ = true;
            return PLATFORM_NO_ANSWER;
        }
    }
}

/** A request that could not be handed over was not seen by the service: it may go again, once. */
platform_code service_connection::send_request(const ipc_header& header, const char* request,
                                               std::size_t request_length, std::int64_t deadline) {
    platform_code code = PLATFORM_CONNECTION_LOST;
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

platform_code service_connection::receive_whole(char* message, ipc_header& header, std::int64_t deadline) {
    // The socket knows one time; whoever has less left waits in another way.
    bool waits = is_greeted_ && deadline - monotonic_milliseconds() >= LONGEST_EXCHANGE;
    for (;;) {
        const platform_code code =
            receive_message(socket_.get(), message, header, std::exchange(waits, false));
        if (code != PLATFORM_WOULD_BLOCK) {
            return code;
        }
        if (!wait_for_socket(socket_.get(), false, deadline)) {
            return PLATFORM_NO_ANSWER;
        }
    }
}

/** A late reply, or one of another function, is not the answer. */
platform_code service_connection::receive_answer(const ipc_header& request, char* message, ipc_header& answer,
                                                 std::int64_t deadline) {
    do {
        const platform_code code = receive_whole(message, answer, deadline);
        if (code == PLATFORM_OK && is_answer(request, answer, message)) {
            is_silent_ = false;
            return PLATFORM_OK;
        }
        if (code == PLATFORM_NO_ANSWER) {
            break;
        }
        if (code != PLATFORM_OK || !may_come_late(answer)) {
            close();
            return code != PLATFORM_OK ? code : PLATFORM_BAD_MESSAGE;
        }
    } while (monotonic_milliseconds() < deadline);
    is_silent_ = true;
    return PLATFORM_NO_ANSWER;
}

service_connection& connection_to_service(const char* name) {
    static std::atomic<service_connection*> last{nullptr};
    service_connection* const known = last.load(std::memory_order_acquire);
    if (known && known->name() == name) {
        return *known;
    }
    static std::mutex* const opening = new std::mutex;
    static auto* const connections = new std::map<std::string, std::unique_ptr<service_connection>>;
    const std::lock_guard<std::mutex> lock(*opening);
    std::unique_ptr<service_connection>& connection = (*connections)[name];
    if (!connection) {
        connection = std::make_unique<service_connection>(name);
    }
    last.store(connection.get(), std::memory_order_release);
    return *connection;
}

} // namespace velarion
