#pragma once

#include <filesystem>
#include <iterator>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/folders.h"
#include "platform/whole_file.h"

/// A path of folders with characters of many scripts that is longer than Windows' old limit of 259
/// units.
inline std::u16string longFolderName() {
    std::u16string name = u"\u0416\u00E4\u4E2D \U0001F600";
    for (int part = 0; part < 4; ++part)
        name.append(u"/").append(80, u'x').append(u"\u00FC");
    return name;
}

/// A folder of its own for one test, removed with all that is in it at the end.
class TempFolder {
public:
    enum class Way { Local, Network };

    /// inside: a path below the new folder, to be the folder that the test sees. way: how it is
    /// named; by the network where the system has such names.
    explicit TempFolder(std::u16string_view inside = {}, Way way = Way::Local)
        : marker_(platform::createTemporaryFile(u"_test")), root_(marker_ + u".d") {
        if (way == Way::Network && root_.find(u':') == 1)
            root_ = u"\\\\localhost\\" + root_.substr(0, 1) + u"$" + root_.substr(2);
        folder_ = root_;
        if (!inside.empty())
            folder_ /= inside;
        platform::createFolders(folder_.u16string());
    }
    ~TempFolder() {
        platform::removeFolder(root_);
        platform::removeFile(marker_);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    bool exists() const { return platform::fileExists(folder_.u16string()); }
    bool isOnNetwork() const { return root_.starts_with(u"\\\\"); }

    /// Path of the file `name` in the folder.
    std::u16string operator/(std::u16string_view name) const {
        return (folder_ / name).u16string();
    }

    /// Writes a file. @return its path.
    std::u16string write(std::u16string_view name, std::string_view bytes) const {
        const platform::FileHandle file(platform::openFile(*this / name, "wb"));
        if (file)
            std::fwrite(bytes.data(), 1, bytes.size(), file.get());
        return *this / name;
    }

    /// The bytes of the file `name`.
    std::string read(std::u16string_view name) const {
        return platform::readWholeFile(*this / name).value_or("");
    }

    /// Number of files and folders inside.
    std::ptrdiff_t count() const {
        return std::distance(std::filesystem::directory_iterator(folder_), {});
    }

private:
    std::u16string marker_;
    std::u16string root_;
    std::filesystem::path folder_;
};
