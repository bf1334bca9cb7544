#include "ifc/io/zip_files.h"

#include <minizip/ioapi.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "platform/files.h"

namespace FileStream {
namespace {

std::FILE* fileOf(voidpf stream) { return static_cast<std::FILE*>(stream); }

voidpf ZCALLBACK openArchive(voidpf, const void* path, int mode) {
    const auto* const name = static_cast<const char16_t*>(path);
    if ((mode & ZLIB_FILEFUNC_MODE_READWRITEFILTER) == ZLIB_FILEFUNC_MODE_READ)
        return platform::openFile(name, "rb");
    return platform::openFile(name, (mode & ZLIB_FILEFUNC_MODE_CREATE) != 0 ? "wb" : "r+b");
}

/// Behind the end of the file come zeros: of an entry whose length the zip library does not know it
/// asks for whole blocks, and takes a shorter one for a fault.
uLong ZCALLBACK readArchive(voidpf, voidpf stream, void* bytes, uLong count) {
    const std::size_t read = std::fread(bytes, 1, count, fileOf(stream));
    if (std::ferror(fileOf(stream)) != 0)
        return static_cast<uLong>(read);
    std::memset(static_cast<char*>(bytes) + read, 0, count - read);
    return count;
}

uLong ZCALLBACK writeArchive(voidpf, voidpf stream, const void* bytes, uLong count) {
    return static_cast<uLong>(std::fwrite(bytes, 1, count, fileOf(stream)));
}

ZPOS64_T ZCALLBACK tellArchive(voidpf, voidpf stream) {
    return static_cast<ZPOS64_T>(platform::tellFile(fileOf(stream)));
}

long ZCALLBACK seekArchive(voidpf, voidpf stream, ZPOS64_T offset, int origin) {
    const int from = origin == ZLIB_FILEFUNC_SEEK_CUR   ? SEEK_CUR
                     : origin == ZLIB_FILEFUNC_SEEK_END ? SEEK_END
                                                        : SEEK_SET;
    return platform::seekFile(fileOf(stream), static_cast<std::int64_t>(offset), from);
}

int ZCALLBACK closeArchive(voidpf, voidpf stream) { return std::fclose(fileOf(stream)); }

int ZCALLBACK archiveError(voidpf, voidpf stream) { return std::ferror(fileOf(stream)); }

}  // namespace

zlib_filefunc64_def zipFileFunctions() {
    return {.zopen64_file = openArchive,
            .zread_file = readArchive,
            .zwrite_file = writeArchive,
            .ztell64_file = tellArchive,
            .zseek64_file = seekArchive,
            .zclose_file = closeArchive,
            .zerror_file = archiveError,
            .opaque = nullptr};
}

}  // namespace FileStream
