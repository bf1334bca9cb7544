#include "ifc/io/paths.h"

#include <algorithm>
#include <cstddef>

#include "platform/files.h"

namespace FileStream {
namespace {

constexpr std::size_t kArchiveExtensionUnits = 4;  // ".ahx"

constexpr char16_t lowered(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

std::u16string_view archiveOf(std::u16string_view path) {
    return path.substr(0, path.find(kEntrySeparator));
}

/// `path` up to the last dot of its file name.
std::u16string_view withoutExtension(std::u16string_view path) {
    const std::size_t dot = path.rfind(u'.');
    if (dot == std::u16string_view::npos ||
        std::any_of(path.begin() + static_cast<std::ptrdiff_t>(dot), path.end(),
                    platform::isPathSeparator))
        return path;
    return path.substr(0, dot);
}

}  // namespace

std::u16string extensionOf(std::u16string_view path) {
    std::size_t begin;
    const std::u16string_view archive = archiveOf(path);
    if (archive.size() != path.size()) {
        begin = archive.size() - std::min(archive.size(), kArchiveExtensionUnits);
    } else {
        begin = path.rfind(u'.');
        if (begin == std::u16string_view::npos)
            return {};
    }
    std::u16string extension(archive.substr(begin));
    std::transform(extension.begin(), extension.end(), extension.begin(), lowered);
    return extension;
}

std::u16string baseNameOf(std::u16string_view path) {
    const std::u16string_view stem = withoutExtension(path);
    const auto nameBegin = std::find_if(stem.rbegin(), stem.rend(), [](char16_t unit) {
                               return platform::isPathSeparator(unit) || unit == kEntrySeparator;
                           }).base();
    return {nameBegin, stem.end()};
}

std::u16string withExtension(std::u16string_view path, std::u16string_view extension) {
    std::u16string result(withoutExtension(archiveOf(path)));
    result += extension;
    return result;
}

}  // namespace FileStream
