#pragma once

#include <string_view>

/// What the desktop program says: UTF-16 in windows, UTF-8 on the console.
namespace standin::texts {

// Console.
inline constexpr std::string_view kDesktopUsage =
    "quillet-desktop - a small viewer to try the plug-in in\n"
    "\n"
    "  quillet-desktop [OPTIONS] [FILE...]    opens IFC files together, or one project file\n"
    "\n"
    "  --language CODE    language of the plug-in: de en es fr it pl pt\n"
    "  --no-restore       reads and keeps no recent files, language and window sizes\n"
    "  --script FILE      runs the actions of a file, then ends\n"
    "  --help             shows this\n"
    "\n"
    "A script is written as for quillet-standin; \"load\" loads the plug-in. Its lines go on while "
    "a\n"
    "window is open that an earlier line opened, so that they can use it. WIDGET is the name of a\n"
    "widget's object or accessible name, or the text on it; it is looked for in the window that\n"
    "takes the input. With a script, nothing is kept and nothing asks whether to save at the end.\n"
    "The program ends with 0 when all expectations held and the plug-in broke no rule of the\n"
    "interface, with 1 when not, and with 2 when the script cannot be run.\n"
    "\n"
    "Actions for windows, besides those that quillet-standin --help tells:\n";
inline constexpr std::string_view kProgramError = "quillet-desktop: ";
inline constexpr std::string_view kUnknownOption = "there is no such option: ";
inline constexpr std::string_view kNoOptionValue = "needs something behind it: ";
inline constexpr std::string_view kUnknownLanguage = "there is no such language: ";
inline constexpr std::string_view kNoScreen =
    "there is no screen to show windows on; with QT_QPA_PLATFORM=offscreen none is needed";
inline constexpr std::string_view kScriptUnreadable = "cannot be read";

// Scripts.
inline constexpr std::string_view kNoWindow = "there is no such window: ";
inline constexpr std::string_view kOtherWindows = "; there are: ";
inline constexpr std::string_view kStillThere = "the window is still there: ";
inline constexpr std::string_view kNoWidget = "there is no such widget: ";
inline constexpr std::string_view kWidgetDisabled = "the widget is disabled: ";
inline constexpr std::string_view kWrongWidget = "the widget is of another kind: ";
inline constexpr std::string_view kHasNoItem = "there is no such item: ";
inline constexpr std::string_view kNoKeys = "these are no keys: ";
inline constexpr std::string_view kNoCount = "this is no number of times: ";
inline constexpr std::string_view kNoSize = "a size has the form 800x600: ";
inline constexpr std::string_view kNoPercent = "is no number from 0 to 100: ";
inline constexpr std::string_view kPictureNotWritten = "the picture cannot be written: ";
inline constexpr std::string_view kPluginAtWork = "the plug-in is still at work";
inline constexpr std::string_view kWindowBusy = " asks to wait";
inline constexpr std::string_view kInputWaiting = "what was typed has not arrived";
inline constexpr std::string_view kCannotHide = "the program cannot hide a function of its own";

// Windows.
inline constexpr std::u16string_view kProgramName = u"Quillet viewer";
inline constexpr std::u16string_view kTitle = u"%1[*] \u2013 Quillet viewer";
inline constexpr std::u16string_view kHintWithKey = u"%1\n%2";

// Ribbon.
inline constexpr std::u16string_view kFileGroup = u"File";
inline constexpr std::u16string_view kOpen = u"Open";
inline constexpr std::u16string_view kOpenHint = u"Open IFC files, or a project.";
inline constexpr std::u16string_view kRecent = u"Recent";
inline constexpr std::u16string_view kRecentHint = u"Open one of the last files.";
inline constexpr std::u16string_view kNoRecent = u"No recent files";
inline constexpr std::u16string_view kSave = u"Save";
inline constexpr std::u16string_view kSaveHint = u"Save the project with its pending edits.";
inline constexpr std::u16string_view kSaveAs = u"Save as";
inline constexpr std::u16string_view kSaveAsHint = u"Save the project under another name.";
inline constexpr std::u16string_view kEditGroup = u"Edit";
inline constexpr std::u16string_view kUndo = u"Undo";
inline constexpr std::u16string_view kRedo = u"Redo";
inline constexpr std::u16string_view kMoreUndo = u"... and %1 more";
inline constexpr std::u16string_view kViewGroup = u"View";
inline constexpr std::u16string_view kLanguage = u"Language";
inline constexpr std::u16string_view kLanguageHint =
    u"Language of the plug-in. Another one opens the project again.";

// Objects.
inline constexpr std::u16string_view kObjectTree = u"Objects";
inline constexpr std::u16string_view kObjectColumn = u"Object";
inline constexpr std::u16string_view kTypeColumn = u"Type";
inline constexpr std::u16string_view kSearchHint = u"Search name, type or GUID";
inline constexpr std::u16string_view kNothingOpenNote = u"Drop an IFC file here, or press Ctrl+O";
inline constexpr std::u16string_view kNothingFoundNote = u"Nothing found";
inline constexpr std::u16string_view kSelectSameType = u"Select all of this type";
inline constexpr std::u16string_view kCopyGuid = u"Copy GUID";

// Properties.
inline constexpr std::u16string_view kPropertyTree = u"Properties";
inline constexpr std::u16string_view kPropertyColumn = u"Property";
inline constexpr std::u16string_view kValueColumn = u"Value";
inline constexpr std::u16string_view kUnitColumn = u"Unit";
inline constexpr std::u16string_view kChangeColumn = u"Change";
inline constexpr std::u16string_view kNothingSelectedNote =
    u"Select an object to see its properties";
inline constexpr std::u16string_view kNoPropertiesNote = u"This object has no properties";
inline constexpr std::u16string_view kObjectDetail = u"%1 \u00B7 %2 \u00B7 %3";
inline constexpr std::u16string_view kSeveralSelected =
    u"%1 objects are selected. These are the properties of the first; they can be changed here "
    u"when "
    u"it is selected alone.";
inline constexpr std::u16string_view kTypeToolTip = u"%1\n%2";
inline constexpr std::u16string_view kTrue = u"True";
inline constexpr std::u16string_view kFalse = u"False";
inline constexpr std::u16string_view kAddedCaption = u"+ added";
inline constexpr std::u16string_view kChangedCaption = u"* changed";
inline constexpr std::u16string_view kDeletedCaption = u"\u2212 deleted";
inline constexpr std::u16string_view kAddedToolTip = u"added";
inline constexpr std::u16string_view kChangedToolTip = u"changed";
inline constexpr std::u16string_view kChangedFromToolTip = u"changed, was %1";
inline constexpr std::u16string_view kDeletedToolTip = u"deleted; left out of exports";
inline constexpr std::u16string_view kEdit = u"Edit";
inline constexpr std::u16string_view kEditHint = u"Edit the property, or rename the set.";
inline constexpr std::u16string_view kAddProperty = u"Add property";
inline constexpr std::u16string_view kAddPropertyHint = u"Add a property to the set.";
inline constexpr std::u16string_view kAddQuantity = u"Add quantity";
inline constexpr std::u16string_view kAddQuantityHint = u"Add a quantity to the set.";
inline constexpr std::u16string_view kDelete = u"Delete";
inline constexpr std::u16string_view kDeleteHint = u"Delete the property, or the set.";
inline constexpr std::u16string_view kRenameSet = u"Rename set";
inline constexpr std::u16string_view kRenameSetHint = u"Rename the set.";
inline constexpr std::u16string_view kDeleteSet = u"Delete set";
inline constexpr std::u16string_view kDeleteSetHint = u"Delete the set.";

// Status bar and reports.
inline constexpr std::u16string_view kNothingOpen = u"Nothing is open";
inline constexpr std::u16string_view kNoPlugin = u"No plug-in is loaded";
inline constexpr std::u16string_view kOneObject = u"1 object";
inline constexpr std::u16string_view kObjectCount = u"%1 objects";
inline constexpr std::u16string_view kSelectedCount = u", %1 selected";
inline constexpr std::u16string_view kOneReport = u"1 report";
inline constexpr std::u16string_view kReportCount = u"%1 reports";
inline constexpr std::u16string_view kReportsHint = u"Show what reading the files reported.";
inline constexpr std::u16string_view kReportsTitle = u"Reports";
inline constexpr std::u16string_view kCopyReports = u"Copy";
inline constexpr std::u16string_view kBrokenRuleReport = u"The plug-in broke a rule: %1";
inline constexpr std::u16string_view kReading = u"Reading %1 ...";
inline constexpr std::u16string_view kSaved = u"%1 is saved";

// Dialogs.
inline constexpr std::u16string_view kProgress = u"Progress";
inline constexpr std::u16string_view kOpenTitle = u"Open";
inline constexpr std::u16string_view kSaveAsTitle = u"Save as";
inline constexpr std::u16string_view kSaveProjectTitle = u"Save project";
inline constexpr std::u16string_view kSaveIntoFolder = u"Folder for the files";
inline constexpr std::u16string_view kChooseFolder = u"Choose";
inline constexpr std::u16string_view kModelsAndProjectsFilter =
    u"Models and projects (*.ifc *.ifczip *.ahx)";
inline constexpr std::u16string_view kProjectsFilter = u"Projects (*.ahx)";
inline constexpr std::u16string_view kAllFilesFilter = u"All files (*)";
inline constexpr std::u16string_view kReplaceQuestion = u"%1 exists already. Replace it?";
inline constexpr std::u16string_view kAndMore = u"%1 and %2 more";
inline constexpr std::u16string_view kSaveQuestion = u"Save the changes in %1?";
inline constexpr std::u16string_view kSaveQuestionDetail =
    u"Pending edits that are not saved are lost.";
inline constexpr std::u16string_view kLanguageQuestion = u"Open the project again?";
inline constexpr std::u16string_view kSaveForLanguageQuestion =
    u"Save the changes and open the project again?";
inline constexpr std::u16string_view kLanguageQuestionDetail =
    u"In another language the plug-in starts anew. The edits stay, but what was done so far can no "
    u"longer be undone.";

}  // namespace standin::texts
