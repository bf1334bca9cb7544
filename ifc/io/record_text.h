#pragma once

#include <string_view>
#include <vector>

namespace IFC {

/// The arguments of a record as they stand in the file, blanks and comments around them included. A record that is cut
/// gives those that are complete.
/// record: STEP text from the instance number on, at least up to the closing bracket; the views point into it.
std::vector<std::string_view> recordArguments(std::string_view record);

}  // namespace IFC
