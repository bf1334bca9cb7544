#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "ifc/io/error_callback.h"
#include "platform/file_error.h"

namespace FileStream {

/// A byte sink for the writer, the log and the parser's temporary copy: a plain file or a one-entry
/// zip archive, written through a large buffer.
///
/// Whatever the buffer writes out, the last `keepBack()` bytes stay in it, so that `movePointer`
/// can take back up to that many bytes at any time after them was written: this is how a list's
/// last comma goes away.
///
/// `append`, `put` and `reserve`/`commit` do what the `write` operations do, without a virtual
/// call. Bytes for a stream that is not open are dropped and counted as a failure.
class OutpoutStream {  // sic
public:
    /// Longest run of bytes that `reserve` can give.
    static constexpr std::size_t kMaxReserveBytes = 0x10000;  // 64 KiB

    OutpoutStream(const OutpoutStream&) = delete;
    OutpoutStream& operator=(const OutpoutStream&) = delete;

    // Slot order is fixed.

    /// Writes at once, past the buffer: the bytes come before those that the buffer still holds.
    virtual void writeRaw(const char* bytes, std::size_t count) = 0;
    /// Writes what the buffer holds and closes the file. What fails is reported and counted, never
    /// thrown.
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
    virtual bool isEof() const = 0;
    /// Moves the place of the next byte by `delta`, usually back. @return delta.
    virtual std::int32_t movePointer(std::int32_t delta) = 0;
    virtual void write(std::string_view text);
    /// Appends the low byte of each unit, up to the terminating zero; so does the u16string_view
    /// form.
    virtual void write(const char16_t* text);
    virtual void write(const char* text);
    virtual void write(std::u16string_view text);
    /// Writes the buffer out, but for the bytes kept back, when it is full.
    virtual void flushIfFull() = 0;
    virtual ~OutpoutStream();

    /// Appends `bytes` as if each were written for itself. Throws std::runtime_error where
    /// `flushIfFull` does.
    void append(std::string_view bytes) {
        if (bytes.size() < limit_ - position_)
            [[likely]] {  // cannot wrap: position_ <= limit_ always holds
            std::copy(bytes.begin(), bytes.end(), buffer_.get() + position_);
            position_ += bytes.size();
        } else {
            appendInPieces(bytes);
        }
    }

    void put(char byte) { append(std::string_view(&byte, 1)); }

    /// `count` (at most kMaxReserveBytes) writable bytes at the place of the next byte, valid until
    /// the next call of any operation; `commit` tells how many of them were filled. Throws
    /// std::runtime_error when the stream never was open.
    char* reserve([[maybe_unused]] std::size_t count) {
        assert(count <= kMaxReserveBytes);
        if (!buffer_) [[unlikely]]
            throwWithoutBuffer();
        return buffer_.get() +
               position_;  // the slack behind the buffer makes room, however full it is
    }

    void commit(std::size_t count) {
        if (count < limit_ - position_) [[likely]]
            position_ += count;
        else
            commitAndFlush(count);
    }

    const std::u16string& path() const { return path_; }
    std::size_t keepBack() const { return keepBack_; }
    /// Number of failed writes so far; when it is not 0 the file is not what was written and must
    /// not be used.
    std::int32_t failureCount() const { return failureCount_; }
    /// Why the file could not be had, or the first write failed.
    const platform::FileError& error() const { return error_; }

protected:
    OutpoutStream(std::u16string path, ErrorCallback errors, std::size_t capacityBytes,
                  std::size_t keepBackBytes);

    /// Remembers what errno tells, the first time.
    void noteError();
    /// Allocates the buffer, if there is none yet; reports when there is no memory for it.
    bool allocateBuffer();
    /// Opens the way for bytes, from `position` on, or shuts it.
    void openAt(std::size_t position);
    void shutAt(std::size_t position);
    /// Moves position_ as far as the buffer allows.
    void moveBy(std::int32_t delta);
    bool isFull() const { return position_ >= capacity_ + keepBack_; }
    /// What the buffer holds, and what of it a flush writes out: all but the bytes kept back.
    std::string_view buffered() const { return {buffer_.get(), position_}; }
    std::string_view flushable() const { return {buffer_.get(), position_ - keepBack_}; }
    /// Moves the bytes kept back to the front after a flush.
    void keepTail();

    std::unique_ptr<char[]> buffer_;  // capacity_ + keepBack_ + kMaxReserveBytes bytes
    std::size_t capacity_;
    std::size_t keepBack_;
    std::size_t position_ = 0;  // never above limit_
    std::size_t limit_ =
        0;  // when open, capacity_ + keepBack_: a flush is due there; else equal to position_
    std::int32_t failureCount_ = 0;
    bool open_ = false;
    std::u16string path_;
    ErrorCallback errors_;
    platform::FileError error_;

private:
    void appendInPieces(std::string_view bytes);
    void commitAndFlush(std::size_t count);
    [[noreturn]] static void throwWithoutBuffer();
};

}  // namespace FileStream
