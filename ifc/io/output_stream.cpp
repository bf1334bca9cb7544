#include "ifc/io/output_stream.h"

#include <new>
#include <stdexcept>
#include <utility>

#include "ifc/io/io_texts.h"

namespace FileStream {

OutpoutStream::OutpoutStream(std::u16string path, ErrorCallback errors, std::size_t capacityBytes,
                             std::size_t keepBackBytes)
    : capacity_(std::max<std::size_t>(capacityBytes, 1)),
      keepBack_(keepBackBytes),
      path_(std::move(path)),
      errors_(std::move(errors)) {}

OutpoutStream::~OutpoutStream() = default;

void OutpoutStream::write(std::string_view text) { append(text); }

void OutpoutStream::write(const char16_t* text) { write(std::u16string_view(text)); }

void OutpoutStream::write(const char* text) { append(text); }

void OutpoutStream::write(std::u16string_view text) {
    if (!open_ && !text.empty()) {
        ++failureCount_;
        return;
    }
    while (!text.empty()) {
        const std::u16string_view run = text.substr(0, kMaxReserveBytes);
        std::transform(run.begin(), run.end(), reserve(run.size()),
                       [](char16_t unit) { return static_cast<char>(unit & 0xFF); });
        commit(run.size());
        text.remove_prefix(run.size());
    }
}

void OutpoutStream::noteError() {
    if (error_.trouble == platform::FileTrouble::None)
        error_ = platform::lastFileError();
}

bool OutpoutStream::allocateBuffer() {
    if (!buffer_)
        buffer_.reset(new (std::nothrow) char[capacity_ + keepBack_ + kMaxReserveBytes]);
    if (!buffer_)
        report(errors_, "", texts::kUnableToAllocate);
    return buffer_ != nullptr;
}

void OutpoutStream::openAt(std::size_t position) {
    open_ = true;
    position_ = position;
    limit_ = capacity_ + keepBack_;
}

void OutpoutStream::shutAt(std::size_t position) {
    open_ = false;
    position_ = limit_ = position;
}

void OutpoutStream::moveBy(std::int32_t delta) {
    if (!open_)
        return;
    if (delta < 0) {
        position_ -= std::min(position_, static_cast<std::size_t>(-std::int64_t{delta}));
    } else {
        position_ += std::min(limit_ - position_, static_cast<std::size_t>(delta));
        flushIfFull();
    }
}

void OutpoutStream::keepTail() {
    std::copy(buffer_.get() + (position_ - keepBack_), buffer_.get() + position_, buffer_.get());
    position_ = keepBack_;
}

void OutpoutStream::appendInPieces(std::string_view bytes) {
    if (!open_ && !bytes.empty()) {
        ++failureCount_;
        return;
    }
    while (!bytes.empty()) {
        const std::string_view run = bytes.substr(0, limit_ - position_);
        std::copy(run.begin(), run.end(), buffer_.get() + position_);
        position_ += run.size();
        flushIfFull();
        bytes.remove_prefix(run.size());
    }
}

void OutpoutStream::commitAndFlush(std::size_t count) {
    if (!open_) {
        ++failureCount_;
        return;
    }
    position_ += count;
    flushIfFull();
}

void OutpoutStream::throwWithoutBuffer() { throw std::runtime_error(texts::kUnableToWrite); }

}  // namespace FileStream
