#pragma once

#include <string>

namespace platform {

/// Why a file could not be created, opened, renamed or written.
enum class FileTrouble {
    None,
    InUse,          ///< by another program
    AccessDenied,   ///< by rights, or by a medium that takes no changes
    FolderMissing,  ///< the folder that it would be in
    DiskFull,       ///< also: the user's share of the disk is used up
    Other,
};

struct FileError {
    FileTrouble trouble = FileTrouble::None;
    std::u16string systemText;  ///< the system's own words, in its language; may be empty
};

/// What errno tells now: for a path that was to be written, right after the function of this folder
/// or of stdio that failed.
FileError lastFileError();

/// The entry of the language files for it ("file_in_use"); "" for None.
const char* textKey(FileTrouble trouble);

/// The system's words for the error that errno tells; `lastFileError` is what others call.
std::u16string systemErrorText();

}  // namespace platform
