#include "log_stream.h"

#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velarion {

namespace {

/** A process started from a service may have been given another stream than the one of the variable. */
bool is_stream_of_journal(const struct stat& status) {
    const char* const stream = std::getenv("JOURNAL_STREAM");
    return stream && std::to_string(status.st_dev) + ':' + std::to_string(status.st_ino) == stream;
}

bool has_room() {
    pollfd watched = {STDERR_FILENO, POLLOUT, 0};
    return ::poll(&watched, 1, 0) > 0 && (watched.revents & POLLOUT) != 0;
}

} // namespace

/** A pipe or terminal that is opened anew has flags of its own; where that fails, one asks before writing. */
log_stream::log_stream() {
    struct stat status = {};
    if (::fstat(STDERR_FILENO, &status) != 0) {
        return;
    }
    is_read_by_journal_ = is_stream_of_journal(status);
    if (S_ISSOCK(status.st_mode)) {
        kind_ = SOCKET;
    } else if (S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode)) {
        opened_.reset(::open("/proc/self/fd/2", O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
        kind_ = opened_.get() >= 0 ? OPENED_ANEW : SHARED;
    }
}

bool log_stream::write(const std::string& text) const {
    ssize_t written = -1;
    if (kind_ == SOCKET) {
        written = ::send(STDERR_FILENO, text.data(), text.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    } else if (kind_ == OPENED_ANEW) {
        written = ::write(opened_.get(), text.data(), text.size());
    } else if (kind_ == ANY || has_room()) {
        written = ::write(STDERR_FILENO, text.data(), text.size());
    }
    return written >= 0;
}

} // namespace velarion
