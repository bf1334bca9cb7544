#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <span>

#include "ifc/model/class_info.h"
#include "ifc/model/values.h"

namespace IFC {

class AttributeReader;
class AttributeWriter;
class EnumerationInfo;
class MemoryPool;

/// Ordered set of entities, by address, in the model's pool. Small: most hold one element.
class EntitySet {
public:
    /// @return whether `entity` was new.
    bool insert(MemoryPool& pool, IfcEntity* entity);
    /// @return whether `entity` was there.
    bool erase(IfcEntity* entity);
    std::span<IfcEntity* const> view() const { return {items_, count_}; }

private:
    IfcEntity** items_ = nullptr;
    std::uint32_t count_ = 0;
    std::uint32_t capacity_ = 0;
};

/// What only few entities of a model have, kept beside them so that the others stay small.
struct EntityLinks {
    EntitySet referencing;  ///< entities whose attributes point to this one
};

/// Root of every object that stands in a DATA section. Always inherited virtually: one object has
/// one IfcEntity part however many supertypes, views and selects lead to it.
class IfcEntity {
public:
    /// Instance number of an entity that an edit removed; the writer leaves it out.
    static constexpr std::int32_t kDeleted = -9;

    IfcEntity() noexcept = default;
    /// Copies the attributes' owner, not its links: nobody refers to the copy yet.
    IfcEntity(const IfcEntity& other) noexcept : id_(other.id_), created_(other.created_) {}
    IfcEntity& operator=(const IfcEntity&) = delete;

    // Slot order is fixed.
    virtual ~IfcEntity() noexcept;
    /// The class of the object; its `name` is the type name.
    virtual const ClassInfo& classInfo() const = 0;
    /// True for entities, false for values of defined types.
    virtual bool isComplex() const = 0;
    /// Appends every entity that an attribute points to, the supertype's first, nulls left out.
    virtual void collectReferences(std::deque<IfcEntity*>& queue) const = 0;
    /// Reads the attributes in file order, the supertype's first; may be called again on the same
    /// object.
    virtual void readAttributes(AttributeReader& reader) = 0;
    /// Writes the attributes in file order, each followed by a comma.
    virtual void writeAttributes(AttributeWriter& writer) const = 0;
    /// True for a value that stands for several entities (IfcPropertySetDefinitionSet).
    virtual bool holdsReferences() const = 0;

    const char16_t* typeName() const { return classInfo().name; }

    /// Instance number (#n); 0 before one is given, kDeleted when removed.
    std::int32_t id() const { return id_; }
    /// Throws std::runtime_error for a number below 1.
    void setId(std::int32_t number);
    bool isDeleted() const { return id_ == kDeleted; }
    void markDeleted() { id_ = kDeleted; }

    /// Set on values that an edit made.
    bool created() const { return created_; }
    void setCreated() { created_ = true; }

    /// Entities that refer to this one, as far as the model has recorded them.
    std::span<IfcEntity* const> referencing() const;
    EntityLinks& links(MemoryPool& pool);

private:
    std::int32_t id_ = 0;
    bool created_ = false;
    EntityLinks* links_ = nullptr;
};

/// Base of all entity classes.
class IfcComplexType : public virtual IfcEntity {
public:
    const ClassInfo& classInfo() const override;
    bool isComplex() const override { return true; }
    void collectReferences(std::deque<IfcEntity*>& queue) const override;
    void readAttributes(AttributeReader& reader) override;
    void writeAttributes(AttributeWriter& writer) const override;
    bool holdsReferences() const override { return false; }
};

/// The value inside an IfcSimpleType: exactly one pointer is set; `enumerationInfo` goes with
/// `enumeration`.
struct SimpleValue {
    Text* text = nullptr;
    Real* real = nullptr;
    Integer* integer = nullptr;
    Logical* logical = nullptr;
    Binary* binary = nullptr;
    Enumeration* enumeration = nullptr;
    const EnumerationInfo* enumerationInfo = nullptr;
};

/// Base of the value classes that stand for the schema's defined types.
class IfcSimpleType : public virtual IfcEntity {
public:
    const ClassInfo& classInfo() const override;
    bool isComplex() const override { return false; }
    void collectReferences(std::deque<IfcEntity*>& queue) const override;
    bool holdsReferences() const override { return false; }
    /// Where the value lies; all null for an aggregate. The pointers live as long as the object.
    virtual SimpleValue value();
};

}  // namespace IFC
