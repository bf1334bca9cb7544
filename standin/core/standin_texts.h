#pragma once

#include <string_view>

/// What the stand-in host says to its user. UTF-8.
namespace standin::texts {

// Files.
inline constexpr std::string_view kLine = "line ";
inline constexpr std::string_view kNoModel = "there is no model in this file";
inline constexpr std::string_view kCannotRead = "cannot be read";
inline constexpr std::string_view kNotAnArchive = "is not a project file";
inline constexpr std::string_view kBadEntryName = "has an entry whose name leads out of it: ";
inline constexpr std::string_view kBadEntry = "has an entry that cannot be read: ";
inline constexpr std::string_view kEntryTooLarge = "has an entry that is too large: ";
inline constexpr std::string_view kNoModelsInProject = "holds no model";
inline constexpr std::string_view kProjectNotAlone = "a project file is opened alone";
inline constexpr std::string_view kUnknownExtension = "is neither an IFC file nor a project file";
inline constexpr std::string_view kNothingToOpen = "no file is named";
inline constexpr std::string_view kCannotExtract = "cannot be extracted";
inline constexpr std::string_view kCannotWrite = "cannot be written";
inline constexpr std::string_view kReadOnly = "is read-only";
inline constexpr std::string_view kNoProjectPath = "the project has no file yet: name one";
inline constexpr std::string_view kNoProjectName = "is no name of a project file (.ahx)";
inline constexpr std::string_view kNothingOpen = "nothing is open";
inline constexpr std::string_view kBadDisplayEntry =
    "the displays kept in the project cannot be read; they are left out";

// Plug-in.
inline constexpr std::string_view kNoPlugin = "no plug-in is loaded";
inline constexpr std::string_view kPluginLoaded = "a plug-in is loaded already";
inline constexpr std::string_view kLacksExport = "does not export ";
inline constexpr std::string_view kOtherVersion = "speaks another version of the interface: ";

// Rules of the interface that a plug-in broke.
inline constexpr std::string_view kWrongHandle = " was called with another host handle";
inline constexpr std::string_view kUnknownId = " was called with an id that there is not: ";
inline constexpr std::string_view kNotSaving = " was called outside of a save";
inline constexpr std::string_view kNotBegun = " was called without an entry that was begun";
inline constexpr std::string_view kHostEntry = " was called for an entry that is the host's own";
inline constexpr std::string_view kUnknownButton = " was called for an item that there is not";
inline constexpr std::string_view kNullArgument = " was called with a null argument";
inline constexpr std::string_view kNegativeSize = " was called with a negative size";
inline constexpr std::string_view kOtherObject =
    "a request names another GUID or instance number than its object has";
inline constexpr std::string_view kHostFault = " failed inside the host: ";

}  // namespace standin::texts
