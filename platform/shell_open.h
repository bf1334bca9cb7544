#pragma once

#include <functional>
#include <string_view>

namespace platform {

/// Opens an existing file with the program that the user's system has for it, and does not wait for
/// that program. @return whether a program was started.
bool openWithDefaultProgram(std::u16string_view path);

using OpenFileHandler = std::function<bool(std::u16string_view path)>;

/// Lets `handler` open all files from now on (empty: the system again). @return the handler before.
OpenFileHandler setOpenFileHandler(OpenFileHandler handler);

/// What the system itself does; `openWithDefaultProgram` is what others call.
bool openWithSystemProgram(std::u16string_view path);

}  // namespace platform
