#include "ifc/io/input_stream.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "ifc/io/paths.h"

namespace FileStream {

InputStream::InputStream(std::u16string path, ErrorCallback errors, std::size_t bufferSizeBytes)
    : extension_(extensionOf(path)),
      path_(std::move(path)),
      errors_(std::move(errors)),
      bufferSize_(std::max<std::size_t>(bufferSizeBytes, 1)) {}

InputStream::~InputStream() = default;

std::uint64_t InputStream::compressedSize() const { return size(); }

bool InputStream::fetch() {
    if (!open_ || endReached_)
        return false;
    dropBlock();
    fetchBlock();
    return fill_ > 0;
}

void InputStream::showBlock(char* block, std::size_t count) {
    buffer_ = block;
    fill_ = count;
    fetched_ += count;
    endReached_ = count < bufferSize_;
}

void InputStream::markClosed() {
    open_ = false;
    fill_ = position_;
}

void InputStream::dropBlock() {
    if (position_ > 0)
        byteBeforeWindow_ = buffer_[position_ - 1];
    const std::size_t consumed = position_ - statementStart_;
    const std::size_t kept = std::min(consumed, kMaxStatementBytes - spill_.size());
    if (kept > 0)
        spill_.append(buffer_ + statementStart_, kept);
    statementTruncated_ = statementTruncated_ || kept < consumed;
    statementStart_ = position_ = fill_ = 0;
}

void InputStream::failReading(std::u16string_view text) {
    if (std::exchange(readFailed_, true))
        return;
    report(errors_, "", std::u16string(text) + path_);
}

int InputStream::nextByte() {
    if (!refill())
        return -1;
    return static_cast<signed char>(buffer_[position_++]);
}

void InputStream::readBytes(char* bytes, std::size_t count) {
    while (count > 0 && refill()) {
        const std::size_t run = std::min(count, fill_ - position_);
        std::memcpy(bytes, windowBegin(), run);
        position_ += run;
        bytes += run;
        count -= run;
    }
    std::memset(bytes, 0xFF, count);  // each byte behind the end reads as -1
}

std::string InputStream::collectStatement() const {
    std::string text = spill_;
    text.append(buffer_ + statementStart_, statementLength() - spill_.size());
    return text;
}

}  // namespace FileStream
