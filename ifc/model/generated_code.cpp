#include "ifc/model/generated_code.h"

#include <algorithm>

#include "ifc/model/views.h"

namespace IFC {

namespace {

/// Null for an item that could not be bound.
IfcEntity* entityOf(void* part, const ClassInfo& declared) {
    return part ? declared.toEntity(part) : nullptr;
}

std::span<void* const> itemsOf(const PointerSequence& references) {
    return {references.items, references.count};
}

void removeAt(MemoryPool& pool, PointerSequence& references, std::uint32_t position) {
    void** items = pool.array<void*>(references.count - 1);
    std::copy_n(references.items, position, items);
    std::copy(references.items + position + 1, references.items + references.count,
              items + position);
    references.items = items;
    --references.count;
}

}  // namespace

void collect(std::deque<IfcEntity*>& queue, IfcEntity* reference) {
    if (!reference)
        return;
    if (reference->isComplex())
        queue.push_back(reference);
    else
        reference->collectReferences(queue);
}

void collect(std::deque<IfcEntity*>& queue, const PointerSequence& references,
             const ClassInfo& declared) {
    for (void* part : itemsOf(references))
        collect(queue, entityOf(part, declared));
}

Text keptText(MemoryPool& pool, std::u16string_view text) {
    return {pool.copy(text), static_cast<std::uint32_t>(text.size()), true};
}

Enumeration valueOf(const EnumerationInfo& type, std::string_view name) {
    const std::int32_t index = type.find(name);
    return {index, index >= 0};
}

std::string_view nameOf(const EnumerationInfo& type, const Enumeration& value) {
    const auto index = static_cast<std::size_t>(value.index);
    const bool known = value.present && value.index >= 0 && index < type.values().size();
    return known ? type.values()[index] : std::string_view();
}

void append(std::vector<IfcEntity*>& out, const PointerSequence& references,
            const ClassInfo& declared) {
    for (void* part : itemsOf(references)) {
        if (part)
            out.push_back(declared.toEntity(part));
    }
}

bool replace(MemoryPool& pool, PointerSequence& references, const ClassInfo& declared,
             IfcEntity* entity, IfcEntity* replacement) {
    void* newPart = replacement ? declared.cast(replacement) : nullptr;
    if ((replacement && !newPart) || (!entity && !replacement))
        return false;
    std::uint32_t position = references.count;
    if (entity) {
        for (position = 0; position < references.count; ++position) {
            if (entityOf(references.items[position], declared) == entity)
                break;
        }
        if (position == references.count)
            return false;
        if (!replacement) {
            removeAt(pool, references, position);
            return true;
        }
    }
    const std::uint32_t count = std::max(references.count, position + 1);
    void** items = pool.array<void*>(count);
    std::copy_n(references.items, references.count, items);
    items[position] = newPart;
    references.items = items;
    references.count = count;
    references.present = true;
    return true;
}

bool assignAll(MemoryPool& pool, PointerSequence& references, const ClassInfo& declared,
               std::span<IfcEntity* const> entities) {
    void** items = pool.array<void*>(entities.size());
    for (std::size_t i = 0; i < entities.size(); ++i) {
        items[i] = entities[i] ? declared.cast(entities[i]) : nullptr;
        if (!items[i])
            return false;
    }
    references.items = items;
    references.count = static_cast<std::uint32_t>(entities.size());
    references.present = true;
    return true;
}

bool removeByGlobalId(MemoryPool& pool, PointerSequence& references, const ClassInfo& declared,
                      std::u16string_view globalId) {
    for (std::uint32_t position = 0; position < references.count; ++position) {
        const auto* root =
            dynamic_cast<VirtualIfcRoot*>(entityOf(references.items[position], declared));
        if (root && root->globalId() == globalId) {
            removeAt(pool, references, position);
            return true;
        }
    }
    return false;
}

}  // namespace IFC
