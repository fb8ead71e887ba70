#ifndef PANEL_SERVICE_H
#define PANEL_SERVICE_H

#include "device_message.h"
#include "event_monitor.h"
#include "fault_plan.h"
#include "led_board.h"
#include "observer_registry.h"

#include <cstdint>
#include <map>
#include <sys/types.h>
#include <vector>

namespace panel_device {

/**
 * What the service does with what its connections send. Knows neither sockets nor a clock: messages go
 * out through the sender, the time is passed in, in milliseconds.
 */
class panel_service {
public:
    panel_service(message_sender sender, std::int64_t now);

    /** Greets a new connection. @param connection  a number that is never used again */
    void connected(std::uint32_t connection, pid_t process);
    /** Forgets a connection, and the observers of its host when it was the host's last one. */
    void disconnected(std::uint32_t connection);

    /**
     * Takes a message that a connection sent.
     *
     * @param header  its header, which agrees with its length
     * @return false when the other end does not keep to the protocol, so that the connection is to be closed
     */
    bool receive(std::uint32_t connection, const panel_platform::ipc_header& header, const char* bytes,
                 std::int64_t now);

    /** Does what is due: LEDs that blink, replies that were delayed. */
    void advance(std::int64_t now);
    /** @return when advance() will have something to do; -1: never */
    std::int64_t next_deadline() const;

private:
    struct connection_state {
        pid_t process;
        std::uint64_t host;
        bool takes_notifications;
    };
    /** A request whose number and ids of parameters were found right. */
    struct function_call {
        std::uint32_t connection;
        std::uint64_t host;
        std::vector<std::int32_t> values;
        std::int64_t now;
    };
    /** A function, the ids of its parameters in their order, and what carries it out. */
    struct service_function {
        std::int32_t func_id;
        std::vector<std::int32_t> parameter_ids;
        device_result (panel_service::*run)(const function_call& call, device_message& reply);
    };
    struct delayed_reply {
        std::uint32_t connection;
        std::vector<char> message;
    };

    static const std::vector<service_function>& functions();
    bool has_connection(std::uint64_t host) const;
    bool may_send_requests(std::uint32_t number) const;
    bool attach(std::uint32_t number, const panel_platform::ipc_header& header);
    void answer(std::uint32_t number, const panel_platform::ipc_header& header, const char* bytes,
                std::int64_t now);
    bool answer_probe(std::uint32_t number, const panel_platform::ipc_header& header, const char* bytes,
                      std::int64_t now);
    void send_reply(std::uint32_t number, std::vector<char> message, fault_kind fault, std::int64_t now);
    fault_kind take_fault(std::uint32_t connection);
    device_result carry_out(std::uint32_t number, const panel_platform::ipc_header& header, const char* bytes,
                            std::int64_t now, device_message& reply);

    device_result set_led(const function_call& call, device_message& reply);
    device_result set_all_leds_on(const function_call& call, device_message& reply);
    device_result set_all_leds_off(const function_call& call, device_message& reply);
    device_result run_led_timer(const function_call& call, device_message& reply);
    device_result add_observer(const function_call& call, device_message& reply);
    device_result list_leds(const function_call& call, device_message& reply);
    device_result send_key_event(const function_call& call, device_message& reply);
    device_result set_fault(const function_call& call, device_message& reply);
    device_result report_status(const function_call& call, device_message& reply);

    bool notify(const key_observer& observer, const device_message& message);
    std::int32_t notify_observers(std::int32_t key, std::int32_t status);

    message_sender sender_;
    event_monitor monitor_;
    led_board leds_;
    observer_registry observers_;
    fault_plan faults_;
    std::map<std::uint32_t, connection_state> connections_;
    std::multimap<std::int64_t, delayed_reply> delayed_; // by the time they are due
    std::int64_t started_;
    std::uint32_t request_count_ = 0;
    std::uint32_t refused_count_ = 0;
};

} // namespace panel_device

#endif
