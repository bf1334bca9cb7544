#include "standin/core/project.h"

#include <algorithm>
#include <cstring>
#include <set>

#include "ifc/io/paths.h"
#include "platform/files.h"
#include "platform/text.h"
#include "standin/core/model_reader.h"
#include "standin/core/standin_texts.h"

namespace standin {
namespace {

std::string complaint(const std::u16string& path, std::string_view what) {
    return platform::toUtf8(path) + " " + std::string(what);
}

const ProjectEntry* findEntry(const std::vector<ProjectEntry>& entries, std::u16string_view name) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const ProjectEntry& entry) { return entry.name == name; });
    return found == entries.end() ? nullptr : &*found;
}

/// A name under which a model can be kept and extracted on every system: a second file of a name
/// goes into a folder of its own.
std::u16string entryNameFor(const std::u16string& path, std::set<std::u16string>& taken) {
    std::u16string name = fileNameOf(path);
    std::replace_if(
        name.begin(), name.end(),
        [](char16_t unit) { return unit == u'\\' || unit == u':' || unit == u'|'; }, u'_');
    std::u16string folded = name;
    for (char16_t& unit : folded)
        if (unit >= u'A' && unit <= u'Z')
            unit = static_cast<char16_t>(unit + (u'a' - u'A'));
    std::u16string folder;
    for (int number = 2; !taken.insert(folder + folded).second; ++number)
        folder = platform::fromUtf8(std::to_string(number)) + u"/";
    return folder + name;
}

bool addModel(OpenedFiles& opened, const std::u16string& path, std::u16string entryName,
              std::string& error) {
    if (!platform::fileExists(path)) {
        error = complaint(path, texts::kCannotRead);
        return false;
    }
    std::optional<LoadedFile> file = readModel(path, error);
    if (!file)
        return false;
    file->entryName = std::move(entryName);
    opened.files.push_back(std::move(*file));
    return true;
}

std::optional<OpenedFiles> readProjectFile(const std::u16string& path, std::string& error) {
    OpenedFiles opened;
    opened.projectPath = path;
    opened.folder = std::make_unique<TemporaryFolder>();
    if (opened.folder->path().empty()) {
        error = complaint(path, texts::kCannotExtract);
        return std::nullopt;
    }
    auto entries = readProject(path, opened.folder->path(), error);
    if (!entries)
        return std::nullopt;
    for (ProjectEntry& entry : *entries) {
        if (entry.file.empty())
            opened.entries.push_back(std::move(entry));
        else if (!addModel(opened, entry.file, entry.name, error))
            return std::nullopt;
    }
    if (opened.files.empty()) {
        error = complaint(path, texts::kNoModelsInProject);
        return std::nullopt;
    }
    return opened;
}

}  // namespace

std::optional<OpenedFiles> readFiles(const std::vector<std::u16string>& paths, std::string& error) {
    if (paths.size() == 1 && FileStream::extensionOf(paths[0]) == u".ahx")
        return readProjectFile(paths[0], error);
    OpenedFiles opened;
    std::set<std::u16string> taken;
    for (const std::u16string& path : paths) {
        if (!isModelName(path)) {
            error = complaint(path, FileStream::extensionOf(path) == u".ahx"
                                        ? texts::kProjectNotAlone
                                        : texts::kUnknownExtension);
            return std::nullopt;
        }
        if (!addModel(opened, path, entryNameFor(path, taken), error))
            return std::nullopt;
    }
    if (opened.files.empty()) {
        error = texts::kNothingToOpen;
        return std::nullopt;
    }
    return opened;
}

void Project::begin(OpenedFiles& files) {
    path_ = std::move(files.projectPath);
    folder_ = std::move(files.folder);
    entries_ = std::move(files.entries);
    read_.reset();
}

void Project::clear() {
    OpenedFiles nothing;
    begin(nothing);
}

const std::string* Project::entry(std::u16string_view name) const {
    const ProjectEntry* const found = findEntry(entries_, name);
    return found ? &found->bytes : nullptr;
}

std::vector<std::u16string> Project::entryNames() const {
    std::vector<std::u16string> names;
    for (const ProjectEntry& entry : entries_)
        names.push_back(entry.name);
    return names;
}

bool Project::beginRead(const std::u16string& name) {
    const std::string* const bytes = name == kDisplayEntry ? nullptr : entry(name);
    read_ = bytes ? std::optional(*bytes) : std::nullopt;
    return bytes != nullptr;
}

std::int64_t Project::readSize() const {
    return read_ ? static_cast<std::int64_t>(read_->size()) : -1;
}

std::int64_t Project::read(void* buffer, std::int64_t size) {
    if (!read_ || !buffer || size < 0)
        return 0;
    const std::size_t count = std::min(read_->size(), static_cast<std::size_t>(size));
    std::memcpy(buffer, read_->data(), count);
    read_->erase(0, count);
    return static_cast<std::int64_t>(count);
}

bool Project::beginWrite(const std::u16string& name) {
    written_ = nullptr;
    if (!pending_ || name.empty() || name == kDisplayEntry || isModelName(name))
        return false;
    const ProjectEntry* const before = findEntry(*pending_, name);
    written_ = before ? &(*pending_)[static_cast<std::size_t>(before - pending_->data())]
                      : &pending_->emplace_back();
    *written_ = {.name = name, .bytes = {}, .file = {}};
    return true;
}

bool Project::write(const void* data, std::int64_t size) {
    if (!written_)
        return false;
    written_->bytes.append(static_cast<const char*>(data), static_cast<std::size_t>(size));
    return true;
}

bool Project::endSave(const std::u16string& path, const Objects& objects,
                      const std::optional<std::string>& displays, std::int64_t diskBytes,
                      std::string& error) {
    std::vector<ProjectEntry> entries = std::move(*pending_);
    pending_.reset();
    written_ = nullptr;
    for (const ProjectEntry& old : entries_)
        if (old.name != kDisplayEntry && !findEntry(entries, old.name))
            entries.push_back(old);
    if (displays)
        entries.push_back({.name = std::u16string(kDisplayEntry), .bytes = *displays, .file = {}});
    std::vector<ProjectEntry> all;
    for (const LoadedFile& file : objects.files())
        all.push_back({.name = file.entryName, .bytes = {}, .file = file.path});
    all.insert(all.end(), entries.begin(), entries.end());
    if (!writeProject(path, all, diskBytes, error))
        return false;
    path_ = path;
    entries_ = std::move(entries);
    read_.reset();
    return true;
}

}  // namespace standin
