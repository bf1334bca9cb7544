#include "ifc/io/output_zip_stream.h"

#include <minizip/zip.h>
#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <string>
#include <utility>

#include "ifc/io/io_texts.h"
#include "ifc/io/paths.h"
#include "ifc/io/zip_files.h"
#include "platform/local_time.h"
#include "platform/text.h"

namespace FileStream {
namespace {

constexpr uLong kNameIsUtf8 = 1 << 11;  // of an entry's general purpose bits
constexpr int kDefaultMemoryLevel = 8;  // zlib's own, which its header does not name
constexpr int kZip64 = 1;               // the size is not known beforehand, it may pass 4 GB

zip_fileinfo timeStamp(const std::tm& time) {
    using Part = decltype(tm_zip::tm_sec);  // signed or not, by the library's version
    zip_fileinfo info = {};
    info.tmz_date.tm_sec = static_cast<Part>(time.tm_sec);
    info.tmz_date.tm_min = static_cast<Part>(time.tm_min);
    info.tmz_date.tm_hour = static_cast<Part>(time.tm_hour);
    info.tmz_date.tm_mday = static_cast<Part>(time.tm_mday);
    info.tmz_date.tm_mon = static_cast<Part>(time.tm_mon);
    info.tmz_date.tm_year = static_cast<Part>(time.tm_year + 1900);
    return info;
}

bool openEntry(zipFile archive, const std::string& name) {
    const zip_fileinfo info = timeStamp(platform::localTime());
    const bool ascii =
        std::all_of(name.begin(), name.end(), [](char c) { return (c & 0x80) == 0; });
    return zipOpenNewFileInZip4_64(archive, name.c_str(), &info, nullptr, 0, nullptr, 0, nullptr,
                                   Z_DEFLATED, Z_DEFAULT_COMPRESSION, 0, -MAX_WBITS,
                                   kDefaultMemoryLevel, Z_DEFAULT_STRATEGY, nullptr, 0, 0,
                                   ascii ? 0 : kNameIsUtf8, kZip64) == ZIP_OK;
}

}  // namespace

OutputZipFileStream::OutputZipFileStream(std::u16string path, ErrorCallback errors,
                                         std::u16string_view entryName)
    : OutpoutStream(std::move(path), std::move(errors), kCapacityBytes, kKeepBackBytes) {
    if (allocateBuffer() && openArchive(entryName))
        openAt(0);
}

bool OutputZipFileStream::openArchive(std::u16string_view entryName) {
    zlib_filefunc64_def functions = zipFileFunctions();
    archive_ = zipOpen2_64(archiveName(path_), APPEND_STATUS_CREATE, nullptr, &functions);
    if (!archive_) {
        noteError();
        report(errors_, "", texts::kCouldNotCreateZip);
        return false;
    }
    const std::u16string name = entryName.empty()
                                    ? baseNameOf(path_) + std::u16string(texts::kIfcExtension)
                                    : std::u16string(entryName);
    entryOpen_ = openEntry(archive_, platform::toUtf8(name));
    if (!entryOpen_) {
        report(errors_, "", texts::kCouldNotOpenFileInZip);
        zipClose(std::exchange(archive_, nullptr), nullptr);
    }
    return entryOpen_;
}

void OutputZipFileStream::writeRaw(const char* bytes, std::size_t count) {
    if (open_)
        writeOut({bytes, count});
    else
        failWriting();
}

void OutputZipFileStream::close() {
    if (!open_)
        return;
    writeOut(buffered());
    shutAt(0);
    entryOpen_ = false;
    errno = 0;  // which the zip library leaves alone
    const int entryCode = zipCloseFileInZip(archive_);
    const int archiveCode = zipClose(std::exchange(archive_, nullptr), nullptr);
    if (entryCode != ZIP_OK || archiveCode != ZIP_OK)
        failWriting();
}

bool OutputZipFileStream::isOpen() const { return open_; }

bool OutputZipFileStream::isEof() const {
    return !archive_ || !entryOpen_ || bytesTaken_ == bytesPassed_;
}

std::int32_t OutputZipFileStream::movePointer(std::int32_t delta) {
    moveBy(delta);
    return delta;
}

void OutputZipFileStream::flushIfFull() {
    if (!open_ || !isFull())
        return;
    writeOut(flushable());
    keepTail();
}

OutputZipFileStream::~OutputZipFileStream() {
    try {
        OutputZipFileStream::close();
    } catch (const std::exception&) {
        // The report of a failed write found no memory, and a destructor has nobody to tell.
    }
}

void OutputZipFileStream::writeOut(std::string_view bytes) {
    bytesPassed_ += bytes.size();
    errno = 0;  // which the zip library leaves alone
    while (!bytes.empty()) {
        // The zip library takes 32-bit lengths.
        const std::string_view run = bytes.substr(0, kCapacityBytes);
        if (zipWriteInFileInZip(archive_, run.data(), static_cast<unsigned>(run.size())) != ZIP_OK)
            return failWriting();
        bytesTaken_ += run.size();
        bytes.remove_prefix(run.size());
    }
}

void OutputZipFileStream::failWriting() {
    noteError();
    // A full disk stays full: once said, it need not be said again for every further block.
    if (failureCount_++ == 0)
        report(errors_, "", texts::kCouldNotWriteToZip);
}

}  // namespace FileStream
