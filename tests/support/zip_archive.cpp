#include "tests/support/zip_archive.h"

#include <minizip/zip.h>
#include <zlib.h>

#include "ifc/io/zip_files.h"

void writeZip(const std::u16string& path, const std::vector<ZipEntry>& entries) {
    zlib_filefunc64_def functions = FileStream::zipFileFunctions();
    zipFile archive =
        zipOpen2_64(FileStream::archiveName(path), APPEND_STATUS_CREATE, nullptr, &functions);
    for (const ZipEntry& entry : entries) {
        const zip_fileinfo info = {};
        zipOpenNewFileInZip64(archive, entry.name.c_str(), &info, nullptr, 0, nullptr, 0, nullptr,
                              entry.stored ? 0 : Z_DEFLATED, Z_BEST_SPEED, 0);
        zipWriteInFileInZip(archive, entry.bytes.data(), static_cast<unsigned>(entry.bytes.size()));
        zipCloseFileInZip(archive);
    }
    zipClose(archive, nullptr);
}
