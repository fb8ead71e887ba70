#include "control_connection.h"

#include "dvc_pnl_dec_communication.h"
#include "message_socket.h"
#include "signal_block.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <utility>

namespace velarion {

namespace {

constexpr int RETRY_PAUSE = 50; // milliseconds, as all below
constexpr int STATUS_PAUSE = 250;
constexpr int LONGEST_WAIT = 50;
constexpr int SILENT_AFTER = 1000;
constexpr int LONGEST_ANSWER = 3000;
constexpr std::size_t MOST_ASKED = 64; // answers to come; the service gives up who leaves too many unread

/** Not the process's: a key event goes to one connection of its host, which is to be that of the observers.
 */
std::uint64_t own_number() {
    return host_number() ^ 1U;
}

device_message no_answer(std::int32_t func_id) {
    device_message reply;
    reply.func_id = func_id;
    reply.result = -1;
    return reply;
}

} // namespace

control_connection::control_connection(listener told)
    : listener_(std::move(told))
    , wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    const signal_block block;
    thread_ = std::thread([this] { run(); });
}

control_connection::~control_connection() {
    is_ending_ = true;
    ::eventfd_write(wake_.get(), 1);
    thread_.join();
}

void control_connection::send(std::int32_t func_id, const std::vector<std::int32_t>& values,
                              reply_taker done) {
    const std::lock_guard<std::mutex> lock(mutex_);
    waiting_.push_back({make_message(func_id, values), std::move(done), monotonic_milliseconds()});
    ::eventfd_write(wake_.get(), 1);
}

void control_connection::run() {
    while (!is_ending_) {
        const platform_code code = connect_to_service(DVC_PNL_DEC_SERVICE_NAME, socket_);
        if (code == PLATFORM_OK) {
            serve();
            socket_.reset();
            give_up_asked(monotonic_milliseconds() + 1);
            give_up_waiting(monotonic_milliseconds() + 1);
        } else {
            show(code == PLATFORM_WOULD_BLOCK ? service_look::SILENT : service_look::ABSENT);
            give_up_waiting(monotonic_milliseconds() - LONGEST_WAIT);
        }
        wait(RETRY_PAUSE);
    }
}

/** Until the connection is of no use any more. */
void control_connection::serve() {
    show(service_look::STARTING);
    is_greeted_ = false;
    silent_since_ = monotonic_milliseconds();
    heard_at_ = silent_since_;
    next_status_ = 0;
    while (!is_ending_ && (!is_greeted_ || (send_status() && send_waiting()))) {
        wait(LONGEST_WAIT);
        if (!receive_all()) {
            return;
        }
        if (is_overdue()) {
            show(service_look::SILENT);
        } else {
            show(is_greeted_ ? service_look::ANSWERING : service_look::STARTING);
        }
        const std::int64_t too_old = monotonic_milliseconds() - LONGEST_ANSWER;
        give_up_asked(too_old);
        if (heard_at_ < too_old) {
            give_up_waiting(too_old);
        }
    }
}

void control_connection::wait(int milliseconds) {
    pollfd watched[2] = {{wake_.get(), POLLIN, 0}, {socket_.get(), POLLIN, 0}};
    ::poll(watched, 2, milliseconds);
    eventfd_t count = 0;
    ::eventfd_read(wake_.get(), &count);
}

/** A greeting or an answer has been due for too long. */
bool control_connection::is_overdue() const {
    return silent_since_ != 0 && monotonic_milliseconds() - silent_since_ > SILENT_AFTER;
}

bool control_connection::receive_all() {
    char bytes[IPC_LONGEST_MESSAGE];
    ipc_header header;
    while (!is_ending_) {
        const platform_code code = receive_message(socket_.get(), bytes, header);
        if (code != PLATFORM_OK) {
            return code == PLATFORM_WOULD_BLOCK;
        }
        silent_since_ = 0;
        heard_at_ = monotonic_milliseconds();
        if (!take(header, bytes)) {
            return false;
        }
    }
    return false;
}

