#ifndef SERVICE_CONNECTION_H
#define SERVICE_CONNECTION_H

#include "file_descriptor.h"
#include "ipc_header.h"
#include "platform_codes.h"

#include <condition_variable>
#include <cstdint>
#include <limits>
#include <mutex>
#include <string>
#include <sys/types.h>

namespace velarion {

/**
 * The one connection of this process to a service: made when it is first asked for, kept, and made
 * again after the service was started anew. Any thread; exchanges of several threads wait in turn.
 */
class service_connection {
public:
    explicit service_connection(std::string name);

    const std::string& name() const { return name_; }

    /**
     * Tells whether a request is worth sending: the service has greeted this process on a connection that
     * still stands, and has said something since it last left a request without an answer.
     *
     * The first call in a process waits for the service, which may be starting, 2.5 seconds at most; calls of
     * other threads meanwhile wait with it. Every later one answers at once, also while another thread's
     * exchange is under way.
     */
    bool is_ready();

    /**
     * Sends a request and waits for its reply: three seconds at most, the turns of other threads included.
     * What else the service sends meanwhile answers nothing.
     *
     * @param request       at least IPC_HEADER_LENGTH bytes, of which the header is not read
     * @param reply_length  capacity of @p reply on entry; the reply's bytes on return, 0 without one
     * @return PLATFORM_OK, or why there is no reply, in which case @p reply is unchanged: PLATFORM_NOT_READY,
     *         PLATFORM_NO_ANSWER, PLATFORM_CONNECTION_LOST (the service may have seen the request),
     *         PLATFORM_BAD_MESSAGE, PLATFORM_TOO_LARGE
     */
    platform_code exchange(std::int32_t func_id, const char* request, std::size_t request_length, char* reply,
                           unsigned int& reply_length);

private:
    enum usage { FREE, IN_CHECK, IN_EXCHANGE };
    static constexpr std::int64_t NEVER = std::numeric_limits<std::int64_t>::min() / 2;

    struct turn;

    void start_anew_after_fork();
    platform_code take_turn(std::int64_t deadline);
    void close();
    bool wait_until_greeted(std::int64_t deadline);
    void take_what_came();
    void probe(std::int64_t now);
    platform_code make_ready(std::int64_t deadline);
    platform_code send_whole(const ipc_header& header, const char* request, std::size_t request_length,
                             std::int64_t deadline);
    platform_code send_request(const ipc_header& header, const char* request, std::size_t request_length,
                               std::int64_t deadline);
    platform_code receive_whole(char* message, ipc_header& header, std::int64_t deadline);
    platform_code receive_answer(const ipc_header& request, char* message, ipc_header& answer,
                                 std::int64_t deadline);

    const std::string name_;
    std::mutex mutex_; ///< for the members before the blank line; the others belong to who has the turn
    std::condition_variable turn_ended_;
    usage use_ = FREE;
    bool was_ready_ = false; ///< when it was last free
    pid_t owner_ = 0;        ///< process that this object serves; a fork must not use what its parent made

    bool has_waited_ = false;
    file_descriptor socket_;
    bool is_greeted_ = false;
    bool is_silent_ = false;              ///< left a request without an answer, and nothing has come since
    std::int64_t looked_through_ = NEVER; ///< when a check took what had come; no request since
    std::int64_t next_probe_ = 0;
    std::uint32_t last_sequence_ = 0;
};

/** @param name  not null. @return the connection to a service, the same for the same name; never destroyed */
service_connection& connection_to_service(const char* name);

} // namespace velarion

#endif
