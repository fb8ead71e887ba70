#ifndef DEVICE_REQUEST_H
#define DEVICE_REQUEST_H

#include "device_message.h"

namespace velarion {

/** Sends the panel device service a request of its own functions. @return the exit code; faults are reported
 */
int ask_device_service(const device_message& request, device_message& reply);

/** Reports a result of the panel device service other than 0; -1: it did not answer. @return the exit code */
int report_device_result(int result);

} // namespace velarion

#endif
