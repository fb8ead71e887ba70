#include "data_file_place.h"

#include "platform_folder.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <utility>
#include <vector>

namespace velarion {

namespace {

constexpr mode_t FOLDER_MODE = 0700;
constexpr int FOLDER_FLAGS = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

bool is_good_component(const std::string& component) {
    return !component.empty() && component != "." && component != ".." &&
           component.rfind(TEMPORARY_PREFIX, 0) != 0;
}

bool split_name(const std::string& name, std::vector<std::string>& components) {
    std::string::size_type begin = 0;
    while (begin <= name.size()) {
        const std::string::size_type end = std::min(name.find('/', begin), name.size());
        components.push_back(name.substr(begin, end - begin));
        if (!is_good_component(components.back())) {
            return false;
        }
        begin = end + 1;
    }
    return true;
}

platform_code make_folder_in(int parent, const char* name) {
    if (::mkdirat(parent, name, FOLDER_MODE) == 0) {
        if (sync_folder(parent) == PLATFORM_OK) {
            return PLATFORM_OK;
        }
        ::unlinkat(parent, name, AT_REMOVEDIR); // the next attempt makes and waits for it anew
        return PLATFORM_IO_ERROR;
    }
    return errno == EEXIST ? PLATFORM_OK : platform_code_of_errno(errno);
}

platform_code enter_folder(const std::string& name, bool make_folders, file_descriptor& folder) {
    if (make_folders) {
        if (const platform_code failure = make_folder_in(folder.get(), name.c_str())) {
            return failure;
        }
    }
    const int descriptor = ::openat(folder.get(), name.c_str(), FOLDER_FLAGS | O_NOFOLLOW);
    if (descriptor < 0) {
        return platform_code_of_errno(errno);
    }
    folder.reset(descriptor);
    return PLATFORM_OK;
}

platform_code open_platform_folder(bool make_folders, file_descriptor& folder) {
    if (make_folders) {
        if (const platform_code failure = make_platform_folder()) {
            return failure;
        }
    }
    const std::string path = platform_folder();
    if (path.empty()) {
        return PLATFORM_NO_FOLDER;
    }
    folder.reset(::open(path.c_str(), FOLDER_FLAGS));
    return folder.get() >= 0 ? PLATFORM_OK : platform_code_of_errno(errno);
}

} // namespace

platform_code find_data_file_place(int area, int group, const char* name, bool make_folders,
                                   file_place& place) {
    if (!name) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    std::vector<std::string> path = {"data", std::to_string(area) + "-" + std::to_string(group)};
    if (!split_name(name, path)) {
        return PLATFORM_NAME_REFUSED;
    }
    std::string leaf = path.back();
    path.pop_back();
    file_descriptor folder;
    if (const platform_code failure = open_platform_folder(make_folders, folder)) {
        return failure;
    }
    for (const std::string& component : path) {
        if (const platform_code failure = enter_folder(component, make_folders, folder)) {
            return failure;
        }
    }
    place = {std::move(folder), std::move(leaf)};
    return PLATFORM_OK;
}

platform_code read_data_file_status(const file_place& place, struct stat& status) {
    if (::fstatat(place.folder.get(), place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return platform_code_of_errno(errno);
    }
    return S_ISREG(status.st_mode) ? PLATFORM_OK : PLATFORM_NOT_A_FILE;
}

} // namespace velarion
