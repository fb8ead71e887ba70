#ifndef CONTROL_CONNECTION_H
#define CONTROL_CONNECTION_H

#include "device_message.h"
#include "event_loop_queue.h"
#include "file_descriptor.h"
#include "ipc_header.h"

#include <atomic>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

namespace velarion {

/** How the service looks from outside of it. */
enum class service_look {
    ABSENT,   ///< nobody serves the name
    STARTING, ///< connected, not greeted yet
    ANSWERING,
    SILENT ///< has left a question without an answer for a second
};

/**
 * A connection to the panel device service beside that of the message client: for the hand at the hardware
 * and for whoever watches, so that neither waits behind the panel's own requests. A thread makes it again
 * whenever it is gone; it asks for the service's status four times a second and waits for nothing else.
 *
 * All operations belong to the thread that made the object, whose event loop makes the calls.
 */
class control_connection {
public:
    /** A reply; its result is -1 when none came in three seconds, or none of anything while the request
     * waited for its turn, or the connection went away. */
    using reply_taker = std::function<void(const device_message& reply)>;

    struct listener {
        std::function<void(service_look look)> looked;                        ///< it looks otherwise
        std::function<void(const device_message& reply, int ms)> told_status; ///< and after how long
        std::function<void(const device_message& event)>
            told_event; ///< an event_function, or the reply to CONTROL_LIST_LEDS
    };

    explicit control_connection(listener told);
    /** Waits for the thread, which waits for nobody. Nothing is called any more. */
    ~control_connection();
    control_connection(const control_connection&) = delete;
    control_connection& operator=(const control_connection&) = delete;

    /** Sends a request as soon as the service takes it. @param done  may be empty */
    void send(std::int32_t func_id, const std::vector<std::int32_t>& values, reply_taker done = {});

private:
    struct request {
        device_message message;
        reply_taker done;
        std::int64_t asked_at = 0; ///< when it came, then when it was sent
    };

    void run();
    void serve();
    void wait(int milliseconds);
    bool receive_all();
    bool take(const ipc_header& header, const char* bytes);
    bool greet();
    bool send_status();
    bool send_waiting();
    bool send_one(const request& next);
    void answer(request& asked, const device_message& reply);
    void give_up_asked(std::int64_t asked_before);
    void give_up_waiting(std::int64_t come_before);
    void show(service_look look);
    bool is_overdue() const;

    listener listener_;
    std::mutex mutex_;
    std::deque<request> waiting_;
    file_descriptor wake_;
    std::atomic<bool> is_ending_{false};

    // of the thread
    file_descriptor socket_;
    bool is_greeted_ = false;
    std::int64_t silent_since_ = 0; ///< something is due since then; 0: nothing
    std::int64_t heard_at_ = 0;
    std::uint32_t last_sequence_ = 0;
    std::map<std::uint32_t, request> asked_;
    std::int64_t next_status_ = 0;
    service_look look_ = service_look::STARTING;
    bool is_shown_ = false;

    event_loop_queue queue_;
    std::thread thread_;
};

} // namespace velarion

#endif
