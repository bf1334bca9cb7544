#include "bench/made_host.h"

#include <cstring>
#include <string_view>

#include "platform/text.h"

namespace bench {
namespace {

MadeHost* current = nullptr;

constexpr HostObjectId kFile = HostObjectId{1} << 32;
constexpr HostObjectId kFirstObject = HostObjectId{1} << 33;
constexpr std::size_t kGuidLength = 22;
constexpr const char16_t* kSetNames[] = {u"Pset_WallCommon", u"Site"};
constexpr HostObjectId kAllObjects = 1;

std::string guidOf(HostObjectId object) {
    const std::string digits = std::to_string(object);
    return std::string(kGuidLength - digits.size(), '0') + digits;
}

std::u16string numbered(std::string_view begin, std::size_t number) {
    return platform::fromUtf8(std::string(begin) + std::to_string(number));
}

}  // namespace

MadeHost::MadeHost(std::size_t objects, std::size_t distinctValues) {
    current = this;
    for (std::size_t object = 0; object < objects; ++object)
        objects_.push_back(kFirstObject + object);
    for (std::size_t value = 0; value < distinctValues; ++value)
        firstValues_.push_back(numbered("Value ", value));
    for (std::size_t name = 0; name < names_.size(); ++name)
        names_[name] = numbered("Property ", name);
    for (std::size_t value = 0; value < values_.size(); ++value)
        values_[value] = numbered("", value);

    api_.get_all_objects_id = [](HostHandle) { return kAllObjects; };
    api_.get_childs = [](HostHandle, HostObjectId parent, HostObjectId* buffer,
                         std::int32_t capacity) -> std::int32_t {
        if (parent != kAllObjects)
            return 0;
        if (buffer && capacity > 0)
            *buffer = kFile;
        return 1;
    };
    api_.get_project_path = [](HostHandle, HostObjectId) { return u"made.ifc"; };
    api_.get_object_info = [](HostHandle, HostObjectId object, HostObjectInfo* info) {
        current->fill(object, *info);
        return true;
    };
    api_.get_object_properties2 = [](HostHandle, HostObjectId object, std::int32_t,
                                     HostProperty* buffer, std::int32_t capacity) -> std::int32_t {
        if (buffer && capacity >= kPropertyCount)
            current->fill(object, buffer);
        return kPropertyCount;
    };
    api_.add_del_or_change_property = [](HostHandle, const HostPropertyRequest*,
                                         const HostProperty*) -> HostChangeId {
        return ++current->changeCount_;
    };
}

MadeHost::~MadeHost() { current = nullptr; }

void MadeHost::fill(HostObjectId object, HostProperty* rows) {
    const std::size_t number = object - kFirstObject;
    setGuid_ = platform::fromUtf8(guidOf(object));
    for (std::size_t at = 0; at < names_.size(); ++at) {
        HostProperty& row = rows[at];
        row = {};
        row.setName = kSetNames[at % std::size(kSetNames)];
        row.setGuid = setGuid_.c_str();
        row.setEntityName = u"IfcPropertySet";
        row.name = row.initialName = names_[at].c_str();
        row.value = at == 0 ? firstValues_[number % firstValues_.size()].c_str()
                            : values_[(number + at) % values_.size()].c_str();
        row.entityName = u"IfcLabel";
        row.kind = kHostSingleValue;
        row.valueType = kHostText;
    }
}

void MadeHost::fill(HostObjectId object, HostObjectInfo& info) {
    objectGuid_ = guidOf(object);
    objectName_ = numbered("Wall ", object - kFirstObject);
    info = {};
    info.id = object;
    info.fileId = kFile;
    info.guid = objectGuid_.c_str();
    info.name = objectName_.c_str();
    info.entityName = u"IfcWall";
    info.instanceNumber = static_cast<std::int32_t>(object - kFirstObject) + 1;
}

}  // namespace bench
