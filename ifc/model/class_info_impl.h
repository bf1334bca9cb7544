#pragma once

// Definitions for the generated .cpp files; everybody else needs class_info.h only.

#include <type_traits>

#include "ifc/model/class_info.h"
#include "ifc/model/entity.h"
#include "ifc/model/memory_pool.h"

namespace IFC {

/// ClassInfo::derived of a class that derives the attributes at these places.
template <class... Places>
constexpr std::uint64_t derivedAt(Places... places) {
    return (... | (std::uint64_t{1} << places));
}

template <class Class>
constexpr ClassInfo selectClass(const char16_t* name, std::string_view key) {
    return {.name = name,
            .key = key,
            .derived = 0,
            .isValue = std::is_base_of_v<IfcSimpleType, Class>,
            .create = nullptr,
            .cast = [](IfcEntity* entity) -> void* { return dynamic_cast<Class*>(entity); },
            .toEntity = [](void* part) -> IfcEntity* { return static_cast<Class*>(part); }};
}

template <class Class>
constexpr ClassInfo instantiableClass(const char16_t* name, std::string_view key,
                                      std::uint64_t derived) {
    ClassInfo info = selectClass<Class>(name, key);
    info.derived = derived;
    info.create = [](MemoryPool& pool) -> IfcEntity* { return pool.create<Class>(); };
    return info;
}

}  // namespace IFC
