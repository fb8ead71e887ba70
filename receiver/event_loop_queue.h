#ifndef EVENT_LOOP_QUEUE_H
#define EVENT_LOOP_QUEUE_H

#include "file_descriptor.h"

#include <QSocketNotifier>

#include <deque>
#include <functional>
#include <mutex>

namespace velarion {

/**
 * Work that any thread leaves for the event loop of the thread that made this object. It is done one after
 * the other in the order it came, also by an event loop that one of them starts; much of it in several turns
 * of the loop, so that its timers and its painting go on. What is left when this object is destroyed is
 * dropped.
 *
 * The queue has a lock and a descriptor of its own in place of the toolkit's posted events, so that a thread
 * sanitizer sees what orders the two threads.
 */
class event_loop_queue {
public:
    /** @throw std::system_error when the process has no descriptor left */
    event_loop_queue();

    /** Any thread, as long as this object is there. */
    void post(std::function<void()> work);

private:
    bool take(std::function<void()>& work);
    void do_all();

    std::mutex mutex_;
    std::deque<std::function<void()>> waiting_;
    file_descriptor wake_;
    QSocketNotifier notifier_;
};

} // namespace velarion

#endif
