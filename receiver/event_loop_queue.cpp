#include "event_loop_queue.h"

#include <cerrno>
#include <chrono>
#include <sys/eventfd.h>
#include <system_error>
#include <utility>

namespace velarion {

namespace {

constexpr std::chrono::milliseconds LONGEST_TURN(10);

int open_wake() {
    const int descriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (descriptor < 0) {
        throw std::system_error(errno, std::generic_category(), "eventfd");
    }
    return descriptor;
}

} // namespace

event_loop_queue::event_loop_queue()
    : wake_(open_wake())
    , notifier_(wake_.get(), QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { do_all(); });
}

void event_loop_queue::post(std::function<void()> work) {
    const std::lock_guard<std::mutex> lock(mutex_);
    waiting_.push_back(std::move(work));
    ::eventfd_write(wake_.get(), 1);
}

bool event_loop_queue::take(std::function<void()>& work) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (waiting_.empty()) {
        return false;
    }
    work = std::move(waiting_.front());
    waiting_.pop_front();
    return true;
}

void event_loop_queue::do_all() {
    eventfd_t count = 0;
    ::eventfd_read(wake_.get(), &count);
    const auto end = std::chrono::steady_clock::now() + LONGEST_TURN;
    for (std::function<void()> work; take(work);) {
        work();
        if (std::chrono::steady_clock::now() >= end) {
            ::eventfd_write(wake_.get(), 1); // the rest after what else the event loop has to do
            return;
        }
    }
}

} // namespace velarion
