#pragma once

#include <string>

#include "standin/core/objects.h"

namespace standin {

/// An object's property display as people and tests read it, in UTF-8: a line for the object, for
/// each set and for each row. Marks at the begin of a line: "+" added, "*" changed or renamed, "-"
/// marked as deleted.
///
///     #65 IfcWall 'South wall'
///         Finish (IfcPropertySet)
///       *   Colour = blue [IfcLabel] (Farbe)
std::string displayTable(const Object& object);

/// Text on one line: control characters are escaped.
std::string onOneLine(std::u16string_view text);

}  // namespace standin
