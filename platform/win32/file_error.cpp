#include "platform/file_error.h"

#include <windows.h>

#include "platform/win32/last_error.h"
#include "platform/win32/wide.h"

namespace platform {

std::u16string systemErrorText() {
    constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS |
                             FORMAT_MESSAGE_MAX_WIDTH_MASK;  // on one line
    wchar_t text[512] = {};
    const DWORD length = FormatMessageW(kFlags, nullptr, codeOfErrno(), 0, text,
                                        sizeof text / sizeof *text, nullptr);
    std::u16string words(fromWide(text, length));
    while (words.ends_with(u' '))
        words.pop_back();
    return words;
}

}  // namespace platform
