#pragma once

#include <string>

namespace platform {

/// Whether both name one file, also by different paths or links. Neither has to exist.
bool isSameFile(const std::u16string& a, const std::u16string& b);

}  // namespace platform
