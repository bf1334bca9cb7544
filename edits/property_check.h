#pragma once

#include <string>
#include <string_view>

#include "ifc/model/property_set_record.h"

/// What becomes of entered names and values before anything is done with them.

/// `text` without the blanks around it: spaces of any width, tabs, line ends.
std::u16string withoutWhiteSigns(std::u16string_view text);

/// The same for a text that was entered in place of `shown`; what was left as it was shown stays.
void eraseWhiteSigns(std::u16string& text, std::u16string_view shown = {});

/// Key of the text that says why such a property cannot be; null for one that can. A number has to
/// be one that a file can hold, a truth value is "1" or "0", a quantity is a number of one of the
/// six types, a unit is one of the SI.
const char* problemOf(const IfcProperty& property);
