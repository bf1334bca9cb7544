#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace IFC {

class IfcEntity;

/// The rooted entities of a model by GUID. An array with linear probing, at most half full: filled
/// once for each rooted entity while a model is read, which a map with nodes would make a tenth of
/// the time that reading takes.
class GuidIndex {
public:
    /// Makes room for `count` GUIDs in all.
    void reserve(std::size_t count);
    /// guid: its units are kept by address and must live as long as this. @return false, with
    /// nothing changed, when it is there already.
    bool insert(std::u16string_view guid, IfcEntity* entity);
    /// Null when there is none.
    IfcEntity* find(std::u16string_view guid) const;

private:
    struct Slot {
        const char16_t* units = nullptr;
        std::uint32_t length = 0;
        std::uint32_t hash = 0;
        IfcEntity* entity = nullptr;  // null: free
    };

    /// Where `guid` is, or the free slot where it would go.
    std::size_t slotOf(std::u16string_view guid, std::uint32_t hash) const;

    std::vector<Slot> slots_;  // as many as a power of two, or none
    std::size_t size_ = 0;
};

}  // namespace IFC
