#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The bytes of the file; empty when it cannot be read, errno tells why.
std::optional<std::string> readWholeFile(std::u16string_view path);

/// Gives the file this content in one step: it is whole, or what it was before.
/// @return success; errno tells why not.
bool writeWholeFile(std::u16string_view path, std::string_view bytes);

}  // namespace platform
