#include "platform/message_box.h"

#include <utility>

namespace platform {
namespace {

MessageBoxHandler& currentHandler() {
    static MessageBoxHandler handler;
    return handler;
}

}  // namespace

MessageAnswer showMessageBox(std::u16string_view text, std::u16string_view caption,
                             MessageButtons buttons, MessageIcon icon) {
    // A copy: the handler may be replaced while its box is open.
    if (const MessageBoxHandler handler = currentHandler())
        return handler(text, caption, buttons, icon);
    return showSystemMessageBox(text, caption, buttons, icon);
}

MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler) {
    return std::exchange(currentHandler(), std::move(handler));
}

}  // namespace platform
