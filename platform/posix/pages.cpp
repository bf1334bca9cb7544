#include "platform/pages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace platform {
namespace {

void* map(std::size_t bytes) {
    void* const address =
        ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return address == MAP_FAILED ? nullptr : address;
}

}  // namespace

void* allocatePages(std::size_t bytes) {
    if (bytes < kHugePageBytes)
        return map(bytes);
    // The kernel promises page alignment only: take more than is needed and give the ends back.
    const std::size_t whole = bytes + kHugePageBytes;
    if (whole < bytes)
        return nullptr;
    auto* const address = static_cast<char*>(map(whole));
    if (!address)
        return nullptr;
    const std::size_t before =
        (kHugePageBytes - reinterpret_cast<std::uintptr_t>(address) % kHugePageBytes) %
        kHugePageBytes;
    const auto pageBytes = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const std::size_t used = (bytes + pageBytes - 1) / pageBytes * pageBytes;
    if (before > 0)
        ::munmap(address, before);
    if (before + used < whole)
        ::munmap(address + before + used, whole - before - used);
    return address + before;
}

void releasePages(void* address, std::size_t bytes) {
    if (address)
        ::munmap(address, bytes);
}

void adviseHugePages(void* address, std::size_t bytes) {
#ifdef MADV_HUGEPAGE  // Linux only
    ::madvise(address, bytes, MADV_HUGEPAGE);
#else
    (void)address;
    (void)bytes;
#endif
}

}  // namespace platform
