#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "platform/files.h"

/// A folder of its own for one test, removed with all that is in it at the end.
class TempFolder {
public:
    TempFolder() : marker_(platform::createTemporaryFile(u"_test")), folder_(marker_) {
        folder_ += ".d";
        std::filesystem::create_directory(folder_);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
        std::filesystem::remove(marker_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Path of the file `name` in the folder.
    std::u16string operator/(std::u16string_view name) const {
        return (folder_ / name).u16string();
    }

    /// Writes a file. @return its path.
    std::u16string write(std::u16string_view name, std::string_view bytes) const {
        std::ofstream(folder_ / name, std::ios::binary) << bytes;
        return *this / name;
    }

    /// The bytes of the file `name`.
    std::string read(std::u16string_view name) const {
        std::ifstream file(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Number of files and folders inside.
    std::ptrdiff_t count() const {
        return std::distance(std::filesystem::directory_iterator(folder_), {});
    }

private:
    std::filesystem::path marker_;
    std::filesystem::path folder_;
};
