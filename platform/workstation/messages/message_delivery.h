#ifndef MESSAGE_DELIVERY_H
#define MESSAGE_DELIVERY_H

#include "file_descriptor.h"
#include "ipc_header.h"
#include "message_layer.h"
#include "panel_platform_export.h"
#include "platform_codes.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <thread>

namespace velarion {

/**
 * Hands what a service notifies to a facade, for as long as this object lives.
 *
 * A thread of its own keeps a connection to the service, makes it again after the service was started
 * anew, and calls the facade's dispatch() with every message that arrives. The kind in the message's IPC
 * header tells what it is: IPC_NOTIFICATION; IPC_GREETING after each connecting, when the service knows
 * nothing of this process yet; IPC_LOST when the connection is gone, the last call until the next greeting.
 */
class PANEL_PLATFORM_EXPORT message_delivery {
public:
    /**
     * @param receiver  must live as long as this object; called on the thread of this object, which takes
     *                  no signals
     * @param name      the service; a name that nobody serves is tried again ten times a second
     * @param interest  what the service is told to be of interest; 0: notifications for this process
     */
    message_delivery(facade_template& receiver, std::string name, std::uint32_t interest = 0);
    /**
     * Ends the thread, which calls dispatch() once more with IPC_LOST if it was connected; waits for it.
     * Neither from dispatch() nor while holding a lock that dispatch() takes.
     */
    ~message_delivery();
    message_delivery(const message_delivery&) = delete;
    message_delivery& operator=(const message_delivery&) = delete;

private:
    void run();
    bool wait_while_running(int socket, int milliseconds);
    platform_code attach(int socket);
    bool deliver_next(int socket, bool& is_greeted);
    void serve_connection(int socket);
    void dispatch(const ipc_header& header, char* message);

    facade_template& receiver_;
    const std::string name_;
    const std::uint32_t interest_;
    file_descriptor stop_; ///< wakes the thread; none when the process had no descriptor left
    std::atomic<bool> is_ending_{false};
    std::thread thread_;
};

} // namespace velarion

#endif
