#ifndef DEVICE_CLIENT_H
#define DEVICE_CLIENT_H

#include "device_message.h"

#include <QString>

/** Sends the panel device service a request of its own functions. @return the exit code; faults are reported
 */
int ask_device_service(const panel_device::device_message& request, panel_device::device_message& reply);

/** Sends a request whose reply, if any, is of no interest. @return whether it was answered */
bool send_to_device_service(const panel_device::device_message& request);

/** Reports a result of the panel device service other than 0; -1: it did not answer. @return the exit code */
int report_device_result(int result);

/** Reads a whole number, decimal or 0x... @param number  unchanged on failure, which is reported */
bool read_device_number(const QString& command, const QString& text, int& number);

#endif
