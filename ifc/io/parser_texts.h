#pragma once

#include <string_view>

/// Texts and message keys of the tokenizer, the parser and the writer, word for word.
namespace texts {

inline constexpr const char* kCouldNotOpenFileExtensionKey = "could_not_open_file_extension";
inline constexpr const char* kCouldNotOpenFileWriteKey = "could_not_open_file_write";
inline constexpr const char* kUnknownSchemaIdentifierKey = "unknown_schema_identifier";
inline constexpr std::u16string_view kWriteFilePath = u"File path: ";

// Reading.
inline constexpr std::u16string_view kNoHeaderToken =
    u"Unable to read header token. No schema identifier can be read.";
inline constexpr std::u16string_view kUnableToCopy = u"Unable to create copy of file: \"";
inline constexpr std::u16string_view kUnableToReadEntity =
    u"Unable to read entity. Parsing will be terminate.\n";  // sic
inline constexpr std::u16string_view kEntityNamed = u"Entity named: ";
inline constexpr std::u16string_view kNotFound = u" not found";
inline constexpr std::u16string_view kEntityDuplicated = u"Entity duplicated: #";
inline constexpr std::u16string_view kErrorReadingEntity =
    u"Error occurred while reading entity: #";
inline constexpr std::u16string_view kWrongArgument = u"Error occurred. Wrong argument(";
inline constexpr std::u16string_view kExpected = u"Expected: ";
inline constexpr std::u16string_view kGot = u". Got: ";
inline constexpr std::u16string_view kNoESetCalled = u"Creating eSet error. No eSet called: ";
inline constexpr std::u16string_view kExistsInMap = u" exists in map of functions.";
inline constexpr std::u16string_view kEnume = u"Enume ";  // sic
inline constexpr std::u16string_view kDoesNotContain = u" does not contain: \"";
inline constexpr std::u16string_view kSurplusArgument =
    u"More arguments than the entity has attributes. Got: ";
inline constexpr std::u16string_view kNumberOutOfRange = u"Number out of range.\n";
inline constexpr std::u16string_view kMalformedNumber = u"Malformed number.\n";
inline constexpr std::u16string_view kInstanceNumberOutOfRange = u"Instance number out of range: #";
inline constexpr std::u16string_view kReferenceNotFound =
    u"Reference to an entity that does not exist: #";
inline constexpr std::u16string_view kReferenceOfWrongClass = u"Wrong reference. Expected: ";
inline constexpr std::u16string_view kUnexpectedEnd = u"Unexpected end of file in entity: #";
inline constexpr std::u16string_view kStatementNotClosed =
    u"Statement ended before its closing bracket in entity: #";
/// How the last statement begins; in a file that is cut it does not.
inline constexpr std::string_view kEndIso = "END-ISO-10303-21";
inline constexpr std::u16string_view kNoEndOfFile = u"The file ends without END-ISO-10303-21.";
inline constexpr std::u16string_view kParsingFile = u"Parsing file...";
inline constexpr std::u16string_view kReadingFirstPart = u"Reading first part of file...";
inline constexpr std::u16string_view kReadingSecondPart = u"Reading second part of file...";
inline constexpr std::u16string_view kCancelQuestion = u"Are you sure you want to cancel?";
inline constexpr std::u16string_view kCancelCaption = u"Cancel";
inline constexpr std::u16string_view kTemporarySuffix = u"_TEMP.ifc";

// GUID repair.
inline constexpr std::u16string_view kObject = u"Object ";
inline constexpr std::u16string_view kHasNoGuid = u" has no GUID. Generating new GUID: ";
inline constexpr std::u16string_view kObjectWithGuid = u"Object with GUID: \"";
inline constexpr std::u16string_view kGuidExists =
    u"\" already exists. Multiple GUIDs are not allowed. New GUID will be created for this "
    u"object: ";

// Getters of a parser that has not read a model.
inline constexpr std::u16string_view kParserNotInitialized = u"Parser is not initialized.";
inline constexpr std::u16string_view kNoFilePath =
    u"Parser is not initialized. Unable to get file path";
inline constexpr std::u16string_view kNoHeaderInfo =
    u"Parser is not initialized. Unable to get header info.";
inline constexpr std::u16string_view kNoUnitAssignment =
    u"Parser is not initialized. Unable to get IfcUnitAssignment.";
inline constexpr std::u16string_view kNoOwnerHistory =
    u"Parser is not initialized. Unable to get IfcOwnerHistory.";
inline constexpr std::u16string_view kNoIso = u"Parser is not initialized. Unable to get ISO.";
inline constexpr std::u16string_view kNoMemoryPool =
    u"Parser is not initialized. Unable to get MemmoryPool.";  // sic
inline constexpr std::u16string_view kParserEmpty = u"Parser is empty.";

// Writing.
inline constexpr std::u16string_view kErrorWritingEntity =
    u"Error occurred while writing entity: #";

}  // namespace texts
