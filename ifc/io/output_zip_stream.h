#pragma once

#include <cstdint>

#include "ifc/io/output_stream.h"

namespace FileStream {

/// Writes a zip archive that holds one file.
class OutputZipFileStream final : public OutpoutStream {
public:
    static constexpr std::size_t kCapacityBytes = 0xA00000;  // 10 MiB
    static constexpr std::size_t kKeepBackBytes = 10;

    /// Creates or replaces the archive and opens its entry; trouble is reported and leaves the
    /// stream closed. The entry is `entryName`, or else the archive's name with the extension .ifc:
    /// model.ifczip holds model.ifc.
    OutputZipFileStream(std::u16string path, ErrorCallback errors,
                        std::u16string_view entryName = {});

    void writeRaw(const char* bytes, std::size_t count) override;
    void close() override;
    bool isOpen() const override;
    /// True without archive or entry, else whether the entry took all bytes that were written out.
    bool isEof() const override;
    /// Kept: unlike a plain file's, never fails; it moves to the begin of the buffer at most.
    std::int32_t movePointer(std::int32_t delta) override;
    /// A failed write is reported, the first time, and counted; the stream stays open.
    void flushIfFull() override;
    ~OutputZipFileStream() override;

private:
    bool openArchive(std::u16string_view entryName);
    void writeOut(std::string_view bytes);
    void failWriting();

    void* archive_ = nullptr;  // the zip library's zipFile
    bool entryOpen_ = false;
    std::uint64_t bytesPassed_ = 0;  // to the entry, and what it took of them
    std::uint64_t bytesTaken_ = 0;
};

}  // namespace FileStream
