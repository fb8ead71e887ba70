#ifndef SERVICE_FUNCTIONS_H
#define SERVICE_FUNCTIONS_H

#include "device_message.h"
#include "service_state.h"

#include <cstdint>

namespace velarion {

/**
 * Carries out what a request asks for, once its length, function, and number and ids of parameters were
 * found right.
 *
 * @param connection  that sent it
 * @param header      its header, which agrees with its length
 * @param now         in milliseconds
 * @param reply       receives the records of the reply, if the function has any
 * @return the reply's result
 */
device_result carry_out(service_state& service, std::uint32_t connection, const ipc_header& header,
                        const char* bytes, std::int64_t now, device_message& reply);

} // namespace velarion

#endif
