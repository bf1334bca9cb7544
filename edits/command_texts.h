#pragma once

#include <string_view>

/// Texts of the edit commands, word for word.
namespace texts {

// What the host's undo list shows, before the name of the property or set.
inline constexpr std::u16string_view kUndoAddProperty = u"AddValueRow: ";
inline constexpr std::u16string_view kUndoEditProperty = u"Edit property: ";
inline constexpr std::u16string_view kUndoDeleteProperty = u"Delete property: ";
inline constexpr std::u16string_view kUndoAddPropertySet = u"Add property set: ";
inline constexpr std::u16string_view kUndoEditPropertySet = u"Edit set name: ";
inline constexpr std::u16string_view kUndoDeletePropertySet = u"Delete property set: ";

inline constexpr const char* kReplaceQuestionKey = "property_already_exists_update";

// Entities of displayed rows.
inline constexpr std::u16string_view kPropertySetEntity = u"IfcPropertySet";
inline constexpr std::u16string_view kQuantitySetEntity = u"IfcElementQuantity";

}  // namespace texts
