#include "platform/folders.h"

#include <filesystem>
#include <system_error>

#include "platform/text.h"

namespace platform {

bool createFolders(std::u16string_view path) {
    const std::filesystem::path folder = toPathBytes(path);
    std::error_code failed;
    std::filesystem::create_directories(folder, failed);
    return std::filesystem::is_directory(folder, failed);
}

bool removeFolder(std::u16string_view path) {
    std::error_code failed;
    std::filesystem::remove_all(toPathBytes(path), failed);
    return !failed;
}

}  // namespace platform
