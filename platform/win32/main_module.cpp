#include "platform/main_module.h"

#include <windows.h>

#include "platform/win32/long_path.h"
#include "platform/win32/wide.h"

namespace platform {
namespace {

/// A module that was loaded by a path with a prefix has that in its name; wine drops a part of it.
std::u16string asUsersSeeIt(const std::u16string& path) {
    constexpr std::u16string_view kNetworkOfWine = u"UNC\\";
    if (path.starts_with(kNetworkOfWine))
        return u"\\\\" + path.substr(kNetworkOfWine.size());
    return withoutPrefix(path);
}

/// Null: the program.
std::u16string pathOf(HMODULE module) {
    constexpr std::size_t kLongestPath = 0x8000;
    for (std::u16string path(MAX_PATH, u'\0'); path.size() <= kLongestPath;
         path.resize(path.size() * 2)) {
        const DWORD length = GetModuleFileNameW(module, reinterpret_cast<wchar_t*>(path.data()),
                                                static_cast<DWORD>(path.size()));
        if (length == 0)
            return {};
        if (length < path.size()) {
            path.resize(length);
            return asUsersSeeIt(path);
        }
    }
    return {};
}

}  // namespace

void* mainModuleSymbol(const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(nullptr), name));
}

std::u16string mainModulePath() { return pathOf(nullptr); }

std::u16string ownModulePath() {
    HMODULE module = nullptr;
    const DWORD flags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!GetModuleHandleExW(flags, reinterpret_cast<const wchar_t*>(&ownModulePath), &module))
        return {};
    return pathOf(module);
}

}  // namespace platform
