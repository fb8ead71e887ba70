#ifndef SERVICE_LOOP_H
#define SERVICE_LOOP_H

#include "file_descriptor.h"
#include "message_socket.h"
#include "panel_service.h"
#include "platform_codes.h"

#include <cstdint>
#include <deque>
#include <map>
#include <poll.h>
#include <set>
#include <string>
#include <vector>

namespace velarion {

/** The sockets of the service and the one thread that serves them. */
class service_loop {
public:
    service_loop();

    /** Takes the service's name. @return PLATFORM_OK, or why it cannot be taken, see message_listener */
    platform_code listen(const std::string& name);

    /**
     * Serves until a descriptor can be read.
     * @param stop  that descriptor, such as one of signals
     * @return false when the service cannot go on, which is logged
     */
    bool run(int stop);

private:
    struct connected_peer {
        file_descriptor socket;
        std::deque<std::vector<char>> unsent;
    };

    void send(std::uint32_t number, std::vector<char> message);
    void send_unsent(std::uint32_t number, connected_peer& peer);
    void receive(std::uint32_t number, connected_peer& peer);
    void accept();
    void drop(std::uint32_t number, const char* reason);
    void close_dropped();
    bool can_accept() const;
    int milliseconds_to_wait() const;
    std::vector<pollfd> watched(int stop) const;
    void serve(const std::vector<pollfd>& events);

    message_listener listener_;
    panel_service service_;
    std::map<std::uint32_t, connected_peer> peers_;
    std::set<std::uint32_t> dropped_;
    std::uint32_t last_number_ = 0;
    bool has_more_to_log_ = false;
    std::int64_t accepts_from_ = 0; ///< time of the next attempt when there was no descriptor
};

} // namespace velarion

#endif
