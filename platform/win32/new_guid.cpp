#include "platform/new_guid.h"

#include <windows.h>
// windows.h must come first.
#include <objbase.h>

#include <algorithm>

namespace platform {

std::optional<GuidBytes> newGuid() {
    GUID guid = {};
    if (CoCreateGuid(&guid) != S_OK)
        return std::nullopt;
    const auto byteOf = [](unsigned long number, int shift) {
        return static_cast<std::uint8_t>(number >> shift & 0xFF);
    };
    GuidBytes bytes = {byteOf(guid.Data1, 24), byteOf(guid.Data1, 16), byteOf(guid.Data1, 8),
                       byteOf(guid.Data1, 0),  byteOf(guid.Data2, 8),  byteOf(guid.Data2, 0),
                       byteOf(guid.Data3, 8),  byteOf(guid.Data3, 0)};
    std::copy_n(guid.Data4, 8, bytes.begin() + 8);
    return bytes;
}

}  // namespace platform
