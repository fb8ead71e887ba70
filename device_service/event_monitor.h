#ifndef EVENT_MONITOR_H
#define EVENT_MONITOR_H

#include "device_message.h"
#include "led_board.h"

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

namespace velarion {

/** Sends a message on a connection; one that does not exist any more is passed over. */
using message_sender = std::function<void(std::uint32_t connection, std::vector<char> message)>;

/** The connections that watch the service, and what they are told. */
class event_monitor {
public:
    explicit event_monitor(message_sender sender);

    /** @param interest  ATTACH_EVENTS or ATTACH_EVENTS_AND_EDGES */
    void add(std::uint32_t connection, std::uint32_t interest);
    void forget(std::uint32_t connection);

    void tell(event_function event, const std::vector<std::int32_t>& values) const;
    void tell(const std::vector<led_change>& changes) const;

private:
    message_sender sender_;
    std::map<std::uint32_t, std::uint32_t> interests_;
};

} // namespace velarion

#endif
