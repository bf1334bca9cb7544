#pragma once

#include <cstddef>

/// Memory from the system, past the heap: for blocks of many megabytes that are given back as a
/// whole.
namespace platform {

/// From this size on, blocks start on a multiple of it where the system has huge pages.
inline constexpr std::size_t kHugePageBytes = std::size_t{2} << 20;

/// Zeroed memory, committed when it is touched. @return nullptr when there is none.
void* allocatePages(std::size_t bytes);

/// Gives back what `allocatePages` gave for the same number of bytes.
void releasePages(void* address, std::size_t bytes);

/// Asks for huge pages in a range that will be filled soon; a hint without a result.
void adviseHugePages(void* address, std::size_t bytes);

}  // namespace platform
