#pragma once

#include <string_view>

/// Texts of applying edits to a model, word for word.
namespace texts {

inline constexpr std::u16string_view kObjectWithNumber = u"Object with IFC number: ";
inline constexpr std::u16string_view kObjectNotFound = u" not found.";
inline constexpr std::u16string_view kObjectHasOtherGuid =
    u" has another GUID than the edited object: ";
inline constexpr std::u16string_view kObjectHasOtherNumber =
    u" is another object now. The edits were made on one that is found by its GUID, as #";
inline constexpr std::u16string_view kPropertySetGuid = u"Property set guid: ";
inline constexpr std::u16string_view kSetNotFound = u" not found.";
inline constexpr std::u16string_view kEmptySets =
    u"Some of the property sets have no properties. It is necessary for a property set to have at "
    u"least one property. Empty sets will not be saved.\nUnsaved empty sets: ";
inline constexpr std::u16string_view kSetStillUsed =
    u"Property set is assigned in a way that can not be removed: ";

}  // namespace texts
