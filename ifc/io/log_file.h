#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "ifc/io/output_file_stream.h"

/// The log of one run: a UTF-8 text file beside the model, whose name ends in "_IFC_LOG.txt". Its
/// first line is the date and time; one line per entry follows, indented by tabs as blocks are
/// nested; lines end in "\n".
///
/// Entries for a log that is not open show a message box, each time. A log that broke off (a full
/// disk) said so once and then swallows its entries until it is closed.
class LogFile {
public:
    static constexpr std::size_t kCapacityBytes = 0xA00000;  // 10 MiB
    static constexpr std::size_t kKeepBackBytes = 200;

    /// The log of the process.
    static LogFile& instance();

    LogFile() = default;
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    /// Starts a new log beside the model (of an archive path, beside the archive); one that is open
    /// is closed first. What goes wrong is shown in a message box. @return whether it is open.
    bool open(std::u16string_view modelPath);

    /// Writes the text as one line. `indent`: the lines after it are indented by one tab more.
    void write(std::u16string_view text, bool indent = false);
    /// Ends the indentation of the last `write` with `indent`.
    void endBlock();
    /// Notes which instance is read. The note becomes a line only when something else is written,
    /// so that the log tells where that happened, and shows no other of millions of instances;
    /// until then this costs next to nothing.
    void readingEntity(std::int64_t instanceNumber) {
        if (!stream_) [[unlikely]]
            return requireOpen();
        instanceNumber_ = instanceNumber;
        reading_ = true;
    }
    /// Writes "Done." in place of the last instance that was read.
    void done();

    void close();
    bool isOpen() const { return stream_ != nullptr && stream_->isOpen(); }
    /// Of the log last opened, for those who show or remove it.
    const std::u16string& path() const { return path_; }

private:
    /// Shows that the log is closed. @return whether it is not.
    bool isReady();
    void requireOpen();
    void writeReadingLine();
    void writeLine(std::u16string_view text);

    std::unique_ptr<FileStream::OutpoutFileStream> stream_;  // also after it broke off, until close
    std::u16string path_;
    std::string prefix_;  // tabs
    std::int64_t instanceNumber_ = 0;
    bool reading_ = false;  // instanceNumber_ is noted, its line not written
};
