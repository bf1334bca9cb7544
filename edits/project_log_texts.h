#pragma once

#include <string_view>

/// Texts of the edit log in the host's project file, word for word.
namespace texts {

inline constexpr const char16_t* kProjectLogEntry = u"Data.xml";
inline constexpr std::u16string_view kProjectLogCaption = u"Quillet";
inline constexpr std::u16string_view kNoProjectPath =
    u"Could not get project path from Arvenhold for file: ";

inline constexpr std::u16string_view kUnreadLogKept =
    u"Nothing of it is used. Its text stays in the project file, behind the edits that are saved "
    u"from now on.";
inline constexpr std::u16string_view kSetsLeftOutKept =
    u"Sets of Data.xml that can not be used stay in the project file, behind the edits that are "
    u"saved from now on.";
inline constexpr std::u16string_view kEntryNotReadable =
    u"Data.xml of the project file could not be read. Its edits are not loaded.";
inline constexpr std::u16string_view kOverwriteQuestion =
    u"Data.xml of the project file could not be read when the project was opened. Its edits will "
    u"be "
    u"lost if the edits of this session are saved in their place. Save them?";

inline constexpr std::u16string_view kNotAssigned =
    u"Edits that belong to nothing that is loaded are kept in the project file:";
inline constexpr std::u16string_view kFileNotLoaded = u" (the file is not loaded)";
inline constexpr std::u16string_view kUnknownObjects = u" (objects not found: ";
inline constexpr std::u16string_view kUnknownObjectsEnd = u")";

/// Behind the name of a property that makes room for another one for a moment.
inline constexpr std::u16string_view kNameAside = u" ...";

}  // namespace texts
