#include "ifc/io/input_file_stream.h"

#include <cstring>
#include <new>
#include <utility>

#include "ifc/io/io_texts.h"

namespace FileStream {

InputFileStream::InputFileStream(std::u16string path, ErrorCallback errors,
                                 std::size_t bufferSizeBytes)
    : InputStream(std::move(path), std::move(errors), bufferSizeBytes) {
    file_.reset(platform::openFile(path_, "rb"));
    if (!file_)
        return;
    // Not zeroed: a small file touches as many pages as it has.
    block_.reset(new (std::nothrow) char[bufferSize_]);
    if (!block_)
        report(errors_, "", texts::kMemoryAllocationError);
    open_ = true;  // Kept: also without a buffer; such a stream is at its end at once
}

std::size_t InputFileStream::read(char* bytes, std::size_t count) {
    if (open_)
        readBytes(bytes, count);
    else
        std::memset(bytes, 0, count);
    return count;
}

int InputFileStream::peek() {
    if (position_ != fill_)
        return static_cast<signed char>(*windowBegin());
    if (!open_ || endReached_ || !block_)
        return -1;
    // The block stays, so that the statement text is copied no sooner than it must be.
    const int byte = std::getc(file_.get());
    if (byte == EOF) {
        if (std::ferror(file_.get()))
            failReading(texts::kCouldNotReadFile);
        return -1;
    }
    std::ungetc(byte, file_.get());
    return static_cast<signed char>(byte);
}

int InputFileStream::get() { return open_ ? nextByte() : 0; }

std::string InputFileStream::statementText() const { return collectStatement(); }

void InputFileStream::close() {
    if (!open_)
        return;
    markClosed();
    file_.reset();
}

bool InputFileStream::isOpen() const { return open_; }

bool InputFileStream::isEof() const { return position_ == fill_ && endReached_; }

std::int64_t InputFileStream::tell() const {
    return open_ ? static_cast<std::int64_t>(fetched_ - (fill_ - position_)) : -1;
}

std::int32_t InputFileStream::nextEntry() { return -1; }

std::uint64_t InputFileStream::size() const { return platform::fileSize(path_); }

InputFileStream::~InputFileStream() = default;

void InputFileStream::fetchBlock() {
    const std::size_t count = block_ ? std::fread(block_.get(), 1, bufferSize_, file_.get()) : 0;
    if (count < bufferSize_ && std::ferror(file_.get()))
        failReading(texts::kCouldNotReadFile);
    showBlock(block_.get(), count);
}

}  // namespace FileStream
