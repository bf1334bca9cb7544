#pragma once

/// Keys of the texts that say what is wrong with an entered set or property.
namespace texts {

inline constexpr const char* kSetNameMissingKey = "set_name_missing";
inline constexpr const char* kPropertyNameMissingKey = "property_name_missing";
inline constexpr const char* kValueMissingKey = "value_missing";
inline constexpr const char* kValueNoNumberKey = "value_is_no_number";
inline constexpr const char* kValueNoIntegerKey = "value_is_no_integer";
inline constexpr const char* kValueNoTruthValueKey = "value_is_no_truth_value";
inline constexpr const char* kUnknownQuantityTypeKey = "unknown_quantity_type";
inline constexpr const char* kUnknownUnitKey = "unknown_unit";
inline constexpr const char* kUnitMissingKey = "unit_missing";

}  // namespace texts
