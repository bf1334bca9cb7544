#pragma once

#include <string>

#include "ifc/model/property_set_record.h"

/// One editing record as XML, the part of the edit log that both its writer and its reader know:
///
///   <IfcPropertySet Name="Pset_WallCommon" GUID="0uNK..." ObjectGUID="2O2F..." IfcId="412"
///   Type="Edited">
///       <IfcProperty State="2" IsValueBool="0">
///           <InitialName>Reference</InitialName> <Name>Reference</Name> <Value>W-12</Value>
///           <QuantityType/> <IfcEntityName>IfcLabel</IfcEntityName> <Prefix/> <Unit/>
///       </IfcProperty>
///   </IfcPropertySet>
///
/// GUID is the set's, IfcId the object's instance number, Type is "New", "Edited" or "Deleted",
/// State a PropertyState. An edited set carries the properties that were touched; its Name is the
/// new one where the set was renamed.
namespace IFC::xml_format {

inline constexpr const char* kSetElement = "IfcPropertySet";
inline constexpr const char* kName = "Name";
inline constexpr const char* kGuid = "GUID";
inline constexpr const char* kObjectGuid = "ObjectGUID";
inline constexpr const char* kIfcId = "IfcId";
inline constexpr const char* kType = "Type";

inline constexpr const char* kPropertyElement = "IfcProperty";
inline constexpr const char* kState = "State";
inline constexpr const char* kIsValueBool = "IsValueBool";

/// A child of "IfcProperty" that holds one text.
struct PropertyText {
    const char* element;
    std::u16string IfcProperty::*field;
};
inline constexpr PropertyText kPropertyTexts[] = {
    {"InitialName", &IfcProperty::initialName},
    {"Name", &IfcProperty::name},
    {"Value", &IfcProperty::value},
    {"QuantityType", &IfcProperty::quantityType},
    {"IfcEntityName", &IfcProperty::entityName},
    {"Prefix", &IfcProperty::prefix},
    {"Unit", &IfcProperty::unit},
};

}  // namespace IFC::xml_format
