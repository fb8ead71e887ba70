#ifndef IPC_HEADER_H
#define IPC_HEADER_H

#include "message_layer.h"
#include "panel_platform_export.h"

#include <cstddef>
#include <cstdint>

namespace velarion {

/**
 * The header that the workstation's message layer puts before every message. Functions keep nothing: any
 * thread.
 */

/** What a message is to the message layer. */
enum ipc_kind : std::uint32_t {
    IPC_REQUEST = 1,      ///< host to service; one reply follows
    IPC_REPLY = 2,        ///< service to host, with the request's sequence number
    IPC_NOTIFICATION = 3, ///< service to a connection that attached itself
    IPC_ATTACH = 4,       ///< host to service: this connection takes notifications; has no reply
    IPC_GREETING = 5,     ///< service to host, the first message of every connection
    IPC_LOST = 6,         ///< never sent: tells a receiver that its connection is gone
    IPC_PROBE = 7         ///< host to service: is it alive? the service sends it back; no payload
};

/** The contents of a gen_ipc_msghdr on a workstation. */
struct ipc_header {
    ipc_kind kind = IPC_REQUEST;
    std::uint32_t length = 0;   ///< bytes of the whole message, this header included
    std::uint32_t sequence = 0; ///< joins a reply to its request; each request of a connection has its own
    std::int32_t func_id = 0;
    std::uint32_t destination = 0; ///< notification: number of the observer; attach: what is of interest
    std::uint64_t host = 0;        ///< the sending process; the same on all its connections; 0 from a service
};

inline constexpr std::size_t IPC_HEADER_LENGTH = sizeof(gen_ipc_msghdr);
/** No message is longer; a connection that carries a longer one is given up. */
inline constexpr std::size_t IPC_LONGEST_MESSAGE = 4096;

/** Writes a header, undefined bytes as zero. @param message  room for IPC_HEADER_LENGTH bytes */
PANEL_PLATFORM_EXPORT void write_ipc_header(const ipc_header& header, void* message);

/**
 * Reads the header of a received message.
 *
 * @param length  bytes received
 * @return false when this is no whole message of the message layer; @p header is undefined then
 */
PANEL_PLATFORM_EXPORT bool read_ipc_header(const void* message, std::size_t length, ipc_header& header);

} // namespace velarion

#endif
