#pragma once

#include <string>
#include <string_view>

/// Folders of the plug-in and its host, from the paths of their modules. None looks at the disk.
/// Folders have no separator at their end unless said otherwise.
namespace paths {

/// The folder of a module; empty for a path without one.
std::u16string folderOf(std::u16string_view modulePath);

/// `folder` and `name` with a separator between them.
std::u16string inFolder(std::u16string_view folder, std::u16string_view name);

/// Where any plug-in of the host has its data unless it says otherwise, with a separator at the
/// end: beside a module in the host's plug-ins folder, the folder of the module's name without
/// "_x64" and with "_data"; elsewhere the module's own folder.
std::u16string defaultDataFolder(std::u16string_view modulePath);

/// This plug-in's data folder beside the host's program, with a separator at the end.
std::u16string dataFolderOfHost(std::u16string_view programPath);

/// The host's configuration file: in the folder that holds "plugins", in which the plug-in lies; of
/// a plug-in that lies elsewhere, beside the host's program.
std::u16string hostConfigPath(std::u16string_view pluginFolder, std::u16string_view programPath);

}  // namespace paths
