#include "ifc/model/cast_cache.h"

#include "ifc/model/views.h"

namespace IFC {

void CastCache::fill(Entry& entry, IfcEntity* entity, const std::type_info* type,
                     const ClassInfo& target) {
    const void* part = target.cast(entity);
    entry.type = type;
    entry.target = &target;
    entry.offset =
        part ? static_cast<const char*>(part) - reinterpret_cast<const char*>(entity) : kNoCast;
    entry.editable = dynamic_cast<VIfcProperty*>(entity) != nullptr ||
                     dynamic_cast<VirtualIfcPropertySet*>(entity) != nullptr ||
                     dynamic_cast<VIfcElementQuantitySet*>(entity) != nullptr;
}

}  // namespace IFC
