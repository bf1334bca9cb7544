#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace platform {

/// 128 bits, the most significant byte first, as a GUID is printed.
using GuidBytes = std::array<std::uint8_t, 16>;

/// A new random GUID (RFC 4122, version 4); empty when the system gives none.
std::optional<GuidBytes> newGuid();

}  // namespace platform
