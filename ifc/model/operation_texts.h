#pragma once

#include <string_view>

/// Texts of the property-set operations, word for word.
namespace texts {

inline constexpr std::u16string_view kSetNotInGuidMap =
    u"Unable to find property set in GUIDs map. GUID: ";
inline constexpr std::u16string_view kUnableToAddSet = u"Unable to add new property set: \"";
inline constexpr std::u16string_view kObjectNumer = u"\". Object numer: ";  // sic
inline constexpr std::u16string_view kNotFoundInFile = u" not found in file: ";
inline constexpr std::u16string_view kBadCastToSet = u"Bad dynamic_cast to VirtualIfcPropertySet";
inline constexpr std::u16string_view kBadCastToProperty =
    u"Bad dynamic_cast to VirtualIfcPropertySet and VIfcPropertySingleValue.";
inline constexpr std::u16string_view kSetIsNull = u"Property set is nullptr: ";
inline constexpr std::u16string_view kUnableToDelete = u"Unable to delete property: ";
inline constexpr std::u16string_view kPropertyNotFound = u". Property not found";
inline constexpr std::u16string_view kQuantity = u"Quantity: ";
inline constexpr std::u16string_view kQuantityNotFound = u" not found";
inline constexpr std::u16string_view kUnableToEdit = u"Unable to edit property in IFC file";
inline constexpr std::u16string_view kObjectGuid = u"Object GUID: ";
inline constexpr std::u16string_view kSetGuid = u"Set GUID: ";
inline constexpr std::u16string_view kPropertyName = u"Property name: ";
inline constexpr std::u16string_view kNoSetToEdit =
    u"Edit property error: ePropertySet is nullptr (EditProperty)";
inline constexpr std::u16string_view kNoGetTextFunction = u"Get text function is no set. ";  // sic
inline constexpr std::u16string_view kPredefinedSet =
    u"Predefined property sets can not be edited: ";
inline constexpr std::u16string_view kProperty = u"Property: ";
inline constexpr std::u16string_view kValueDoesNotConvert = u". The value does not convert to ";
inline constexpr std::u16string_view kStoredAs = u", it is stored as ";
inline constexpr std::u16string_view kTypeChanged = u". The value type was changed from ";
inline constexpr std::u16string_view kTo = u" to ";
inline constexpr std::u16string_view kNotANumber = u". The value is not a number of the quantity: ";
inline constexpr std::u16string_view kUnknownUnit = u". Unknown unit: ";
inline constexpr std::u16string_view kNoUnitHere =
    u". The schema has no place for a unit on this property.";
inline constexpr std::u16string_view kUnknownQuantityType = u". Unknown quantity type: ";
inline constexpr std::u16string_view kNotPartOfTheSchema = u" is not part of the schema.";
inline constexpr std::u16string_view kObjectTakesNoSet =
    u"The object can not have a property set: #";

}  // namespace texts
