#include "replacement_file.h"

#include "platform_folder.h"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <utility>

namespace velarion {

namespace {

constexpr mode_t FILE_MODE = 0600;
constexpr mode_t RIGHTS = 07777;
constexpr int CREATE_ATTEMPTS = 100;

struct close_listing {
    void operator()(DIR* listing) const { ::closedir(listing); }
};

bool is_linked(int descriptor) {
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && status.st_nlink > 0;
}

/** A writer keeps its temporary file locked; one that can be locked has lost its writer. */
void remove_if_abandoned(int folder, const char* name) {
    const file_descriptor file(
        ::openat(folder, name, O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (file.get() >= 0 && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
        ::unlinkat(folder, name, 0);
    }
}

void remove_abandoned_files(int folder) {
    file_descriptor copy(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, close_listing> listing(copy.get() >= 0 ? ::fdopendir(copy.get()) : nullptr);
    if (!listing) {
        return;
    }
    copy.release(); // the listing closes it
    while (const dirent* entry = ::readdir(listing.get())) {
        if (std::strncmp(entry->d_name, TEMPORARY_PREFIX, sizeof TEMPORARY_PREFIX - 1) == 0) {
            remove_if_abandoned(folder, entry->d_name);
        }
    }
}

std::string new_temporary_name() {
    static std::atomic<unsigned long> last_number{0};
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    return TEMPORARY_PREFIX + std::to_string(::getpid()) + "." + std::to_string(now.tv_sec) + "." +
           std::to_string(now.tv_nsec) + "." + std::to_string(++last_number);
}

} // namespace

platform_code replacement_file::create(file_place place, std::unique_ptr<replacement_file>& file) {
    std::unique_ptr<replacement_file> made(new replacement_file(std::move(place)));
    const platform_code code = made->make();
    if (code == PLATFORM_OK) {
        file = std::move(made);
    }
    return code;
}

replacement_file::replacement_file(file_place place)
    : place_(std::move(place))
    , failure_(PLATFORM_OK) {}

replacement_file::~replacement_file() {
    if (!temporary_name_.empty()) {
        ::unlinkat(place_.folder.get(), temporary_name_.c_str(), 0);
    }
}

/** Another writer's cleaning may take a new file before it is locked: then another one, without waiting. */
platform_code replacement_file::make() {
    const int folder = place_.folder.get();
    remove_abandoned_files(folder);
    for (int attempt = 0; attempt < CREATE_ATTEMPTS; ++attempt) {
        std::string name = new_temporary_name();
        file_.reset(
            ::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, FILE_MODE));
        if (file_.get() < 0) {
            if (errno == EEXIST) {
                continue;
            }
            return platform_code_of_errno(errno);
        }
        temporary_name_ = std::move(name);
        const bool is_locked = ::flock(file_.get(), LOCK_EX | LOCK_NB) == 0;
        if (!is_locked && errno != EWOULDBLOCK) {
            return platform_code_of_errno(errno);
        }
        if (is_locked && is_linked(file_.get())) {
            return PLATFORM_OK;
        }
        ::unlinkat(folder, temporary_name_.c_str(), 0);
        temporary_name_.clear();
    }
    return PLATFORM_IO_ERROR;
}

platform_code replacement_file::write(const void* data, std::size_t size, std::size_t& count) {
    count = 0;
    while (count < size) {
        const ssize_t put = ::write(file_.get(), static_cast<const char*>(data) + count, size - count);
        if (put < 0 && errno != EINTR) {
            return note(platform_code_of_errno(errno));
        }
        count += put > 0 ? static_cast<std::size_t>(put) : 0;
    }
    return PLATFORM_OK;
}

platform_code replacement_file::sync() {
    return ::fsync(file_.get()) == 0 ? PLATFORM_OK : note(platform_code_of_errno(errno));
}

platform_code replacement_file::take_rights_of(const struct stat& replaced) {
    struct stat own = {};
    if (::fstat(file_.get(), &own) != 0) {
        return note(platform_code_of_errno(errno));
    }
    const bool is_owned_alike = own.st_uid == replaced.st_uid && own.st_gid == replaced.st_gid;
    if ((!is_owned_alike && ::fchown(file_.get(), replaced.st_uid, replaced.st_gid) != 0) ||
        ::fchmod(file_.get(), replaced.st_mode & RIGHTS) != 0) {
        return note(platform_code_of_errno(errno));
    }
    return PLATFORM_OK;
}

platform_code replacement_file::commit() {
    if (failure_ != PLATFORM_OK) {
        return failure_;
    }
    if (const platform_code failure = sync()) {
        return failure;
    }
    const int folder = place_.folder.get();
    if (::renameat(folder, temporary_name_.c_str(), folder, place_.name.c_str()) != 0) {
        return note(platform_code_of_errno(errno));
    }
    temporary_name_.clear();
    return sync_folder(folder);
}

platform_code replacement_file::note(platform_code code) {
    failure_ = failure_ == PLATFORM_OK ? code : failure_;
    return code;
}

} // namespace velarion
