#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

/// Files by UTF-16 path, of any length that the system can have. On POSIX systems the path is taken
/// as `toPathBytes` (platform/text.h) gives it. Where a function fails, errno tells why.
namespace platform {

/// Opens `path` as std::fopen does, with a mode such as "rb". The handle is not inherited by child
/// processes where the system can say so. @return nullptr on failure. The caller closes the file.
std::FILE* openFile(std::u16string_view path, const char* mode);

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
/// Closes its file; for those who need not know whether closing went well.
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

/// fseek and ftell with 64-bit positions. `origin` is SEEK_SET, SEEK_CUR or SEEK_END. @return 0, or
/// the position; else -1.
int seekFile(std::FILE* file, std::int64_t offset, int origin);
std::int64_t tellFile(std::FILE* file);

/// @return whether the file is gone now because of this call.
bool removeFile(std::u16string_view path);

/// Gives the file `from` the name `to` in one step; a file that has that name is replaced (its
/// access rights are kept where the system allows it), and never lost when the call fails. Both are
/// on the same volume. On Windows a write-protected file is not replaced. @return success.
bool renameOver(std::u16string_view from, std::u16string_view to);

/// Whether a file or folder of that name exists.
bool fileExists(std::u16string_view path);

/// Whether its owner protected the file against being written; false when there is none. Renaming
/// over a file may need no right to write it.
bool isWriteProtected(std::u16string_view path);

/// Size in bytes; 0 when there is no such file.
std::uint64_t fileSize(std::u16string_view path);

/// Waits until what was written to the file is on the disk. @return success.
bool flushToDisk(std::u16string_view path);

/// Creates an empty file, in the system's folder for temporary files and readable for this user
/// only, whose name is new and ends in `suffix`. @return its path, or empty on failure. The caller
/// removes it.
std::u16string createTemporaryFile(std::u16string_view suffix);

/// The same in the folder of `target`, with the access rights of any new file: to be filled, and
/// then renamed over `target`.
std::u16string createFileBeside(std::u16string_view target, std::u16string_view suffix);

/// Whether `unit` separates folders in a path: "/", and on Windows "\" and ":" too.
bool isPathSeparator(char16_t unit);

/// The separator to build paths with.
char16_t pathSeparator();

}  // namespace platform
