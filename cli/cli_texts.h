#pragma once

#include <string_view>

/// All texts of the command line. Narrow ones are UTF-8 and printed as they are, wide ones are
/// parts of reports.
namespace cli::texts {

inline constexpr std::string_view kProgramName = "quillet-cli";

// What stands behind the library's message keys.
struct KeyText {
    std::string_view key;
    std::u16string_view text;
};
inline constexpr KeyText kKeyTexts[] = {
    {"could_not_open_file", u"The file could not be opened"},
    {"could_not_open_file_extension",
     u"This is no extension of an IFC file (.ifc, .ifczip, .ahx|entry):"},
    {"could_not_open_file_write", u"The file could not be written."},
    {"file_in_use", u"Another program has the file open."},
    {"file_access_denied", u"Access to the file or its folder is denied."},
    {"file_folder_missing", u"The folder does not exist."},
    {"file_disk_full", u"The disk is full."},
    {"file_other_trouble", u"The system says:"},
    {"unknown_schema_identifier", u"The schema is none of those that can be read:"},
};

// Reports.
inline constexpr std::u16string_view kLineJoint = u"; ";
inline constexpr std::string_view kMoreBegin = "… ";
inline constexpr std::string_view kMoreEnd = " more like this: ";
inline constexpr std::string_view kOutOfMemoryLine = "quillet-cli: there is not enough memory\n";
inline constexpr std::u16string_view kNoSuchObject = u"The file has no such object: ";
inline constexpr std::u16string_view kNoSuchType = u"The schema has no such entity: ";
inline constexpr std::u16string_view kNoObjectOfType = u"The file has no object of type ";
inline constexpr std::u16string_view kNoSuchValueType = u"The schema has no such value type: ";
inline constexpr std::u16string_view kCanNotReadEdits = u"The file could not be read.";
inline constexpr std::u16string_view kNoEditsForFile = u"It holds no edits for ";
inline constexpr std::u16string_view kEditsAreFor = u". It holds edits for: ";
inline constexpr std::u16string_view kEditsAreForNone = u". It holds none at all.";
inline constexpr std::u16string_view kOutputIsInput =
    u"This file is read by the command; --force allows to replace it.";
inline constexpr std::u16string_view kEditsFileExists =
    u"The file exists; --force allows to replace it.";
inline constexpr std::u16string_view kEditsFileIsModel =
    u"The edits can not be kept in a file that the command reads or writes.";
inline constexpr std::u16string_view kNothingDone =
    u"None of the edits could be done as asked; the output was not written.";
inline constexpr std::u16string_view kNoSet = u"The object has no such set: ";
inline constexpr std::u16string_view kNoProperty = u"The set has no such property: ";
inline constexpr std::u16string_view kHasProperty =
    u"The set has a property of that name already: ";
inline constexpr std::u16string_view kHasSet = u"The object has a set of that name already: ";
inline constexpr std::u16string_view kNotEditable =
    u"Only single values and quantities can be edited: ";
inline constexpr std::u16string_view kNoValueTypeHere = u"A quantity takes no --value-type: ";
inline constexpr std::u16string_view kTypeSetIsShared =
    u"The set belongs to a type and is used elsewhere too, it can not be edited: ";
inline constexpr std::u16string_view kTypeTakesNoSet = u"A type can not be given a new set: ";

// Wrong usage.
inline constexpr std::u16string_view kUnknownCommand = u"there is no such command: ";
inline constexpr std::u16string_view kUnknownOption = u"there is no such option here: ";
inline constexpr std::u16string_view kOptionTakesNoValue = u"the option takes no value: ";
inline constexpr std::u16string_view kOptionNeedsValue = u"the option needs a value: ";
inline constexpr std::u16string_view kOptionGivenTwice = u"the option is given twice: ";
inline constexpr std::u16string_view kOptionMissing = u"needed and not given: ";
inline constexpr std::u16string_view kOptionWithout = u" can not be given without ";
inline constexpr std::u16string_view kOptionWith = u" can not be given together with ";
inline constexpr std::u16string_view kOptionOr = u" or ";
inline constexpr std::u16string_view kOperandMissing = u"too few files are given, needed are: ";
inline constexpr std::u16string_view kOperandTooMany = u"this is one operand too many: ";
inline constexpr std::u16string_view kEmptyName = u"a name can not be empty: ";
inline constexpr std::u16string_view kEmptyValue =
    u"a value can not be set to nothing; delete the property, or give it a blank";
inline constexpr std::u16string_view kNoSuchUnit = u"there is no such SI unit or prefix: ";
inline constexpr std::string_view kSeeHelp = "Try ";

// Progress and the closing line.
inline constexpr std::string_view kReading = "Reading";
inline constexpr std::string_view kReadingAgain = "Reading, second pass";
inline constexpr std::string_view kWriting = "Writing";
inline constexpr std::string_view kNotDone = "not done";
inline constexpr std::string_view kCancelled = "cancelled, nothing was written";
inline constexpr std::u16string_view kWritten = u" written";
inline constexpr std::u16string_view kSetChanged = u" set changed";
inline constexpr std::u16string_view kSetsChanged = u" sets changed";
inline constexpr std::string_view kOneReport = " report";
inline constexpr std::string_view kSomeReports = " reports";
inline constexpr std::string_view kOutputLost =
    "quillet-cli: the standard output could not be written\n";

// info.
inline constexpr std::string_view kFile = "File";
inline constexpr std::string_view kRelease = "Release";
inline constexpr std::string_view kDescription = "Description";
inline constexpr std::string_view kImplementationLevel = "Implementation level";
inline constexpr std::string_view kName = "Name";
inline constexpr std::string_view kTimeStamp = "Time stamp";
inline constexpr std::string_view kAuthor = "Author";
inline constexpr std::string_view kOrganization = "Organization";
inline constexpr std::string_view kPreprocessorVersion = "Preprocessor";
inline constexpr std::string_view kOriginatingSystem = "Originating system";
inline constexpr std::string_view kAuthorization = "Authorization";
inline constexpr std::string_view kSchemaIdentifier = "Schema";
inline constexpr std::string_view kInstances = "Instances";
inline constexpr std::string_view kReportedWhileReading = "Reported while reading";
inline constexpr std::string_view kTimes = " x ";
inline constexpr std::u16string_view kListJoint = u", ";

// psets.
inline constexpr std::string_view kUnitOfProject = " (the project's)";
inline constexpr std::u16string_view kPropertySource = u"property";
inline constexpr std::u16string_view kProjectSource = u"project";

// Help.
inline constexpr std::string_view kUsage = "usage: ";
inline constexpr std::string_view kUsageOptions = " [OPTIONS]\n";
inline constexpr std::string_view kExample = "\nExample:\n  ";
inline constexpr std::string_view kProgramHelpBegin =
    " COMMAND ...\n\n"
    "Shows and edits property sets and quantities of IFC models (.ifc, .ifczip, or an entry of a\n"
    "project archive: project.ahx|model.ifc). A model is never changed in place: commands that "
    "edit\n"
    "write a new one.\n\n"
    "Commands:\n";
inline constexpr std::string_view kProgramHelpEnd =
    "\n"
    "  COMMAND --help        what a command does, with an example\n"
    "  --version             the program's version\n\n"
    "Reports go to the standard error as FILE:LINE: #INSTANCE: text.\n"
    "Exit status: 0 done, 1 done with reports, 2 not done.\n";

inline constexpr std::string_view kHelpHelp = "show this text";
inline constexpr std::string_view kQuietHelp =
    "no progress and no closing line; reports are still shown";
inline constexpr std::string_view kAllReportsHelp = "show all reports, not only 20 of each kind";
inline constexpr std::string_view kLogHelp = "write a log beside the model (MODEL_IFC_LOG.txt)";
inline constexpr std::string_view kJsonHelp = "print JSON (UTF-8)";
inline constexpr std::string_view kForceHelp =
    "allow OUTPUT to be a file that the command reads; it is replaced\n"
    "when the new one is complete";
inline constexpr std::string_view kForceEditsHelp =
    "allow OUTPUT to be MODEL itself, which is replaced when the new\n"
    "model is complete, and --edits to replace a file";
inline constexpr std::string_view kEntryHelp =
    "apply the edits that EDITS holds for the file NAME, when MODEL\n"
    "has another name";
inline constexpr std::string_view kObjectHelp =
    "GUID or instance number (65 or '#65') of an object; may be given\n"
    "several times";
inline constexpr std::string_view kTypeHelp =
    "all objects of exactly this type (IfcWall), without its subtypes";
inline constexpr std::string_view kSetHelp =
    "name of the property or quantity set; where an object has several\n"
    "of that name, all are meant";
inline constexpr std::string_view kPropertyHelp = "name of the property or quantity";
inline constexpr std::string_view kValueHelp =
    "the new value: text, a number with a decimal point, true or false";
inline constexpr std::string_view kValueTypeHelp =
    "type of the value (IfcLabel, IfcReal, IfcBoolean ...); otherwise a\n"
    "property keeps its type, and a new one is an IfcLabel";
inline constexpr std::string_view kQuantityHelp =
    "add a quantity of this type (IfcQuantityLength) to a quantity set";
inline constexpr std::string_view kUnitHelp =
    "SI unit of the value (METRE, SQUARE_METRE, GRAM ...)";
inline constexpr std::string_view kPrefixHelp = "prefix of the unit (MILLI, KILO ...)";
inline constexpr std::string_view kNewNameHelp = "the new name";
inline constexpr std::string_view kEditsHelp = "keep the edits in this file, for the command apply";

inline constexpr std::string_view kInfoSummary =
    "show the header, the release and what a model holds";
inline constexpr std::string_view kInfoHelp =
    "Shows the header, the schema release, the number of instances, and how many there are of "
    "each\n"
    "type, and what was reported while the model was read.\n";
inline constexpr std::string_view kInfoExample = "info house.ifc --json";

inline constexpr std::string_view kSetsSummary = "show property sets and quantities";
inline constexpr std::string_view kSetsHelp =
    "Shows the property sets and quantities of every object that has some, or of the objects named "
    "by\n"
    "GUID or instance number (65 or '#65'). A type shows its own sets when it is named. "
    "Properties\n"
    "with several values (enumerated, list, bounded, table, complex, reference) are shown as STEP\n"
    "text. A value's unit is its own, else the project's for that measure. In JSON a value is a\n"
    "number, true, false, text (\"unknown\" for a logical that is) or null; \"unitSource\" says "
    "whose\n"
    "\"unit\" it is: \"property\" or \"project\".\n";
inline constexpr std::string_view kSetsExample = "psets house.ifc 2lRHoiKY1zep8VptXbaLxz";

inline constexpr std::string_view kApplySummary = "apply logged edits and write a new model";
inline constexpr std::string_view kApplyHelp =
    "Applies the edits that EDITS (XML) holds for the file of this name, and writes OUTPUT, as "
    ".ifc or\n"
    ".ifczip by its extension. An existing OUTPUT is replaced.\n";
inline constexpr std::string_view kApplyExample = "apply house.ifc edits.xml house_edited.ifc";

inline constexpr std::string_view kCopySummary = "read a model and write it again";
inline constexpr std::string_view kCopyHelp =
    "Reads MODEL and writes OUTPUT, as .ifc or .ifczip by its extension. An existing OUTPUT is\n"
    "replaced.\n";
inline constexpr std::string_view kCopyExample = "copy house.ifczip house_unpacked.ifc";

inline constexpr std::string_view kEditHelp =
    "The objects are named by --object or --type. OUTPUT is written as .ifc or .ifczip by its\n"
    "extension; an existing OUTPUT is replaced. What other objects use too stays as it is for "
    "them.\n";

inline constexpr std::string_view kSetPropertySummary =
    "change the value or the unit of a property or quantity";
inline constexpr std::string_view kSetPropertyHelp =
    "Changes the value or the unit of a property or quantity that objects have.\n";
inline constexpr std::string_view kSetPropertyExample =
    "set house.ifc new.ifc --object 2lRHoiKY1zep8VptXbaLxz \\\n"
    "      --pset Pset_WallCommon --property FireRating --value \"F 120\"";

inline constexpr std::string_view kAddSummary = "add a property or quantity";
inline constexpr std::string_view kAddHelp =
    "Adds a property, or with --quantity a quantity, to a set of the objects; the set is made for\n"
    "objects that have none of that name.\n";
inline constexpr std::string_view kAddExample =
    "add house.ifc new.ifc --type IfcWall --pset Qto_Site --property Height \\\n"
    "      --quantity IfcQuantityLength --value 2588.5 --unit METRE --prefix MILLI";

inline constexpr std::string_view kRenameSummary = "rename a property, quantity or set";
inline constexpr std::string_view kRenameHelp =
    "Renames a property or quantity or, without --property, a whole set.\n";
inline constexpr std::string_view kRenameExample =
    "rename house.ifc new.ifc --type IfcWall --pset Finish --property Colour \\\n"
    "      --to Paint";

inline constexpr std::string_view kDeleteSummary = "delete a property, quantity or set";
inline constexpr std::string_view kDeleteHelp =
    "Deletes a property or quantity or, without --property, a whole set. A set goes with its last\n"
    "property.\n";
inline constexpr std::string_view kDeleteExample =
    "delete house.ifc new.ifc --object 77 --pset \"Site log\"";

}  // namespace cli::texts
