#include "ifc/io/input_zip_stream.h"

#include <minizip/unzip.h>
#include <zlib.h>

#include <algorithm>
#include <limits>
#include <new>
#include <string>
#include <utility>

#include "ifc/io/io_texts.h"
#include "ifc/io/paths.h"
#include "ifc/io/zip_files.h"
#include "platform/text.h"

namespace FileStream {
namespace {

constexpr uLong kEncryptedFlag = 1;  // of an entry's general purpose bits
constexpr uLong kStored = 0;         // compression method

/// The current entry's name as the archive has it; empty when it cannot be read.
std::string currentEntryName(unzFile archive) {
    unz_file_info64 info = {};
    if (unzGetCurrentFileInfo64(archive, &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK)
        return {};
    std::string name(info.size_filename, '\0');
    if (unzGetCurrentFileInfo64(archive, nullptr, name.data(), info.size_filename, nullptr, 0,
                                nullptr, 0) != UNZ_OK)
        return {};
    return name;
}

constexpr std::uint64_t kInExtraField = 0xFFFFFFFF;  // in place of a size

/// The sizes of an entry that keeps them in its extra field with the id 1, each as 8 bytes, least
/// significant first (APPNOTE 4.5.3). The zip library, version 1.1, overlooks them on 64-bit Linux.
void readZip64Sizes(unzFile archive, unz_file_info64& info) {
    std::string extra(info.size_file_extra, '\0');
    if (unzGetCurrentFileInfo64(archive, nullptr, nullptr, 0, extra.data(), info.size_file_extra,
                                nullptr, 0) != UNZ_OK)
        return;
    const auto number = [&](std::size_t at, std::size_t bytes) {
        std::uint64_t value = 0;
        while (bytes-- > 0)
            value = value << 8 | static_cast<unsigned char>(extra[at + bytes]);
        return value;
    };
    for (std::size_t at = 0; at + 4 <= extra.size();) {
        const std::uint64_t id = number(at, 2);
        const std::size_t end = std::min<std::size_t>(at + 4 + number(at + 2, 2), extra.size());
        at += 4;
        if (id == 1) {
            for (ZPOS64_T* size : {&info.uncompressed_size, &info.compressed_size}) {
                if (*size == kInExtraField && at + 8 <= end) {
                    *size = number(at, 8);
                    at += 8;
                }
            }
        }
        at = end;
    }
}

}  // namespace

InputZipFileStream::InputZipFileStream(std::u16string path, ErrorCallback errors,
                                       std::size_t bufferSizeBytes)
    : InputStream(std::move(path), std::move(errors), bufferSizeBytes) {
    bool found = false;
    if (extension_ == texts::kIfcZipExtension) {
        found = openArchive(path_) && goToFirstEntry();
    } else if (extension_ == texts::kAhxExtension) {
        const std::size_t separator = std::min(path_.find(kEntrySeparator), path_.size());
        if (separator < path_.size())
            entryName_ = path_.substr(separator + 1);
        found = openArchive(std::u16string_view(path_).substr(0, separator)) && goToNamedEntry();
    }
    if (!found || !openEntry()) {
        closeArchive();
        return;
    }
    for (auto& block : blocks_) {
        block.reset(new (std::nothrow) char[bufferSize_]);
        if (!block)
            report(errors_, "", texts::kMemoryAllocationError);
    }
    open_ = true;  // Kept: also without buffers; such a stream is at its end at once
}

bool InputZipFileStream::openArchive(std::u16string_view archivePath) {
    zlib_filefunc64_def functions = zipFileFunctions();
    archive_ = unzOpen2_64(archiveName(std::u16string(archivePath)), &functions);
    if (!archive_)
        report(errors_, "", std::u16string(texts::kCouldNotOpenZip) + path_);
    return archive_ != nullptr;
}

bool InputZipFileStream::goToFirstEntry() {
    const bool found = unzGoToFirstFile(archive_) == UNZ_OK;
    if (!found)
        report(errors_, "", texts::kCouldNotGoToFirstFile);
    return found;
}

bool InputZipFileStream::goToNamedEntry() {
    const std::string wanted = platform::toPathBytes(entryName_);
    for (int code = unzGoToFirstFile(archive_); code == UNZ_OK; code = unzGoToNextFile(archive_))
        if (currentEntryName(archive_) == wanted && !wanted.empty())
            return true;
    report(errors_, "", std::u16string(texts::kCouldNotGoToSpecifiedFile) + path_);
    return false;
}

bool InputZipFileStream::openEntry() {
    unz_file_info64 info = {};
    entryOpen_ =
        unzGetCurrentFileInfo64(archive_, &info, nullptr, 0, nullptr, 0, nullptr, 0) == UNZ_OK &&
        // The zip library would open these and give their bytes undeciphered.
        (info.flag & kEncryptedFlag) == 0 &&
        (info.compression_method == kStored || info.compression_method == Z_DEFLATED) &&
        unzOpenCurrentFile(archive_) == UNZ_OK;
    if (!entryOpen_) {
        report(errors_, "", texts::kCouldNotOpenFirstFile);
        return false;
    }
    zip64_ = info.uncompressed_size == kInExtraField || info.compressed_size == kInExtraField;
    if (zip64_)
        readZip64Sizes(archive_, info);
    entrySize_ = info.uncompressed_size;
    entryCompressedSize_ = info.compressed_size;
    expectedCrc_ = static_cast<std::uint32_t>(info.crc);
    crc_ = 0;
    return true;
}

void InputZipFileStream::closeEntry() {
    if (!std::exchange(entryOpen_, false))
        return;
    const bool damaged = unzCloseCurrentFile(archive_) != UNZ_OK || fetched_ != entrySize_ ||
                         (zip64_ && crc_ != expectedCrc_);
    if (damaged && endReached_)
        failReading(texts::kCouldNotReadZip);
}

void InputZipFileStream::closeArchive() {
    closeEntry();
    if (archive_)
        unzClose(std::exchange(archive_, nullptr));
}

std::size_t InputZipFileStream::read(char* bytes, std::size_t count) {
    if (!open_)
        return 0;
    readBytes(bytes, count);
    return count;
}

int InputZipFileStream::peek() {
    if (!open_)
        return 0;
    return refill() ? static_cast<signed char>(*windowBegin()) : -1;
}

int InputZipFileStream::get() { return open_ ? nextByte() : 0; }

std::string InputZipFileStream::statementText() const { return collectStatement(); }

void InputZipFileStream::close() {
    markClosed();
    closeArchive();
}

bool InputZipFileStream::isOpen() const { return open_; }

bool InputZipFileStream::isEof() const { return position_ == fill_ && endReached_; }

std::int64_t InputZipFileStream::tell() const {
    return open_ ? static_cast<std::int64_t>(fetched_ - (fill_ - position_)) : -1;
}

std::int32_t InputZipFileStream::nextEntry() {
    if (!open_)
        return UNZ_PARAMERROR;
    dropBlock();
    closeEntry();
    fetched_ = 0;
    endReached_ = false;
    const int code = unzGoToNextFile(archive_);
    // Behind the last entry, and in an entry that cannot be read, there is nothing to read.
    endReached_ = code != UNZ_OK || !openEntry();
    return code;
}

std::uint64_t InputZipFileStream::size() const { return open_ ? entrySize_ : 0; }

std::uint64_t InputZipFileStream::compressedSize() const {
    return open_ ? entryCompressedSize_ : 0;
}

InputZipFileStream::~InputZipFileStream() { closeArchive(); }

void InputZipFileStream::fetchBlock() {
    blockIndex_ ^= 1;
    char* const block = blocks_[blockIndex_].get();
    // The zip library takes and returns lengths as int.
    const std::size_t largest = std::numeric_limits<int>::max() - 1;
    std::uint64_t wanted = bufferSize_;
    if (zip64_)  // whose end the zip library does not know
        wanted = std::min(wanted, entrySize_ - std::min(fetched_, entrySize_));
    int count = 0;
    if (block && bufferSize_ <= largest)
        count = unzReadCurrentFile(archive_, block, static_cast<unsigned>(wanted));
    if (count < 0)
        failReading(texts::kCouldNotReadZip);
    else if (zip64_)
        crc_ = static_cast<std::uint32_t>(
            crc32(crc_, reinterpret_cast<const Bytef*>(block), static_cast<uInt>(count)));
    showBlock(block, static_cast<std::size_t>(std::max(count, 0)));
    // The end is where the CRC can be checked: whoever reads on must learn that the bytes were
    // wrong.
    if (endReached_)
        closeEntry();
}

}  // namespace FileStream
