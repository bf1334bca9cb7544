#include "ifc/io/output_file_stream.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <string>
#include <utility>

#include "ifc/io/io_texts.h"
#include "platform/debug_output.h"

namespace FileStream {

OutpoutFileStream::OutpoutFileStream(std::u16string path, ErrorCallback errors,
                                     std::size_t capacityBytes, std::size_t keepBackBytes)
    : OutpoutStream(std::move(path), std::move(errors), capacityBytes, keepBackBytes) {
    if (!allocateBuffer())
        return;
    file_.reset(platform::openFile(path_, "wb"));
    if (file_) {
        presetAndOpen();
        return;
    }
    noteError();
    report(errors_, texts::kCouldNotOpenFileKey, std::u16string(texts::kFilePath) + path_);
}

void OutpoutFileStream::reopen() {
    if (open_ || !allocateBuffer())
        return;
    file_.reset(platform::openFile(path_, "ab"));
    if (file_)
        return presetAndOpen();
    noteError();
    report(errors_, "", texts::kReopenFailed);
}

void OutpoutFileStream::skipPreset() {
    if (!open_ || headIsContent_ || position_ != keepBack_)
        return;
    position_ = 0;
    headIsContent_ = true;
}

void OutpoutFileStream::writeRaw(const char* bytes, std::size_t count) {
    if (!open_ || !writeOut({bytes, count}))
        failWriting();
}

void OutpoutFileStream::close() {
    if (!open_)
        return;
    // Bytes that a flush kept back are content, even when nothing came after them.
    const bool hasContent = position_ > keepBack_ || headIsContent_;
    const bool written = !hasContent || writeOut(buffered());
    shutAt(keepBack_);
    const int result = std::fclose(file_.release());
    if (result != 0)
        noteError();
    if (!written || result != 0)
        failWriting();
    const std::string trace = std::to_string(result) + "\n";
    platform::debugOutput(std::u16string(trace.begin(), trace.end()));
}

bool OutpoutFileStream::isOpen() const { return open_; }

bool OutpoutFileStream::isEof() const { return !file_ || std::feof(file_.get()) != 0; }

std::int32_t OutpoutFileStream::movePointer(std::int32_t delta) {
    if (static_cast<std::int64_t>(position_) + delta < 0)
        throw std::runtime_error(texts::kUnableToMovePointer);
    moveBy(delta);
    return delta;
}

void OutpoutFileStream::flushIfFull() {
    if (!open_ || !isFull())
        return;
    if (!writeOut(flushable())) {
        ++failureCount_;
        shutAt(position_);
        throw std::runtime_error(texts::kUnableToWrite);
    }
    keepTail();
    headIsContent_ = true;
}

OutpoutFileStream::~OutpoutFileStream() {
    try {
        OutpoutFileStream::close();
    } catch (const std::exception&) {
        // The report of a failed write found no memory, and a destructor has nobody to tell.
    }
}

void OutpoutFileStream::presetAndOpen() {
    std::fill_n(buffer_.get(), keepBack_, ' ');
    if (keepBack_ > 0)
        buffer_[keepBack_ - 1] = '\n';
    headIsContent_ = false;
    openAt(keepBack_);
}

/// Hands `bytes` to the system as a whole, so that a full disk shows now and not when the file is
/// closed.
bool OutpoutFileStream::writeOut(std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) == bytes.size() &&
        std::fflush(file_.get()) == 0)
        return true;
    noteError();
    return false;
}

void OutpoutFileStream::failWriting() {
    ++failureCount_;
    report(errors_, "", texts::kCouldNotWriteToFile);
}

}  // namespace FileStream
