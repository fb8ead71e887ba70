#include "trace.h"

#include "at_c_edge.h"
#include "file_descriptor.h"
#include "trace_watch.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <sys/types.h>
#include <unistd.h>
#include <vector>

using namespace velarion;

namespace {

constexpr std::size_t LONGEST_TEXT = 16384; // bytes of formatted text; more is cut and marked
constexpr char CUT_MARK[] = "...";
constexpr std::size_t SHORT_TEXT = 512;
constexpr mode_t TRACE_FILE_MODE = 0600;

bool format_text(std::string& text, const char* format, va_list arguments)
    __attribute__((format(printf, 2, 0)));

bool format_text(std::string& text, const char* format, va_list arguments) {
    char buffer[SHORT_TEXT];
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(buffer, sizeof buffer, format, arguments);
    if (length >= 0 && static_cast<std::size_t>(length) < sizeof buffer) {
        text.assign(buffer, static_cast<std::size_t>(length));
    } else if (length >= 0) {
        std::vector<char> large(LONGEST_TEXT + 1);
        std::vsnprintf(large.data(), large.size(), format, again);
        text.assign(large.data());
    }
    va_end(again);
    if (length >= 0 && static_cast<std::size_t>(length) > LONGEST_TEXT) {
        text += CUT_MARK;
    }
    return length >= 0;
}

void append_escaped(std::string& line, char byte) {
    const unsigned int code = static_cast<unsigned char>(byte);
    char escape[8] = {byte, '\0'};
    if (byte == '\n') {
        std::strcpy(escape, "\\n");
    } else if (byte == '\r') {
        std::strcpy(escape, "\\r");
    } else if (byte == '\t') {
        std::strcpy(escape, "\\t");
    } else if (code < 0x20 || code == 0x7f) {
        std::snprintf(escape, sizeof escape, "\\x%02x", code);
    }
    line += escape;
}

void append_text(std::string& line, const std::string& text) {
    std::string::size_type end = text.find_last_not_of("\r\n");
    end = end == std::string::npos ? 0 : end + 1;
    for (std::string::size_type position = 0; position < end; ++position) {
        append_escaped(line, text[position]);
    }
}

std::string time_stamp() {
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    tm parts = {};
    gmtime_r(&now.tv_sec, &parts);
    char seconds[32];
    std::strftime(seconds, sizeof seconds, "%Y-%m-%dT%H:%M:%S", &parts);
    char stamp[48];
    std::snprintf(stamp, sizeof stamp, "%s.%03ldZ", seconds, now.tv_nsec / 1000000);
    return stamp;
}

std::string record_head(int module, int group, int kind) {
    char numbers[96];
    std::snprintf(numbers, sizeof numbers, "[%ld:%ld] 0x%x 0x%x 0x%x ", static_cast<long>(getpid()),
                  static_cast<long>(gettid()), static_cast<unsigned int>(module),
                  static_cast<unsigned int>(group), static_cast<unsigned int>(kind));
    return time_stamp() + " " + program_invocation_short_name + numbers;
}

/** One call of write() for the whole line, so that records of several processes stay whole. */
platform_code write_line(int descriptor, const std::string& line) {
    static std::mutex* const writing = new std::mutex;
    const std::lock_guard<std::mutex> lock(*writing);
    ssize_t written = -1;
    do {
        written = ::write(descriptor, line.data(), line.size());
    } while (written < 0 && errno == EINTR);
    if (written < 0) {
        return platform_code_of_errno(errno);
    }
    return static_cast<std::size_t>(written) == line.size() ? PLATFORM_OK : PLATFORM_NO_SPACE;
}

void report_once(const char* file, int error) {
    static std::atomic<bool> is_reported{false};
    if (!is_reported.exchange(true)) {
        static_cast<void>(write_line(STDERR_FILENO, std::string("panel_platform: trace file ") + file + ": " +
                                                        std::strerror(error) +
                                                        "; tracing to standard error\n"));
    }
}

std::atomic<trace_watch*> watch{nullptr};

/** Held for reading while the watch is called; never destroyed, as threads may outlive static objects. */
std::shared_mutex& calling() {
    static auto* const mutex = new std::shared_mutex;
    return *mutex;
}

/** @return whether somebody shows the record */
bool tell_watch(const std::string& record) {
    if (!watch.load(std::memory_order_relaxed)) {
        return false;
    }
    const std::shared_lock<std::shared_mutex> lock(calling());
    trace_watch* const current = watch.load(std::memory_order_acquire);
    return current && current->take_trace(record);
}

platform_code write_record(const std::string& record) {
    const bool is_shown = tell_watch(record);
    const std::string line = record + '\n';
    const char* const file = std::getenv("PANEL_TRACE_FILE");
    if (!file || !*file) {
        return is_shown ? PLATFORM_OK : write_line(STDERR_FILENO, line);
    }
    // O_NONBLOCK: a FIFO that nobody reads is an error, not a standstill.
    const file_descriptor descriptor(
        ::open(file, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, TRACE_FILE_MODE));
    if (descriptor.get() < 0) {
        const int error = errno;
        report_once(file, error);
        static_cast<void>(write_line(STDERR_FILENO, line));
        return platform_code_of_errno(error);
    }
    return write_line(descriptor.get(), line);
}

platform_code trace(int module, int group, int kind, const char* format, va_list arguments)
    __attribute__((format(printf, 4, 0)));

platform_code trace(int module, int group, int kind, const char* format, va_list arguments) {
    std::string text = "(null)";
    if (format && !format_text(text, format, arguments)) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    std::string line = record_head(module, group, kind);
    append_text(line, text);
    return write_record(line);
}

} // namespace

trace_watch::~trace_watch() = default;

void velarion::set_trace_watch(trace_watch* next) {
    const std::unique_lock<std::shared_mutex> lock(calling());
    watch.store(next, std::memory_order_release);
}

int emwGENTrcPrintf(int module, int group, int kind, const char* format, ...) {
    const int callers_errno = errno;
    va_list arguments;
    va_start(arguments, format);
    const int code = at_c_edge([&] { return trace(module, group, kind, format, arguments); });
    va_end(arguments);
    errno = callers_errno;
    return code;
}
