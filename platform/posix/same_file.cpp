#include "platform/same_file.h"

#include <filesystem>
#include <system_error>

#include "platform/text.h"

namespace platform {
namespace {

std::filesystem::path pathOf(const std::u16string& path) {
    const std::string bytes = toPathBytes(path);
    return std::u8string(bytes.begin(), bytes.end());
}

}  // namespace

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

}  // namespace platform
