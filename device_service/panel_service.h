#ifndef PANEL_SERVICE_H
#define PANEL_SERVICE_H

#include "delayed_replies.h"
#include "service_state.h"

#include <cstdint>
#include <sys/types.h>
#include <vector>

namespace velarion {

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
    bool receive(std::uint32_t connection, const ipc_header& header, const char* bytes, std::int64_t now);

    /** Does what is due: LEDs that blink, replies that were delayed. */
    void advance(std::int64_t now);
    /** @return when advance() will have something to do; -1: never */
    std::int64_t next_deadline() const;

private:
    bool has_connection(std::uint64_t host) const;
    bool attach(std::uint32_t number, const ipc_header& header);
    void answer(std::uint32_t number, const ipc_header& header, const char* bytes, std::int64_t now);
    bool answer_probe(std::uint32_t number, const ipc_header& header, const char* bytes, std::int64_t now);
    void send_reply(std::uint32_t number, std::vector<char> message, fault_kind fault, std::int64_t now);
    fault_kind take_fault(std::uint32_t connection);

    service_state state_;
    delayed_replies delayed_;
};

} // namespace velarion

#endif
