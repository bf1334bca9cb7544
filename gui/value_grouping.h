#pragma once

#include <QString>
#include <QtGlobal>

#include "gui/edit_many_state.h"

/// Rules behind the value rows, without widgets.

/// Value rows of a property with equal keys are one group. Not for GroupingType::DoNotGroup.
QString groupingKey(GroupingType type, const QString& entityName, const QString& value);

/// What is written in front of a row that stands for `size` objects; empty for no label.
QString groupLabel(GroupingType type, const QString& entityName, int size);

/// Whether a key press may reach a field for numbers. key: Qt::Key; text: what it would type.
/// Digits and the decimal point may, and so may what types nothing: keys that move, erase, or stand
/// for a command.
bool isNumericKey(int key, const QString& text);

/// Index of the label of a unit as the host names it ("MILLI", "METRE"); -1 for none and for one
/// that is not offered for choice.
int unitIndexOf(std::u16string_view prefix, std::u16string_view unit);

/// Label of a unit by its index; empty for -1.
QString unitLabelAt(int index);
