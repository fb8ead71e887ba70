#ifndef DEVICE_CLIENT_H
#define DEVICE_CLIENT_H

#include "device_message.h"
#include "platform_codes.h"

#include <sys/types.h>

namespace velarion {

/** What became of a request. */
enum class request_outcome {
    ANSWERED,      ///< the reply tells whether it was carried out
    NO_ANSWER,     ///< whether it was carried out is not known
    NOT_UNDERSTOOD ///< something came that is no reply
};

/**
 * Sends the panel device service a request of this process and waits for its reply, three seconds at most;
 * one that does not run is not waited for. Any thread.
 *
 * @param reply  undefined unless the outcome is ANSWERED
 */
request_outcome send_request(const device_message& request, device_message& reply);

/**
 * The same for a service that may be starting: the first call in a process waits for it as the message
 * layer's first check does, which costs some three seconds when there is none.
 */
[[nodiscard]] request_outcome send_request_when_ready(const device_message& request, device_message& reply);

/** What can be seen of the service without a word of it. */
struct service_sight {
    platform_code code = PLATFORM_OK; ///< whether it can be connected to, or why not: connect_to_service()
    pid_t process = 0; ///< that serves, also when it takes no connections; 0 when it cannot be told
};

/** Looks for a service that does not answer; never waits. */
service_sight look_at_service();

} // namespace velarion

#endif
