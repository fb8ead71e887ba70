#ifndef MESSAGE_SOCKET_H
#define MESSAGE_SOCKET_H

#include "file_descriptor.h"
#include "ipc_header.h"
#include "panel_platform_export.h"
#include "platform_codes.h"

#include <cstdint>
#include <string>
#include <sys/types.h>

namespace velarion {

/**
 * Connects to a named service of this user; never waits.
 *
 * @param socket  receives the connection, non-blocking; unchanged on failure
 * @return PLATFORM_OK; PLATFORM_NOT_READY when no process serves the name; PLATFORM_WOULD_BLOCK when too many
 *         connections wait for the process that does; PLATFORM_INVALID_ARGUMENT for a name that cannot be
 * one; PLATFORM_ACCESS_DENIED when another user serves it or can reach the folder of sockets; or why the
 * folder cannot be opened
 */
PANEL_PLATFORM_EXPORT platform_code connect_to_service(const std::string& name, file_descriptor& socket);

/**
 * Sends one message; never waits.
 *
 * @param header   the message's header; its length is filled in
 * @param payload  the bytes behind the header
 * @return PLATFORM_OK; PLATFORM_WOULD_BLOCK; PLATFORM_TOO_LARGE; PLATFORM_CONNECTION_LOST
 */
PANEL_PLATFORM_EXPORT platform_code send_message(int socket, ipc_header header, const void* payload,
                                                 std::size_t payload_length);

/** Sends one message whose header is written already; otherwise like send_message(). */
PANEL_PLATFORM_EXPORT platform_code send_whole_message(int socket, const void* message, std::size_t length);

/**
 * Receives one message.
 *
 * @param buffer  room for IPC_LONGEST_MESSAGE bytes; undefined on failure
 * @param header  receives the header, which agrees with what arrived; undefined on failure
 * @param waits   for a message as long as let_receiving_wait() said of the socket, unless a signal comes;
 *                otherwise never
 * @return PLATFORM_OK; PLATFORM_WOULD_BLOCK; PLATFORM_CONNECTION_LOST; PLATFORM_BAD_MESSAGE for bytes that
 * are no message of the message layer
 */
PANEL_PLATFORM_EXPORT platform_code receive_message(int socket, char* buffer, ipc_header& header,
                                                    bool waits = false);

/** Lets receive_message() wait where it is asked to; where that cannot be, it does not wait. */
void let_receiving_wait(int socket, std::int64_t milliseconds);

/** Milliseconds of a clock that only ever goes forward. */
PANEL_PLATFORM_EXPORT std::int64_t monotonic_milliseconds();

/**
 * Waits until a descriptor can be read (or, with @p for_writing, written), its peer is gone, or
 * monotonic_milliseconds() has reached @p deadline. @return false at the deadline
 */
PANEL_PLATFORM_EXPORT bool wait_for_socket(int socket, bool for_writing, std::int64_t deadline);

/** Number of this process, the same on all its connections; another one after fork(). Never 0. */
PANEL_PLATFORM_EXPORT std::uint64_t host_number();

/** A service's side of its name. Not for concurrent use. */
class PANEL_PLATFORM_EXPORT message_listener {
public:
    message_listener() = default;
    /** Gives the name up. */
    ~message_listener();
    message_listener(const message_listener&) = delete;
    message_listener& operator=(const message_listener&) = delete;

    /**
     * Takes a name, and the place of a process that served it and died.
     *
     * @return PLATFORM_OK; PLATFORM_ALREADY_SERVED while another process serves the name;
     *         PLATFORM_INVALID_ARGUMENT; or why the folder or socket cannot be made
     */
    platform_code listen(const std::string& name);

    /**
     * Takes a waiting connection; never waits.
     *
     * @param socket   receives it, non-blocking; unchanged on failure
     * @param process  receives the number of the process at the other end; 0 when it cannot be told
     * @return PLATFORM_OK; PLATFORM_WOULD_BLOCK; PLATFORM_ACCESS_DENIED for another user's process, which is
     *         turned away; PLATFORM_IO_ERROR when there are no descriptors or no memory
     */
    platform_code accept(file_descriptor& socket, pid_t& process);

    /** @return a descriptor that can be read when a connection waits */
    int descriptor() const { return listener_.get(); }

private:
    std::string name_;
    file_descriptor folder_;
    file_descriptor lock_;
    file_descriptor listener_;
};

} // namespace velarion

#endif
