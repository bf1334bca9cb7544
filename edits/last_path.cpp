#include "edits/last_path.h"

#include <array>
#include <cstdio>

#include "edits/export_texts.h"
#include "platform/files.h"
#include "platform/text.h"

namespace IFC {
namespace {

constexpr std::size_t kLongestPathBytes = 0x10000;

std::u16string lastPathFile(std::u16string_view pluginFolder) {
    std::u16string path(pluginFolder);
    if (!path.empty() && !platform::isPathSeparator(path.back()))
        path += platform::pathSeparator();
    return path.append(texts::kLastPathFile);
}

bool fill(const std::u16string& file, std::string_view bytes) {
    platform::FileHandle handle(platform::openFile(file, "wb"));
    return handle && std::fwrite(bytes.data(), 1, bytes.size(), handle.get()) == bytes.size() &&
           std::fclose(handle.release()) == 0;
}

}  // namespace

bool writeLastPath(std::u16string_view pluginFolder, std::u16string_view path) {
    const std::u16string target = lastPathFile(pluginFolder);
    const std::u16string part = platform::createFileBeside(target, u".part");
    if (part.empty())
        return false;
    if (fill(part, platform::toPathBytes(path)) && platform::renameOver(part, target))
        return true;
    platform::removeFile(part);
    return false;
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
