#include "platform/win32/long_path.h"

#include <windows.h>

#include <algorithm>

#include "platform/win32/wide.h"

namespace platform {
namespace {

constexpr std::u16string_view kPrefix = u"\\\\?\\";
constexpr std::u16string_view kNetworkPrefix = u"\\\\?\\UNC\\";
constexpr std::u16string_view kNetwork = u"\\\\";
constexpr std::u16string_view kDevice = u"\\\\.\\";
/// A folder's path must leave room for a file name of the old kind, of twelve units.
constexpr std::size_t kShort = MAX_PATH - 12;

}  // namespace

std::u16string withoutPrefix(std::u16string_view path) {
    if (path.starts_with(kNetworkPrefix))
        return std::u16string(kNetwork).append(path.substr(kNetworkPrefix.size()));
    return std::u16string(path.starts_with(kPrefix) ? path.substr(kPrefix.size()) : path);
}

std::u16string fullPath(std::u16string_view path) {
    std::u16string plain(path);
    std::replace(plain.begin(), plain.end(), u'/', u'\\');
    plain = withoutPrefix(plain);
    std::u16string full(plain.size() + MAX_PATH, u'\0');
    for (;;) {
        const DWORD length = GetFullPathNameW(wide(plain), static_cast<DWORD>(full.size()),
                                              reinterpret_cast<wchar_t*>(full.data()), nullptr);
        if (length == 0)
            return plain;  // nothing that Windows could understand
        const bool isWhole = length < full.size();
        full.resize(length);
        if (isWhole)
            return full;
    }
}

std::u16string unlimited(std::u16string_view path) {
    const std::u16string full = fullPath(path);
    if (full.size() < kShort)
        return std::u16string(path);
    if (full.starts_with(kDevice))
        return full;
    if (full.starts_with(kNetwork))
        return std::u16string(kNetworkPrefix).append(full.substr(kNetwork.size()));
    return std::u16string(kPrefix).append(full);
}

}  // namespace platform
