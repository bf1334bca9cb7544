#pragma once

#include <string_view>

/// Texts of edits of many objects, word for word.
namespace texts {

inline constexpr const char* kEditManyUndoKey = "edit_many";
inline constexpr const char16_t* kEditManyUndo = u"Edit many objects";
inline constexpr std::u16string_view kSiteEntity = u"IfcSite";
inline constexpr std::u16string_view kObjectOfNoFile =
    u"The object comes from no loaded file and can not be edited: ";
inline constexpr std::u16string_view kSetNotEditable = u"The set can not be edited: ";
inline constexpr std::u16string_view kPropertyNotEditable = u"The property can not be edited: ";
inline constexpr std::u16string_view kNameTaken = u"The set has a property of that name already: ";
inline constexpr std::u16string_view kOfObject = u", object: ";

}  // namespace texts
