#include "ifc/model/memory_pool.h"

#include <algorithm>
#include <cstring>

#include "platform/pages.h"

namespace IFC {

namespace {

constexpr std::size_t kFirstBlockBytes = std::size_t{64} << 10;
constexpr std::size_t kLargestBlockBytes = std::size_t{64} << 20;

}  // namespace

MemoryPool::~MemoryPool() {
    for (const Block& block : blocks_)
        platform::releasePages(block.address, block.bytes);
}

void* MemoryPool::allocateFromNewBlock(std::size_t bytes, std::size_t alignment) {
    // Each block doubles what there is, so that a small model stays small and a large one has few
    // blocks. What is not touched yet costs no memory.
    const std::size_t usual =
        blocks_.empty() ? kFirstBlockBytes : std::min(blocks_.back().bytes * 2, kLargestBlockBytes);
    const std::size_t blockBytes = std::max(usual, bytes + alignment);
    if (bytes > blockBytes)  // the sum wrapped
        throw std::bad_alloc();
    blocks_.reserve(blocks_.size() + 1);
    void* address = platform::allocatePages(blockBytes);
    if (!address)
        throw std::bad_alloc();
    blocks_.push_back({address, blockBytes});
    usedBeforeBlock_ = usedBytes();
    if (blockBytes >= 2 * platform::kHugePageBytes)
        platform::adviseHugePages(address, blockBytes);
    begin_ = next_ = reinterpret_cast<std::uintptr_t>(address);
    end_ = begin_ + blockBytes;
    return allocate(bytes, alignment);
}

const char16_t* MemoryPool::copy(std::u16string_view text) {
    auto* units = array<char16_t>(text.size());
    std::copy(text.begin(), text.end(), units);
    return units;
}

const char* MemoryPool::copy(std::string_view text) {
    auto* bytes = array<char>(text.size());
    std::copy(text.begin(), text.end(), bytes);
    return bytes;
}

}  // namespace IFC
