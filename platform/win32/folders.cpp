#include "platform/folders.h"

#include <windows.h>

#include <cwchar>
#include <string>
#include <vector>

#include "platform/win32/long_path.h"
#include "platform/win32/wide.h"

namespace platform {
namespace {

/// Owns a search for the files of a folder.
class Search {
public:
    explicit Search(const std::u16string& pattern)
        : handle_(FindFirstFileW(wide(unlimited(pattern)), &found_)) {}
    ~Search() {
        if (handle_ != INVALID_HANDLE_VALUE)
            FindClose(handle_);
    }
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    bool isValid() const { return handle_ != INVALID_HANDLE_VALUE; }
    const WIN32_FIND_DATAW& found() const { return found_; }
    bool next() { return FindNextFileW(handle_, &found_) != 0; }

private:
    WIN32_FIND_DATAW found_ = {};  // before the handle, which fills it
    HANDLE handle_;
};

bool isFolder(const std::u16string& path) {
    const DWORD attributes = GetFileAttributesW(wide(unlimited(path)));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Removes the files of a folder. @return the folders in it that are left.
std::vector<std::u16string> removeFiles(const std::u16string& folder) {
    std::vector<std::u16string> folders;
    Search search(folder + u"\\*");
    for (bool isMore = search.isValid(); isMore; isMore = search.next()) {
        const WIN32_FIND_DATAW& found = search.found();
        const std::u16string_view name = fromWide(found.cFileName, std::wcslen(found.cFileName));
        if (name == u"." || name == u"..")
            continue;
        const std::u16string path = (folder + u"\\").append(name);
        const std::u16string target = unlimited(path);
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0)
            SetFileAttributesW(wide(target), FILE_ATTRIBUTE_NORMAL);
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            DeleteFileW(wide(target));
        else if ((found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
            RemoveDirectoryW(wide(target));  // the link alone
        else
            folders.push_back(path);
    }
    return folders;
}

}  // namespace

bool createFolders(std::u16string_view path) {
    const std::u16string full = fullPath(path);
    const auto create = [](const std::u16string& folder) {
        return CreateDirectoryW(wide(unlimited(folder)), nullptr) != 0 || isFolder(folder);
    };
    if (create(full))
        return true;
    for (std::size_t end = full.find(u'\\'); end != full.npos; end = full.find(u'\\', end + 1))
        create(full.substr(0, end));
    return create(full);
}

bool removeFolder(std::u16string_view path) {
    // Each folder after what is in it; paths may be nested deeper than calls can be.
    std::vector<std::u16string> folders = {fullPath(path)};
    for (std::size_t done = 0; done < folders.size(); ++done)
        for (std::u16string& inner : removeFiles(folders[done]))
            folders.push_back(std::move(inner));
    for (; !folders.empty(); folders.pop_back())
        RemoveDirectoryW(wide(unlimited(folders.back())));
    return GetFileAttributesW(wide(unlimited(path))) == INVALID_FILE_ATTRIBUTES;
}

}  // namespace platform
