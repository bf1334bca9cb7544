#include "standin/core/project_archive.h"

#include <minizip/unzip.h>
#include <minizip/zip.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <set>

#include "ifc/io/paths.h"
#include "ifc/io/zip_files.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/text.h"
#include "standin/core/disk.h"
#include "standin/core/standin_texts.h"

namespace standin {
namespace {

constexpr std::size_t kBlockBytes = 0x40000;
/// Of an entry that is kept in memory.
constexpr std::size_t kLargestEntryBytes = std::size_t{256} << 20;
constexpr uLong kNameIsUtf8 = 1 << 11;  // of an entry's general purpose bits
constexpr int kDefaultMemoryLevel = 8;  // zlib's own, which its header does not name

struct ArchiveCloser {
    void operator()(void* archive) const { unzClose(archive); }
};
using OpenArchive = std::unique_ptr<void, ArchiveCloser>;

std::string complaint(const std::u16string& path, std::string_view what,
                      std::string_view entry = {}) {
    return platform::toUtf8(path) + " " + std::string(what) + std::string(entry);
}

std::string currentName(unzFile archive) {
    unz_file_info64 info = {};
    unzGetCurrentFileInfo64(archive, &info, nullptr, 0, nullptr, 0, nullptr, 0);
    std::string name(info.size_filename, '\0');
    if (unzGetCurrentFileInfo64(archive, nullptr, name.data(), info.size_filename, nullptr, 0,
                                nullptr, 0) != UNZ_OK)
        return {};
    return name;
}

/// A relative path of ordinary names, which no system takes for anything else.
bool isHarmless(std::string_view name) {
    if (name.empty() || name.find_first_of("\\:|") != std::string_view::npos ||
        name.find('\0') != std::string_view::npos)
        return false;
    while (true) {
        const std::size_t end = std::min(name.find('/'), name.size());
        const std::string_view part = name.substr(0, end);
        if (part.empty() || part == "." || part == "..")
            return false;
        if (end == name.size())
            return true;
        name.remove_prefix(end + 1);
    }
}

/// Hands the current entry on, block by block. @return whether all of it could be read and taken.
template <class Take>
bool passEntry(unzFile archive, Take take) {
    if (unzOpenCurrentFile(archive) != UNZ_OK)
        return false;
    std::vector<char> block(kBlockBytes);
    int count = 0;
    bool isTaken = true;
    do {
        count = unzReadCurrentFile(archive, block.data(), static_cast<unsigned>(block.size()));
        if (count > 0)
            isTaken = take(std::string_view(block.data(), static_cast<std::size_t>(count)));
    } while (count > 0 && isTaken);
    return unzCloseCurrentFile(archive) == UNZ_OK && count == 0 && isTaken;
}

bool extractModel(unzFile archive, const std::u16string& path) {
    platform::createFolders(folderOf(path));
    platform::FileHandle file(platform::openFile(path, "wb"));
    return file &&
           passEntry(archive,
                     [&](std::string_view bytes) {
                         return std::fwrite(bytes.data(), 1, bytes.size(), file.get()) ==
                                bytes.size();
                     }) &&
           std::fclose(file.release()) == 0;
}

/// The zip library's file functions with a disk on which only so much fits. A write that fails is
/// remembered and not passed on: the library would lose memory where it happens in a header.
struct SmallDisk {
    zlib_filefunc64_def functions = FileStream::zipFileFunctions();
    std::int64_t bytesLeft = -1;
    bool hasFailed = false;

