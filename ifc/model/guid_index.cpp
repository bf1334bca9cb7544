#include "ifc/model/guid_index.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace IFC {

namespace {

constexpr std::size_t kFewestSlots = 64;

/// Four units at a time, multiplied by an odd constant and folded (the finaliser of splitmix64).
std::uint32_t hashOf(std::u16string_view text) {
    std::uint64_t hash = text.size();
    for (std::size_t at = 0; at < text.size(); at += 4) {
        std::uint64_t units = 0;
        std::memcpy(&units, text.data() + at,
                    std::min<std::size_t>(text.size() - at, 4) * sizeof(char16_t));
        hash = (hash ^ units) * 0xBF58476D1CE4E5B9U;
        hash ^= hash >> 29;
    }
    return static_cast<std::uint32_t>((hash * 0x94D049BB133111EBU) >> 32);
}

}  // namespace

void GuidIndex::reserve(std::size_t count) {
    const std::size_t wanted = std::bit_ceil(std::max(kFewestSlots, 2 * count));
    if (wanted <= slots_.size())
        return;
    const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(wanted));
    for (const Slot& slot : old) {
        if (slot.entity)
            slots_[slotOf({slot.units, slot.length}, slot.hash)] = slot;
    }
}

std::size_t GuidIndex::slotOf(std::u16string_view guid, std::uint32_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    while (slots_[at].entity && (slots_[at].hash != hash || slots_[at].length != guid.size() ||
                                 std::u16string_view(slots_[at].units, guid.size()) != guid))
        at = (at + 1) & mask;
    return at;
}

bool GuidIndex::insert(std::u16string_view guid, IfcEntity* entity) {
    reserve(size_ + 1);
    const std::uint32_t hash = hashOf(guid);
    Slot& slot = slots_[slotOf(guid, hash)];
    if (slot.entity)
        return false;
    slot = {guid.data(), static_cast<std::uint32_t>(guid.size()), hash, entity};
    ++size_;
    return true;
}

IfcEntity* GuidIndex::find(std::u16string_view guid) const {
    return slots_.empty() ? nullptr : slots_[slotOf(guid, hashOf(guid))].entity;
}

}  // namespace IFC
