#include "data_file_store.h"

#include "at_c_edge.h"
#include "data_file.h"
#include "data_file_place.h"
#include "platform_folder.h"

#include <cerrno>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using namespace velarion;

namespace {

constexpr int MODE_READ = 0;
constexpr int MODE_WRITE = 1;

/** The open files by handle. A handle is a number that is never given out twice, not an address. */
class handle_registry {
public:
    DVU_DIO_HANDLE add(std::shared_ptr<data_file> file) {
        const std::lock_guard<std::mutex> lock(mutex_);
        const std::uintptr_t number = ++last_number_;
        files_.emplace(number, std::move(file));
        // NOLINTNEXTLINE(performance-no-int-to-ptr): never an address
        return reinterpret_cast<DVU_DIO_HANDLE>(number);
    }

    std::shared_ptr<data_file> find(DVU_DIO_HANDLE handle) {
        const std::lock_guard<std::mutex> lock(mutex_);
        const auto found = files_.find(reinterpret_cast<std::uintptr_t>(handle));
        return found == files_.end() ? nullptr : found->second;
    }

    std::shared_ptr<data_file> take(DVU_DIO_HANDLE handle) {
        const std::lock_guard<std::mutex> lock(mutex_);
        const auto found = files_.find(reinterpret_cast<std::uintptr_t>(handle));
        if (found == files_.end()) {
            return nullptr;
        }
        std::shared_ptr<data_file> file = std::move(found->second);
        files_.erase(found);
        return file;
    }

private:
    std::mutex mutex_;
    std::map<std::uintptr_t, std::shared_ptr<data_file>> files_;
    std::uintptr_t last_number_ = 0;
};

/** Never destroyed: files may be used while the process ends. */
handle_registry& registry() {
    static handle_registry* const handles = new handle_registry;
    return *handles;
}

platform_code find_file(int area, int group, const char* name, file_place& place, struct stat& status) {
    const platform_code code = find_data_file_place(area, group, name, false, place);
    return code == PLATFORM_OK ? read_data_file_status(place, status) : code;
}

platform_code open_file(int area, int group, const char* name, int mode, DVU_DIO_HANDLE& handle) {
    file_place place;
    if (const platform_code failure = find_data_file_place(area, group, name, mode == MODE_WRITE, place)) {
        return failure;
    }
    std::shared_ptr<data_file> file;
    const platform_code code = mode == MODE_WRITE ? data_file::open_for_writing(std::move(place), file)
                                                  : data_file::open_for_reading(std::move(place), file);
    if (code == PLATFORM_OK) {
        handle = registry().add(std::move(file));
    }
    return code;
}

platform_code remove_file(int area, int group, const char* name) {
    file_place place;
    struct stat status = {};
    if (const platform_code failure = find_file(area, group, name, place, status)) {
        return failure;
    }
    if (::unlinkat(place.folder.get(), place.name.c_str(), 0) != 0) {
        return platform_code_of_errno(errno);
    }
    return sync_folder(place.folder.get());
}

platform_code read_status(int area, int group, const char* name, DVU_DIO_STATUS& status) {
    file_place place;
    struct stat found = {};
    if (const platform_code failure = find_file(area, group, name, place, found)) {
        return failure;
    }
    if (found.st_size > std::numeric_limits<std::uint32_t>::max()) {
        return PLATFORM_TOO_LARGE;
    }
    status.size = static_cast<std::uint32_t>(found.st_size);
    return PLATFORM_OK;
}

} // namespace

int dvu_dio_fopen(int area, int group, const char* name, int mode, DVU_DIO_HANDLE* handle) {
    if (!handle || (mode != MODE_READ && mode != MODE_WRITE)) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    return at_c_edge([&] { return open_file(area, group, name, mode, *handle); });
}

int dvu_dio_fread(void* buffer, std::uint32_t size, DVU_DIO_HANDLE handle, std::uint32_t* count) {
    if (!count) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    *count = 0;
    if (!buffer && size > 0) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    const std::shared_ptr<data_file> file = registry().find(handle);
    return file ? file->read(buffer, size, *count) : PLATFORM_BAD_HANDLE;
}

int dvu_dio_fwrite(const void* data, std::uint32_t size, DVU_DIO_HANDLE handle, std::uint32_t* count) {
    if (!count) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    *count = 0;
    if (!data && size > 0) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    const std::shared_ptr<data_file> file = registry().find(handle);
    return file ? file->write(data, size, *count) : PLATFORM_BAD_HANDLE;
}

int dvu_dio_fflush(DVU_DIO_HANDLE handle) {
    const std::shared_ptr<data_file> file = registry().find(handle);
    return file ? file->flush() : PLATFORM_BAD_HANDLE;
}

int dvu_dio_fclose(DVU_DIO_HANDLE handle) {
    const std::shared_ptr<data_file> file = registry().take(handle);
    return file ? file->close() : PLATFORM_BAD_HANDLE;
}

int dvu_dio_existfile(int area, int group, const char* name) {
    file_place place;
    struct stat status = {};
    return at_c_edge([&] { return find_file(area, group, name, place, status); });
}

int dvu_dio_remove(int area, int group, const char* name) {
    return at_c_edge([&] { return remove_file(area, group, name); });
}

int dvu_dio_stat(int area, int group, const char* name, DVU_DIO_STATUS* status) {
    if (!status) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    return at_c_edge([&] { return read_status(area, group, name, *status); });
}
