#include "platform/win32/last_error.h"

#include <windows.h>

#include <cerrno>

namespace platform {

bool failWithErrno() {
    switch (GetLastError()) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME: errno = ENOENT; break;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION: errno = EACCES; break;
        case ERROR_WRITE_PROTECT: errno = EROFS; break;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS: errno = EEXIST; break;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL: errno = ENOSPC; break;
        case ERROR_TOO_MANY_OPEN_FILES: errno = EMFILE; break;
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY: errno = ENOMEM; break;
        case ERROR_FILENAME_EXCED_RANGE: errno = ENAMETOOLONG; break;
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME: errno = EINVAL; break;
        case ERROR_DIRECTORY: errno = ENOTDIR; break;
        default: errno = EIO; break;
    }
    return false;
}

}  // namespace platform
