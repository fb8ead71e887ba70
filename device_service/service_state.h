#ifndef SERVICE_STATE_H
#define SERVICE_STATE_H

#include "event_monitor.h"
#include "fault_plan.h"
#include "led_board.h"
#include "observer_registry.h"

#include <cstdint>
#include <map>
#include <sys/types.h>
#include <utility>

namespace velarion {

/** What is known of a connection's other end. */
struct host_connection {
    pid_t process;
    std::uint64_t host; ///< 0: it has sent nothing yet, or has no number
    bool takes_notifications;
};

/** What the traffic of the service and its functions share. */
struct service_state {
    service_state(message_sender send, std::int64_t now)
        : sender(std::move(send))
        , monitor(sender)
        , started(now) {}

    const message_sender sender;
    event_monitor monitor;
    led_board leds;
    observer_registry observers;
    fault_plan faults;
    std::map<std::uint32_t, host_connection> connections; ///< by their numbers
    const std::int64_t started;                           ///< milliseconds
    std::uint32_t request_count = 0;                      ///< of the library
    std::uint32_t refused_count = 0;                      ///< of these
};

} // namespace velarion

#endif
