#include "service_log.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace panel_device {

namespace {

struct LEVEL {
    const char* name;
    int journal_priority;
};

const LEVEL LEVELS[] = {{"error", 3}, {"warning", 4}, {"info", 6}, {"debug", 7}};

SERVICE_LOG_LEVEL g_highest_level = SERVICE_LOG_INFO;

/** The journal names the stream it reads; a process started from there may have been given another one. */
bool is_read_by_journal() {
    const char* const stream = std::getenv("JOURNAL_STREAM");
    struct stat status = {};
    return stream && ::fstat(STDERR_FILENO, &status) == 0 &&
           std::to_string(status.st_dev) + ':' + std::to_string(status.st_ino) == stream;
}

} // namespace

bool find_log_level(const std::string& name, SERVICE_LOG_LEVEL& level) {
    for (int number = SERVICE_LOG_ERROR; number <= SERVICE_LOG_DEBUG; ++number) {
        if (name == LEVELS[number].name) {
            level = static_cast<SERVICE_LOG_LEVEL>(number);
            return true;
        }
    }
    return false;
}

void set_log_level(SERVICE_LOG_LEVEL level) {
    g_highest_level = level;
}

void write_log(SERVICE_LOG_LEVEL level, const char* format, ...) {
    if (level > g_highest_level) {
        return;
    }
    char text[512];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    char priority[8] = "";
    static const bool has_priority = is_read_by_journal();
    if (has_priority) {
        std::snprintf(priority, sizeof priority, "<%d>", LEVELS[level].journal_priority);
    }
    std::fprintf(stderr, "%spanel_device_service: %s: %s\n", priority, LEVELS[level].name, text);
}

} // namespace panel_device
