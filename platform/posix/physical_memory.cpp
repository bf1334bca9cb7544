#include "platform/physical_memory.h"

#include <unistd.h>

namespace platform {

std::uint64_t physicalMemoryBytes() {
    const long pages = ::sysconf(_SC_PHYS_PAGES);
    const long pageBytes = ::sysconf(_SC_PAGESIZE);
    if (pages <= 0 || pageBytes <= 0)
        return 0;
    return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageBytes);
}

}  // namespace platform
