#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace schema_generator {

using TemplateValues = std::initializer_list<std::pair<std::string_view, std::string_view>>;

/// `pattern` with each `$name$` replaced by the value of that name. A name without a value, or a
/// lone "$", is a fault of the generator itself: it prints the pattern to standard error and
/// aborts, so that no half-filled code is written.
std::string filled(std::string_view pattern, TemplateValues values);
std::string filled(std::string_view pattern,
                   const std::vector<std::pair<std::string, std::string>>& values);

}  // namespace schema_generator
