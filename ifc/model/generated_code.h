#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

#include "ifc/model/class_info.h"
#include "ifc/model/entity.h"
#include "ifc/model/enumeration.h"
#include "ifc/model/memory_pool.h"
#include "ifc/model/values.h"

/// What the bodies of the generated classes have in common.
namespace IFC {

/// Puts an entity on the queue, nothing for null. A typed value is no entity of its own: what it
/// holds goes there instead.
void collect(std::deque<IfcEntity*>& queue, IfcEntity* reference);
void collect(std::deque<IfcEntity*>& queue, const PointerSequence& references,
             const ClassInfo& declared);
template <class Declared>
void collect(std::deque<IfcEntity*>& queue, const Sequence<References<Declared>>& lists,
             const ClassInfo& declared) {
    for (const References<Declared>& references : lists.view())
        collect(queue, references, declared);
}

/// A present text with its own copy in the pool.
Text keptText(MemoryPool& pool, std::u16string_view text);

/// The value called `name`; not present when there is none of that name.
Enumeration valueOf(const EnumerationInfo& type, std::string_view name);
/// Empty when the value is not present.
std::string_view nameOf(const EnumerationInfo& type, const Enumeration& value);

/// Sets a reference attribute, or clears it when `entity` is null.
/// @return false, with nothing changed, when the entity is not of the declared class.
template <class Declared>
bool assign(Declared*& attribute, IfcEntity* entity, const ClassInfo& declared) {
    void* part = entity ? declared.cast(entity) : nullptr;
    if (entity && !part)
        return false;
    attribute = static_cast<Declared*>(part);
    return true;
}

/// Appends the entities in their order, those that could not be bound left out.
void append(std::vector<IfcEntity*>& out, const PointerSequence& references,
            const ClassInfo& declared);

/// Puts `replacement` in the place of `entity`. A null `entity` appends it; a null `replacement`
/// takes `entity` out. The list is made anew in the pool, as copies of its owner may share the old
/// one.
/// @return false, with nothing changed, when `entity` is not in the list or `replacement` is not of
/// the declared class.
bool replace(MemoryPool& pool, PointerSequence& references, const ClassInfo& declared,
             IfcEntity* entity, IfcEntity* replacement);

/// Makes `entities` the list. @return false, with nothing changed, when one is null or not of the
/// declared class.
bool assignAll(MemoryPool& pool, PointerSequence& references, const ClassInfo& declared,
               std::span<IfcEntity* const> entities);

/// Takes the rooted object with that GUID out. @return whether it was there.
bool removeByGlobalId(MemoryPool& pool, PointerSequence& references, const ClassInfo& declared,
                      std::u16string_view globalId);

/// Whether each of the classes converts to `Select`: one that reaches it in two ways does not.
template <class Select, class... Members>
inline constexpr bool kAllConvertTo = (std::is_convertible_v<Members*, Select*> && ...);

}  // namespace IFC
