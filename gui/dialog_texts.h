#pragma once

#include <string_view>

/// Texts of the dialogs, word for word, and keys of the language files.
namespace texts {

inline constexpr const char16_t* kProductName = u"Quillet";
inline constexpr const char* kEventType = "Type: ";

// Summary. One string, without a blank between the rules.
inline constexpr const char* kSummaryHeaderStyle =
    "QHeaderView::section:second { border: 1px solid; }"
    "QHeaderView::section:third { border: 1px solid; }";
inline constexpr const char* kCountTableStyle =
    "QTableWidget { background: transparent; border: transparent; } "
    "QHeaderView::section { background: transparent; }";
// For the sections that Qt would paint black with the style above.
inline constexpr const char* kCountHeaderStyle =
    "QHeaderView::section { background: palette(window); }";
inline constexpr const char16_t* kShowMore = u"+";
inline constexpr const char16_t* kShowLess = u"\u2212";
inline constexpr const char16_t* kIndent = u"        ";
inline constexpr const char16_t* kMoreRows = u"\u2026 +";

// Application.
inline constexpr const char* kNoScreenKey = "no_screen";
inline constexpr std::u16string_view kNoScreen =
    u"There is no screen to show the window on. Start the program in a graphical session.";

// Property window.
inline constexpr const char16_t* kInputErrorCaption = u"Error!";
inline constexpr const char* kValueLabelKey = "valueLabel";
inline constexpr const char* kUnitLabelKey = "unitLabel";
inline constexpr const char* kNoPropertyWindow = "The property window: Windows error ";
inline constexpr const char* kUnitNotOfQuantityKey = "unit_not_of_quantity";

// Files of the plug-in's folder.
inline constexpr std::u16string_view kEditIcon = u"/quillet_data/edit.ico";

// Message boxes.
inline constexpr const char* kYesButtonKey = "yes";
inline constexpr const char* kNoButtonKey = "no";
inline constexpr const char* kOkButtonKey = "btnOkName";
inline constexpr const char* kCancelButtonKey = "btnCancelName";

}  // namespace texts
