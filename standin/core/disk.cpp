#include "standin/core/disk.h"

#include "platform/files.h"
#include "platform/folders.h"

namespace standin {

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
    if (!marker_.empty() && platform::createFolders(marker_ + u".d"))
        path_ = marker_ + u".d";
}

TemporaryFolder::~TemporaryFolder() {
    if (!path_.empty())
        platform::removeFolder(path_);
    if (!marker_.empty())
        platform::removeFile(marker_);
}

}  // namespace standin
