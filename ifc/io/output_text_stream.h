#pragma once

#include <string>

#include "ifc/io/output_stream.h"

namespace FileStream {

/// Keeps what is written in memory, for those who need the STEP text of something without a file.
class OutputTextStream final : public OutpoutStream {
public:
    OutputTextStream();

    /// What was written since the last call; the stream starts anew.
    std::string take();

    void writeRaw(const char* bytes, std::size_t count) override;
    /// What was written stays.
    void close() override;
    bool isOpen() const override { return open_; }
    bool isEof() const override { return false; }
    /// Moves to the begin of the buffer at most.
    std::int32_t movePointer(std::int32_t delta) override;
    void flushIfFull() override;

private:
    static constexpr std::size_t kCapacityBytes = 0x1000;  // 4 KiB
    static constexpr std::size_t kKeepBackBytes = 10;

    std::string text_;  // what left the buffer
};

}  // namespace FileStream
