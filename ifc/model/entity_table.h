#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace IFC {

class IfcEntity;
class MemoryPool;

/// The model's entities by instance number (#n). Numbers that lie close together, as most programs
/// write them, cost 8 bytes and one look-up in an array; single numbers far from all others go into
/// a hash map.
class EntityTable {
public:
    /// pool: of the model; the table's own memory comes from there.
    explicit EntityTable(MemoryPool& pool) : pool_(pool) {}

    /// Null when there is none. Numbers below 1 are never found.
    IfcEntity* find(std::int32_t number) const {
        const auto index = static_cast<std::uint32_t>(number);
        const std::size_t page = index / kPageSize;
        if (page < pages_.size() && pages_[page]) {
            if (IfcEntity* entity = pages_[page]->entities[index % kPageSize]) [[likely]]
                return entity;
        }
        return sparse_.empty() ? nullptr : findSparse(index);
    }

    /// @return false, with nothing changed, when the number is taken.
    bool insert(std::int32_t number, IfcEntity* entity);

    /// The largest number entered or reserved so far, 0 for none.
    std::int32_t largestNumber() const { return largest_; }
    /// Sees to it that no new entity gets a number that the file refers to, though nothing has it.
    /// Numbers so large that few would be left for new entities are not reserved.
    void reserve(std::int64_t number) {
        if (number > largest_ && number <= kLargestReserved)
            largest_ = static_cast<std::int32_t>(number);
    }
    std::size_t size() const { return size_; }

private:
    static constexpr std::size_t kPageSize = 1024;
    /// Beyond the first ones, a page is made only while the pages are, on average, at least this
    /// full.
    static constexpr std::size_t kLeastFillPerPage = 128;
    static constexpr std::size_t kFirstPages = 64;
    static constexpr std::int64_t kLargestReserved = std::int64_t{1} << 30;
    static constexpr std::size_t kFirstDirectory = 0x10000;

    struct Page {
        IfcEntity* entities[kPageSize];
    };

    IfcEntity* findSparse(std::uint32_t index) const;
    Page* pageFor(std::uint32_t index);

    MemoryPool& pool_;
    std::vector<Page*> pages_;
    std::size_t pageCount_ = 0;
    std::unordered_map<std::uint32_t, IfcEntity*>
        sparse_;  // those whose page was not made when they came
    std::size_t size_ = 0;
    std::int32_t largest_ = 0;
};

}  // namespace IFC
