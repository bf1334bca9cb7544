#include "edits/error_reporter.h"

#include <algorithm>
#include <exception>

#include "edits/error_reporter_texts.h"
#include "ifc/io/log_file.h"
#include "platform/message_box.h"
#include "platform/text.h"

namespace IFC {
namespace {

constexpr int kIgnoredByChoice = 2;

void show(std::u16string_view text) {
    platform::showMessageBox(text, texts::kReporterCaption, platform::MessageButtons::Ok,
                             platform::MessageIcon::Error);
}

}  // namespace

void ErrorReporter::report(const char* key, std::u16string_view detail, int flag) {
    const std::u16string text = composed(key, detail);
    if (LogFile::instance().isOpen())
        LogFile::instance().write(text);
    if (flag == kIgnoredByChoice)
        return;
    errorSeen_ = true;
    if (collecting_)
        collecting_->add(text);
    else
        show(text);
}

ErrorCallback ErrorReporter::callback() {
    return [this](const char* key, const char16_t* text, int flag) {
        report(key, text ? text : u"", flag);
    };
}

std::u16string ErrorReporter::composed(const char* key, std::u16string_view detail) const {
    if (!key || *key == '\0')
        return std::u16string(detail);
    std::u16string text = host_.text(key);
    if (text.empty())
        text = platform::fromUtf8(key);
    // Some details bring the blank with them.
    if (!detail.starts_with(u' '))
        text += u' ';
    return text.append(detail);
}

ErrorReporter::Collecting::Collecting(ErrorReporter& reporter, End end)
    : reporter_(reporter), end_(end) {
    if (!reporter_.collecting_)
        reporter_.collecting_ = this;
}

ErrorReporter::Collecting::~Collecting() {
    if (reporter_.collecting_ != this)
        return;
    reporter_.collecting_ = nullptr;
    if (end_ == End::Silent || count_ == 0)
        return;
    try {
        std::u16string summary;
        for (const std::u16string& text : shown_)
            summary.append(summary.empty() ? u"" : u"\n").append(text);
        if (count_ > shown_.size())
            summary.append(u"\n")
                .append(texts::kMoreReportsBegin)
                .append(platform::fromUtf8(std::to_string(count_ - shown_.size())))
                .append(texts::kMoreReportsEnd);
        show(summary);
    } catch (const std::exception&) {
        // No memory is left to say what went wrong; the log has it.
    }
}

void ErrorReporter::Collecting::add(std::u16string_view text) {
    if (std::find(shown_.begin(), shown_.end(), text) != shown_.end())
        return;
    if (++count_ <= kShownReports)
        shown_.emplace_back(text);
}

}  // namespace IFC
