#pragma once

#include <string_view>

namespace platform {

/// Shows `text` in an attached debugger, on systems where debuggers listen (Windows); nowhere else.
void debugOutput(std::u16string_view text);

}  // namespace platform
