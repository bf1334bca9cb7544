#include "plugin/plugin_paths.h"

#include <algorithm>

#include "platform/files.h"
#include "plugin/plugin_texts.h"

namespace paths {
namespace {

/// Texts have "\" where the system in use may have another separator.
std::u16string withSystemSeparators(std::u16string_view text) {
    std::u16string path(text);
    std::replace(path.begin(), path.end(), u'\\', platform::pathSeparator());
    return path;
}

std::size_t lastSeparator(std::u16string_view path) {
    const auto found = std::find_if(path.rbegin(), path.rend(), platform::isPathSeparator);
    return found == path.rend() ? std::u16string_view::npos
                                : static_cast<std::size_t>(path.rend() - found) - 1;
}

/// Where the folder `component` begins in `folder`, the last one if there are several.
std::size_t findComponent(std::u16string_view folder, std::u16string_view component) {
    for (std::size_t at = folder.rfind(component); at != std::u16string_view::npos && at > 0;
         at = folder.rfind(component, at - 1)) {
        const std::size_t end = at + component.size();
        if (platform::isPathSeparator(folder[at - 1]) &&
            (end == folder.size() || platform::isPathSeparator(folder[end])))
            return at;
    }
    return std::u16string_view::npos;
}

}  // namespace

std::u16string folderOf(std::u16string_view modulePath) {
    const std::size_t end = lastSeparator(modulePath);
    return std::u16string(end == std::u16string_view::npos ? std::u16string_view()
                                                           : modulePath.substr(0, end));
}

std::u16string inFolder(std::u16string_view folder, std::u16string_view name) {
    return std::u16string(folder).append(1, platform::pathSeparator()).append(name);
}

std::u16string defaultDataFolder(std::u16string_view modulePath) {
    std::u16string folder = inFolder(folderOf(modulePath), {});
    if (folder.find(withSystemSeparators(texts::kHostPluginsFolder)) == std::u16string::npos)
        return folder;
    std::u16string_view name = modulePath.substr(lastSeparator(modulePath) + 1);
    name = name.substr(0, name.rfind(u'.'));
    if (name.ends_with(texts::k64BitMarker))
        name.remove_suffix(texts::k64BitMarker.size());
    return folder + inFolder(std::u16string(name).append(texts::kDataMarker), {});
}

std::u16string dataFolderOfHost(std::u16string_view programPath) {
    return folderOf(programPath) + withSystemSeparators(texts::kDataFolder);
}

std::u16string hostConfigPath(std::u16string_view pluginFolder, std::u16string_view programPath) {
    const std::size_t plugins = findComponent(pluginFolder, texts::kPluginsComponent);
    if (plugins == std::u16string_view::npos)
        return inFolder(folderOf(programPath), texts::kHostConfigFile);
    return std::u16string(pluginFolder.substr(0, plugins)).append(texts::kHostConfigFile);
}

}  // namespace paths
