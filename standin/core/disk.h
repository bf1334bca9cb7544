#pragma once

#include <string>
#include <string_view>

namespace standin {

/// `folder` with `name` behind it.
std::u16string joined(std::u16string_view folder, std::u16string_view name);
/// The part of a path behind its last separator.
std::u16string fileNameOf(std::u16string_view path);
/// The part before it; empty when there is none.
std::u16string folderOf(std::u16string_view path);

/// A folder that is new and is removed, with all that is in it, at the end.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Empty when the system has no room for one.
    const std::u16string& path() const { return path_; }

private:
    std::u16string marker_;  // the file that keeps the folder's name for us
    std::u16string path_;
};

}  // namespace standin