    static uLong ZCALLBACK write(voidpf disk, voidpf stream, const void* bytes, uLong count) {
        auto& self = *static_cast<SmallDisk*>(disk);
        const bool fits = self.bytesLeft < 0 || self.bytesLeft >= static_cast<std::int64_t>(count);
        if (fits && self.bytesLeft >= 0)
            self.bytesLeft -= static_cast<std::int64_t>(count);
        self.hasFailed |= !fits || self.functions.zwrite_file(self.functions.opaque, stream, bytes,
                                                              count) != count;
        return count;
    }
};

bool writeEntryBytes(zipFile archive, std::string_view bytes) {
    while (!bytes.empty()) {
        const std::string_view run = bytes.substr(0, kBlockBytes);
        if (zipWriteInFileInZip(archive, run.data(), static_cast<unsigned>(run.size())) != ZIP_OK)
            return false;
        bytes.remove_prefix(run.size());
    }
    return true;
}

bool writeEntryFile(zipFile archive, const std::u16string& path) {
    const platform::FileHandle file(platform::openFile(path, "rb"));
    if (!file)
        return false;
    std::vector<char> block(kBlockBytes);
    for (std::size_t count = block.size(); count == block.size();) {
        count = std::fread(block.data(), 1, block.size(), file.get());
        if (!writeEntryBytes(archive, {block.data(), count}))
            return false;
    }
    return std::ferror(file.get()) == 0;
}

bool writeEntry(zipFile archive, const ProjectEntry& entry) {
    // The same project gives the same file: an entry has no time.
    const zip_fileinfo info = {};
    const bool isOpen =
        zipOpenNewFileInZip4_64(archive, platform::toUtf8(entry.name).c_str(), &info, nullptr, 0,
                                nullptr, 0, nullptr, Z_DEFLATED, Z_DEFAULT_COMPRESSION, 0,
                                -MAX_WBITS, kDefaultMemoryLevel, Z_DEFAULT_STRATEGY, nullptr, 0, 0,
                                kNameIsUtf8, entry.file.empty() ? 0 : 1) == ZIP_OK;
    const bool isWritten = isOpen && (entry.file.empty() ? writeEntryBytes(archive, entry.bytes)
                                                         : writeEntryFile(archive, entry.file));
    return isOpen && zipCloseFileInZip(archive) == ZIP_OK && isWritten;
}

bool writeArchive(const std::u16string& path, const std::vector<ProjectEntry>& entries,
                  std::int64_t diskBytes) {
    SmallDisk disk;
    disk.bytesLeft = diskBytes;
    zlib_filefunc64_def functions = disk.functions;
    functions.zwrite_file = SmallDisk::write;
    functions.opaque = &disk;
    const zipFile archive =
        zipOpen2_64(FileStream::archiveName(path), APPEND_STATUS_CREATE, nullptr, &functions);
    if (!archive)
        return false;
    const bool isWritten = std::all_of(
        entries.begin(), entries.end(),
        [&](const ProjectEntry& entry) { return writeEntry(archive, entry) && !disk.hasFailed; });
    return zipClose(archive, nullptr) == ZIP_OK && isWritten && !disk.hasFailed &&
           platform::flushToDisk(path);
}

}  // namespace

bool isModelName(const std::u16string& name) {
    const std::u16string extension = FileStream::extensionOf(name);
    return extension == u".ifc" || extension == u".ifczip";
}

std::optional<std::vector<ProjectEntry>> readProject(const std::u16string& path,
                                                     const std::u16string& folder,
                                                     std::string& error) {
    zlib_filefunc64_def functions = FileStream::zipFileFunctions();
    const OpenArchive archive(unzOpen2_64(FileStream::archiveName(path), &functions));
    if (!archive) {
        error =
            complaint(path, platform::fileExists(path) ? texts::kNotAnArchive : texts::kCannotRead);
        return std::nullopt;
    }
    std::vector<ProjectEntry> entries;
    std::set<std::string> names;
    int code = unzGoToFirstFile(archive.get());
    for (; code == UNZ_OK; code = unzGoToNextFile(archive.get())) {
        const std::string name = currentName(archive.get());
        if (name.ends_with('/'))
            continue;  // a folder
        if (!isHarmless(name) || !names.insert(name).second) {
            error = complaint(path, texts::kBadEntryName, name);
            return std::nullopt;
        }
        ProjectEntry entry{.name = platform::fromUtf8(name), .bytes = {}, .file = {}};
        bool isRead = false;
        if (isModelName(entry.name)) {
            entry.file = joined(folder, entry.name);
            isRead = extractModel(archive.get(), entry.file);
        } else {
            isRead = passEntry(archive.get(), [&](std::string_view bytes) {
                entry.bytes += bytes;
                return entry.bytes.size() <= kLargestEntryBytes;
            });
        }
        if (!isRead) {
            error = complaint(
                path,
                entry.bytes.size() > kLargestEntryBytes ? texts::kEntryTooLarge : texts::kBadEntry,
                name);
            return std::nullopt;
        }
        entries.push_back(std::move(entry));
    }
    if (code != UNZ_END_OF_LIST_OF_FILE) {
        error = complaint(path, texts::kNotAnArchive);
        return std::nullopt;
    }
    return entries;
}

bool writeProject(const std::u16string& path, const std::vector<ProjectEntry>& entries,
                  std::int64_t diskBytes, std::string& error) {
    if (platform::isWriteProtected(path)) {
        error = complaint(path, texts::kReadOnly);
        return false;
    }
    const std::u16string part = platform::createFileBeside(path, u".part");
    if (!part.empty() && writeArchive(part, entries, diskBytes) && platform::renameOver(part, path))
        return true;
    if (!part.empty())
        platform::removeFile(part);
    error = complaint(path, texts::kCannotWrite);
    return false;
}

}  // namespace standin
