#include "standin/core/objects.h"

#include <algorithm>

#include "platform/text.h"

namespace standin {

void Objects::add(LoadedFile file) {
    file.id = nextFile_++;
    std::map<std::int32_t, HostObjectId> idOfNumber;
    for (const auto& object : file.objects) {
        object->id = nextObject_++;
        object->fileId = file.id;
        idOfNumber.emplace(object->instanceNumber, object->id);
        byId_.emplace(object->id, object.get());
    }
    for (const auto& object : file.objects) {
        const auto parent = idOfNumber.find(static_cast<std::int32_t>(object->parentId));
        object->parentId =
            parent == idOfNumber.end() || parent->second == object->id ? file.id : parent->second;
    }
    files_.push_back(std::move(file));
}

void Objects::clear() {
    files_.clear();
    byId_.clear();
    selected_.clear();
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
    for (const LoadedFile& file : files_)
        for (const auto& object : file.objects)
            if (!guid.empty() && object->guid == guid)
                return object.get();
    return nullptr;
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
    std::vector<HostObjectId> ids;
    for (const LoadedFile& file : files_) {
        if (parent == kAllObjects)
            ids.push_back(file.id);
        for (const auto& object : file.objects)
            if (object->parentId == parent)
                ids.push_back(object->id);
    }
    return ids;
}

}  // namespace standin
