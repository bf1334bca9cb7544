#include "platform/message_box.h"

#include <windows.h>

#include "platform/win32/wide.h"

namespace platform {

MessageAnswer showSystemMessageBox(std::u16string_view text, std::u16string_view caption,
                                   MessageButtons buttons, MessageIcon icon) {
    // Without an owner it would leave our other windows open to input.
    const UINT style = static_cast<UINT>(buttons) | static_cast<UINT>(icon) | MB_TASKMODAL;
    switch (
        MessageBoxW(nullptr, wide(std::u16string(text)), wide(std::u16string(caption)), style)) {
        case IDOK: return MessageAnswer::Ok;
        case IDCANCEL: return MessageAnswer::Cancel;
        case IDYES: return MessageAnswer::Yes;
        case IDNO: return MessageAnswer::No;
        default: return neutralAnswer(buttons);  // no box could be shown
    }
}

}  // namespace platform
