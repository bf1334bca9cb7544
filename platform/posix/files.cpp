#include "platform/files.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "platform/text.h"

namespace platform {
namespace {

/// Owns a file descriptor.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }

private:
    int number_;
};

/// Eight letters and digits that nobody can foresee.
std::string randomName() {
    constexpr char kLetters[] = "abcdefghijklmnopqrstuvwxyz012345";  // 32: five bits each
    unsigned char bytes[8] = {};
    if (::getrandom(bytes, sizeof bytes, 0) != static_cast<ssize_t>(sizeof bytes))
        return {};
    std::string name;
    for (const unsigned char byte : bytes)
        name.push_back(kLetters[byte % 32]);
    return name;
}

std::u16string createUniqueFile(const std::string& prefix, const std::string& suffix, mode_t mode) {
    constexpr int kAttempts = 100;  // a name that is taken is a rare accident
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const std::string name = randomName();
        if (name.empty())
            return {};
        const std::string path = prefix + name + suffix;
        if (const Descriptor file{
                ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode)})
            return fromPathBytes(path);
        if (errno != EEXIST)
            return {};
    }
    return {};
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool syncPath(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return file && ::fsync(file.number()) == 0;
}

}  // namespace

std::FILE* openFile(std::u16string_view path, const char* mode) {
    return std::fopen(toPathBytes(path).c_str(), (std::string(mode) + "e").c_str());
}

int seekFile(std::FILE* file, std::int64_t offset, int origin) {
    return ::fseeko(file, offset, origin);
}

std::int64_t tellFile(std::FILE* file) { return ::ftello(file); }

bool removeFile(std::u16string_view path) { return ::unlink(toPathBytes(path).c_str()) == 0; }

bool renameOver(std::u16string_view from, std::u16string_view to) {
    const std::string source = toPathBytes(from);
    const std::string target = toPathBytes(to);
    struct stat replaced = {};
    if (::stat(target.c_str(), &replaced) == 0 && S_ISREG(replaced.st_mode))
        ::chmod(source.c_str(), replaced.st_mode & 07777);
    if (std::rename(source.c_str(), target.c_str()) != 0)
        return false;
    // So that the new name survives a power cut; where a folder cannot be flushed nothing is lost
    // but that.
    syncPath(folderOf(target));
    return true;
}

bool fileExists(std::u16string_view path) {
    struct stat found = {};
    return ::stat(toPathBytes(path).c_str(), &found) == 0;
}

bool isWriteProtected(std::u16string_view path) {
    struct stat found = {};
    return ::stat(toPathBytes(path).c_str(), &found) == 0 &&
           (found.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

std::uint64_t fileSize(std::u16string_view path) {
    struct stat found = {};
    if (::stat(toPathBytes(path).c_str(), &found) != 0)
        return 0;
    return static_cast<std::uint64_t>(found.st_size);
}

bool flushToDisk(std::u16string_view path) { return syncPath(toPathBytes(path)); }

std::u16string createTemporaryFile(std::u16string_view suffix) {
    const char* const chosen = std::getenv("TMPDIR");
    const std::string folder = chosen && *chosen ? chosen : "/tmp";
    return createUniqueFile(folder + "/quillet_", toPathBytes(suffix), S_IRUSR | S_IWUSR);
}

std::u16string createFileBeside(std::u16string_view target, std::u16string_view suffix) {
    return createUniqueFile(toPathBytes(target) + ".", toPathBytes(suffix), 0666);
}

bool isPathSeparator(char16_t unit) { return unit == u'/'; }

char16_t pathSeparator() { return u'/'; }

}  // namespace platform
