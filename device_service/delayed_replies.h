#ifndef DELAYED_REPLIES_H
#define DELAYED_REPLIES_H

#include "event_monitor.h"

#include <cstdint>
#include <map>
#include <vector>

namespace velarion {

/** Replies that are sent later than they were made. Knows no clock: times are passed in, in milliseconds. */
class delayed_replies {
public:
    void add(std::uint32_t connection, std::vector<char> message, std::int64_t due);
    /** Drops what waits for a connection. */
    void forget(std::uint32_t connection);
    /** @return whether as many replies wait for a connection as may */
    bool is_full(std::uint32_t connection) const;

    /** Sends what is due, in the order of the times. */
    void send_due(std::int64_t now, const message_sender& sender);
    /** @return when the next reply is due; -1: never */
    std::int64_t next_due() const;

private:
    struct delayed_reply {
        std::uint32_t connection;
        std::vector<char> message;
    };

    std::multimap<std::int64_t, delayed_reply> replies_; ///< by the time they are due
};

} // namespace velarion

#endif
