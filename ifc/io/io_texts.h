#pragma once

#include <string_view>

/// Texts and message keys of the IFC file access, word for word.
namespace texts {

// Streams.
inline constexpr std::u16string_view kMemoryAllocationError = u"Memory allocation error";
inline constexpr std::u16string_view kCouldNotReadFile = u"Could not read file: ";
inline constexpr std::u16string_view kCouldNotReadZip = u"Could not read from zip archive: ";
inline constexpr std::u16string_view kCouldNotOpenZip = u"Could not open zip archive: ";
inline constexpr std::u16string_view kCouldNotGoToFirstFile =
    u"Could not go to first file in zip archive";
inline constexpr std::u16string_view kCouldNotGoToSpecifiedFile =
    u"Could not go to specified file in zip archive. File path: ";
inline constexpr std::u16string_view kCouldNotOpenFirstFile =
    u"Could not open first file in zip archive";
inline constexpr const char* kCouldNotOpenFileKey = "could_not_open_file";
inline constexpr std::u16string_view kFilePath = u". File path: ";
inline constexpr std::u16string_view kReopenFailed = u"Reopen failed.";
inline constexpr std::u16string_view kCouldNotWriteToFile = u"Could not write to file";
inline constexpr const char* kUnableToWrite = "Unable to write to file";
inline constexpr const char* kUnableToMovePointer =
    "Write to file error. Unable to move pointer below 0.";
inline constexpr std::u16string_view kCouldNotCreateZip = u"Could not open or create zip archive";
inline constexpr std::u16string_view kCouldNotOpenFileInZip = u"Could not open file in zip archive";
inline constexpr std::u16string_view kUnableToAllocate =
    u"Unable to alloc enought memory. Try to use 64-bit Arvenhold.";  // sic
inline constexpr std::u16string_view kCouldNotWriteToZip = u"Could not write to zip file";
inline constexpr std::u16string_view kOutOfMemory =
    u"Not enough memory space. Try to run 64-bit Arvenhold";

// File names.
inline constexpr std::u16string_view kIfcExtension = u".ifc";
inline constexpr std::u16string_view kIfcZipExtension = u".ifczip";
inline constexpr std::u16string_view kAhxExtension = u".ahx";
inline constexpr std::u16string_view kLogSuffix = u"_IFC_LOG.txt";

// Log file and utilities: the lines of the log, and the captions and texts of message boxes.
inline constexpr std::u16string_view kReadingEntity = u"Reading entity: #";
inline constexpr std::u16string_view kDone = u"Done.";
inline constexpr std::u16string_view kIfcLibCaption = u"IFC lib";
inline constexpr std::u16string_view kLogFileIsClosed = u"LogFile is closed.";
inline constexpr std::u16string_view kLogFileErrorCaption = u"Log file error";
inline constexpr std::u16string_view kCouldNotCreateLogFile = u"Could not create log file: ";
inline constexpr std::u16string_view kLogStreamErrorCaption = u"Logfile error";
inline constexpr std::u16string_view kUtilsCaption = u"Utils";
inline constexpr std::u16string_view kCreateGuidReturnedNull = u"CreateGUID function returned NULL";
inline constexpr std::u16string_view kUtilsErrorCaption = u"Utils error";
inline constexpr std::u16string_view kUnableToConvertToDouble =
    u"Unable to convert std::wstring to double. Returning 0.";

}  // namespace texts
