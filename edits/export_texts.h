#pragma once

#include <string_view>

/// Texts, keys and file names of the export, word for word.
namespace texts {

inline constexpr const char* kExportCaptionKey = "Quillet";
inline constexpr const char16_t* kExportCaption = u"Quillet";
inline constexpr const char* kNoFileSelectedKey = "no_file_selected_message";
inline constexpr const char* kNoActiveProjectCaptionKey = "no_active_project_caption";
inline constexpr const char* kNoActiveProjectKey = "no_active_project_massage";  // sic
inline constexpr const char* kFilterCaptionKey = "filter_caption";
inline constexpr const char* kFilesExistCaptionKey = "files_already_exists_caption";
inline constexpr const char* kFilesExistKey = "files_already_exists_message";
inline constexpr const char* kProgressCaptionKey = "progress_dialog_name";
inline constexpr const char* kOverallProgressLabelKey = "overall_progress";
inline constexpr const char* kCurrentProgressLabelKey = "current_progress";
inline constexpr const char* kReadingFileKey = "reading_file";
inline constexpr const char* kSavingFileKey = "progress_bar_saving";
inline constexpr const char* kContinueQuestionKey = "continue_question";
inline constexpr const char* kFilesWithWarningsKey = "files_generated_with_warning_msg";
inline constexpr const char* kShowLogQuestionKey = "error_show_log_question";

inline constexpr std::u16string_view kEdited = u"_edited";
inline constexpr std::u16string_view kEditedIfc = u"_edited.ifc";
inline constexpr std::u16string_view kLastPathFile = u"LastPath.txt";

inline constexpr std::u16string_view kTargetIsLoaded =
    u"The file is loaded in Arvenhold and is not overwritten: ";
inline constexpr std::u16string_view kLastPathNotWritten =
    u"The path of the last created file could not be remembered in: ";
inline constexpr std::u16string_view kNamesakes =
    u"Several loaded files have one name; their paths tell them apart: ";

}  // namespace texts
