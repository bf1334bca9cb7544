#pragma once

#include <string_view>

/// Folders by UTF-16 path, as files are in platform/files.h.
namespace platform {

/// Creates the folder, and those above it that are missing. @return whether it exists now.
bool createFolders(std::u16string_view path);

/// Removes the folder with all that is in it; what links lead to stays. @return whether it is gone.
bool removeFolder(std::u16string_view path);

}  // namespace platform
