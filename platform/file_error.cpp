#include "platform/file_error.h"

#include <cerrno>

namespace platform {
namespace {

FileTrouble troubleOf(int error) {
    switch (error) {
        case 0: return FileTrouble::Other;
        case EBUSY:
        case ETXTBSY: return FileTrouble::InUse;
        case EACCES:
        case EPERM:
        case EROFS: return FileTrouble::AccessDenied;
        case ENOENT:
        case ENOTDIR: return FileTrouble::FolderMissing;
        case ENOSPC: return FileTrouble::DiskFull;
        default: break;
    }
#ifdef EDQUOT  // which Windows has for nothing but sockets, if at all
    if (error == EDQUOT)
        return FileTrouble::DiskFull;
#endif
    return FileTrouble::Other;
}

}  // namespace

FileError lastFileError() {
    const FileTrouble trouble = troubleOf(errno);
    return {.trouble = trouble, .systemText = errno != 0 ? systemErrorText() : std::u16string()};
}

const char* textKey(FileTrouble trouble) {
    switch (trouble) {
        case FileTrouble::None: break;
        case FileTrouble::InUse: return "file_in_use";
        case FileTrouble::AccessDenied: return "file_access_denied";
        case FileTrouble::FolderMissing: return "file_folder_missing";
        case FileTrouble::DiskFull: return "file_disk_full";
        case FileTrouble::Other: return "file_other_trouble";
    }
    return "";
}

}  // namespace platform
