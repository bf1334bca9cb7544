#include "tests/edits/fake_host.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/text.h"

namespace {

FakeHost* host = nullptr;
std::u16string lentText;  // valid until the next one, as with a real host
std::string lentGuid;
std::vector<std::u16string> lentTexts;

void note(std::string call) { host->noted.push_back(std::move(call)); }

std::string utf8(const char16_t* text) { return text ? platform::toUtf8(text) : std::string(); }

const char16_t* lend(std::u16string text) {
    lentText = std::move(text);
    return lentText.c_str();
}

template <class Ids>
std::int32_t giveIds(const Ids& ids, HostObjectId* buffer, std::int32_t capacity) {
    std::int32_t count = 0;
    for (const auto& [id, value] : ids)
        if (buffer && count++ < capacity)
            *buffer++ = id;
    return static_cast<std::int32_t>(ids.size());
}

bool giveInfo(HostObjectId id, HostObjectInfo* info) {
    const auto found = host->objects.find(id);
    if (found == host->objects.end())
        return false;
    lentGuid = found->second.guid;
    lentText = found->second.entityName;
    *info = {};
    info->id = id;
    info->fileId = found->second.fileId;
    info->guid = lentGuid.empty() ? nullptr : lentGuid.c_str();
    info->entityName = lentText.c_str();
    info->instanceNumber = found->second.number;
    return true;
}

HostChangeId change(HostHandle, const HostPropertyRequest* request, const HostProperty* rows) {
    std::string call = "change " + std::to_string(request->action) + " #" +
                       std::to_string(request->instanceNumber) + " " + utf8(request->setGuid) +
                       "/" + utf8(request->setName);
    if (request->newSetName)
        call += "->" + utf8(request->newSetName);
    if (request->propertyName)
        call += "/" + utf8(request->propertyName);
    for (std::int32_t row = 0; row < request->propertyCount; ++row)
        call += " [" + utf8(rows[row].name) + "=" + utf8(rows[row].value) + "]";
    note(call + " after " + std::to_string(request->previousChange));
    return host->refusesChanges ? 0 : host->nextChange++;
}

std::int32_t giveRows(HostHandle, HostObjectId id, std::int32_t, HostProperty* buffer,
                      std::int32_t capacity) {
    const auto& rows = host->objects[id].rows;
    if (buffer && capacity >= static_cast<std::int32_t>(rows.size())) {
        for (const DisplayedProperty& row : rows) {
            *buffer = {};
            buffer->setName = row.setName.c_str();
            buffer->setGuid = row.setGuid.c_str();
            buffer->setEntityName = row.setEntityName.c_str();
            buffer->name = row.name.c_str();
            buffer->value = row.value.c_str();
            buffer->kind = row.kind;
            buffer->state = row.state;
            ++buffer;
        }
    }
    return static_cast<std::int32_t>(rows.size());
}

}  // namespace

FakeHost::FakeHost() {
    host = this;
    calls.setHandle(1);
    api.get_all_objects_id = [](HostHandle) -> HostObjectId { return 9; };
    api.get_all_objects = [](HostHandle, HostObjectId* buffer, std::int32_t capacity) {
        return giveIds(host->objects, buffer, capacity);
    };
    api.get_childs = [](HostHandle, HostObjectId, HostObjectId* buffer, std::int32_t capacity) {
        return giveIds(host->files, buffer, capacity);
    };
    api.get_project_path = [](HostHandle, HostObjectId file) -> const char16_t* {
        const std::u16string& path = host->files[file];
        return path.empty() ? nullptr : lend(path);
    };
    api.get_object_info = [](HostHandle, HostObjectId id, HostObjectInfo* info) {
        return giveInfo(id, info);
    };
    api.get_object_info2 = [](HostHandle, const HostObjectId* ids, std::int32_t,
                              HostObjectInfo* info) { return giveInfo(*ids, info); };
    api.get_object_properties2 = giveRows;
    api.calculate_object_id = [](HostHandle, const char* guid) -> HostObjectId {
        if (host->idsByGuid.contains(guid))
            return host->idsByGuid[guid];
        for (const auto& [id, object] : host->objects)
            if (object.guid == guid)
                return id;
        return 0;
    };
    api.add_del_or_change_property = change;
    api.register_undo_action = [](HostHandle, const char16_t* text) { note("undo " + utf8(text)); };
    api.need_save_ahx = [](HostHandle, bool needed) { note(needed ? "save" : "no save"); };
    api.invalidate = [](HostHandle) { note("paint"); };
    api.begin_read_ahx_v2 = [](HostHandle, const char16_t* name) {
        return host->entry.has_value() && utf8(name) == "Data.xml";
    };
    api.get_ahx_size_v2 = [](HostHandle) { return static_cast<std::int64_t>(host->entry->size()); };
    api.read_ahx_v2 = [](HostHandle, void* buffer, std::int64_t size) {
        std::memcpy(buffer, host->entry->data(), static_cast<std::size_t>(size));
        return size;
    };
    api.begin_write_ahx_v2 = [](HostHandle, const char16_t*) {
        if (host->mayWrite)
            host->entry = "";
        return host->mayWrite;
    };
    api.write_ahx_v2 = [](HostHandle, const void* bytes, std::int64_t size) {
        host->entry->append(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
    };
    api.get_text = [](HostHandle, const char* key) {
        return lend(u"<" + platform::fromUtf8(key) + u">");
    };
    api.message_box = [](HostHandle, const char16_t* caption, const char16_t* text,
                         std::uint32_t flags) {
        note("box " + std::to_string(flags) + " " + utf8(caption) + utf8(text));
        return host->messageAnswer;
    };
    api.set_save_dialog_params = [](HostHandle, const char16_t* filter, const char16_t* name,
                                    const char16_t* extension) {
        note("params " + utf8(filter) + "|" + utf8(name) + "|" + utf8(extension));
    };
    api.save_dialog = [](HostHandle, bool several) {
        note(several ? "dialog for several" : "dialog for one");
        return host->saveName.has_value();
    };
    api.get_save_dialog_name = [](HostHandle) { return lend(*host->saveName); };
}

FakeHost::~FakeHost() { host = nullptr; }

void FakeHost::show(HostObjectId object, const std::u16string& setGuid,
                    const std::u16string& setName, const std::u16string& property,
                    const std::u16string& value, std::int32_t state) {
    DisplayedProperty& row = objects[object].rows.emplace_back();
    row.setName = setName;
    row.setGuid = setGuid;
    row.setEntityName = u"IfcPropertySet";
    row.name = property;
    row.value = value;
    row.state = state;
}

std::vector<std::string> FakeHost::takeCalls() { return std::exchange(noted, {}); }
