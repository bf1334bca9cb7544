#pragma once

#include <string>
#include <string_view>

/// "LastPath.txt" in the plug-in's folder: the full path of the file that was exported last, as
/// UTF-8.
namespace IFC {

/// pluginFolder: without a separator at its end. @return success; a file that was there stays as it
/// was otherwise.
bool writeLastPath(std::u16string_view pluginFolder, std::u16string_view path);

/// Empty when nothing was exported yet.
std::u16string readLastPath(std::u16string_view pluginFolder);

}  // namespace IFC
