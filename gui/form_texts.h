#pragma once

/// What may be wrong with a form file. Behind each stands what it is about.
namespace texts::form {

inline constexpr const char* kNotWellFormed = "not well-formed XML: ";
inline constexpr const char* kUnknownElement = "element not known here: ";
inline constexpr const char* kUnknownAttribute = "attribute not known here: ";
inline constexpr const char* kUnknownVersion = "version of forms not known: ";
inline constexpr const char* kUnknownWidget = "widget class not known: ";
inline constexpr const char* kUnknownLayout = "layout class not known: ";
inline constexpr const char* kUnknownProperty = "property not known: ";
inline constexpr const char* kMissingElement = "element missing: ";
inline constexpr const char* kMissingAttribute = "attribute missing: ";
inline constexpr const char* kSecondContent = "not possible beside what is there: ";
inline constexpr const char* kWrongValue = "value not possible: ";

}  // namespace texts::form
