#include "ifc/model/entity.h"

#include <algorithm>
#include <stdexcept>

#include "ifc/model/memory_pool.h"

namespace IFC {

namespace {

template <class Class>
void* castTo(IfcEntity* entity) {
    return dynamic_cast<Class*>(entity);
}
template <class Class>
IfcEntity* entityOf(void* part) {
    return static_cast<Class*>(part);
}

constexpr ClassInfo kIfcComplexType = {.name = u"IfcComplexType",
                                       .key = "IFCCOMPLEXTYPE",
                                       .derived = 0,
                                       .isValue = false,
                                       .create = nullptr,
                                       .cast = castTo<IfcComplexType>,
                                       .toEntity = entityOf<IfcComplexType>};
constexpr ClassInfo kIfcSimpleType = {.name = u"IfcSimpleType",
                                      .key = "IFCSIMPLETYPE",
                                      .derived = 0,
                                      .isValue = true,
                                      .create = nullptr,
                                      .cast = castTo<IfcSimpleType>,
                                      .toEntity = entityOf<IfcSimpleType>};

}  // namespace

bool EntitySet::insert(MemoryPool& pool, IfcEntity* entity) {
    IfcEntity** place = std::lower_bound(items_, items_ + count_, entity);
    if (place != items_ + count_ && *place == entity)
        return false;
    if (count_ == capacity_) {
        const std::uint32_t capacity = std::max<std::uint32_t>(1, capacity_ * 2);
        auto** items = pool.array<IfcEntity*>(capacity);
        std::copy(items_, items_ + count_, items);
        place = items + (place - items_);
        items_ = items;
        capacity_ = capacity;
    }
    std::copy_backward(place, items_ + count_, items_ + count_ + 1);
    *place = entity;
    ++count_;
    return true;
}

bool EntitySet::erase(IfcEntity* entity) {
    IfcEntity** place = std::lower_bound(items_, items_ + count_, entity);
    if (place == items_ + count_ || *place != entity)
        return false;
    std::copy(place + 1, items_ + count_, place);
    --count_;
    return true;
}

IfcEntity::~IfcEntity() noexcept = default;

void IfcEntity::setId(std::int32_t number) {
    if (number < 1)
        throw std::runtime_error("Use other function to mark entietes for less than 1");  // sic
    id_ = number;
}

std::span<IfcEntity* const> IfcEntity::referencing() const {
    return links_ ? links_->referencing.view() : std::span<IfcEntity* const>();
}

EntityLinks& IfcEntity::links(MemoryPool& pool) {
    if (!links_)
        links_ = pool.create<EntityLinks>();
    return *links_;
}

const ClassInfo& IfcComplexType::classInfo() const { return kIfcComplexType; }
void IfcComplexType::collectReferences(std::deque<IfcEntity*>& /*queue*/) const {}
void IfcComplexType::readAttributes(AttributeReader& /*reader*/) {}
void IfcComplexType::writeAttributes(AttributeWriter& /*writer*/) const {}

const ClassInfo& IfcSimpleType::classInfo() const { return kIfcSimpleType; }
void IfcSimpleType::collectReferences(std::deque<IfcEntity*>& /*queue*/) const {}
SimpleValue IfcSimpleType::value() { return {}; }

}  // namespace IFC
