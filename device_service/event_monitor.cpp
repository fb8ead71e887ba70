#include "event_monitor.h"

#include <utility>

namespace velarion {

event_monitor::event_monitor(message_sender sender)
    : sender_(std::move(sender)) {}

void event_monitor::add(std::uint32_t connection, std::uint32_t interest) {
    interests_[connection] = interest;
}

void event_monitor::forget(std::uint32_t connection) {
    interests_.erase(connection);
}

void event_monitor::tell(event_function event, const std::vector<std::int32_t>& values) const {
    ipc_header header;
    header.kind = IPC_NOTIFICATION;
    for (const auto& [connection, interest] : interests_) {
        if (event != EVENT_LED_EDGE || interest == ATTACH_EVENTS_AND_EDGES) {
            sender_(connection, encode_message(make_message(event, values), header));
        }
    }
}

void event_monitor::tell(const std::vector<led_change>& changes) const {
    if (interests_.empty()) {
        return;
    }
    for (const led_change& change : changes) {
        tell(change.is_edge ? EVENT_LED_EDGE : EVENT_LED, {change.led, change.status, change.is_lit ? 1 : 0});
    }
}

} // namespace velarion
