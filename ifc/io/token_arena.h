#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <utility>
#include <vector>

/// Memory of the tokens of one instance: taken piece by piece, given back all at once. After the
/// first instances it asks the system for nothing more. Destructors do not run.
class TokenArena {
public:
    void* allocate(std::size_t bytes) {
        bytes = (bytes + kAlignment - 1) & ~(kAlignment - 1);
        if (bytes > static_cast<std::size_t>(end_ - next_))
            return allocateFromNewChunk(bytes);
        void* place = next_;
        next_ += bytes;
        return place;
    }

    template <class T, class... Arguments>
    T* create(Arguments&&... arguments) {
        static_assert(alignof(T) <= kAlignment);
        return ::new (allocate(sizeof(T))) T(std::forward<Arguments>(arguments)...);
    }

    template <class T>
    T* array(std::size_t count) {
        return static_cast<T*>(allocate(count * sizeof(T)));
    }

    /// Ends everything that was allocated. Keeps the first chunk for what comes next.
    void rewind() {
        if (chunks_.size() > 1)
            chunks_.resize(1);
        next_ = chunks_.empty() ? nullptr : chunks_.front().get();
        end_ = next_ + firstChunkBytes_;
    }

private:
    static constexpr std::size_t kAlignment = alignof(std::max_align_t);
    static constexpr std::size_t kChunkBytes = 0x10000;

    void* allocateFromNewChunk(std::size_t bytes) {
        const std::size_t chunkBytes =
            bytes > kChunkBytes && !chunks_.empty() ? bytes : kChunkBytes;
        chunks_.emplace_back(new std::byte[chunkBytes]);
        if (chunks_.size() == 1)
            firstChunkBytes_ = chunkBytes;
        next_ = chunks_.back().get();
        end_ = next_ + chunkBytes;
        return allocate(bytes);
    }

    std::vector<std::unique_ptr<std::byte[]>> chunks_;
    std::size_t firstChunkBytes_ = 0;
    std::byte* next_ = nullptr;
    std::byte* end_ = nullptr;
};
