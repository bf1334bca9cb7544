#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

#include "ifc/io/input_stream.h"

namespace FileStream {

/// Reads one entry of a zip archive, uncompressed: of a ".ifczip" the first, whatever its name; of
/// a path "project.ahx|folder/Model.ifc" the entry that is named behind the "|" (its bytes compared
/// as UTF-8).
class InputZipFileStream final : public InputStream {
public:
    /// Opens archive and entry; trouble is reported and leaves the stream closed. `errors` may be
    /// empty. Entries that are encrypted, or compressed in another way than deflate, cannot be
    /// opened. Versions of the zip library that do not know entries of 4 GB and more (1.1 on 64-bit
    /// Linux) end there; like every entry that is not read whole, that is reported.
    InputZipFileStream(std::u16string path, ErrorCallback errors, std::size_t bufferSizeBytes);

    /// 0 when not open.
    std::size_t read(char* bytes, std::size_t count) override;
    /// 0 when not open.
    int peek() override;
    int get() override;
    std::string statementText() const override;
    void close() override;
    bool isOpen() const override;
    bool isEof() const override;
    std::int64_t tell() const override;
    std::int32_t nextEntry() override;
    std::uint64_t size() const override;
    ~InputZipFileStream() override;
    std::uint64_t compressedSize() const override;

private:
    void fetchBlock() override;

    bool openArchive(std::u16string_view archivePath);
    bool goToFirstEntry();
    bool goToNamedEntry();
    bool openEntry();
    /// Closes the entry; when all of it was read, checks length and CRC.
    void closeEntry();
    void closeArchive();

    void* archive_ = nullptr;  // the zip library's unzFile
    bool entryOpen_ = false;
    std::uint64_t entrySize_ = 0;
    std::uint64_t entryCompressedSize_ = 0;
    bool zip64_ = false;  // the sizes stand where the zip library did not find them, so it cannot
                          // check the CRC
    std::uint32_t expectedCrc_ = 0;
    std::uint32_t crc_ = 0;         // of what was read, for zip64_
    std::uint32_t blockIndex_ = 1;  // of the current block; the first refill switches to block 0
    std::array<std::unique_ptr<char[]>, 2> blocks_;  // used alternately
};

}  // namespace FileStream
