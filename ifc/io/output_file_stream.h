#pragma once

#include "ifc/io/output_stream.h"
#include "platform/files.h"

namespace FileStream {

/// Writes a plain file.
///
/// The bytes kept back have to be something before the first flush: blanks and a line feed.
/// Kept: so a plain file begins with a blank line, unless the writer steps back over it.
class OutpoutFileStream final : public OutpoutStream {  // sic
public:
    /// Creates or empties the file; trouble is reported and leaves the stream closed.
    OutpoutFileStream(std::u16string path, ErrorCallback errors, std::size_t capacityBytes,
                      std::size_t keepBackBytes);

    /// Opens the file again behind its last byte, after `close`. Trouble is reported and leaves the
    /// stream closed.
    void reopen();

    /// Gives up the blank line at the begin of a file to which nothing was written yet: it starts
    /// with what comes next, and closing it writes that, however short.
    void skipPreset();

    void writeRaw(const char* bytes, std::size_t count) override;
    /// Writes nothing when the position never passed the bytes kept back.
    void close() override;
    bool isOpen() const override;
    bool isEof() const override;
    /// Throws std::runtime_error, and moves nothing, when that would lead below 0.
    std::int32_t movePointer(std::int32_t delta) override;
    /// A failed write closes the stream and throws std::runtime_error.
    void flushIfFull() override;
    ~OutpoutFileStream() override;

private:
    void presetAndOpen();
    bool writeOut(std::string_view bytes);
    void failWriting();

    platform::FileHandle file_;
    bool headIsContent_ =
        false;  // the first keepBack_ bytes of the buffer are no longer the preset ones
};

}  // namespace FileStream
