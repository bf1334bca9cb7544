#include "edits/last_path.h"

#include <cstdio>

#include "edits/export_texts.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/whole_file.h"

namespace IFC {
namespace {

constexpr std::size_t kLongestPathBytes = 0x10000;

std::u16string lastPathFile(std::u16string_view pluginFolder) {
    std::u16string path(pluginFolder);
    if (!path.empty() && !platform::isPathSeparator(path.back()))
        path += platform::pathSeparator();
    return path.append(texts::kLastPathFile);
}

}  // namespace

bool writeLastPath(std::u16string_view pluginFolder, std::u16string_view path) {
    return platform::writeWholeFile(lastPathFile(pluginFolder), platform::toPathBytes(path));
}

std::u16string readLastPath(std::u16string_view pluginFolder) {
    const platform::FileHandle file(platform::openFile(lastPathFile(pluginFolder), "rb"));
    if (!file)
        return {};
    std::string bytes(kLongestPathBytes, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    while (bytes.ends_with('\n') || bytes.ends_with('\r'))  // of one who edited it
        bytes.pop_back();
    return platform::fromPathBytes(bytes);
}

}  // namespace IFC
