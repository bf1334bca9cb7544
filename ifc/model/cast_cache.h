#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <typeinfo>

#include "ifc/model/entity.h"

namespace IFC {

/// Dynamic casts to generated classes. What a cast gives depends only on the object's dynamic class
/// and the target, so each pair is cast once and its offset remembered; a cast then costs 2 ns in
/// place of 50 to 250.
class CastCache {
public:
    struct Result {
        void* part;     ///< the object's part of the target class, null when it is not of it
        bool editable;  ///< the object is a property, a quantity or a set of them
    };

    /// The part of `entity` (not null) that is of class `target`.
    Result cast(IfcEntity* entity, const ClassInfo& target) {
        const std::type_info* type = &typeid(*entity);
        Entry& entry = entries_[slotOf(type, &target)];
        if (entry.type != type || entry.target != &target) [[unlikely]]
            fill(entry, entity, type, target);
        if (entry.offset == kNoCast)
            return {nullptr, entry.editable};
        return {reinterpret_cast<char*>(entity) + entry.offset, entry.editable};
    }

private:
    static constexpr std::ptrdiff_t kNoCast = std::numeric_limits<std::ptrdiff_t>::min();
    static constexpr std::size_t kSlotBits = 12;

    struct Entry {
        const std::type_info* type = nullptr;
        const ClassInfo* target = nullptr;
        std::ptrdiff_t offset = kNoCast;
        bool editable = false;
    };

    static std::size_t slotOf(const std::type_info* type, const ClassInfo* target) {
        const auto key =
            reinterpret_cast<std::uintptr_t>(type) * 31 + reinterpret_cast<std::uintptr_t>(target);
        return static_cast<std::size_t>((static_cast<std::uint64_t>(key) * 0x9E3779B97F4A7C15U) >>
                                        (64 - kSlotBits));
    }

    static void fill(Entry& entry, IfcEntity* entity, const std::type_info* type,
                     const ClassInfo& target);

    using Entries = std::array<Entry, std::size_t{1} << kSlotBits>;

    std::unique_ptr<Entries> table_ = std::make_unique<Entries>();
    Entries& entries_ = *table_;
};

}  // namespace IFC
