#include "platform/dynamic_library.h"

#include <windows.h>

#include "platform/win32/long_path.h"
#include "platform/win32/wide.h"

namespace platform {

DynamicLibrary::DynamicLibrary(const std::u16string& path)
    : handle_(::LoadLibraryW(wide(unlimited(path)))) {
    if (!handle_)
        error_ = "Windows error " + std::to_string(::GetLastError());
}

DynamicLibrary::~DynamicLibrary() {
    if (handle_)
        ::FreeLibrary(static_cast<HMODULE>(handle_));
}

void* DynamicLibrary::symbol(const char* name) const {
    return handle_ ? reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(handle_), name))
                   : nullptr;
}

}  // namespace platform
