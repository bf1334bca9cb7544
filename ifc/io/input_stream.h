#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "ifc/io/error_callback.h"

namespace FileStream {

/// A byte source for the tokenizer: a plain file or an entry of an archive, read block by block.
///
/// There are two ways to read, which may be mixed freely. `peek` and `get` give one byte per
/// virtual call. The window is the fast way: the unread bytes of the current block lie between
/// `windowBegin()` and `windowEnd()`; scan them, tell with `advanceTo` how far they are consumed,
/// and ask `refill` for the next block when none is left:
///
///     while (in.windowBegin() != in.windowEnd() || in.refill())
///         in.advanceTo(scan(in.windowBegin(), in.windowEnd()));
///
/// Pointers into the window are valid until the next refill, get, read, nextEntry or close.
///
/// Trouble is reported through the `ErrorCallback` given at construction; only std::bad_alloc is
/// ever thrown (by whatever extends or copies the statement text).
class InputStream {
public:
    /// What is remembered of one statement at most; the text of a longer one is cut there, so that
    /// a file without any ";" needs no more memory than this and the read buffer.
    static constexpr std::size_t kMaxStatementBytes = std::size_t{64} << 20;  // 64 MiB

    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    // Slot order is fixed.

    /// Stores the results of `count` calls of `get` (so 0xFF for each byte behind the end). @return
    /// count.
    virtual std::size_t read(char* bytes, std::size_t count) = 0;
    /// The next byte, sign-extended, without consuming it; -1 at the end.
    /// Kept: a byte 0xFF gives -1 too and so ends the input for everyone who asks byte by byte.
    virtual int peek() = 0;
    /// The next byte, sign-extended and consumed; -1 at the end (and for a byte 0xFF), 0 when not
    /// open.
    virtual int get() = 0;
    /// A copy of the raw bytes consumed since `clearStatement`, see `kMaxStatementBytes`.
    virtual std::string statementText() const = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
    /// Whether the last byte was consumed and the source is known to have no more.
    virtual bool isEof() const = 0;
    /// Number of bytes consumed of the file or entry; -1 when not open.
    virtual std::int64_t tell() const = 0;
    /// Goes to the archive's next entry and reads from its begin. @return 0, or the zip library's
    /// code; -1 for plain files.
    virtual std::int32_t nextEntry() = 0;
    /// Bytes of the file, or of the entry uncompressed as the archive's directory tells; 0 when
    /// unknown.
    virtual std::uint64_t size() const = 0;
    virtual ~InputStream();

    /// Bytes that the source takes on disk: for an archive entry its compressed size, else
    /// `size()`.
    virtual std::uint64_t compressedSize() const;

    const char* windowBegin() const { return buffer_ + position_; }
    const char* windowEnd() const { return buffer_ + fill_; }

    /// Consumes the window up to `next`, which lies in [windowBegin(), windowEnd()].
    void advanceTo(const char* next) {
        assert(next >= windowBegin() && next <= windowEnd());
        position_ = static_cast<std::size_t>(next - buffer_);
    }

    /// Makes a new window when the old one is used up; does nothing while unread bytes are left.
    /// @return whether there are unread bytes now; false at the end, after a read error and when
    /// not open.
    bool refill() { return position_ != fill_ || fetch(); }

    /// Whether the last consumed byte was ";", in whatever way it was consumed (nothing needs to be
    /// marked).
    bool statementEnded() const {
        return (position_ > 0 ? buffer_[position_ - 1] : byteBeforeWindow_) == ';';
    }

    /// Forgets the statement text: it starts anew with the next byte.
    void clearStatement() {
        statementStart_ = position_;
        spill_.clear();
        statementTruncated_ = false;
    }

    /// Length of the statement text in bytes, without copying it.
    std::size_t statementLength() const {
        return spill_.size() + (statementTruncated_ ? 0 : position_ - statementStart_);
    }

    /// Whether the statement was longer than what is remembered of it.
    bool statementTruncated() const { return statementTruncated_; }

    /// Whether the data could not be read to its end (a disk fault, a damaged archive). It was
    /// reported once.
    bool readFailed() const { return readFailed_; }

    /// Lower-cased extension with its dot: ".ifc", ".ifczip", ".ahx".
    const std::u16string& extension() const { return extension_; }
    const std::u16string& path() const { return path_; }
    /// Name of the archive entry when it was asked for by name ("archive|entry"), else empty.
    const std::u16string& entryName() const { return entryName_; }

protected:
    InputStream(std::u16string path, ErrorCallback errors, std::size_t bufferSizeBytes);

    /// Reads the next bufferSize_ bytes of the source, fewer only at its end, and hands them to
    /// `showBlock`; called when the window is empty and there may be more. Reports trouble by
    /// `failReading`.
    virtual void fetchBlock() = 0;

    /// Makes `count` bytes at `block` the window.
    void showBlock(char* block, std::size_t count);
    /// Empties the window and lets its memory go; what was consumed of it stays in the statement
    /// text.
    void dropBlock();
    /// Shuts the stream and leaves nothing to read.
    void markClosed();
    /// Reports `text` + path, once per stream, and remembers that reading failed.
    void failReading(std::u16string_view text);
    /// `get` and `read` of an open stream.
    int nextByte();
    void readBytes(char* bytes, std::size_t count);
    /// `statementText` of every stream.
    std::string collectStatement() const;

    // Text of the statement so far: spill_, then the bytes of the buffer in [statementStart_,
    // position_).
    std::string spill_;
    std::size_t statementStart_ = 0;
    bool statementTruncated_ = false;
    char byteBeforeWindow_ = 0;  // the byte consumed last when position_ is 0
    bool endReached_ = false;    // a block came back shorter than the buffer
    bool readFailed_ = false;
    std::u16string extension_;
    std::u16string path_;
    std::u16string entryName_;
    ErrorCallback errors_;
    char* buffer_ = nullptr;  // the current block; its memory belongs to the derived class
    std::size_t bufferSize_;  // at least 1
    std::size_t position_ = 0;
    std::size_t fill_ = 0;
    std::uint64_t fetched_ = 0;  // bytes taken from the file or entry so far
    bool open_ = false;

private:
    bool fetch();
};

}  // namespace FileStream
