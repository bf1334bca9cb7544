#pragma once

#include <memory>

#include "ifc/io/input_stream.h"
#include "platform/files.h"

namespace FileStream {

/// Reads a plain file.
class InputFileStream final : public InputStream {
public:
    /// Opens `path`; a file that cannot be opened leaves the stream closed and is not reported (ask
    /// `isOpen`).
    InputFileStream(std::u16string path, ErrorCallback errors, std::size_t bufferSizeBytes);

    std::size_t read(char* bytes, std::size_t count) override;
    int peek() override;
    int get() override;
    std::string statementText() const override;
    void close() override;
    bool isOpen() const override;
    bool isEof() const override;
    std::int64_t tell() const override;
    std::int32_t nextEntry() override;
    std::uint64_t size() const override;
    ~InputFileStream() override;

private:
    void fetchBlock() override;

    platform::FileHandle file_;
    std::unique_ptr<char[]> block_;
};

}  // namespace FileStream
