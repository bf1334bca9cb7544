#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tests/edits/fake_host.h"

/// A host that also tells the types and units of what it shows.
class RowsHost : public FakeHost {
public:
    RowsHost() {
        shown() = this;
        giveTexts() = api.get_object_properties2;
        api.get_object_properties2 = [](HostHandle handle, HostObjectId id, std::int32_t selector,
                                        HostProperty* buffer, std::int32_t capacity) {
            const std::int32_t count = giveTexts()(handle, id, selector, buffer, capacity);
            if (buffer && capacity >= count) {
                for (const DisplayedProperty& row : shown()->objects[id].rows) {
                    buffer->valueType = row.valueType;
                    buffer->prefix = row.prefix.c_str();
                    buffer->unit = row.unit.c_str();
                    ++buffer;
                }
            }
            return count;
        };
    }

    void addObject(HostObjectId id, std::u16string entityName = u"IfcWall") {
        objects[id] = {.fileId = 1,
                       .guid = "guid" + std::to_string(id),
                       .number = static_cast<std::int32_t>(id),
                       .rows = {},
                       .entityName = std::move(entityName)};
    }
    /// The last row that was added.
    DisplayedProperty& add(HostObjectId object, const std::u16string& setName,
                           const std::u16string& property, const std::u16string& value,
                           std::int32_t valueType = kHostText) {
        show(object, setName + u"-guid", setName, property, value);
        DisplayedProperty& row = objects[object].rows.back();
        row.valueType = valueType;
        return row;
    }
    std::vector<HostObjectId> ids() const {
        std::vector<HostObjectId> result;
        for (const auto& [id, object] : objects)
            result.push_back(id);
        return result;
    }

private:
    static RowsHost*& shown() {
        static RowsHost* host = nullptr;
        return host;
    }
    static decltype(HostApi::get_object_properties2)& giveTexts() {
        static decltype(HostApi::get_object_properties2) function = nullptr;
        return function;
    }
};
