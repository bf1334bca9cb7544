#include "platform/files.h"

#include <windows.h>

#include <cwchar>

#include "platform/new_guid.h"
#include "platform/win32/wide.h"

namespace platform {
namespace {

/// Owns a file handle.
class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (*this)
            CloseHandle(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

/// Sixteen hexadecimal digits that no other call gives.
std::u16string uniqueName() {
    std::u16string name;
    if (const auto guid = newGuid()) {
        for (std::size_t i = 0; i < 8; ++i) {
            name.push_back(u"0123456789abcdef"[(*guid)[i] >> 4]);
            name.push_back(u"0123456789abcdef"[(*guid)[i] & 0x0F]);
        }
    }
    return name;
}

std::u16string createUniqueFile(std::u16string_view prefix, std::u16string_view suffix) {
    constexpr int kAttempts = 100;  // a name that is taken is a rare accident
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const std::u16string name = uniqueName();
        if (name.empty())
            return {};
        std::u16string path = std::u16string(prefix) + name;
        path += suffix;
        if (const Handle file{CreateFileW(wide(path), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                          FILE_ATTRIBUTE_NORMAL, nullptr)})
            return path;
        if (GetLastError() != ERROR_FILE_EXISTS)
            return {};
    }
    return {};
}

}  // namespace

std::FILE* openFile(std::u16string_view path, const char* mode) {
    const std::u16string wideMode(mode, mode + std::char_traits<char>::length(mode));
    std::FILE* file = nullptr;
    if (_wfopen_s(&file, wide(std::u16string(path)), wide(wideMode)) != 0)
        return nullptr;
    return file;
}

int seekFile(std::FILE* file, std::int64_t offset, int origin) {
    return _fseeki64(file, offset, origin);
}

std::int64_t tellFile(std::FILE* file) { return _ftelli64(file); }

bool removeFile(std::u16string_view path) { return DeleteFileW(wide(std::u16string(path))) != 0; }

bool renameOver(std::u16string_view from, std::u16string_view to) {
    return MoveFileExW(wide(std::u16string(from)), wide(std::u16string(to)),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

bool fileExists(std::u16string_view path) {
    return GetFileAttributesW(wide(std::u16string(path))) != INVALID_FILE_ATTRIBUTES;
}

std::uint64_t fileSize(std::u16string_view path) {
    WIN32_FILE_ATTRIBUTE_DATA found = {};
    if (!GetFileAttributesExW(wide(std::u16string(path)), GetFileExInfoStandard, &found))
        return 0;
    return std::uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow;
}

bool flushToDisk(std::u16string_view path) {
    const Handle file(CreateFileW(wide(std::u16string(path)), GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file && FlushFileBuffers(file.get());
}

std::u16string createTemporaryFile(std::u16string_view suffix) {
    wchar_t folder[MAX_PATH + 1] = {};
    const DWORD length = GetTempPathW(MAX_PATH + 1, folder);  // ends in a backslash
    if (length == 0 || length > MAX_PATH)
        return {};
    return createUniqueFile(std::u16string(fromWide(folder, length)) + u"quillet_", suffix);
}

std::u16string createFileBeside(std::u16string_view target, std::u16string_view suffix) {
    return createUniqueFile(std::u16string(target) + u".", suffix);
}

bool isPathSeparator(char16_t unit) { return unit == u'\\' || unit == u'/' || unit == u':'; }

char16_t pathSeparator() { return u'\\'; }

}  // namespace platform
