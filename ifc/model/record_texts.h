#pragma once

#include <string_view>

/// Texts of units, editing records and their XML form, word for word.
namespace texts {

// Units.
inline constexpr std::u16string_view kUnknownSIPrefix = u"Unknown IfcSIPrefix";
inline constexpr std::u16string_view kUnknownSIUnitName = u"Unknown IfcSIUnitName";
inline constexpr const char* kUnknownSIPrefixText =
    "Unknown enume name in function: GetIfcSIPrefixFromWstring";  // sic
inline constexpr const char* kUnknownSIUnitNameText =
    "Unknown enume name in function: GetIfcSIUnitNameFromWstring";  // sic

// Editing records.
inline constexpr std::u16string_view kRecordCaption = u"Quillet";
inline constexpr const char* kEmptySetIdentifier =
    "SetIdentifier can not be empty in IfcPropertySet constructor.";
inline constexpr std::u16string_view kEditOfMissingProperty =
    u"IfcPropertySet::EditProperty: IfcProperty not exists in properties";  // sic
inline constexpr std::u16string_view kEditToTakenName = u"IfcPropertySet::EditProperty: Property: ";
inline constexpr std::u16string_view kEditToTakenNameEnd = u" already exists in properties";
inline constexpr std::u16string_view kDeleteOfMissingProperty =
    u"IfcPropertySet::DeleteProperty: Property: ";
inline constexpr std::u16string_view kDeleteOfMissingPropertyEnd =
    u" not exists in properties";  // sic

// Writing records as XML.
inline constexpr std::u16string_view kXmlExportErrorCaption = u"XML Export Error";
inline constexpr std::u16string_view kNoFileElement =
    u"XMLExportVisitator: Property set has to be added to file element.";
inline constexpr std::u16string_view kNoSetType =
    u"XMLExportVisitator: Set type has to be definied";  // sic

// Reading records from XML.
inline constexpr std::u16string_view kPropertyDuplication = u"Property duplication: ";
inline constexpr std::u16string_view kPropertyDuplicationOfSet = u" of set: ";
inline constexpr std::u16string_view kInvalidNumber = u"invalid stoi argument";
inline constexpr std::u16string_view kNumberOutOfRange = u"stoi argument out of range";
inline constexpr std::u16string_view kUnknownPropertyState = u"Unknown state of property: ";
inline constexpr std::u16string_view kBadTruthValue =
    u"IsValueBool is neither 0 nor 1 of property: ";
inline constexpr std::u16string_view kMissingAttribute = u"Missing attribute: ";
inline constexpr std::u16string_view kMissingPropertyName = u"Property without a name in set: ";
inline constexpr std::u16string_view kNotUnderstood = u"Not understood and not kept: ";
inline constexpr std::u16string_view kDamagedText =
    u"Text that is not UTF-8; what cannot be read is replaced: ";
inline constexpr std::u16string_view kPlaceOpen = u" (";
inline constexpr std::u16string_view kPlaceLine = u", line ";
inline constexpr std::u16string_view kPlaceClose = u")";

}  // namespace texts
