#pragma once

#include <string>
#include <vector>

#include "ifc/io/error_callback.h"
#include "platform/message_box.h"
#include "platform/text.h"

/// Collects what the IFC library reports, each as "key|text" in UTF-8.
class ErrorLog {
public:
    ErrorCallback callback() {
        return [this](const char* key, const char16_t* text, int) {
            entries.push_back(std::string(key) + "|" + platform::toUtf8(text));
        };
    }
    std::vector<std::string> entries;
};

/// While it lives, takes the place of the user in front of message boxes: notes each as
/// "caption|text" in UTF-8 and gives `answer`.
class AnsweredMessages {
public:
    explicit AnsweredMessages(platform::MessageAnswer answer = platform::MessageAnswer::Ok)
        : before_(platform::setMessageBoxHandler(
              [this, answer](std::u16string_view text, std::u16string_view caption,
                             platform::MessageButtons, platform::MessageIcon) {
                  entries.push_back(platform::toUtf8(caption) + "|" + platform::toUtf8(text));
                  return answer;
              })) {}
    ~AnsweredMessages() { platform::setMessageBoxHandler(before_); }
    AnsweredMessages(const AnsweredMessages&) = delete;
    AnsweredMessages& operator=(const AnsweredMessages&) = delete;

    std::vector<std::string> entries;

private:
    platform::MessageBoxHandler before_;
};
