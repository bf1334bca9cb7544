#pragma once

#include <cstdint>

namespace platform {

/// Bytes of memory that the machine has; 0 when it does not tell.
std::uint64_t physicalMemoryBytes();

}  // namespace platform
