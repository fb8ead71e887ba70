#include "catalogue_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstring>

namespace velarion {

bool catalogue_lock::take(const std::string& folder, std::string& fault) {
    folder_.reset(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder_.get() < 0) {
        fault = folder + ": " + std::strerror(errno);
        return false;
    }
    while (flock(folder_.get(), LOCK_EX) != 0 && errno == EINTR) {
    }
    return true;
}

} // namespace velarion
