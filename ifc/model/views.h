#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "ifc/model/entity.h"

/// What the editing code sees of the generated classes of any release: one abstract class per kind
/// of object, reached by dynamic_cast from an IfcEntity. No view holds data. Texts given to a
/// setter are copied into `pool`, which is the model's; a null entity stands for "not set". Setters
/// that take an IfcEntity return false, and change nothing, when it is not of the class that the
/// attribute declares.
namespace IFC {

/// IfcRoot and so every rooted entity.
class VirtualIfcRoot : public virtual IfcEntity {
public:
    /// Each argument is applied only when it is given (non-null).
    virtual void setRootAttributes(MemoryPool& pool, const std::u16string_view* globalId,
                                   IfcEntity* ownerHistory, const std::u16string_view* name) = 0;
    /// Empty when not present.
    virtual std::u16string_view globalId() const = 0;
    virtual void setGlobalId(MemoryPool& pool, std::u16string_view globalId) = 0;
    /// Empty when not present.
    virtual std::u16string_view name() const = 0;
};

/// IfcProduct and its subtypes.
class VirtualIfcProduct : public virtual IfcEntity {
public:
    virtual IfcEntity* objectPlacement() const = 0;
};

/// IfcProject.
class IfcProjectVirtual : public virtual IfcEntity {
public:
    virtual IfcEntity* unitsInContext() const = 0;
};

/// IfcPropertySet.
class VirtualIfcPropertySet : public virtual IfcEntity {
public:
    /// Appends the properties in file order.
    virtual void properties(std::vector<IfcEntity*>& out) const = 0;
    /// Appends to the list.
    virtual bool addProperty(MemoryPool& pool, IfcEntity* property) = 0;
    /// Puts `replacement` in the place of `property`, or takes `property` out when it is null.
    virtual bool replaceProperty(MemoryPool& pool, IfcEntity* property, IfcEntity* replacement) = 0;
};

/// IfcElementQuantity.
class VIfcElementQuantitySet : public virtual IfcEntity {
public:
    /// Appends the quantities in file order.
    virtual void quantities(std::vector<IfcEntity*>& out) const = 0;
    /// Puts `replacement` in the place of `quantity`; a null `quantity` appends, a null
    /// `replacement` takes out.
    virtual bool replaceQuantity(MemoryPool& pool, IfcEntity* quantity, IfcEntity* replacement) = 0;
};

/// IfcRelDefinesByProperties and, where the release has it, IfcRelOverridesProperties.
class VirtualPropertyRelation : public virtual IfcEntity {
public:
    virtual bool addRelatedObject(MemoryPool& pool, IfcEntity* object) = 0;
    virtual bool setRelatingPropertyDefinition(IfcEntity* definition) = 0;
    /// Appends the related objects in file order.
    virtual void relatedObjects(std::vector<IfcEntity*>& out) const = 0;
    /// @return whether an object with that GUID was among them.
    virtual bool removeRelatedObject(MemoryPool& pool, std::u16string_view globalId) = 0;
    /// The set, or the value that stands for several sets.
    virtual IfcEntity* relatingPropertyDefinition() const = 0;
};

/// The same classes, where one change concerns many objects.
class VirtualRelatedObjects : public virtual IfcEntity {
public:
    /// Makes `objects` the related objects, in one pass however many they are.
    virtual bool setRelatedObjects(MemoryPool& pool, std::span<IfcEntity* const> objects) = 0;
};

/// IfcRelOverridesProperties: gives its objects other values than the relating set has.
class VirtualOverridingRelation : public virtual IfcEntity {
public:
    /// Appends the overriding properties in file order.
    virtual void overridingProperties(std::vector<IfcEntity*>& out) const = 0;
    /// Puts `replacement` in the place of `property`; a null `property` appends, a null
    /// `replacement` takes out.
    virtual bool replaceOverridingProperty(MemoryPool& pool, IfcEntity* property,
                                           IfcEntity* replacement) = 0;
};

/// IfcTypeObject and its subtypes.
class VirtualIfcTypeObject : public virtual IfcEntity {
public:
    /// Appends the sets that the type has as its own, in file order.
    virtual void propertySets(std::vector<IfcEntity*>& out) const = 0;
    /// Puts `replacement` in the place of `set`; a null `set` appends, a null `replacement` takes
    /// out. The attribute is not set any more once the last one is out.
    virtual bool replacePropertySet(MemoryPool& pool, IfcEntity* set, IfcEntity* replacement) = 0;
};

/// IfcRelDefinesByType.
class VirtualTypeRelation : public virtual IfcEntity {
public:
    virtual IfcEntity* relatingType() const = 0;
    /// Appends the occurrences of the type in file order.
    virtual void relatedObjects(std::vector<IfcEntity*>& out) const = 0;
};

/// Relations that attach something to sets or properties without using them: classifications,
/// documents, approvals, constraints, declarations, templates.
class VirtualAttachment : public virtual IfcEntity {
public:
    /// Appends what it is attached to, in file order.
    virtual void attachedTo(std::vector<IfcEntity*>& out) const = 0;
};

/// IfcProperty and IfcPhysicalQuantity with all subtypes.
class VIfcProperty : public virtual IfcEntity {
public:
    virtual std::u16string_view propertyName() const = 0;
    virtual void setPropertyName(MemoryPool& pool, std::u16string_view name) = 0;
};

/// Objects that can make a copy of themselves.
class Prototype : public virtual IfcEntity {
public:
    /// A new object of the same class in `pool` with the same attribute values; lists and texts are
    /// shared, which is safe because they are never changed in place. The number is the original's
    /// until the caller gives another.
    virtual IfcEntity* clone(MemoryPool& pool) const = 0;
};

/// IfcComplexProperty and IfcPhysicalComplexQuantity.
class VComplexProperty : public virtual VIfcProperty, public virtual Prototype {
public:
    /// Appends the properties or quantities that it is made of, in file order.
    virtual void members(std::vector<IfcEntity*>& out) const = 0;
    /// Puts `replacement` in the place of `member`; a null `member` appends, a null `replacement`
    /// takes out.
    virtual bool replaceMember(MemoryPool& pool, IfcEntity* member, IfcEntity* replacement) = 0;
};

/// IfcPropertySingleValue.
class VIfcPropertySingleValue : public virtual VIfcProperty, public virtual Prototype {
public:
    /// The value entity (IfcSimpleType), or null.
    virtual IfcEntity* nominalValue() const = 0;
    virtual bool setNominalValue(IfcEntity* value) = 0;
    virtual IfcEntity* unit() const = 0;
    virtual bool setUnit(IfcEntity* unit) = 0;
};

/// IfcQuantityArea, …Count, …Length, …Time, …Volume, …Weight and …Number.
class VQuantityProperty : public virtual VIfcProperty, public virtual Prototype {
public:
    /// The attribute that holds the quantity's value: `real` or `integer` is set. Never null
    /// otherwise.
    virtual SimpleValue quantityValue() = 0;
    virtual IfcEntity* quantityUnit() const = 0;
    /// Also false when the release has no unit on quantities.
    virtual bool setQuantityUnit(IfcEntity* unit) = 0;
};

/// IfcUnitAssignment.
class VirtualIfcUnitAssignment : public virtual IfcEntity {
public:
    /// Appends the units in file order.
    virtual void units(std::vector<IfcEntity*>& out) const = 0;
};

/// IfcNamedUnit and its subtypes, IfcDerivedUnit and IfcMonetaryUnit. Shares its name with the
/// schema's select, from which it is distinct.
class IfcUnit : public virtual IfcEntity {
public:
    /// The name of the unit's type without dots ("LENGTHUNIT"); empty when it has none
    /// (IfcMonetaryUnit).
    virtual std::string_view unitType() const = 0;
};

/// IfcSIUnit.
class VirtualIfcSIUnit : public virtual IfcEntity {
public:
    /// unitType, unitName: enumeration names without dots; prefix: likewise, or empty for none.
    /// @return false, with nothing changed, when a name is not in the release's lists.
    virtual bool setSIUnit(std::string_view unitType, std::string_view prefix,
                           std::string_view unitName) = 0;
    virtual std::string_view prefix() const = 0;
    virtual std::string_view unitName() const = 0;
};

/// IfcConversionBasedUnit, IfcContextDependentUnit and IfcMonetaryUnit (its currency): units known
/// by a name.
class VirtualNamedUnit : public virtual IfcEntity {
public:
    virtual std::u16string_view displayName() const = 0;
};

/// IfcLocalPlacement.
class VirtualLocalPlacement : public virtual IfcEntity {
public:
    virtual IfcEntity* placementRelativeTo() const = 0;
    virtual IfcEntity* relativePlacement() const = 0;
};

/// IfcAxis2Placement3D.
class VirtualIfcAxis2Placement3D : public virtual IfcEntity {
public:
    virtual IfcEntity* location() const = 0;
    virtual IfcEntity* axis() const = 0;
    virtual IfcEntity* refDirection() const = 0;
};

/// IfcCartesianPoint; lengths in the project's length unit.
class VirtualIfcCartesianPoint : public virtual IfcEntity {
public:
    virtual std::span<const double> coordinates() const = 0;
};

/// IfcDirection.
class VirtualIfcDirection : public virtual IfcEntity {
public:
    virtual std::span<const double> directionRatios() const = 0;
};

/// IfcExtrudedAreaSolid; depth in the project's length unit.
class VirtualGeometricRepresentation : public virtual IfcEntity {
public:
    virtual double extrusionDepth() const = 0;
};

}  // namespace IFC
