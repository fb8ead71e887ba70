#include "dvc_pnl_rmg_font_link.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>

namespace velarion {

namespace {

constexpr int MOST_LINKS = 40; // as many as the system follows
constexpr int MOST_TEMPORARY_NAMES = 100;

bool is_folder(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/** The path up to its last "/", which it includes; the current folder's when there is none. */
std::string folder_of(const std::string& path) {
    const std::string::size_type slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

std::string name_of(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

/** Whether two paths name the same entry of the same folder. */
bool is_same_entry(const std::string& first, const std::string& second) {
    struct stat first_folder;
    struct stat second_folder;
    return name_of(first) == name_of(second) && stat(folder_of(first).c_str(), &first_folder) == 0 &&
           stat(folder_of(second).c_str(), &second_folder) == 0 &&
           first_folder.st_dev == second_folder.st_dev && first_folder.st_ino == second_folder.st_ino;
}

/** Whether the links that a path consists of, from entry to entry, lead through a place. */
bool leads_through(std::string path, const std::string& place) {
    for (int i = 0; i <= MOST_LINKS; ++i) {
        if (is_same_entry(path, place)) {
            return true;
        }
        char target[PATH_MAX];
        const ssize_t length = readlink(path.c_str(), target, sizeof target);
        if (length <= 0) {
            return false;
        }
        const std::string next(target, static_cast<std::size_t>(length));
        path = next[0] == '/' ? next : folder_of(path).append(next);
    }
    return true;
}

/** Makes a link under a name that nothing has. @return whether there is one */
bool make_temporary_link(const std::string& target, const std::string& folder, std::string& link) {
    const std::string start = folder + ".new-link-" + std::to_string(getpid()) + "-";
    for (int i = 0; i < MOST_TEMPORARY_NAMES; ++i) {
        link = start + std::to_string(i);
        if (symlink(target.c_str(), link.c_str()) == 0) {
            return true;
        }
        if (errno != EEXIST) {
            return false;
        }
    }
    return false;
}

} // namespace

void dvc_pnl_rmg_make_font_link(const std::string& font, const std::string& folder, const std::string& name) {
    std::string place = folder + name;
    if (is_folder(place)) {
        place += "/" + name;
    }
    std::string link;
    if (!leads_through(font, place) && make_temporary_link(font, folder_of(place), link) &&
        std::rename(link.c_str(), place.c_str()) != 0) {
        unlink(link.c_str());
    }
}

} // namespace velarion
