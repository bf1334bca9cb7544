#pragma once

#include <string_view>

/// Texts of the plug-in shell, word for word, and keys of the language files.
namespace texts {

inline constexpr const char16_t* kPluginName = u"Quillet plugin";
inline constexpr const char16_t* kMaker = u"Quillet";
inline constexpr const char16_t* kMakerWebPage = u"https://quillet.example/";
inline constexpr const char16_t* kMakerEmail = u"support@quillet.example";

inline constexpr std::u16string_view kCaption = u"Quillet";
inline constexpr std::u16string_view kErrorCaption = u"Quillet Error";

// Files and folders. Separators stand as "\" and are those of the system in use.
inline constexpr std::u16string_view kHostPluginsFolder = u"Arvenhold\\plugins\\";
inline constexpr std::u16string_view kDataFolder = u"\\plugins\\quillet\\quillet_data\\";
inline constexpr std::u16string_view kPluginsComponent = u"plugins";
inline constexpr std::u16string_view k64BitMarker = u"_x64";
inline constexpr std::u16string_view kDataMarker = u"_data";
inline constexpr std::u16string_view kLanguageFilePrefix = u"lang.";
inline constexpr std::u16string_view kDefaultLanguage = u"en";
inline constexpr std::u16string_view kOptionsFile = u"config.txt";
inline constexpr std::u16string_view kHostConfigFile = u"main.cfg";

// Language files that cannot be loaded leave every text empty: this one is fixed.
inline constexpr std::u16string_view kNoLanguageFile =
    u"The language files of Quillet could not be loaded. Install the plug-in again.";

// Settings.
inline constexpr std::string_view kTrue = "true";
inline constexpr std::string_view kFalse = "false";
inline constexpr std::u16string_view kSettingsErrorCaption = u"Error!";
inline constexpr std::u16string_view kUnableToReadConfig = u"Unable to read config file: \"";
inline constexpr std::u16string_view kUnableToWriteConfig = u"Unable to write config file: \"";
inline constexpr std::u16string_view kErrorMessage = u"Error message: ";
inline constexpr std::u16string_view kUnknownException = u"Unknown exception";
inline constexpr std::string_view kUseGeometryCache = "use_geometry_cache";
inline constexpr std::u16string_view kUnknownHostOption = u"Unknown AH option";
inline constexpr std::string_view kUnknownHostOptionName = "Unknown";
inline constexpr std::u16string_view kUnableToOpenHostConfig =
    u"Unable to open AH config file in: ";

// Faults caught at the boundary to the host.
inline constexpr std::u16string_view kOutOfMemoryFault =
    u"Not enough memory space. Try to run 64-bit Arvenhold";

// Ribbon.
inline constexpr const char* kGroupKey = "group.quillet";
inline constexpr const char* kEditKey = "btn_edit";
inline constexpr const char* kEditHintKey = "btn_edit.hint";
inline constexpr const char* kAddPropertySetKey = "add_property_set";
inline constexpr const char* kEditManyKey = "edit_many";
inline constexpr const char* kExportKey = "btn_export";
inline constexpr const char* kExportHintKey = "btn_export.hint";
inline constexpr const char* kOpenRecentKey = "open_recent_created_file_button_name";
inline constexpr const char* kOpenRecentHintKey = "open_recent_created_file_button_description";
inline constexpr const char* kOptionsKey = "options";
inline constexpr const char* kIgnoreEnumerationErrorsKey = "option_ignore_enume_errors";  // sic
inline constexpr const char* kEraseWhiteSignsKey = "option_erase_white_signs";
inline constexpr std::u16string_view kEditImage = u"edit.ico";
inline constexpr std::u16string_view kManyObjectsImage = u"add-property-to-many-objects-32.png";
inline constexpr std::u16string_view kManyObjectsSmallImage =
    u"add-property-to-many-objects-16.png";
inline constexpr std::u16string_view kExportImage = u"save_active.png";
inline constexpr std::u16string_view kExportSmallImage = u"save_active_small.png";
inline constexpr std::u16string_view kOpenImage = u"open.png";
inline constexpr std::u16string_view kOpenSmallImage = u"open_small.png";
inline constexpr std::u16string_view kOptionsImage = u"options.ico";

// Options window.
inline constexpr const char* kCloseKey = "btnCloseName";
inline constexpr std::u16string_view kOptionsWindowFailed = u"Options Window Creation Failed!";

// Progress window.
inline constexpr const char* kOverallProgressKey = "progress_bar_overall_progrss";  // sic
inline constexpr const char* kLoadingKey = "progress_bar_loading";
inline constexpr const char* kDeletingKey = "progress_bar_deleting";
inline constexpr const char* kSavingKey = "progress_bar_saving";

// Flows.
inline constexpr const char* kSelectOneObjectKey = "select_one_object";
inline constexpr const char* kNoObjectSelectedKey = "no_object_selected_message";
inline constexpr const char* kOpenRecentFailedKey = "fail_to_open_last_created_file_message";
inline constexpr const char* kWindowNotAvailableKey = "window_not_available";
inline constexpr const char* kUnableToAddPropertyKey = "UnableToAddProperty";
inline constexpr const char* kUnableToEditPropertyKey = "UnableToEditProperty";
inline constexpr const char* kUnableToDeletePropertyKey = "UnableToDeleteProperty";
inline constexpr const char* kUnableToAddSetKey = "UnableToAddPropertySet";
inline constexpr const char* kUnableToEditSetKey = "UnableToEditPropertySet";
inline constexpr const char* kUnableToDeleteSetKey = "UnableToDeletePropertySet";
inline constexpr std::u16string_view kSetGuidMissing = u"Property set GUID is not specified";
inline constexpr const char* kObjectNotInFileKey = "object_not_in_file";
inline constexpr const char* kTypeNotEditableKey = "type_object_not_editable";
inline constexpr const char* kSetNotEditableKey = "set_not_editable";
inline constexpr const char* kPropertyNotEditableKey = "property_not_editable";
inline constexpr const char* kSetNameTakenKey = "set_name_taken";
inline constexpr const char* kPropertyNameTakenKey = "property_name_taken";

// Property window.
inline constexpr const char* kPropertyWindowNameKey = "propertyWindowName";
inline constexpr const char* kEditPropertySetKey = "editPropertySet";
inline constexpr const char* kSetLabelKey = "setLabel";
inline constexpr const char* kSetNameMessageKey = "propertySetNameMessage";
inline constexpr const char* kPropertyNameMessageKey = "propertyNameMessage";
inline constexpr const char* kPropertyDataKey = "propertyData";
inline constexpr const char* kQuantityTypeLabelKey = "quantityTypeLabel";
inline constexpr const char* kYesKey = "yes";
inline constexpr const char* kNoKey = "no";
inline constexpr const char* kOkKey = "btnOkName";
inline constexpr const char* kCancelKey = "btnCancelName";
inline constexpr std::u16string_view kTitleSeparator = u" - ";

// Windows that a host answers; the texts are for those who write such answers.
inline constexpr std::u16string_view kBadAnswer = u"The answer to this window is not understood: ";

}  // namespace texts
