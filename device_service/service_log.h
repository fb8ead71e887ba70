#ifndef SERVICE_LOG_H
#define SERVICE_LOG_H

#include <string>

namespace velarion {

enum service_log_level : int {
    SERVICE_LOG_ERROR = 0,
    SERVICE_LOG_WARNING = 1,
    SERVICE_LOG_INFO = 2,
    SERVICE_LOG_DEBUG = 3
};

/** Finds a level by name: error, warning, info, debug. @param level  unchanged when there is none */
bool find_log_level(const std::string& name, service_log_level& level);

/** Lines beyond this level are left out from now on; at first those beyond SERVICE_LOG_INFO. */
void set_log_level(service_log_level level);

/**
 * Writes one line to standard error, with the journal's priority in front when the journal reads that. Never
 * waits: a line that finds no room is left out, and so are those of one kind beyond ten in a second. How many
 * were left out is said later.
 *
 * @param format  also tells the kind of line; a literal
 */
void write_log(service_log_level level, const char* format, ...) __attribute__((format(printf, 2, 3)));

/**
 * Says how many lines were left out, once a second has passed since the kind's first line.
 *
 * @param at_once  without waiting for that second
 * @return whether there is something left to say
 */
bool write_what_was_left_out(bool at_once = false);

} // namespace velarion

#endif
