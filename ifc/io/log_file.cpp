#include "ifc/io/log_file.h"

#include <charconv>
#include <stdexcept>

#include "ifc/io/io_texts.h"
#include "ifc/io/paths.h"
#include "ifc/io/time_stamp.h"
#include "platform/local_time.h"
#include "platform/message_box.h"
#include "platform/text.h"

namespace {

void showError(std::u16string_view text, std::u16string_view caption) {
    platform::showMessageBox(text, caption, platform::MessageButtons::Ok,
                             platform::MessageIcon::Error);
}

/// What the stream has to say. A file that it could not create (the only report with a key) is
/// `open`'s own to tell.
void reportStreamError(const char* key, const char16_t* text, int) {
    if (*key == '\0')
        showError(text, texts::kLogStreamErrorCaption);
}

}  // namespace

LogFile& LogFile::instance() {
    static LogFile log;
    return log;
}

LogFile::~LogFile() { close(); }

bool LogFile::open(std::u16string_view modelPath) {
    close();
    path_ = FileStream::withExtension(modelPath, texts::kLogSuffix);
    stream_ = std::make_unique<FileStream::OutpoutFileStream>(path_, reportStreamError,
                                                              kCapacityBytes, kKeepBackBytes);
    if (!stream_->isOpen()) {
        stream_.reset();
        showError(std::u16string(texts::kCouldNotCreateLogFile) + path_,
                  texts::kLogFileErrorCaption);
        return false;
    }
    stream_->skipPreset();
    writeLine(IFC::logTimeStamp(platform::localTime()));
    return true;
}

void LogFile::write(std::u16string_view text, bool indent) {
    if (!isReady())
        return;
    writeReadingLine();
    writeLine(text);
    if (indent)
        prefix_.push_back('\t');
}

void LogFile::endBlock() {
    if (!isReady())
        return;
    writeReadingLine();
    if (!prefix_.empty())
        prefix_.pop_back();
}

void LogFile::done() {
    if (!isReady())
        return;
    reading_ = false;
    writeLine(texts::kDone);
}

void LogFile::close() {
    if (!stream_)
        return;
    writeReadingLine();
    stream_->close();
    stream_.reset();
    prefix_.clear();
}

bool LogFile::isReady() {
    if (!stream_)
        showError(texts::kLogFileIsClosed, texts::kIfcLibCaption);
    return stream_ != nullptr;
}

void LogFile::requireOpen() { isReady(); }

void LogFile::writeReadingLine() {
    if (!reading_)
        return;
    reading_ = false;
    char digits[24];
    char* const end = std::to_chars(digits, digits + sizeof digits, instanceNumber_).ptr;
    writeLine(std::u16string(texts::kReadingEntity) + std::u16string(digits, end));
}

void LogFile::writeLine(std::u16string_view text) {
    if (!stream_->isOpen())
        return;  // it broke off and said so
    try {
        stream_->append(prefix_);
        stream_->append(platform::toUtf8(text));
        stream_->put('\n');
    } catch (const std::runtime_error&) {
        // The stream has closed itself; nobody but the log can tell why.
        showError(texts::kCouldNotWriteToFile, texts::kLogStreamErrorCaption);
    }
}
