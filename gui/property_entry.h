#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "edits/editing_windows.h"

/// The rules of the property window, whatever toolkit shows it. All texts are UTF-16.

enum class PropertyField { SetName, PropertyName, Value, Unit, QuantityType };

/// What stands in the fields.
struct PropertyEntry {
    std::u16string setName;
    std::u16string propertyName;
    std::u16string value;  ///< "1" or "0" for a truth value
    std::u16string unit;   ///< as in the list of units; empty for none
    std::u16string quantityType;
};

/// Why an entry is refused.
struct FieldProblem {
    PropertyField field;
    const char* textKey;
};

/// Position of no label.
inline constexpr int kNoUnit = -1;

// Which fields there are.
bool canEditSetName(IFC::PropertyWindowMode mode);
bool hasPropertyFields(IFC::PropertyWindowMode mode);
bool hasQuantityType(const IFC::PropertyWindowInput& input);

/// What the list of units offers: the labels and, last, a unit that the property has but the labels
/// lack. Empty for a truth value.
std::vector<std::u16string> offeredUnits(const IFC::PropertyWindowInput& input);
/// Which of them is chosen when the window opens.
int firstUnitIndex(const IFC::PropertyWindowInput& input);

/// The quantity types, and last one that the property has but the program does not know.
std::vector<std::u16string> offeredQuantityTypes(const IFC::PropertyWindowInput& input);
int firstQuantityTypeIndex(const IFC::PropertyWindowInput& input);
/// The unit that is chosen with a quantity type.
int unitIndexOf(std::u16string_view quantityType);

/// Which of the labels is meant by typed text: the one whose symbol it is, else the first one that
/// begins with it, with the same case or any, else the first that contains it. kNoUnit for none and
/// for an empty text.
int unitIndexFor(const std::vector<std::u16string>& labels, std::u16string_view typed);

/// What is returned for the entry, or why it cannot be.
std::variant<IFC::PropertyWindowResult, FieldProblem> resultOf(
    const IFC::PropertyWindowInput& input, const PropertyEntry& entry);
