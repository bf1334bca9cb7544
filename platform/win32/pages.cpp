#include "platform/pages.h"

#include <windows.h>

namespace platform {

void* allocatePages(std::size_t bytes) {
    return VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

void releasePages(void* address, std::size_t) {
    if (address)
        VirtualFree(address, 0, MEM_RELEASE);
}

// Huge pages need a privilege here that users do not have.
void adviseHugePages(void*, std::size_t) {}

}  // namespace platform
