#pragma once

/// Measures that the rows and windows have in common, in device-independent pixels.
namespace row_style {

inline constexpr int kMaxFieldHeight = 25;  ///< of every field, list and button in a row
/// Of every button. QWidget::setMinimumWidth() overrides the width that the caption needs: captions
/// of some languages need more.
inline constexpr int kMinButtonWidth = 100;
inline constexpr int kMinUnitWidth = 135;
inline constexpr int kGroupLabelWidth = 100;  ///< base width of the label of equal values

// Blank space in front of, and within, a row of a set, of a property and of a value.
inline constexpr int kSpacer = 2;
inline constexpr int kPropertyIndent = 13;
inline constexpr int kValueIndent = 39;

}  // namespace row_style
