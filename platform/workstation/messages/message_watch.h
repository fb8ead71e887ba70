#ifndef MESSAGE_WATCH_H
#define MESSAGE_WATCH_H

#include "panel_platform_export.h"
#include "platform_codes.h"

#include <cstddef>
#include <cstdint>

namespace velarion {

/** A request of this process and what became of it, or a message that came by itself. */
struct watched_message {
    const char* bytes; ///< the request, or what came; the message layer's header included
    std::size_t length;
    const char* reply; ///< null without one
    std::size_t reply_length;
    platform_code code;        ///< of the request
    std::int64_t begun;        ///< monotonic_milliseconds() when it was sent or came
    std::int64_t microseconds; ///< that the request took, waiting for its turn included
};

/** What is told of messages, on the thread that sends or receives them. */
class PANEL_PLATFORM_EXPORT message_watch {
public:
    virtual ~message_watch();
    /** A request is over. Its header, which the message layer writes, is undefined; bytes from 72 on count.
     */
    virtual void take_request(const watched_message& request) = 0;
    /** A message_delivery received this; dispatch() gets it next. */
    virtual void take_notification(const watched_message& notification) = 0;
};

/**
 * Has the message client and the deliveries of this process watched. Costs a load of a pointer where nobody
 * watches.
 *
 * @param watch  null: nobody. When this returns the former one is not called any more; so not from a watch
 */
PANEL_PLATFORM_EXPORT void set_message_watch(message_watch* watch);

/** For the message layer itself: tells the watch, if there is one. Any thread. */
void tell_of_request(const watched_message& request);
void tell_of_notification(const char* bytes, std::size_t length);
/** @return whether somebody watches */
bool is_message_watched();

} // namespace velarion

#endif
