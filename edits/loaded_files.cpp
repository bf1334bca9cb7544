#include "edits/loaded_files.h"

#include <map>
#include <utility>

namespace IFC {
namespace {

bool isSameKey(std::u16string_view a, std::u16string_view b) {
    constexpr FileNameOrder isBefore;
    return !isBefore(a, b) && !isBefore(b, a);
}

}  // namespace

void LoadedFiles::refresh(const HostCalls& host, PendingEdits& store) {
    const std::vector<File> before = std::exchange(files_, {});
    places_.clear();
    for (const HostObjectId id : host.children(host.allObjectsId())) {
        if (!places_.emplace(id, files_.size()).second)
            continue;
        files_.push_back({.id = id, .name = {}, .path = host.projectPath(id)});
    }
    findNamesakes(before);
    keepNamesakesApart(store);
    for (File& file : files_) {
        if (!file.path.empty())
            file.name = store.keyOf(file.path);
        else if (const auto info = host.objectInfo(file.id))
            file.name = info->name;
    }
}

/// Of two files with one name the one that was loaded before owns the edits made under the name.
void LoadedFiles::findNamesakes(const std::vector<File>& before) {
    namesakes_.clear();
    std::map<std::u16string, std::u16string_view, FileNameOrder> firstPaths;
    std::map<std::u16string, bool, FileNameOrder> isShared;
    const auto note = [&](const File& file) {
        if (file.path.empty())
            return;
        const std::u16string name = normalisedFileName(file.path);
        const std::u16string_view first = firstPaths.try_emplace(name, file.path).first->second;
        if (!isSameKey(first, file.path) && !std::exchange(isShared[name], true))
            namesakes_.emplace_back(first);
    };
    for (const File& file : before)
        if (const File* still = find(file.id); still && still->path == file.path)
            note(file);
    for (const File& file : files_)
        note(file);
}

void LoadedFiles::keepNamesakesApart(PendingEdits& store) const {
    for (const std::u16string& path : namesakes_)
        store.keepApart(path);
}

const LoadedFiles::File* LoadedFiles::find(HostObjectId file) const {
    const auto place = places_.find(file);
    return place != places_.end() ? &files_[place->second] : nullptr;
}

const LoadedFiles::File* LoadedFiles::findByKey(const PendingEdits& store,
                                                std::u16string_view key) const {
    for (const File& file : files_)
        if (!file.path.empty() && isSameKey(store.keyOf(file.path), key))
            return &file;
    return nullptr;
}

std::u16string LoadedFiles::pathOf(HostObjectId file) const {
    const File* found = find(file);
    return found ? found->path : std::u16string();
}

}  // namespace IFC
