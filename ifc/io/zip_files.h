#pragma once

#include <string>

struct zlib_filefunc64_def_s;

namespace FileStream {

/// The functions through which the zip library opens, reads and writes archives: platform/files.h,
/// with the archive's path as zero-terminated UTF-16. To be given to unzOpen2_64 and zipOpen2_64
/// with `archiveName(path)`.
zlib_filefunc64_def_s zipFileFunctions();

/// `path` as the functions expect it; valid as long as `path`.
inline const void* archiveName(const std::u16string& path) { return path.c_str(); }

}  // namespace FileStream
