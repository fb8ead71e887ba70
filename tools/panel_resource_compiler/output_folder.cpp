#include "output_folder.h"

#include "file_descriptor.h"
#include "file_guard.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>

namespace velarion {

namespace fs = std::filesystem;

namespace {

constexpr int FOLDER_FLAGS = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
constexpr mode_t FILE_MODE = 0666; // less what the user's mask takes away
constexpr mode_t FOLDER_MODE = 0777;
constexpr std::size_t LONGEST_NAME = 250; // to which ".new" can be put

/** The folder in which a name stands, and the name there. */
struct place {
    file_descriptor folder;
    std::string name;
};

std::string describe_system_fault(const std::string& path) {
    return path + ": " + std::strerror(errno);
}

bool is_kind(int folder, const std::string& name, mode_t kind) {
    struct stat status;
    return fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           (status.st_mode & S_IFMT) == kind;
}

/** Goes down one folder. @param makes  makes it when missing */
bool enter(file_descriptor& folder, const std::string& name, const std::string& path, bool makes,
           std::string& fault) {
    file_descriptor next(openat(folder.get(), name.c_str(), FOLDER_FLAGS | O_NOFOLLOW));
    if (next.get() < 0 && errno == ENOENT && makes && mkdirat(folder.get(), name.c_str(), FOLDER_MODE) == 0) {
        next.reset(openat(folder.get(), name.c_str(), FOLDER_FLAGS | O_NOFOLLOW));
    }
    if (next.get() < 0) {
        const std::string reason = describe_system_fault(path);
        fault = is_kind(folder.get(), name, S_IFLNK)
                    ? path + ": is a symbolic link, which is not followed; remove it"
                    : reason;
        return false;
    }
    folder = std::move(next);
    return true;
}

bool find_place(const std::string& path, const std::string& name, bool makes, place& found,
                std::string& fault) {
    found.folder.reset(open(path.c_str(), FOLDER_FLAGS));
    if (found.folder.get() < 0) {
        fault = describe_system_fault(path);
        return false;
    }
    std::string reached = path;
    const fs::path parts(name);
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        reached += "/" + part->string();
        if (*part == "/" || *part == "." || *part == ".." || part->empty()) {
            fault = path;
            fault.append("/").append(name).append(": leads out of the folder; choose another name");
            return false;
        }
        if (std::next(part) == parts.end()) {
            found.name = part->string();
        } else if (!enter(found.folder, part->string(), reached, makes, fault)) {
            return false;
        }
    }
    return true;
}

/** Renames, over an empty folder too. */
bool move_into_place(const place& at, const std::string& temporary) {
    const int folder = at.folder.get();
    if (renameat(folder, temporary.c_str(), folder, at.name.c_str()) == 0) {
        return true;
    }
    return errno == EISDIR && unlinkat(folder, at.name.c_str(), AT_REMOVEDIR) == 0 &&
           renameat(folder, temporary.c_str(), folder, at.name.c_str()) == 0;
}

/** Lets @p make make what is to have the name under another one, and moves it into place. */
bool replace(const std::string& path, const std::string& name, std::string& fault,
             const std::function<bool(int folder, const char* name)>& make) {
    place at;
    if (!find_place(path, name, true, at, fault)) {
        return false;
    }
    const int folder = at.folder.get();
    const std::string temporary = at.name.substr(0, LONGEST_NAME) + ".new";
    unlinkat(folder, temporary.c_str(), 0);
    if (!make(folder, temporary.c_str())) {
        const bool is_in_the_way = errno == EEXIST;
        fault = describe_system_fault(path + "/" + name + ".new") + (is_in_the_way ? "; remove it" : "");
        if (!is_in_the_way) {
            unlinkat(folder, temporary.c_str(), 0);
        }
        return false;
    }
    if (!move_into_place(at, temporary)) {
        fault = describe_system_fault(path + "/" + name) + "; remove it, or choose another output folder";
        unlinkat(folder, temporary.c_str(), 0);
        return false;
    }
    return true;
}

bool write_bytes(int file, const std::string& contents) {
    for (std::size_t written = 0; written < contents.size();) {
        const ssize_t count = ::write(file, contents.data() + written, contents.size() - written);
        if (count < 0 && errno != EINTR) {
            return false;
        }
        written += count < 0 ? 0 : static_cast<std::size_t>(count);
    }
    return true;
}

} // namespace

bool output_folder::make(std::string& fault) const {
    std::error_code error;
    fs::create_directories(path_, error);
    if (error) {
        fault = path_ + ": " + error.message() + "; choose another output folder";
    }
    return !error;
}

bool output_folder::write(const std::string& name, const std::string& contents, std::string& fault) const {
    return replace(path_, name, fault, [&contents](int folder, const char* temporary) {
        const file_descriptor file(
            openat(folder, temporary, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, FILE_MODE));
        return file.get() >= 0 && write_bytes(file.get(), contents);
    });
}

bool output_folder::link(const std::string& name, const std::string& target, std::string& fault) const {
    return replace(path_, name, fault, [&target](int folder, const char* temporary) {
        return symlinkat(target.c_str(), folder, temporary) == 0;
    });
}

bool output_folder::remove(const std::string& name, std::string& fault) const {
    place at;
    std::string not_there;
    if (!find_place(path_, name, false, at, not_there) || is_kind(at.folder.get(), at.name, S_IFDIR) ||
        unlinkat(at.folder.get(), at.name.c_str(), 0) == 0 || errno == ENOENT) {
        return true;
    }
    fault = describe_system_fault(path_ + "/" + name) + "; remove it";
    return false;
}

std::string output_folder::read(const std::string& name) const {
    place at;
    std::string not_there;
    if (!find_place(path_, name, false, at, not_there) || !is_kind(at.folder.get(), at.name, S_IFREG)) {
        return {};
    }
    const file_descriptor file(
        openat(at.folder.get(), at.name.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    std::string contents;
    char bytes[4096];
    for (ssize_t count = 0; (count = ::read(file.get(), bytes, sizeof bytes)) > 0;) {
        contents.append(bytes, static_cast<std::size_t>(count));
    }
    return contents;
}

bool write_named_file(const std::string& path, const std::string& contents, std::string& fault) {
    if (is_special_file(path.c_str())) {
        const file_descriptor file(open(path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
        if (file.get() >= 0 && write_bytes(file.get(), contents)) {
            return true;
        }
        fault = describe_system_fault(path);
        return false;
    }
    std::error_code missing;
    std::error_code error;
    const fs::path target = fs::is_symlink(path, missing) ? fs::canonical(path, error) : fs::path(path);
    if (error) {
        fault = path + ": " + error.message();
        return false;
    }
    const output_folder folder(target.has_parent_path() ? target.parent_path().string() : ".");
    const std::string name = target.filename().string();
    return folder.make(fault) && (folder.read(name) == contents || folder.write(name, contents, fault));
}

} // namespace velarion
