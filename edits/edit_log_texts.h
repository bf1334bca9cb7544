#pragma once

#include <string_view>

/// Texts of the edit log, word for word.
namespace texts {

inline constexpr std::u16string_view kEditLogName = u"Data.xml";
inline constexpr std::u16string_view kParsingXmlError =
    u"on_model_load_v2: Parsing XML in AHX error";
inline constexpr std::u16string_view kParsingXmlErrorReason = u": ";
inline constexpr std::u16string_view kZeroByte = u"it holds a character of value zero";
inline constexpr std::u16string_view kBadReference =
    u"a character reference stands for no character";
inline constexpr std::u16string_view kEndWithoutStart = u"an end tag has no start tag";
inline constexpr std::u16string_view kTooManyAttributes = u"an element has too many attributes";
inline constexpr std::u16string_view kGuidDuplication = u"Guid duplication of set: ";
inline constexpr std::u16string_view kMissingFileName = u"File element without a FileName";
inline constexpr std::u16string_view kUnknownSetType = u"Unknown type of set: ";
/// Begins the comments that keep what could not be read.
inline constexpr std::string_view kUnreadComment = "<!--Quillet keeps what it could not read: ";
inline constexpr std::string_view kUnreadCommentEnd = " -->\n";
inline constexpr std::u16string_view kOtherObjectGuid =
    u"The object's GUID differs from an earlier one of the same IfcId; the earlier one is kept. "
    u"Set: ";

}  // namespace texts
