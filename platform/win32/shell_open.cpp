#include "platform/shell_open.h"

#include <windows.h>
#include <shellapi.h>

#include <cstdint>

#include "platform/win32/wide.h"

namespace platform {

bool openWithSystemProgram(std::u16string_view path) {
    constexpr std::intptr_t kLastError = 32;  // results above it are successes
    const HINSTANCE result = ShellExecuteW(nullptr, L"open", wide(std::u16string(path)), nullptr,
                                           nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<std::intptr_t>(result) > kLastError;
}

}  // namespace platform
