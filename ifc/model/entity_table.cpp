#include "ifc/model/entity_table.h"

#include <algorithm>

#include "ifc/model/memory_pool.h"

namespace IFC {

IfcEntity* EntityTable::findSparse(std::uint32_t index) const {
    const auto found = sparse_.find(index);
    return found == sparse_.end() ? nullptr : found->second;
}

bool EntityTable::insert(std::int32_t number, IfcEntity* entity) {
    if (find(number))
        return false;
    const auto index = static_cast<std::uint32_t>(number);
    if (Page* page = pageFor(index))
        page->entities[index % kPageSize] = entity;
    else
        sparse_.emplace(index, entity);
    ++size_;
    largest_ = std::max(largest_, number);
    return true;
}

/// Null when the number has to go into the sparse map.
EntityTable::Page* EntityTable::pageFor(std::uint32_t index) {
    const std::size_t number = index / kPageSize;
    if (number < pages_.size() && pages_[number])
        return pages_[number];
    // Neither the pages nor their directory may outgrow the entities by much.
    const bool affordable =
        pageCount_ * kLeastFillPerPage <= size_ + kFirstPages * kLeastFillPerPage &&
        number <= size_ / 2 + kFirstDirectory;
    if (!affordable)
        return nullptr;
    if (number >= pages_.size())
        pages_.resize(std::max(number + 1, pages_.size() + pages_.size() / 2));
    ++pageCount_;
    return pages_[number] = pool_.create<Page>();
}

}  // namespace IFC
