#ifndef DEVICE_SCRIPT_H
#define DEVICE_SCRIPT_H

namespace velarion {

class device_link;
class script_runner;
class service_keeper;

/** Adds the commands and conditions of scripts that are about the device service, its LEDs and keys. */
void add_device_words(script_runner& runner, device_link& link, service_keeper& service);

} // namespace velarion

#endif
