#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ifc/model/entity.h"

/// Questions about property sets in a model of any release. Deleted entities are never part of an
/// answer.
namespace IFC {

class Model;

/// Whether `entity` is an IfcPropertySet or an IfcElementQuantity, the two kinds of set whose
/// members can be edited.
bool isEditableSet(IfcEntity* entity);

/// The properties of a property set or the quantities of a quantity set, in file order.
std::vector<IfcEntity*> membersOf(IfcEntity* set);

/// The first member of that name, null when there is none.
IfcEntity* findMember(IfcEntity* set, std::u16string_view name);

/// The sets that a relation assigns to its objects: one, or the several of an
/// IfcPropertySetDefinitionSet.
std::vector<IfcEntity*> definitionsOf(IfcEntity* relation);

/// The objects that a relation assigns its sets to.
std::vector<IfcEntity*> objectsOf(IfcEntity* relation);

/// The GUID or the name of a rooted entity; empty for others.
std::u16string_view guidOf(IfcEntity* entity);
std::u16string_view nameOf(IfcEntity* entity);

/// The sets of every object, in the order of the relations in the file. Of sets that come with an
/// object's type none.
std::unordered_map<IfcEntity*, std::vector<IfcEntity*>> setsByObject(const Model& model);

/// The value of a single-value property or a quantity as the model holds it; all null for others
/// and where there is none. Valid as long as the property's value is not changed.
SimpleValue simpleValueOf(IfcEntity* property);

/// The value of a defined type as people read it: numbers in their shortest form with a decimal
/// point, "true", "false", "unknown". Empty for null, for a value that is not present, and for an
/// aggregate.
std::u16string valueText(IfcEntity* value);

/// Unit of the form "kg (KiloGram)", the name of a unit that is not of the SI, or the unit's class;
/// empty for null.
std::u16string unitText(IfcEntity* unit);

/// What can be shown of a single value or a quantity.
struct PropertyDisplay {
    std::u16string name;
    std::u16string value;
    std::u16string
        type;  ///< class of the value ("IfcLabel"), of the quantity, or of the property itself
    std::u16string unit;
    bool single = false;  ///< a single value or a quantity: it can be edited
};
PropertyDisplay displayOf(IfcEntity* property);

}  // namespace IFC
