#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "ifc/model/cast_cache.h"
#include "ifc/model/entity_table.h"
#include "ifc/model/memory_pool.h"

namespace IFC {

/// What an AttributeReader needs of the model being read, and whom it tells about trouble. The
/// parser implements it.
class ReadContext {
public:
    ReadContext(MemoryPool& modelPool, EntityTable& modelEntities)
        : pool(modelPool), entities(modelEntities) {}
    virtual ~ReadContext() = default;
    ReadContext(const ReadContext&) = delete;
    ReadContext& operator=(const ReadContext&) = delete;

    /// expected, found: token class names.
    virtual void wrongArgument(const char16_t* expected, const char16_t* found) = 0;
    virtual void surplusArgument(const char16_t* found) = 0;
    virtual void unknownEnumerationValue(std::string_view enumeration, std::string_view value) = 0;
    virtual void numberOutOfRange() = 0;
    virtual void malformedNumber() = 0;
    virtual void missingReference(std::int64_t number) = 0;
    /// Whether the file has an instance of that number which the model has not, because its type is
    /// unknown.
    virtual bool wasLeftOut(std::int64_t number) const = 0;
    /// `target` is not of the class that the attribute declares.
    virtual void wrongReference(const IfcEntity& target, const ClassInfo& declared) = 0;
    /// A typed value's name that the release does not know, or that is an entity's.
    virtual void unknownValueType(std::string_view name) = 0;
    /// Looks a value class up by its upper-case name. @return null, unreported, when there is none.
    virtual const ClassInfo* findValueClass(std::string_view name) = 0;

    /// A reference from the instance being read to a property, a quantity or a set of them: kept so
    /// that sharing can be found out without visiting every entity of the model.
    void noteEditableReference() {
        if (editableOwners.empty() || editableOwners.back() != owner)
            editableOwners.push_back(owner);
    }

    MemoryPool& pool;
    EntityTable& entities;
    CastCache casts;
    IfcEntity* owner = nullptr;  ///< the instance being read
    std::vector<IfcEntity*> editableOwners;
    /// Set when a reference of the instance being read could not be bound; it is read once more
    /// when all are known.
    bool needsSecondPass = false;
    /// Second reading: everything but references was reported the first time.
    bool bindingPass = false;
};

}  // namespace IFC
