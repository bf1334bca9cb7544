#pragma once

#include <cstdint>
#include <string_view>

namespace IFC {

class IfcEntity;
class MemoryPool;

/// What the library knows of one generated class without its definition. One constant per entity,
/// defined type and select of a release, named k and the class name (`IFC4::kIfcWall`), valid for
/// the whole run.
struct ClassInfo {
    const char16_t* name;  ///< as the schema writes it: u"IfcWall"
    std::string_view key;  ///< as files write it: "IFCWALL"
    /// Places of attributes that this class derives and its supertypes declare, as bits: 1 for the
    /// first attribute of the root supertype. They are written as "*".
    std::uint64_t derived;
    bool isValue;  ///< a defined type, whose objects stand inside other instances
    /// A new, empty object in the pool; null for select classes, which have no objects of their
    /// own.
    IfcEntity* (*create)(MemoryPool& pool);
    /// The part of `entity` that is of this class, or null when the object is not of it.
    void* (*cast)(IfcEntity* entity);
    /// The IfcEntity part of the object whose part of this class is at `part` (never null).
    IfcEntity* (*toEntity)(void* part);
};

/// Who may follow `kIfc…` needs the class complete, so this stands in the generated .cpp files
/// only.
template <class Class>
constexpr ClassInfo instantiableClass(const char16_t* name, std::string_view key,
                                      std::uint64_t derived = 0);
template <class Class>
constexpr ClassInfo selectClass(const char16_t* name, std::string_view key);

}  // namespace IFC
