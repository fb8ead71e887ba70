#include "platform_folder.h"

#include "file_descriptor.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>

namespace velarion {

namespace {

constexpr mode_t FOLDER_MODE = 0700;

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/** A parent that cannot be read leaves it to the system when the new folder reaches the storage device. */
platform_code sync_parent(const std::string& path) {
    const std::string::size_type slash = path.rfind('/');
    const std::string parent = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const file_descriptor folder(::open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return folder.get() >= 0 ? sync_folder(folder.get()) : PLATFORM_OK;
}

platform_code make_folder(const std::string& path) {
    if (::mkdir(path.c_str(), FOLDER_MODE) == 0) {
        if (sync_parent(path) == PLATFORM_OK) {
            return PLATFORM_OK;
        }
        ::rmdir(path.c_str()); // the next attempt makes and waits for it anew
        return PLATFORM_IO_ERROR;
    }
    const int error = errno;
    struct stat status = {};
    if (::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
        return PLATFORM_OK; // a parent may refuse mkdir() with EACCES or EROFS and yet be there
    }
    return platform_code_of_errno(error);
}

} // namespace

std::string platform_folder() {
    std::string chosen = environment("PANEL_PLATFORM_DIR");
    if (!chosen.empty()) {
        return chosen;
    }
    const std::string state = environment("XDG_STATE_HOME");
    if (!state.empty() && state.front() == '/') {
        return state + "/panel_platform";
    }
    const std::string home = environment("HOME");
    return home.empty() ? home : home + "/.local/state/panel_platform";
}

platform_code make_platform_folder() {
    const std::string folder = platform_folder();
    if (folder.empty()) {
        return PLATFORM_NO_FOLDER;
    }
    for (std::string::size_type end = folder.find('/', 1); end != std::string::npos;
         end = folder.find('/', end + 1)) {
        if (const platform_code failure = make_folder(folder.substr(0, end))) {
            return failure;
        }
    }
    return make_folder(folder);
}

platform_code sync_folder(int folder) {
    return ::fsync(folder) == 0 || errno == EINVAL ? PLATFORM_OK : PLATFORM_NOT_DURABLE;
}

} // namespace velarion
