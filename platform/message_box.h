#pragma once

#include <functional>
#include <string_view>

namespace platform {

// The values are those of Windows' message boxes, which the host uses too.
enum class MessageButtons { Ok = 0, OkCancel = 1, YesNoCancel = 3, YesNo = 4 };
enum class MessageIcon { None = 0, Error = 16, Question = 32, Warning = 48, Information = 64 };
enum class MessageAnswer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// The answer that agrees to nothing: Ok where there is only that, else Cancel, else No.
constexpr MessageAnswer neutralAnswer(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok: return MessageAnswer::Ok;
        case MessageButtons::YesNo: return MessageAnswer::No;
        case MessageButtons::OkCancel:
        case MessageButtons::YesNoCancel: break;
    }
    return MessageAnswer::Cancel;
}

using MessageBoxHandler = std::function<MessageAnswer(
    std::u16string_view text, std::u16string_view caption, MessageButtons, MessageIcon)>;

/// Shows a modal message without an owner window and waits for the answer. Without a handler: a
/// message box on Windows; elsewhere a line on standard error and the neutral answer.
MessageAnswer showMessageBox(std::u16string_view text, std::u16string_view caption,
                             MessageButtons buttons = MessageButtons::Ok,
                             MessageIcon icon = MessageIcon::None);

/// Lets `handler` show all messages from now on (empty: the system again). @return the handler
/// before.
MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler);

/// What the system itself does with a message; `showMessageBox` is what others call.
MessageAnswer showSystemMessageBox(std::u16string_view text, std::u16string_view caption,
                                   MessageButtons buttons, MessageIcon icon);

}  // namespace platform
