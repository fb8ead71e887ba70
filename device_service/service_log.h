#ifndef SERVICE_LOG_H
#define SERVICE_LOG_H

#include <string>

namespace panel_device {

enum SERVICE_LOG_LEVEL : int {
    SERVICE_LOG_ERROR = 0,
    SERVICE_LOG_WARNING = 1,
    SERVICE_LOG_INFO = 2,
    SERVICE_LOG_DEBUG = 3
};

/** Finds a level by name: error, warning, info, debug. @param level  unchanged when there is none */
bool find_log_level(const std::string& name, SERVICE_LOG_LEVEL& level);

/** Lines beyond this level are left out from now on; at first those beyond SERVICE_LOG_INFO. */
void set_log_level(SERVICE_LOG_LEVEL level);

/** Writes one line to standard error, with the journal's priority in front when the journal reads that. */
void write_log(SERVICE_LOG_LEVEL level, const char* format, ...) __attribute__((format(printf, 2, 3)));

} // namespace panel_device

#endif
