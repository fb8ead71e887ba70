#include "data_file.h"

#include "platform_codes.h"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <utility>

namespace panel_platform {

namespace {

const mode_t FILE_MODE = 0600;
const int CREATE_ATTEMPTS = 100;

int first_failure(int earlier, int later) {
    return earlier != PLATFORM_OK ? earlier : later;
}

int sync_to_device(int descriptor) {
    return ::fsync(descriptor) == 0 ? PLATFORM_OK : platform_code_of_errno(errno);
}

bool is_linked(int descriptor) {
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && status.st_nlink > 0;
}

bool lock_exclusively(int descriptor) {
    int result = -1;
    do {
        result = ::flock(descriptor, LOCK_EX);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

/** A writer keeps its temporary file locked; one that can be locked has lost its writer. */
void remove_if_abandoned(int folder, const char* name) {
    const file_descriptor file(::openat(folder, name, O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK));
    if (file.get() >= 0 && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
        ::unlinkat(folder, name, 0);
    }
}

void remove_abandoned_files(int folder) {
    file_descriptor copy(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    DIR* const listing = copy.get() >= 0 ? ::fdopendir(copy.get()) : nullptr;
    if (!listing) {
        return;
    }
    copy.release(); // closedir() closes it
    while (const dirent* entry = ::readdir(listing)) {
        if (std::strncmp(entry->d_name, TEMPORARY_PREFIX, sizeof TEMPORARY_PREFIX - 1) == 0) {
            remove_if_abandoned(folder, entry->d_name);
        }
    }
    ::closedir(listing);
}

std::string new_temporary_name() {
    static std::atomic<unsigned long> last_number{0};
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    return TEMPORARY_PREFIX + std::to_string(::getpid()) + "." + std::to_string(now.tv_sec) + "." +
           std::to_string(now.tv_nsec) + "." + std::to_string(++last_number);
}

/** Another writer's cleaning may take a new file between its creation and its locking: then try again. */
int create_temporary(int folder, std::string& name, file_descriptor& file) {
    for (int attempt = 0; attempt < CREATE_ATTEMPTS; ++attempt) {
        name = new_temporary_name();
        file.reset(
            ::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, FILE_MODE));
        if (file.get() < 0) {
            if (errno == EEXIST) {
                continue;
            }
            return platform_code_of_errno(errno);
        }
        if (!lock_exclusively(file.get())) {
            const int code = platform_code_of_errno(errno);
            ::unlinkat(folder, name.c_str(), 0);
            return code;
        }
        if (is_linked(file.get())) {
            return PLATFORM_OK;
        }
    }
    return PLATFORM_IO_ERROR;
}

} // namespace

int data_file::open_for_reading(DATA_FILE_PLACE place, std::shared_ptr<data_file>& file) {
    struct stat status = {};
    const int code = read_data_file_status(place, status);
    if (code != PLATFORM_OK) {
        return code;
    }
    file_descriptor descriptor(::openat(place.folder.get(), place.name.c_str(),
                                        O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (descriptor.get() < 0) {
        return platform_code_of_errno(errno);
    }
    if (::fstat(descriptor.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return PLATFORM_NOT_A_FILE;
    }
    file = std::make_shared<data_file>(std::move(place), std::move(descriptor), "");
    return PLATFORM_OK;
}

int data_file::open_for_writing(DATA_FILE_PLACE place, std::shared_ptr<data_file>& file) {
    struct stat status = {};
    const int earlier_file = read_data_file_status(place, status);
    if (earlier_file != PLATFORM_OK && earlier_file != PLATFORM_NOT_FOUND) {
        return earlier_file;
    }
    remove_abandoned_files(place.folder.get());
    std::string temporary_name;
    file_descriptor descriptor;
    const int code = create_temporary(place.folder.get(), temporary_name, descriptor);
    if (code != PLATFORM_OK) {
        return code;
    }
    file = std::make_shared<data_file>(std::move(place), std::move(descriptor), std::move(temporary_name));
    return PLATFORM_OK;
}

data_file::data_file(DATA_FILE_PLACE place, file_descriptor descriptor, std::string temporary_name)
    : place_(std::move(place))
    , descriptor_(std::move(descriptor))
    , temporary_name_(std::move(temporary_name))
    , failure_(PLATFORM_OK) {}

data_file::~data_file() {
    discard();
}

int data_file::read(void* buffer, std::uint32_t size, std::uint32_t& count) {
    const std::lock_guard<std::mutex> lock(mutex_);
    count = 0;
    if (descriptor_.get() < 0) {
        return PLATFORM_BAD_HANDLE;
    }
    if (is_writing()) {
        return PLATFORM_WRONG_MODE;
    }
    std::uint32_t done = 0;
    while (done < size) {
        const ssize_t got = ::read(descriptor_.get(), static_cast<char*>(buffer) + done, size - done);
        if (got < 0 && errno != EINTR) {
            return platform_code_of_errno(errno);
        }
        if (got == 0) {
            break;
        }
        done += got > 0 ? static_cast<std::uint32_t>(got) : 0;
    }
    count = done;
    return PLATFORM_OK;
}

int data_file::write(const void* data, std::uint32_t size, std::uint32_t& count) {
    const std::lock_guard<std::mutex> lock(mutex_);
    count = 0;
    if (descriptor_.get() < 0) {
        return PLATFORM_BAD_HANDLE;
    }
    if (!is_writing()) {
        return PLATFORM_WRONG_MODE;
    }
    while (count < size) {
        const ssize_t put = ::write(descriptor_.get(), static_cast<const char*>(data) + count, size - count);
        if (put < 0 && errno != EINTR) {
            const int code = platform_code_of_errno(errno);
            failure_ = first_failure(failure_, code);
            return code;
        }
        count += put > 0 ? static_cast<std::uint32_t>(put) : 0;
    }
    return PLATFORM_OK;
}

int data_file::flush() {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (descriptor_.get() < 0) {
        return PLATFORM_BAD_HANDLE;
    }
    if (!is_writing()) {
        return PLATFORM_OK;
    }
    const int code = sync_to_device(descriptor_.get());
    failure_ = first_failure(failure_, code);
    return code;
}

int data_file::close() {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (descriptor_.get() < 0) {
        return PLATFORM_BAD_HANDLE;
    }
    const int code = is_writing() ? commit() : static_cast<int>(PLATFORM_OK);
    discard();
    return code;
}

int data_file::commit() {
    const int code = first_failure(failure_, sync_to_device(descriptor_.get()));
    if (code != PLATFORM_OK) {
        return code;
    }
    const int folder = place_.folder.get();
    if (::renameat(folder, temporary_name_.c_str(), folder, place_.name.c_str()) != 0) {
        return platform_code_of_errno(errno);
    }
    temporary_name_.clear();
    return sync_to_device(folder);
}

void data_file::discard() {
    if (is_writing()) {
        ::unlinkat(place_.folder.get(), temporary_name_.c_str(), 0);
        temporary_name_.clear();
    }
    descriptor_.reset();
}

} // namespace panel_platform
