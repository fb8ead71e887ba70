#include "service_log.h"

#include "log_stream.h"
#include "message_socket.h"

#include <climits>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <map>

namespace velarion {

namespace {

struct named_level {
    const char* name;
    int journal_priority;
};

/** The lines of one kind, since the first of the second that is counted. */
struct line_kind {
    std::int64_t since = 0;
    int written = 0;
    int left_out = 0;
    service_log_level level = SERVICE_LOG_INFO;
    std::string last; ///< of those that were left out
};

constexpr named_level LEVELS[] = {{"error", 3}, {"warning", 4}, {"info", 6}, {"debug", 7}};
constexpr int MOST_LINES = 10;        // of one kind
constexpr std::int64_t PERIOD = 1000; // milliseconds
constexpr std::size_t LONGEST_TEXT = 512;
static_assert(LONGEST_TEXT + 128 < PIPE_BUF, "a line goes into a pipe as a whole");

service_log_level g_highest_level = SERVICE_LOG_INFO;

std::map<const void*, line_kind>& kinds() {
    static std::map<const void*, line_kind> kinds_by_format;
    return kinds_by_format;
}

bool write_line(service_log_level level, const std::string& text) {
    static const log_stream stream;
    std::string line;
    if (stream.is_read_by_journal()) {
        line = '<' + std::to_string(LEVELS[level].journal_priority) + '>';
    }
    line += std::string("panel_device_service: ") + LEVELS[level].name + ": " + text + '\n';
    return stream.write(line);
}

/** @return whether nothing of this kind is left to say */
bool write_left_out(line_kind& kind) {
    const bool is_said =
        kind.left_out == 0 || write_line(kind.level, std::to_string(kind.left_out) +
                                                         " lines left out, the last of them: " + kind.last);
    kind.left_out = is_said ? 0 : kind.left_out;
    return is_said;
}

} // namespace

bool find_log_level(const std::string& name, service_log_level& level) {
    for (int number = SERVICE_LOG_ERROR; number <= SERVICE_LOG_DEBUG; ++number) {
        if (name == LEVELS[number].name) {
            level = static_cast<service_log_level>(number);
            return true;
        }
    }
    return false;
}

void set_log_level(service_log_level level) {
    g_highest_level = level;
}

void write_log(service_log_level level, const char* format, ...) {
    if (level > g_highest_level) {
        return;
    }
    char text[LONGEST_TEXT];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    line_kind& kind = kinds()[format];
    const std::int64_t now = monotonic_milliseconds();
    if (now - kind.since >= PERIOD && write_left_out(kind)) {
        kind.since = now;
        kind.written = 0;
    }
    if (kind.left_out == 0 && kind.written < MOST_LINES && write_line(level, text)) {
        ++kind.written;
        return;
    }
    ++kind.left_out;
    kind.level = level;
    kind.last = text;
}

bool write_what_was_left_out(bool at_once) {
    const std::int64_t now = monotonic_milliseconds();
    bool is_something_left = false;
    for (auto& [format, kind] : kinds()) {
        const bool is_due = at_once || now - kind.since >= PERIOD;
        if (kind.left_out > 0 && (!is_due || !write_left_out(kind))) {
            is_something_left = true;
        }
    }
    return is_something_left;
}

} // namespace velarion
