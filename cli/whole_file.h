#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cli {

/// The bytes of the file; empty when it cannot be read.
std::optional<std::string> readWholeFile(const std::u16string& path);

/// Gives the file this content in one step: it is whole, or what it was before. @return success.
bool writeWholeFile(const std::u16string& path, std::string_view bytes);

/// Whether both name one file, also by different paths or links. Neither has to exist.
bool isSameFile(const std::u16string& a, const std::u16string& b);

}  // namespace cli
