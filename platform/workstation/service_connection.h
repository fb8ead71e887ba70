#ifndef SERVICE_CONNECTION_H
#define SERVICE_CONNECTION_H

#include "file_descriptor.h"
#include "ipc_header.h"

#include <cstdint>
#include <mutex>
#include <string>
#include <sys/types.h>

namespace panel_platform {

/**
 * The one connection of this process to a service: made when it is first asked for, kept, and made
 * again after the service was started anew. Any thread; exchanges of several threads wait in turn.
 */
class service_connection {
public:
    explicit service_connection(std::string name);

    /**
     * Waits for an exchange that another thread has under way, then 5 ms at most for a greeting.
     * @return whether the service has greeted this process on a connection that still stands
     */
    bool is_ready();

    /**
     * Sends a request and waits for its reply, three seconds at most once the exchanges of other threads are
     * over.
     *
     * @param request       at least IPC_HEADER_LENGTH bytes, of which the header is not read
     * @param reply_length  capacity of @p reply on entry; the reply's bytes on return, 0 without one
     * @return PLATFORM_OK, or why there is no reply, in which case @p reply is unchanged: PLATFORM_NOT_READY,
     *         PLATFORM_NO_ANSWER, PLATFORM_CONNECTION_LOST (the service may have seen the request),
     *         PLATFORM_BAD_MESSAGE, PLATFORM_TOO_LARGE
     */
    int exchange(std::int32_t func_id, const char* request, std::size_t request_length, char* reply,
                 unsigned int& reply_length);

private:
    void close();
    void close_what_is_stale();
    int make_ready(std::int64_t deadline);
    int send_whole(const IPC_HEADER& header, const char* request, std::size_t request_length,
                   std::int64_t deadline);
    int send_request(const IPC_HEADER& header, const char* request, std::size_t request_length,
                     std::int64_t deadline);
    int receive_whole(char* message, IPC_HEADER& header, std::int64_t deadline);

    const std::string name_;
    std::mutex mutex_;
    file_descriptor socket_;
    bool is_greeted_ = false;
    pid_t owner_ = 0; ///< process that made the connection; a fork must not use it
    std::uint32_t last_sequence_ = 0;
};

/** @return the connection to a service, the same for the same name; never destroyed */
service_connection& connection_to_service(const std::string& name);

} // namespace panel_platform

#endif
