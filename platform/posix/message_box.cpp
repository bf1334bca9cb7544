#include "platform/message_box.h"

#include <cstdio>

#include "platform/text.h"

namespace platform {

MessageAnswer showSystemMessageBox(std::u16string_view text, std::u16string_view caption,
                                   MessageButtons buttons, MessageIcon) {
    std::fprintf(stderr, "%s: %s\n", toUtf8(caption).c_str(), toUtf8(text).c_str());
    return neutralAnswer(buttons);
}

}  // namespace platform
