#include "platform/whole_file.h"

#include <array>
#include <cerrno>
#include <cstdio>

#include "platform/files.h"

namespace platform {
namespace {

/// The file is being filled under `part`, which is removed unless it gets its own name.
bool fill(std::u16string_view part, std::string_view bytes) {
    FileHandle file(openFile(part, "wb"));
    if (!file || std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
        return false;
    return std::fclose(file.release()) == 0 && flushToDisk(part);
}

}  // namespace

std::optional<std::string> readWholeFile(std::u16string_view path) {
    const FileHandle file(openFile(path, "rb"));
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

bool writeWholeFile(std::u16string_view path, std::string_view bytes) {
    const std::u16string part = createFileBeside(path, u".part");
    if (part.empty())
        return false;
    if (fill(part, bytes) && renameOver(part, path))
        return true;
    const int reason = errno;
    removeFile(part);
    errno = reason;
    return false;
}

}  // namespace platform
