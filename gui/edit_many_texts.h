#pragma once

#include <string_view>

/// Texts of the edit-many window and its rows, word for word, and keys of the language files.
namespace texts::many {

// Files in the plug-in's folder.
inline constexpr std::u16string_view kForm = u"/EditManyWindow.ui";
inline constexpr std::u16string_view kPlusIcon = u"/quillet_data/plus.png";
inline constexpr std::u16string_view kMinusIcon = u"/quillet_data/minus.png";
inline constexpr std::u16string_view kWindowIcon = u"/quillet_data/edit.ico";

inline constexpr std::u16string_view kCaption = u"Quillet";
inline constexpr std::u16string_view kErrorCaption = u"Quillet Error";

// Faults.
inline constexpr const char* kConnectFail = "QObject::connect fail";
inline constexpr const char* kWidgetMissing =
    "EditManyWindow.ui has no widget of the right kind named ";
inline constexpr const char* kLayoutMissing = "EditManyWindow.ui has no fitting layout in ";
inline constexpr const char* kFormUnreadable = "EditManyWindow.ui cannot be read: ";
inline constexpr std::u16string_view kPolicyNotSpecified = u"AddingPolicy not specified";
inline constexpr std::u16string_view kPolicyError = u"AddingPolicy error";
inline constexpr std::u16string_view kNoGuid = u"NO GUID FOUND IN Arvenhold";
inline constexpr std::u16string_view kNoIfcNumber = u"GetIfcNumber returned 0";

// What the user is told about names.
inline constexpr std::u16string_view kSet = u"Set ";
inline constexpr std::u16string_view kProperty = u"Property ";
inline constexpr std::u16string_view kNameTaken = u" already exists. Please change name.";
inline constexpr std::u16string_view kSetExists = u"PropertySet already exists.";
inline constexpr std::u16string_view kSetGuidEmpty = u"Unable to edit set name. Guid is empty.";

// Between the parts of what is shown.
inline constexpr std::u16string_view kKeySeparator = u"|";
inline constexpr std::u16string_view kNodeSeparator = u" / ";
inline constexpr std::u16string_view kEllipsis = u"\u2026";
inline constexpr std::u16string_view kMoreObjects = u"\u2026 +";

// Keys.
inline constexpr const char* kWindowAlreadyOpenKey = "window_already_open";
inline constexpr const char* kLoadingKey = "progress_bar_loading";
inline constexpr const char* kNewSetsKey = "new_property_sets";
inline constexpr const char* kExistingSetsKey = "existing_property_sets";
inline constexpr const char* kApplyChangesKey = "apply_changes";
inline constexpr const char* kCancelKey = "btnCancelName";
inline constexpr const char* kAddSetKey = "add_property_set";
inline constexpr const char* kPolicyKeys[] = {"skip_existing_set", "override_existing_set",
                                              "skip_existing_property",
                                              "override_existing_property"};
inline constexpr const char* kGroupingKeys[] = {"GroupByNamesAndIfcEntity", "GroupByNames",
                                                "DoNotGroup"};
inline constexpr const char* kCheckAllKey = "check_all";
inline constexpr const char* kUncheckAllKey = "uncheck_all";
inline constexpr const char* kSelectKey = "select";
inline constexpr const char* kSelectValueKey = "select_value";
inline constexpr const char* kEditSeparatelyKey = "edit_separately";
inline constexpr const char* kAddPropertyKey = "addProperty";
inline constexpr const char* kDeleteSetKey = "delete_set";
inline constexpr const char* kDeletePropertyKey = "delete_property";
inline constexpr const char* kNumberAllowedKey = "number_allowed";
inline constexpr const char* kExitQuestionKey = "exit_question";
inline constexpr const char* kYesKey = "yes";
inline constexpr const char* kNoKey = "no";
inline constexpr const char* kSetNameKey = "propertySetNameMessage";
inline constexpr const char* kPropertyNameKey = "propertyNameMessage";
inline constexpr const char* kValueKey = "valueLabel";
inline constexpr const char* kEditAllQuestionKey = "SetIsShared_EditAllQuestion";
inline constexpr const char* kDeleteAllQuestionKey = "SetIsShared_DeleteAllQuestion";
inline constexpr const char* kAddToAllQuestionKey = "SetIsShared_AddToAllQuestion";
inline constexpr const char* kSummaryKey = "summary";
inline constexpr const char* kNodeKey = "node";
inline constexpr const char* kOldNameKey = "oldName";
inline constexpr const char* kNewNameKey = "newName";
inline constexpr const char* kTotalKey = "totalModyfications";  // sic
inline constexpr const char* kNewObjectsKey = "newObjects";
inline constexpr const char* kChangedObjectsKey = "changedObjects";

// Log lines. Leading blanks show what is part of what.
inline constexpr std::u16string_view kLogLoadContent = u"______Load Content Function______";
inline constexpr std::u16string_view kLogLoaded = u"Loaded: ";
inline constexpr std::u16string_view kLogOf = u" of ";
inline constexpr std::u16string_view kLogBuildCancelled =
    u"Canceling CreateGuiForward call because LoadingInProgress";
inline constexpr std::u16string_view kLogNothingToLoad =
    u"Nothing to load in CreateGuiForward. Exiting. Created GUI count: ";
inline constexpr std::u16string_view kLogBuilt = u"Exiting CreateGuiForward. Created GUI count: ";
inline constexpr std::u16string_view kLogSetGui = u"Creating set Gui: ";
inline constexpr std::u16string_view kLogPropertyGui = u"    Creating Property GUI: ";
inline constexpr std::u16string_view kLogAtIndex = u" ( at index: ";
inline constexpr std::u16string_view kLogPropertyGuiGone = u"    Destroying property GUI: ";
inline constexpr std::u16string_view kLogCreatingGroups = u"        Creating groups)";        // sic
inline constexpr std::u16string_view kLogGroupsFilled = u"        GruppedValueRows filled)";  // sic
inline constexpr std::u16string_view kLogGroupGui = u"        Creating valuse group GUI: ";   // sic
inline constexpr std::u16string_view kLogGroupSize = u" (group size: ";
inline constexpr std::u16string_view kLogValueGui = u"        Creating value GUI: ";
inline constexpr std::u16string_view kLogTooManyGroups =
    u"           GroupingMaxIter > 100. Cancelling gui creation";
inline constexpr std::u16string_view kLogTooManyValues =
    u"           Value index > 100. Cancelling gui creation";
inline constexpr std::u16string_view kLogGrouping = u"Grouping changed to: ";
inline constexpr std::u16string_view kLogRange = u"Range changed. Max: ";
inline constexpr std::u16string_view kLogCreatedAtEnd = u"Created at end: ";
inline constexpr std::u16string_view kLogCreatedAtBeginning = u"Created at begining: ";  // sic
inline constexpr std::u16string_view kLogDeletedAtBeginning = u"Deleted at begining: ";  // sic
inline constexpr std::u16string_view kLogDeletedAtEnd = u"Deleted at end: ";
inline constexpr std::u16string_view kLogRatio = u"Ratio: ";
inline constexpr std::u16string_view kLogRuleBegin = u"----------- ";
inline constexpr std::u16string_view kLogRuleEnd = u" ------------";
inline constexpr std::u16string_view kLogUpdatingChild = u"Updting child: ";  // sic
inline constexpr std::u16string_view kLogTo = u" to: ";
inline constexpr std::u16string_view kLogNewSet = u"Processing new set: ";
inline constexpr std::u16string_view kLogAddingSet = u"  Adding new set: ";
inline constexpr std::u16string_view kLogAddingProperty = u"  Adding new property: ";
inline constexpr std::u16string_view kLogValue = u". Value: ";
inline constexpr std::u16string_view kLogToSet = u". To set: ";
inline constexpr std::u16string_view kLogDeletingSet = u"  Deleting set: ";
inline constexpr std::u16string_view kLogDeletingProperty = u"  Deleting property: ";

}  // namespace texts::many
