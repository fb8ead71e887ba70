#include "platform_folder.h"

#include "platform_codes.h"

#include <cerrno>
#include <cstdlib>
#include <sys/stat.h>

namespace panel_platform {

namespace {

const mode_t FOLDER_MODE = 0700;

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool make_folder(const std::string& path) {
    if (::mkdir(path.c_str(), FOLDER_MODE) == 0) {
        return true;
    }
    const int error = errno;
    struct stat status = {};
    if (::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
        return true; // a parent may refuse mkdir() with EACCES or EROFS and yet be there
    }
    errno = error;
    return false;
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

int make_platform_folder() {
    const std::string folder = platform_folder();
    if (folder.empty()) {
        return PLATFORM_NO_FOLDER;
    }
    for (std::string::size_type end = folder.find('/', 1); end != std::string::npos;
         end = folder.find('/', end + 1)) {
        if (!make_folder(folder.substr(0, end))) {
            return platform_code_of_errno(errno);
        }
    }
    return make_folder(folder) ? PLATFORM_OK : platform_code_of_errno(errno);
}

} // namespace panel_platform
