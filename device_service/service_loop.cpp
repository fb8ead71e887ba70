#include "service_loop.h"

#include "platform_codes.h"
#include "service_log.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <utility>

namespace velarion {

namespace {

constexpr std::size_t MOST_PEERS = 64;
constexpr std::size_t MOST_UNSENT = 1024;   // messages for a peer that does not read them
constexpr std::int64_t ACCEPT_PAUSE = 1000; // milliseconds without a descriptor
constexpr std::int64_t LOG_PAUSE = 1000;
constexpr std::size_t FIRST_PEER = 2; // place in what is watched, behind the end and the listener

} // namespace

service_loop::service_loop()
    : service_([this](std::uint32_t number, std::vector<char> message) { send(number, std::move(message)); },
               monotonic_milliseconds()) {}

platform_code service_loop::listen(const std::string& name) {
    return listener_.listen(name);
}

bool service_loop::run(int stop) {
    for (;;) {
        std::vector<pollfd> events = watched(stop);
        const int found = ::poll(events.data(), events.size(), milliseconds_to_wait());
        if (found < 0 && errno != EINTR) {
            write_log(SERVICE_LOG_ERROR, "poll failed with error %d", errno);
            return false;
        }
        service_.advance(monotonic_milliseconds());
        if (found > 0 && events[0].revents != 0) {
            return true;
        }
        if (found > 0) {
            serve(events);
        }
        close_dropped();
        has_more_to_log_ = write_what_was_left_out();
    }
}

std::vector<pollfd> service_loop::watched(int stop) const {
    std::vector<pollfd> descriptors;
    descriptors.reserve(FIRST_PEER + peers_.size());
    descriptors.push_back({stop, POLLIN, 0});
    descriptors.push_back({can_accept() ? listener_.descriptor() : -1, POLLIN, 0});
    for (const auto& [number, peer] : peers_) {
        const int events = peer.unsent.empty() ? POLLIN : POLLIN | POLLOUT;
        descriptors.push_back({peer.socket.get(), static_cast<short>(events), 0});
    }
    return descriptors;
}

/** @param events  as watched() put them together, in the order of the peers */
void service_loop::serve(const std::vector<pollfd>& events) {
    std::size_t place = FIRST_PEER;
    for (auto& [number, peer] : peers_) {
        const short happened = events[place++].revents;
        if ((happened & POLLOUT) != 0) {
            send_unsent(number, peer);
        }
        if ((happened & ~POLLOUT) != 0) {
            receive(number, peer);
        }
    }
    if (events[1].revents != 0) {
        accept();
    }
}

int service_loop::milliseconds_to_wait() const {
    std::int64_t deadline = service_.next_deadline();
    if (deadline < 0 && accepts_from_ == 0 && !has_more_to_log_) {
        return -1;
    }
    const std::int64_t now = monotonic_milliseconds();
    if (accepts_from_ > now && (deadline < 0 || accepts_from_ < deadline)) {
        deadline = accepts_from_;
    }
    if (has_more_to_log_ && (deadline < 0 || now + LOG_PAUSE < deadline)) {
        deadline = now + LOG_PAUSE;
    }
    if (deadline < 0) {
        return -1;
    }
    const std::int64_t left = std::max<std::int64_t>(0, deadline - now);
    return static_cast<int>(std::min<std::int64_t>(left, std::numeric_limits<int>::max()));
}

void service_loop::send(std::uint32_t number, std::vector<char> message) {
    const auto found = peers_.find(number);
    if (found == peers_.end() || dropped_.count(number) != 0) {
        return;
    }
    connected_peer& peer = found->second;
    peer.unsent.push_back(std::move(message));
    if (peer.unsent.size() == 1) {
        send_unsent(number, peer);
    } else if (peer.unsent.size() > MOST_UNSENT) {
        drop(number, "does not read what it is sent");
    }
}

void service_loop::send_unsent(std::uint32_t number, connected_peer& peer) {
    while (!peer.unsent.empty()) {
        const std::vector<char>& message = peer.unsent.front();
        const platform_code code = send_whole_message(peer.socket.get(), message.data(), message.size());
        if (code == PLATFORM_WOULD_BLOCK) {
            return;
        }
        if (code != PLATFORM_OK) {
            drop(number, nullptr);
            return;
        }
        peer.unsent.pop_front();
    }
}

void service_loop::receive(std::uint32_t number, connected_peer& peer) {
    if (dropped_.count(number) != 0) {
        return;
    }
    char message[IPC_LONGEST_MESSAGE];
    ipc_header header;
    const platform_code code = receive_message(peer.socket.get(), message, header);
    if (code == PLATFORM_CONNECTION_LOST) {
        drop(number, nullptr);
    } else if (code == PLATFORM_BAD_MESSAGE) {
        drop(number, "sent bytes that are no message");
    } else if (code == PLATFORM_OK && !service_.receive(number, header, message, monotonic_milliseconds())) {
        drop(number, "does not keep to the protocol");
    }
}

void service_loop::accept() {
    file_descriptor socket;
    pid_t process = 0;
    const platform_code code = listener_.accept(socket, process);
    if (code == PLATFORM_OK) {
        peers_[++last_number_].socket = std::move(socket);
        service_.connected(last_number_, process);
    } else if (code == PLATFORM_ACCESS_DENIED) {
        write_log(SERVICE_LOG_WARNING, "process %ld of another user turned away", static_cast<long>(process));
    } else if (code == PLATFORM_IO_ERROR) {
        write_log(SERVICE_LOG_WARNING, "no descriptor for another connection; trying again in %ld s",
                  static_cast<long>(ACCEPT_PAUSE / 1000));
        accepts_from_ = monotonic_milliseconds() + ACCEPT_PAUSE;
    }
    if (peers_.size() == MOST_PEERS) {
        write_log(SERVICE_LOG_WARNING, "%zu connections; others wait until one ends", MOST_PEERS);
    }
}

bool service_loop::can_accept() const {
    return peers_.size() < MOST_PEERS && (accepts_from_ == 0 || monotonic_milliseconds() >= accepts_from_);
}

/** Closes a connection before the next wait. @param reason  null when the other end closed it */
void service_loop::drop(std::uint32_t number, const char* reason) {
    if (reason && dropped_.count(number) == 0) {
        write_log(SERVICE_LOG_WARNING, "connection %u: %s; closed", number, reason);
    }
    dropped_.insert(number);
}

void service_loop::close_dropped() {
    while (!dropped_.empty()) { // telling of one may show another to be gone
        const std::uint32_t number = *dropped_.begin();
        peers_.erase(number);
        dropped_.erase(dropped_.begin());
        service_.disconnected(number);
        accepts_from_ = 0;
    }
}

} // namespace velarion
