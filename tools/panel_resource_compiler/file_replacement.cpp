#include "file_replacement.h"

#include "file_descriptor.h"
#include "text_diff.h"
#include "text_lines.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace velarion {

namespace fs = std::filesystem;

namespace {

constexpr mode_t NEW_FOLDER_MODE = 0777;
constexpr mode_t NEW_FILE_MODE = 0666; // less what the user's mask takes away

std::string describe_system_fault(const std::string& path) {
    return path + ": " + std::strerror(errno);
}

bool write_bytes(int file, const std::string& contents) {
    for (std::size_t written = 0; written < contents.size();) {
        const ssize_t count = ::write(file, contents.data() + written, contents.size() - written);
        if (count < 0 && errno != EINTR) {
            return false;
        }
        written += count < 0 ? 0 : static_cast<std::size_t>(count);
    }
    return fsync(file) == 0;
}

bool read_all(int file, const std::string& name, std::string& contents, std::string& fault) {
    contents.clear();
    std::array<char, 16384> bytes;
    ssize_t count = file < 0 ? -1 : 1;
    while (count > 0 && contents.size() <= MOST_TEXT_BYTES) {
        do {
            count = ::read(file, bytes.data(), bytes.size());
        } while (count < 0 && errno == EINTR);
        contents.append(bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    if (count < 0) {
        fault = describe_system_fault(name);
    } else if (count > 0) {
        fault = name + ": is larger than 64 MiB, which no file of texts is";
    }
    return count == 0;
}

/** Gives the new file the owner, as far as the user may, and the permissions of the old one. */
bool copy_permissions(const std::string& from, int to) {
    struct stat status;
    if (stat(from.c_str(), &status) != 0) {
        return errno == ENOENT;
    }
    const bool is_owner_kept = fchown(to, status.st_uid, status.st_gid) == 0;
    return fchmod(to, status.st_mode & (is_owner_kept ? 07777 : 0777)) == 0;
}

/**
 * A new file beside its target, gone with the object unless it took the target's place; so are the folders
 * that were made for it.
 */
class pending_file {
public:
    pending_file(std::string target, bool makes_folder)
        : target_(std::move(target)) {
        if (makes_folder) {
            make_folder(fs::path(target_).parent_path());
        }
    }
    pending_file(pending_file&& other) noexcept
        : target_(std::move(other.target_))
        , made_folders_(std::move(other.made_folders_))
        , folder_fault_(std::move(other.folder_fault_))
        , is_pending_(other.is_pending_) {
        other.made_folders_.clear();
        other.is_pending_ = false;
    }
    pending_file(const pending_file&) = delete;
    pending_file& operator=(const pending_file&) = delete;
    ~pending_file() {
        if (is_pending_) {
            ::unlink(name().c_str());
        }
        for (auto folder = made_folders_.rbegin(); folder != made_folders_.rend(); ++folder) {
            ::rmdir(folder->c_str()); // stays while it holds a file
        }
    }

    const std::string& target() const { return target_; }

    bool write(const std::string& contents, std::string& fault) {
        if (!folder_fault_.empty()) {
            fault = folder_fault_;
            return false;
        }
        ::unlink(name().c_str()); // of a process that was ended
        const file_descriptor file(
            open(name().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, NEW_FILE_MODE));
        is_pending_ = file.get() >= 0;
        if (file.get() < 0 || !write_bytes(file.get(), contents) || !copy_permissions(target_, file.get())) {
            fault = describe_system_fault(name()) +
                    (is_pending_ ? "" : "; remove it, or make its folder writable");
            return false;
        }
        return true;
    }

    bool move_into_place(std::string& fault) {
        if (std::rename(name().c_str(), target_.c_str()) != 0) {
            fault = describe_system_fault(target_);
            return false;
        }
        is_pending_ = false;
        return true;
    }

private:
    void make_folder(const fs::path& folder) {
        std::error_code error;
        if (folder.has_relative_path() && !fs::exists(folder, error)) {
            make_folder(folder.parent_path());
            if (::mkdir(folder.c_str(), NEW_FOLDER_MODE) == 0) {
                made_folders_.push_back(folder.string());
            } else if (errno != EEXIST && folder_fault_.empty()) {
                folder_fault_ = describe_system_fault(folder.string()) + "; make the folder";
            }
        }
    }

    std::string name() const { return target_ + ".new"; }

    std::string target_;
    std::vector<std::string> made_folders_; ///< from the outermost on
    std::string folder_fault_;              ///< why one of them cannot be made
    bool is_pending_ = false;
};

/** Finds the file behind links, which may be written, and holds what it is said to hold. */
bool find_target(const std::string& path, const std::string& contents, bool is_new, std::string& target,
                 std::string& fault) {
    std::error_code error;
    target = fs::weakly_canonical(path, error).string();
    if (error) {
        fault = path + ": " + error.message();
        return false;
    }
    if (is_new) {
        if (fs::exists(target, error)) {
            fault = path + ": has appeared meanwhile; try again";
        }
        return fault.empty();
    }
    if (access(target.c_str(), W_OK) != 0) {
        fault = describe_system_fault(path);
        return false;
    }
    std::string present;
    if (!read_whole_file(target, present, fault)) {
        return false;
    }
    if (present != contents) {
        fault = path + ": has been changed meanwhile; try again";
    }
    return fault.empty();
}

} // namespace

void file_replacement::add(const std::string& path, std::string old_contents, std::string new_contents,
                           bool is_new) {
    if (is_new || old_contents != new_contents) {
        files_.push_back({path, std::move(old_contents), std::move(new_contents), is_new});
    }
}

void file_replacement::write_diff(std::ostream& output) const {
    for (const entry& file : files_) {
        write_unified_diff(file.path, file.old_contents, file.new_contents, output);
    }
}

bool file_replacement::commit(std::string& fault) const {
    fault.clear();
    std::vector<pending_file> pending;
    for (const entry& file : files_) {
        std::string target;
        if (!find_target(file.path, file.old_contents, file.is_new, target, fault)) {
            fault += "\nnothing was changed";
            return false;
        }
        pending.emplace_back(target, file.is_new);
        if (!pending.back().write(file.new_contents, fault)) {
            fault += "\nnothing was changed";
            return false;
        }
    }
    std::string done;
    for (pending_file& file : pending) {
        if (!file.move_into_place(fault)) {
            fault += done.empty() ? "\nnothing was changed" : "\nchanged before that:" + done;
            return false;
        }
        done += ' ' + file.target();
    }
    return true;
}

bool read_whole_file(const std::string& path, std::string& contents, std::string& fault) {
    const file_descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    return read_all(file.get(), path, contents, fault);
}

bool read_standard_input(std::string& contents, std::string& fault) {
    return read_all(STDIN_FILENO, "standard input", contents, fault);
}

} // namespace velarion
