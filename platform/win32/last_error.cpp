#include "platform/win32/last_error.h"

#include <windows.h>

#include <cerrno>

namespace platform {
namespace {

struct Failure {
    int error = 0;  // what errno was given
    DWORD code = ERROR_SUCCESS;
};
thread_local Failure lastFailure;

int errnoOf(DWORD code) {
    switch (code) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME: return ENOENT;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_USER_MAPPED_FILE: return EBUSY;
        case ERROR_ACCESS_DENIED: return EACCES;
        case ERROR_WRITE_PROTECT: return EROFS;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS: return EEXIST;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL: return ENOSPC;
        case ERROR_TOO_MANY_OPEN_FILES: return EMFILE;
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY: return ENOMEM;
        case ERROR_FILENAME_EXCED_RANGE: return ENAMETOOLONG;
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME: return EINVAL;
        case ERROR_DIRECTORY: return ENOTDIR;
        default: return EIO;
    }
}

}  // namespace

bool failWithErrno() {
    lastFailure.code = GetLastError();
    errno = lastFailure.error = errnoOf(lastFailure.code);
    return false;
}

unsigned long codeOfErrno() {
    if (errno == lastFailure.error && lastFailure.code != ERROR_SUCCESS)
        return lastFailure.code;
    switch (errno) {  // what stdio fails with
        case EACCES: return ERROR_ACCESS_DENIED;
        case ENOENT: return ERROR_PATH_NOT_FOUND;
        case ENOSPC: return ERROR_DISK_FULL;
        default: return ERROR_WRITE_FAULT;
    }
}

}  // namespace platform
