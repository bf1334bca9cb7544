#include "platform/physical_memory.h"

#include <windows.h>

namespace platform {

std::uint64_t physicalMemoryBytes() {
    MEMORYSTATUSEX status = {};
    status.dwLength = sizeof status;
    return GlobalMemoryStatusEx(&status) ? status.ullTotalPhys : 0;
}

}  // namespace platform
