#include "data_file.h"

#include "data_file_place.h"

#include <cerrno>
#include <fcntl.h>
#include <utility>

namespace velarion {

platform_code data_file::open_for_reading(file_place place, std::shared_ptr<data_file>& file) {
    struct stat status = {};
    if (const platform_code failure = read_data_file_status(place, status)) {
        return failure;
    }
    file_descriptor reading(::openat(place.folder.get(), place.name.c_str(),
                                     O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (reading.get() < 0) {
        return platform_code_of_errno(errno);
    }
    if (::fstat(reading.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return PLATFORM_NOT_A_FILE;
    }
    file = std::make_shared<data_file>(std::move(reading));
    return PLATFORM_OK;
}

platform_code data_file::open_for_writing(file_place place, std::shared_ptr<data_file>& file) {
    struct stat status = {};
    const platform_code earlier_file = read_data_file_status(place, status);
    if (earlier_file != PLATFORM_OK && earlier_file != PLATFORM_NOT_FOUND) {
        return earlier_file;
    }
    std::unique_ptr<replacement_file> writing;
    if (const platform_code failure = replacement_file::create(std::move(place), writing)) {
        return failure;
    }
    file = std::make_shared<data_file>(std::move(writing));
    return PLATFORM_OK;
}

data_file::data_file(file_descriptor reading)
    : reading_(std::move(reading)) {}

data_file::data_file(std::unique_ptr<replacement_file> writing)
    : writing_(std::move(writing)) {}

platform_code data_file::read(void* buffer, std::uint32_t size, std::uint32_t& count) {
    const std::lock_guard<std::mutex> lock(mutex_);
    count = 0;
    if (reading_.get() < 0) {
        return writing_ ? PLATFORM_WRONG_MODE : PLATFORM_BAD_HANDLE;
    }
    std::uint32_t done = 0;
    while (done < size) {
        const ssize_t got = ::read(reading_.get(), static_cast<char*>(buffer) + done, size - done);
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

platform_code data_file::write(const void* data, std::uint32_t size, std::uint32_t& count) {
    const std::lock_guard<std::mutex> lock(mutex_);
    count = 0;
    if (!writing_) {
        return reading_.get() >= 0 ? PLATFORM_WRONG_MODE : PLATFORM_BAD_HANDLE;
    }
    std::size_t written = 0;
    const platform_code code = writing_->write(data, size, written);
    count = static_cast<std::uint32_t>(written);
    return code;
}

platform_code data_file::flush() {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (writing_) {
        return writing_->sync();
    }
    return reading_.get() >= 0 ? PLATFORM_OK : PLATFORM_BAD_HANDLE;
}

platform_code data_file::close() {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (writing_) {
        const platform_code code = writing_->commit();
        writing_.reset();
        return code;
    }
    if (reading_.get() < 0) {
        return PLATFORM_BAD_HANDLE;
    }
    reading_.reset();
    return PLATFORM_OK;
}

} // namespace velarion
