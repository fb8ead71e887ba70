#include "message_watch.h"

#include "message_socket.h"

#include <atomic>
#include <mutex>
#include <shared_mutex>

namespace velarion {

namespace {

std::atomic<message_watch*> current{nullptr};

/** Held for reading while a watch is called; never destroyed, as threads may outlive static objects. */
std::shared_mutex& calling() {
    static auto* const mutex = new std::shared_mutex;
    return *mutex;
}

} // namespace

message_watch::~message_watch() = default;

void set_message_watch(message_watch* watch) {
    const std::unique_lock<std::shared_mutex> lock(calling());
    current.store(watch, std::memory_order_release);
}

bool is_message_watched() {
    return current.load(std::memory_order_relaxed);
}

void tell_of_request(const watched_message& request) {
    const std::shared_lock<std::shared_mutex> lock(calling());
    if (message_watch* watch = current.load(std::memory_order_acquire)) {
        watch->take_request(request);
    }
}

void tell_of_notification(const char* bytes, std::size_t length) {
    if (!is_message_watched()) {
        return;
    }
    const std::shared_lock<std::shared_mutex> lock(calling());
    if (message_watch* watch = current.load(std::memory_order_acquire)) {
        watch->take_notification({bytes, length, nullptr, 0, PLATFORM_OK, monotonic_milliseconds(), 0});
    }
}

} // namespace velarion
