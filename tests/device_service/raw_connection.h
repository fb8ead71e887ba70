#ifndef RAW_CONNECTION_H
#define RAW_CONNECTION_H

#include "device_message.h"
#include "file_descriptor.h"
#include "ipc_header.h"

#include <cstdint>
#include <string>

/** A connection to the panel device service without the message layer's client: it may send anything. */
class raw_connection {
public:
    /** Connects and takes the greeting. @param host  number of the process that this pretends to be */
    explicit raw_connection(std::uint64_t host);

    /** Sends bytes as they are. @return false when the service has closed the connection */
    bool send_bytes(const std::string& bytes);
    /** Puts a message layer's header before the bytes and sends them. */
    bool send_request(std::int32_t func_id, const std::string& payload);
    bool attach(std::uint32_t interest);

    /** Sends a well-formed request. */
    bool send(const panel_device::DEVICE_MESSAGE& request);
    /** Sends a well-formed request and takes messages up to its reply. @return the result code; -1: none */
    std::int32_t ask(const panel_device::DEVICE_MESSAGE& request);
    /** @param message  receives the next message. @return false when the connection was closed */
    bool receive(panel_device::DEVICE_MESSAGE& message);

    /** Takes messages up to a notification of this kind. @return false when the connection was closed */
    bool wait_for_event(std::int32_t func_id, panel_device::DEVICE_MESSAGE& message);

    /** Header of the message that was received last. */
    const panel_platform::IPC_HEADER& header() const { return header_; }
    /** Takes messages until the service closes the connection. @return false when it never does */
    bool is_closed_by_service();

    int socket() const { return socket_.get(); }

private:
    panel_platform::file_descriptor socket_;
    panel_platform::IPC_HEADER header_;
    std::uint64_t host_;
    std::uint32_t sequence_ = 0;
};

#endif
