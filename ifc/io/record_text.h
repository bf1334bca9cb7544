#pragma once

#include <cstddef>
#include <string_view>

namespace IFC {

/// STEP text from the end of one argument on, without the blanks and comments at its begin, the
/// commas among these, of which `commas` at most are taken off, and the blanks at its end.
std::string_view argumentText(std::string_view text, std::size_t commas);

}  // namespace IFC
