#include "platform/files.h"

#include <windows.h>
// windows.h must come first.
#include <fcntl.h>
#include <io.h>

#include <cerrno>
#include <cstdint>

#include "platform/new_guid.h"
#include "platform/win32/handle.h"
#include "platform/win32/last_error.h"
#include "platform/win32/long_path.h"
#include "platform/win32/wide.h"

namespace platform {
namespace {

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
        if (const Handle file{CreateFileW(wide(unlimited(path)), GENERIC_WRITE, 0, nullptr,
                                          CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr)})
            return path;
        const bool isTaken = GetLastError() == ERROR_FILE_EXISTS;
        failWithErrno();
        if (!isTaken)
            return {};
    }
    return {};
}

/// What a mode of std::fopen means here.
struct Mode {
    DWORD access = 0;
    DWORD sharing = 0;
    DWORD creation = 0;
    int flags = _O_NOINHERIT;
};

Mode modeOf(std::string_view name) {
    const bool isReading = name.starts_with('r');
    const bool isUpdating = name.find('+') != name.npos;
    Mode mode;
    if (isReading && !isUpdating) {
        // Others may go on with the file: replace it by a new one, even while this one is read.
        mode.access = GENERIC_READ;
        mode.sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        mode.flags |= _O_RDONLY;
    } else {
        const bool isAppending = name.starts_with('a');
        mode.access = GENERIC_WRITE | (isUpdating ? GENERIC_READ : 0);
        mode.sharing = FILE_SHARE_READ | FILE_SHARE_DELETE;
        mode.flags |= (isUpdating ? _O_RDWR : _O_WRONLY) | (isAppending ? _O_APPEND : 0);
    }
    mode.creation = isReading ? OPEN_EXISTING : name.starts_with('a') ? OPEN_ALWAYS : CREATE_ALWAYS;
    mode.flags |= name.find('b') != name.npos ? _O_BINARY : _O_TEXT;
    return mode;
}

DWORD attributesOf(std::u16string_view path) { return GetFileAttributesW(wide(unlimited(path))); }

bool hasAny(DWORD attributes, DWORD wanted) {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & wanted) != 0;
}

/// Whether somebody has the file open and lets nobody replace it; Windows refuses that as it does
/// without the right to. The last error tells so, or is what it was.
bool isHeldByOthers(std::u16string_view path) {
    const DWORD before = GetLastError();
    const Handle file(CreateFileW(wide(unlimited(path)), DELETE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file && GetLastError() == ERROR_SHARING_VIOLATION)
        return true;
    SetLastError(before);
    return false;
}

}  // namespace

std::FILE* openFile(std::u16string_view path, const char* mode) {
    const Mode how = modeOf(mode);
    Handle file(CreateFileW(wide(unlimited(path)), how.access, how.sharing, nullptr, how.creation,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        failWithErrno();
        return nullptr;
    }
    const int descriptor = _open_osfhandle(reinterpret_cast<std::intptr_t>(file.get()), how.flags);
    if (descriptor < 0)
        return nullptr;
    file.release();  // the descriptor's now
    std::FILE* const stream = _fdopen(descriptor, mode);
    if (!stream)
        _close(descriptor);
    return stream;
}

int seekFile(std::FILE* file, std::int64_t offset, int origin) {
    return _fseeki64(file, offset, origin);
}

std::int64_t tellFile(std::FILE* file) { return _ftelli64(file); }

bool removeFile(std::u16string_view path) {
    return DeleteFileW(wide(unlimited(path))) != 0 || failWithErrno();
}

bool renameOver(std::u16string_view from, std::u16string_view to) {
    if (hasAny(attributesOf(to), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) {
        errno = EACCES;
        return false;
    }
    // Others hold a file for a moment: programs that look for viruses, or a process that gives it
    // a new content like this one.
    constexpr int kAttempts = 20;
    constexpr DWORD kPauseMs = 50;
    for (int attempt = 1;; ++attempt) {
        if (MoveFileExW(wide(unlimited(from)), wide(unlimited(to)),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return true;
        failWithErrno();
        if ((errno != EACCES && errno != EBUSY) || attempt == kAttempts)
            return isHeldByOthers(to) ? failWithErrno() : false;
        Sleep(kPauseMs);
    }
}

bool fileExists(std::u16string_view path) { return attributesOf(path) != INVALID_FILE_ATTRIBUTES; }

bool isWriteProtected(std::u16string_view path) {
    return hasAny(attributesOf(path), FILE_ATTRIBUTE_READONLY);
}

std::uint64_t fileSize(std::u16string_view path) {
    WIN32_FILE_ATTRIBUTE_DATA found = {};
    if (!GetFileAttributesExW(wide(unlimited(path)), GetFileExInfoStandard, &found))
        return 0;
    return std::uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow;
}

bool flushToDisk(std::u16string_view path) {
    const Handle file(CreateFileW(wide(unlimited(path)), GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return (file && FlushFileBuffers(file.get())) || failWithErrno();
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
