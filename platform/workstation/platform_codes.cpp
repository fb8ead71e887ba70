#include "platform_codes.h"

#include <cerrno>

namespace velarion {

platform_code platform_code_of_errno(int error) {
    switch (error) {
    case ENOENT:
        return PLATFORM_NOT_FOUND;
    case ELOOP:
    case ENOTDIR:
    case ENAMETOOLONG:
        return PLATFORM_NAME_REFUSED;
    case EISDIR:
        return PLATFORM_NOT_A_FILE;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return PLATFORM_NO_SPACE;
    case EACCES:
    case EPERM:
    case EROFS:
        return PLATFORM_ACCESS_DENIED;
    default:
        return PLATFORM_IO_ERROR;
    }
}

} // namespace velarion
