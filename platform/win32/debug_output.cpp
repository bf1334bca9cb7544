#include "platform/debug_output.h"

#include <windows.h>

#include "platform/win32/wide.h"

namespace platform {

void debugOutput(std::u16string_view text) { OutputDebugStringW(wide(std::u16string(text))); }

}  // namespace platform
