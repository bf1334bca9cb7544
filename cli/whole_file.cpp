#include "cli/whole_file.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "platform/files.h"
#include "platform/text.h"

namespace cli {
namespace {

/// The file is being filled under `part`, which is removed unless it gets its own name.
bool fill(const std::u16string& part, std::string_view bytes) {
    platform::FileHandle file(platform::openFile(part, "wb"));
    if (!file || std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
        return false;
    return std::fclose(file.release()) == 0 && platform::flushToDisk(part);
}

std::filesystem::path pathOf(const std::u16string& path) {
    const std::string bytes = platform::toPathBytes(path);
    return std::u8string(bytes.begin(), bytes.end());
}

}  // namespace

std::optional<std::string> readWholeFile(const std::u16string& path) {
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

bool writeWholeFile(const std::u16string& path, std::string_view bytes) {
    const std::u16string part = platform::createFileBeside(path, u".part");
    if (part.empty())
        return false;
    if (fill(part, bytes) && platform::renameOver(part, path))
        return true;
    platform::removeFile(part);
    return false;
}

bool isSameFile(const std::u16string& a, const std::u16string& b) {
    if (a == b)
        return true;
    try {
        const std::filesystem::path first = pathOf(a);
        const std::filesystem::path second = pathOf(b);
        std::error_code ignored;
        if (std::filesystem::equivalent(first, second, ignored))
            return true;
        const auto canonical = [&ignored](const std::filesystem::path& path) {
            return std::filesystem::weakly_canonical(std::filesystem::absolute(path), ignored);
        };
        return canonical(first) == canonical(second);
    } catch (const std::filesystem::filesystem_error&) {
        return false;  // a name that the system cannot have
    }
}

}  // namespace cli
