#include "platform/same_file.h"

#include <windows.h>

#include <optional>
#include <string_view>

#include "platform/win32/handle.h"
#include "platform/win32/long_path.h"
#include "platform/win32/wide.h"

namespace platform {
namespace {

bool isSameName(std::u16string_view a, std::u16string_view b) {
    const std::u16string first(a);
    const std::u16string second(b);
    return CompareStringOrdinal(wide(first), -1, wide(second), -1, TRUE) == CSTR_EQUAL;
}

/// What a file or folder has for itself, whatever it is called.
struct Identity {
    DWORD volume = 0;
    DWORD high = 0;
    DWORD low = 0;
    bool operator==(const Identity&) const = default;
};

std::optional<Identity> identityOf(std::u16string path) {
    if (path.ends_with(u':'))
        path += u'\\';  // the drive's root, not the folder where the process is
    const Handle file(CreateFileW(wide(unlimited(path)), 0,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION found = {};
    if (!file || !GetFileInformationByHandle(file.get(), &found))
        return std::nullopt;
    return Identity{found.dwVolumeSerialNumber, found.nFileIndexHigh, found.nFileIndexLow};
}

}  // namespace

bool isSameFile(const std::u16string& a, const std::u16string& b) {
    std::u16string_view first;
    std::u16string_view second;
    const std::u16string fullFirst = fullPath(a);
    const std::u16string fullSecond = fullPath(b);
    // Names that do not exist are the same in the same folder, which may not exist either.
    for (first = fullFirst, second = fullSecond; !isSameName(first, second);) {
        const auto one = identityOf(std::u16string(first));
        const auto other = identityOf(std::u16string(second));
        if (one || other)
            return one && other && *one == *other;
        const std::size_t firstEnd = first.rfind(u'\\');
        const std::size_t secondEnd = second.rfind(u'\\');
        if (firstEnd == first.npos || secondEnd == second.npos ||
            !isSameName(first.substr(firstEnd), second.substr(secondEnd)))
            return false;
        first = first.substr(0, firstEnd);
        second = second.substr(0, secondEnd);
    }
    return true;
}

}  // namespace platform
