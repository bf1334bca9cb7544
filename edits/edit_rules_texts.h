#pragma once

#include <string_view>

/// Why an edit is refused: the keys of the language files, and the English words for those who have
/// none. {1}, {2}, {3} stand for the arguments of a refusal.
namespace texts {

inline constexpr const char* kObjectNotInFileKey = "object_not_in_file";
inline constexpr const char* kSetNotEditableKey = "set_not_editable";
inline constexpr const char* kSetGuidMissingKey = "set_guid_missing";
inline constexpr const char* kSetNameMissingKey = "set_name_missing";
inline constexpr const char* kSetNameTakenKey = "set_name_taken";
inline constexpr const char* kPropertyNotEditableKey = "property_not_editable";
inline constexpr const char* kPropertyNameMissingKey = "property_name_missing";
inline constexpr const char* kPropertyNameTakenKey = "property_name_taken";
inline constexpr const char* kValueMissingKey = "value_missing";
inline constexpr const char* kValueNoNumberKey = "value_is_no_number";
inline constexpr const char* kValueNoIntegerKey = "value_is_no_integer";
inline constexpr const char* kValueNoTruthValueKey = "value_is_no_truth_value";
inline constexpr const char* kValueNoLogicalKey = "value_is_no_logical";
inline constexpr const char* kValueOutOfRangeKey = "value_out_of_range";
inline constexpr const char* kValueNoTimeKey = "value_is_no_time";
inline constexpr const char* kValueNoTextKey = "value_is_no_text";
inline constexpr const char* kUnknownQuantityTypeKey = "unknown_quantity_type";
inline constexpr const char* kUnknownUnitKey = "unknown_unit";
inline constexpr const char* kUnitNotOfSIKey = "unit_not_of_si";
inline constexpr const char* kUnitNotOfTypeKey = "unit_not_of_quantity";
inline constexpr const char* kNoUnitOfTypeKey = "type_without_unit";

struct RefusalText {
    std::string_view key;
    std::u16string_view english;
};

inline constexpr RefusalText kRefusals[] = {
    {kObjectNotInFileKey,
     u"The object comes from no IFC file that is loaded, and cannot be edited: {1}"},
    {kSetNotEditableKey, u"This set has a form fixed by the IFC schema and cannot be edited: {1}"},
    {kSetGuidMissingKey, u"Property set GUID is not specified"},
    {kSetNameMissingKey, u"Enter a name for the property set."},
    {kSetNameTakenKey, u"The object has a property set of this name already: {1}"},
    {kPropertyNotEditableKey, u"Only single values and quantities can be edited: {1}"},
    {kPropertyNameMissingKey, u"Enter a name for the property."},
    {kPropertyNameTakenKey, u"The set has a property of this name already: {1}"},
    {kValueMissingKey, u"Enter a value. {1} cannot be without one."},
    {kValueNoNumberKey,
     u"\"{1}\" is no {2}. Expected: a number with a point before its decimals, such as 1234.5"},
    {kValueNoIntegerKey, u"\"{1}\" is no {2}. Expected: a whole number"},
    {kValueNoTruthValueKey, u"\"{1}\" is no {2}. Expected: yes or no (true or false)"},
    {kValueNoLogicalKey, u"\"{1}\" is no {2}. Expected: yes, no or unknown"},
    {kValueOutOfRangeKey, u"\"{1}\" is no {2}. Expected: a number {3}"},
    {kValueNoTimeKey, u"\"{1}\" is no {2}. Expected (ISO 8601): {3}"},
    {kValueNoTextKey, u"A value of type {2} cannot be entered as text: \"{1}\""},
    {kUnknownQuantityTypeKey, u"This is no type of quantity: \"{1}\". Choose one from the list."},
    {kUnknownUnitKey,
     u"\"{1}\" is no unit of the SI. Expected: one from the list, or a symbol such as mm, m2, kg"},
    {kUnitNotOfSIKey, u"\"{1}\" is no unit of the SI. Enter the value in {2}."},
    {kUnitNotOfTypeKey, u"\"{1}\" does not measure {2}. Expected: {3}, with any prefix"},
    {kNoUnitOfTypeKey, u"{2} has no unit of the SI, and \"{1}\" does not measure it."},
};

}  // namespace texts
