#pragma once

#include <algorithm>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "ifc/io/input_stream.h"

/// A byte source over text in memory, which comes in blocks of any size, and may throw at its end.
class MemoryInputStream final : public FileStream::InputStream {
public:
    MemoryInputStream(std::string_view text, std::size_t bufferBytes, ErrorCallback errors = {},
                      std::exception_ptr thrownAtEnd = nullptr)
        : InputStream(u"memory.ifc", std::move(errors), bufferBytes),
          text_(text),
          block_(bufferSize_),
          thrownAtEnd_(std::move(thrownAtEnd)) {
        open_ = true;
    }

    std::size_t read(char* bytes, std::size_t count) override {
        readBytes(bytes, count);
        return count;
    }
    int peek() override { return refill() ? static_cast<signed char>(*windowBegin()) : -1; }
    int get() override { return nextByte(); }
    std::string statementText() const override { return collectStatement(); }
    void close() override { markClosed(); }
    bool isOpen() const override { return open_; }
    bool isEof() const override { return position_ == fill_ && endReached_; }
    std::int64_t tell() const override {
        return static_cast<std::int64_t>(fetched_ - (fill_ - position_));
    }
    std::int32_t nextEntry() override { return -1; }
    std::uint64_t size() const override { return text_.size(); }

private:
    void fetchBlock() override {
        const std::string_view rest = std::string_view(text_).substr(fetched_);
        if (rest.empty() && thrownAtEnd_)
            std::rethrow_exception(thrownAtEnd_);
        const std::size_t count = std::min(rest.size(), block_.size());
        std::copy_n(rest.begin(), count, block_.begin());
        // What lies behind the block must not count: let a scan that runs over it find digits and
        // letters.
        std::fill(block_.begin() + static_cast<std::ptrdiff_t>(count), block_.end(), '9');
        showBlock(block_.data(), count);
    }

    std::string text_;
    std::vector<char> block_;
    std::exception_ptr thrownAtEnd_;
};
