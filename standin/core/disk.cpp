#include "standin/core/disk.h"

#include <array>
#include <cstdio>

#include "platform/files.h"
#include "platform/text.h"

namespace standin {

std::filesystem::path pathOf(const std::u16string& path) {
    const std::string bytes = platform::toPathBytes(path);
    return std::u8string(bytes.begin(), bytes.end());
}

std::optional<std::string> readFile(const std::u16string& path) {
    const platform::FileHandle file(platform::openFile(path, "rb"));
    if (!file)
        return std::nullopt;
    std::string bytes;
    std::array<char, 0x10000> block;
    for (std::size_t count = block.size(); count == block.size();) {
        count = std::fread(block.data(), 1, block.size(), file.get());
        bytes.append(block.data(), count);
    }
    if (std::ferror(file.get()) != 0)
        return std::nullopt;
    return bytes;
}

bool writeFile(const std::u16string& path, std::string_view bytes) {
    platform::FileHandle file(platform::openFile(path, "wb"));
    return file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
           std::fclose(file.release()) == 0;
}

std::u16string joined(std::u16string_view folder, std::u16string_view name) {
    std::u16string path(folder);
    if (!path.empty() && !platform::isPathSeparator(path.back()))
        path += platform::pathSeparator();
    path += name;
    return path;
}

std::u16string fileNameOf(std::u16string_view path) {
    std::size_t begin = path.size();
    while (begin > 0 && !platform::isPathSeparator(path[begin - 1]))
        --begin;
    return std::u16string(path.substr(begin));
}

std::u16string folderOf(std::u16string_view path) {
    const std::size_t length = path.size() - fileNameOf(path).size();
    return std::u16string(path.substr(0, length == 0 ? 0 : length - 1));
}

TemporaryFolder::TemporaryFolder() : marker_(platform::createTemporaryFile(u"_project")) {
    std::error_code failed;
    if (!marker_.empty() && std::filesystem::create_directory(pathOf(marker_ + u".d"), failed))
        path_ = marker_ + u".d";
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    if (!path_.empty())
        std::filesystem::remove_all(pathOf(path_), ignored);
    if (!marker_.empty())
        platform::removeFile(marker_);
}

}  // namespace standin
