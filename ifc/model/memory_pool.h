#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace IFC {

/// The memory of one model: entities, their texts and their lists. Grows only; everything is given
/// back at once when the pool ends, without running destructors, so that unloading a model of
/// millions of instances frees a few hundred blocks. Objects placed here must therefore own nothing
/// outside the pool.
class MemoryPool {
public:
    MemoryPool() = default;
    ~MemoryPool();
    MemoryPool(const MemoryPool&) = delete;
    MemoryPool& operator=(const MemoryPool&) = delete;

    /// Uninitialised bytes, valid as long as the pool. Throws std::bad_alloc when the system has no
    /// more.
    void* allocate(std::size_t bytes, std::size_t alignment) {
        const std::size_t start = (next_ + alignment - 1) & ~(alignment - 1);
        if (start + bytes > end_ || start == 0)
            return allocateFromNewBlock(bytes, alignment);
        next_ = start + bytes;
        return reinterpret_cast<void*>(start);  // NOLINT(performance-no-int-to-ptr)
    }

    /// A new object of class T, owned by the pool; its destructor never runs.
    template <class T, class... Arguments>
    T* create(Arguments&&... arguments) {
        return ::new (allocate(sizeof(T), alignof(T))) T(std::forward<Arguments>(arguments)...);
    }

    /// Room for `count` elements that need no destructor, uninitialised.
    template <class T>
    T* array(std::size_t count) {
        static_assert(std::is_trivially_destructible_v<T>);
        return static_cast<T*>(allocate(count * sizeof(T), alignof(T)));
    }

    /// Copies of `text` that live as long as the pool.
    const char16_t* copy(std::u16string_view text);
    const char* copy(std::string_view text);

    /// Bytes handed out so far, alignment included.
    std::size_t usedBytes() const { return usedBeforeBlock_ + (next_ - begin_); }

private:
    void* allocateFromNewBlock(std::size_t bytes, std::size_t alignment);

    struct Block {
        void* address;
        std::size_t bytes;
    };
    std::uintptr_t begin_ = 0;  // current block
    std::uintptr_t next_ = 0;
    std::uintptr_t end_ = 0;
    std::size_t usedBeforeBlock_ = 0;
    std::vector<Block> blocks_;
};

}  // namespace IFC