bool control_connection::take(const ipc_header& header, const char* bytes) {
    if (header.kind == IPC_GREETING) {
        return greet();
    }
    device_message message;
    if (decode_message(bytes, header.length, message) != DEVICE_OK) {
        return false;
    }
    if (header.kind == IPC_NOTIFICATION && header.destination == 0) {
        queue_.post([this, message] { listener_.told_event(message); });
    }
    const auto asked = asked_.find(header.sequence);
    if (header.kind == IPC_REPLY && asked != asked_.end()) {
        request answered = std::move(asked->second);
        asked_.erase(asked);
        answer(answered, message);
    }
    return true;
}

/** From the first message on everything is told that happens; what was before is asked for. */
bool control_connection::greet() {
    ipc_header attach;
    attach.kind = IPC_ATTACH;
    attach.destination = ATTACH_EVENTS_AND_EDGES;
    attach.host = own_number();
    is_greeted_ = true;
    show(service_look::ANSWERING);
    const request leds = {make_message(CONTROL_LIST_LEDS, {}), {}, 0};
    return send_message(socket_.get(), attach, nullptr, 0) == PLATFORM_OK && send_one(leds);
}

/** A service that has yet to say something is not asked more. */
bool control_connection::send_status() {
    const std::int64_t now = monotonic_milliseconds();
    if (silent_since_ != 0 || now < next_status_) {
        return true;
    }
    next_status_ = now + STATUS_PAUSE;
    return send_one({make_message(CONTROL_STATUS, {}), {}, 0});
}

bool control_connection::send_waiting() {
    for (;;) {
        request next;
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            if (waiting_.empty() || asked_.size() >= MOST_ASKED) {
                return true;
            }
            next = waiting_.front();
        }
        const std::size_t under_way = asked_.size();
        if (!send_one(next)) {
            return false;
        }
        if (asked_.size() == under_way) {
            return true; // no room: it goes later
        }
        const std::lock_guard<std::mutex> lock(mutex_);
        waiting_.pop_front();
    }
}

/** @return false when the connection is gone */
bool control_connection::send_one(const request& next) {
    ipc_header header;
    header.sequence = last_sequence_ + 1;
    header.func_id = next.message.func_id;
    header.host = own_number();
    const std::vector<char> bytes = encode_message(next.message, header);
    const platform_code code = send_whole_message(socket_.get(), bytes.data(), bytes.size());
    if (code == PLATFORM_OK) {
        request& asked = asked_[++last_sequence_];
        asked = next;
        asked.asked_at = monotonic_milliseconds();
        silent_since_ = silent_since_ != 0 ? silent_since_ : asked.asked_at;
    }
    return code == PLATFORM_OK || code == PLATFORM_WOULD_BLOCK;
}

void control_connection::answer(request& asked, const device_message& reply) {
    if (asked.message.func_id == CONTROL_STATUS && !asked.done && reply.result == DEVICE_OK) {
        const int ms = static_cast<int>(monotonic_milliseconds() - asked.asked_at);
        queue_.post([this, reply, ms] { listener_.told_status(reply, ms); });
    } else if (asked.message.func_id == CONTROL_LIST_LEDS && !asked.done && reply.result == DEVICE_OK) {
        queue_.post([this, reply] { listener_.told_event(reply); });
    } else if (asked.done) {
        queue_.post([done = std::move(asked.done), reply] { done(reply); });
    }
}

void control_connection::give_up_asked(std::int64_t asked_before) {
    for (auto one = asked_.begin(); one != asked_.end() && one->second.asked_at < asked_before;) {
        request old = std::move(one->second);
        one = asked_.erase(one);
        answer(old, no_answer(old.message.func_id));
    }
}

void control_connection::give_up_waiting(std::int64_t come_before) {
    std::deque<request> old;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        while (!waiting_.empty() && waiting_.front().asked_at < come_before) {
            old.push_back(std::move(waiting_.front()));
            waiting_.pop_front();
        }
    }
    for (request& one : old) {
        answer(one, no_answer(one.message.func_id));
    }
}

void control_connection::show(service_look look) {
    if (look != look_ || !is_shown_) {
        look_ = look;
        is_shown_ = true;
        queue_.post([this, look] { listener_.looked(look); });
    }
}

} // namespace velarion
