#include "standin/core/objects.h"

#include <algorithm>

#include "platform/text.h"

namespace standin {
namespace {

/// Takes the parent from an object of each circle of parents: nobody would come to those objects.
void cutCircles(const LoadedFile& file, const std::unordered_map<HostObjectId, Object*>& byNumber) {
    std::unordered_set<const Object*> known;  // those above them end somewhere
    for (const auto& object : file.objects) {
        std::unordered_set<const Object*> path;
        for (Object* at = object.get(); known.insert(at).second;) {
            path.insert(at);
            const auto parent = byNumber.find(at->parentId);
            if (parent == byNumber.end())
                break;
            if (path.contains(parent->second)) {
                at->parentId = 0;
                break;
            }
            at = parent->second;
        }
    }
}

}  // namespace

void Objects::add(LoadedFile file) {
    file.id = nextFile_++;
    std::unordered_map<HostObjectId, Object*> byNumber;
    for (const auto& object : file.objects)
        byNumber.emplace(static_cast<HostObjectId>(object->instanceNumber), object.get());
    cutCircles(file, byNumber);
    for (const auto& object : file.objects) {
        object->id = nextObject_++;
        object->fileId = file.id;
        byId_.emplace(object->id, object.get());
        if (!object->guid.empty())
            byGuid_.emplace(object->guid, object.get());
    }
    for (const auto& object : file.objects) {
        const auto parent = byNumber.find(object->parentId);
        object->parentId = parent == byNumber.end() ? file.id : parent->second->id;
        children_[object->parentId].push_back(object->id);
    }
    files_.push_back(std::move(file));
}

void Objects::clear() {
    byId_.clear();
    byGuid_.clear();
    children_.clear();
    select({});
    files_.clear();
}

void Objects::select(std::vector<HostObjectId> ids) {
    selected_ = std::move(ids);
    isSelected_ = {selected_.begin(), selected_.end()};
}

const LoadedFile* Objects::findFile(HostObjectId id) const {
    const auto found = std::find_if(files_.begin(), files_.end(),
                                    [id](const LoadedFile& file) { return file.id == id; });
    return found == files_.end() ? nullptr : &*found;
}

Object* Objects::find(HostObjectId id) const {
    const auto found = byId_.find(id);
    return found == byId_.end() ? nullptr : found->second;
}

Object* Objects::findByGuid(std::u16string_view guid) const {
    const auto found = byGuid_.find(guid);
    return found == byGuid_.end() ? nullptr : found->second;
}

Object* Objects::findNamed(std::u16string_view text) const {
    if (Object* const object = findByGuid(text))
        return object;
    for (const LoadedFile& file : files_)
        for (const auto& object : file.objects)
            if (object->name == text ||
                u"#" + platform::fromUtf8(std::to_string(object->instanceNumber)) == text)
                return object.get();
    return nullptr;
}

std::vector<HostObjectId> Objects::all() const {
    std::vector<HostObjectId> ids;
    for (const LoadedFile& file : files_)
        for (const auto& object : file.objects)
            ids.push_back(object->id);
    return ids;
}

std::vector<HostObjectId> Objects::children(HostObjectId parent) const {
    if (parent == kSelection)
        return selected_;
    if (parent == kAllObjects) {
        std::vector<HostObjectId> ids;
        for (const LoadedFile& file : files_)
            ids.push_back(file.id);
        return ids;
    }
    const auto found = children_.find(parent);
    return found == children_.end() ? std::vector<HostObjectId>() : found->second;
}

}  // namespace standin
