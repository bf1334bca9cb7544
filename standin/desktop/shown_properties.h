#pragma once

#include <string>
#include <vector>

#include "standin/core/display.h"

namespace standin {

/// What the pending edits have done to a set or a property.
enum class Mark { None, Added, Changed, Deleted };

/// A property as the panel shows it.
struct ShownProperty {
    Mark mark = Mark::None;
    std::u16string name;
    std::u16string value;
    std::u16string unit;  ///< "mm (MilliMetre)"; as in the file when it is none that has a label
    std::u16string type;  ///< "IfcLabel"
    std::u16string was;   ///< what a changed property was: "Colour = red"
};

struct ShownSet {
    Mark mark = Mark::None;
    std::u16string name;
    std::u16string guid;
    std::u16string type;  ///< "IfcPropertySet"
    std::u16string was;   ///< the name of a renamed set before
    std::vector<ShownProperty> properties;
};

/// The sets of a display in the order of the file, those that were added behind them. What was
/// deleted is still there, and marked.
std::vector<ShownSet> shownSets(const Display& display);

}  // namespace standin
