#include "platform/win32/handle.h"

#include <windows.h>

#include <utility>

namespace platform {

Handle::~Handle() {
    if (*this)
        CloseHandle(handle_);
}

Handle::operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }

void* Handle::release() { return std::exchange(handle_, INVALID_HANDLE_VALUE); }

}  // namespace platform
