#include "message_socket.h"

#include "own_process.h"
#include "platform_codes.h"
#include "platform_folder.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <limits>
#include <mutex>
#include <poll.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace velarion {

namespace {

constexpr char RUNTIME_FOLDER[] = "/run";
constexpr mode_t FOLDER_MODE = 0700;
constexpr mode_t OTHERS = 077;
constexpr mode_t LOCK_FILE_MODE = 0600;
constexpr mode_t SOCKET_MODE = 0600;
constexpr std::size_t LONGEST_NAME = 64;
constexpr int WAITING_CONNECTIONS = 16;

bool is_service_name(const std::string& name) {
    return !name.empty() && name.size() <= LONGEST_NAME && name.front() != '.' &&
           name.find('/') == std::string::npos && name.find('\0') == std::string::npos;
}

platform_code open_runtime_folder(file_descriptor& folder) {
    const std::string path = platform_folder();
    if (path.empty()) {
        return PLATFORM_NO_FOLDER;
    }
    file_descriptor opened(
        ::open((path + RUNTIME_FOLDER).c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    if (opened.get() < 0 || ::fstat(opened.get(), &status) != 0) {
        return platform_code_of_errno(errno);
    }
    if (status.st_uid != ::geteuid() || (status.st_mode & OTHERS) != 0) {
        return PLATFORM_ACCESS_DENIED;
    }
    folder = std::move(opened);
    return PLATFORM_OK;
}

platform_code make_runtime_folder(file_descriptor& folder) {
    const platform_code code = make_platform_folder();
    if (code != PLATFORM_OK) {
        return code;
    }
    if (::mkdir((platform_folder() + RUNTIME_FOLDER).c_str(), FOLDER_MODE) != 0 && errno != EEXIST) {
        return platform_code_of_errno(errno);
    }
    return open_runtime_folder(folder);
}

/** The address goes through the opened folder, so that the folder's path may have any length. */
sockaddr_un address_of(const file_descriptor& folder, const std::string& name) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "/proc/self/fd/%d/%s", folder.get(),
                  name.c_str());
    return address;
}

/** Gives an address to a socket call, which takes it as the general type. */
template <typename CALL>
int with_address(CALL call, const file_descriptor& socket, const sockaddr_un& address) {
    return call(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

file_descriptor make_socket() {
    return file_descriptor(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

bool is_same_user(int socket, pid_t& process) {
    ucred peer = {};
    socklen_t length = sizeof peer;
    if (::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &length) != 0) {
        return false;
    }
    process = peer.pid;
    return peer.uid == ::geteuid();
}

platform_code code_of_transfer_error(int error) {
    return error == EAGAIN || error == EINTR ? PLATFORM_WOULD_BLOCK : PLATFORM_CONNECTION_LOST;
}

std::uint64_t random_number() {
    std::uint64_t number = 0;
    while (number == 0) {
        if (::getrandom(&number, sizeof number, 0) != static_cast<ssize_t>(sizeof number)) {
            number = static_cast<std::uint64_t>(::getpid());
        }
    }
    return number;
}

} // namespace

platform_code connect_to_service(const std::string& name, file_descriptor& socket) {
    if (!is_service_name(name)) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    file_descriptor folder;
    const platform_code code = open_runtime_folder(folder);
    if (code != PLATFORM_OK) {
        return code == PLATFORM_NOT_FOUND ? PLATFORM_NOT_READY : code;
    }
    file_descriptor made = make_socket();
    if (made.get() < 0) {
        return PLATFORM_IO_ERROR;
    }
    if (with_address(::connect, made, address_of(folder, name)) != 0) {
        return errno == EAGAIN ? PLATFORM_WOULD_BLOCK : PLATFORM_NOT_READY;
    }
    pid_t process = 0;
    if (!is_same_user(made.get(), process)) {
        return PLATFORM_ACCESS_DENIED;
    }
    socket = std::move(made);
    return PLATFORM_OK;
}

platform_code send_message(int socket, ipc_header header, const void* payload, std::size_t payload_length) {
    if (payload_length > IPC_LONGEST_MESSAGE - IPC_HEADER_LENGTH) {
        return PLATFORM_TOO_LARGE;
    }
    header.length = static_cast<std::uint32_t>(IPC_HEADER_LENGTH + payload_length);
    char message[IPC_LONGEST_MESSAGE];
    write_ipc_header(header, message);
    if (payload_length > 0) {
        std::memcpy(message + IPC_HEADER_LENGTH, payload, payload_length);
    }
    return send_whole_message(socket, message, header.length);
}

platform_code send_whole_message(int socket, const void* message, std::size_t length) {
    if (length > IPC_LONGEST_MESSAGE) {
        return PLATFORM_TOO_LARGE;
    }
    const ssize_t sent = ::send(socket, message, length, MSG_NOSIGNAL | MSG_DONTWAIT);
    return sent >= 0 ? PLATFORM_OK : code_of_transfer_error(errno);
}

platform_code receive_message(int socket, char* buffer, ipc_header& header, bool waits) {
    const int flags = waits ? MSG_TRUNC : MSG_TRUNC | MSG_DONTWAIT;
    const ssize_t length = ::recv(socket, buffer, IPC_LONGEST_MESSAGE, flags);
    if (length < 0) {
        return code_of_transfer_error(errno);
    }
    if (length == 0) {
        return PLATFORM_CONNECTION_LOST;
    }
    return read_ipc_header(buffer, static_cast<std::size_t>(length), header) ? PLATFORM_OK
                                                                             : PLATFORM_BAD_MESSAGE;
}

void let_receiving_wait(int socket, std::int64_t milliseconds) {
    const timeval longest = {static_cast<time_t>(milliseconds / 1000),
                             static_cast<suseconds_t>(milliseconds % 1000 * 1000)};
    const int flags = ::fcntl(socket, F_GETFL);
    if (flags >= 0 && ::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &longest, sizeof longest) == 0) {
        ::fcntl(socket, F_SETFL, flags & ~O_NONBLOCK);
    }
}

std::int64_t monotonic_milliseconds() {
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::int64_t>(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

bool wait_for_socket(int socket, bool for_writing, std::int64_t deadline) {
    pollfd watched = {socket, static_cast<short>(for_writing ? POLLOUT : POLLIN), 0};
    for (;;) {
        const std::int64_t left = std::max<std::int64_t>(0, deadline - monotonic_milliseconds());
        const int found = ::poll(
            &watched, 1, static_cast<int>(std::min<std::int64_t>(left, std::numeric_limits<int>::max())));
        if (found > 0) {
            return true;
        }
        if (left == 0 || (found < 0 && errno != EINTR)) {
            return false;
        }
    }
}

std::uint64_t host_number() {
    static std::mutex* const drawing = new std::mutex;
    static pid_t owner = 0;
    static std::uint64_t number = 0;
    const std::lock_guard<std::mutex> lock(*drawing);
    if (owner != own_process()) {
        owner = own_process();
        number = random_number();
    }
    return number;
}

message_listener::~message_listener() {
    if (listener_.get() >= 0) {
        ::unlinkat(folder_.get(), name_.c_str(), 0);
    }
}

platform_code message_listener::listen(const std::string& name) {
    if (!is_service_name(name) || listener_.get() >= 0) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    const platform_code code = make_runtime_folder(folder_);
    if (code != PLATFORM_OK) {
        return code;
    }
    lock_.reset(::openat(folder_.get(), (name + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW,
                         LOCK_FILE_MODE));
    if (lock_.get() < 0) {
        return platform_code_of_errno(errno);
    }
    if (::flock(lock_.get(), LOCK_EX | LOCK_NB) != 0) {
        return errno == EWOULDBLOCK ? PLATFORM_ALREADY_SERVED : PLATFORM_IO_ERROR;
    }
    if (::unlinkat(folder_.get(), name.c_str(), 0) != 0 && errno != ENOENT) {
        return platform_code_of_errno(errno);
    }
    file_descriptor made = make_socket();
    // The mode of the opened socket becomes that of the file that bind() makes.
    if (made.get() < 0 || ::fchmod(made.get(), SOCKET_MODE) != 0 ||
        with_address(::bind, made, address_of(folder_, name)) != 0 ||
        ::listen(made.get(), WAITING_CONNECTIONS) != 0) {
        return platform_code_of_errno(errno);
    }
    name_ = name;
    listener_ = std::move(made);
    return PLATFORM_OK;
}

platform_code message_listener::accept(file_descriptor& socket, pid_t& process) {
    file_descriptor taken(::accept4(listener_.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (taken.get() < 0) {
        const bool is_none = errno == EAGAIN || errno == EINTR || errno == ECONNABORTED;
        return is_none ? PLATFORM_WOULD_BLOCK : PLATFORM_IO_ERROR;
    }
    process = 0;
    if (!is_same_user(taken.get(), process)) {
        return PLATFORM_ACCESS_DENIED;
    }
    socket = std::move(taken);
    return PLATFORM_OK;
}

} // namespace velarion
