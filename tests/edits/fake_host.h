#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "edits/edit_session.h"
#include "plugin/host_api.h"
#include "plugin/host_calls.h"

/// A host that notes what it is asked for. There is one at a time.
class FakeHost {
public:
    struct Object {
        HostObjectId fileId = 0;
        std::string guid;
        std::int32_t number = 0;
        std::vector<DisplayedProperty> rows;
        std::u16string entityName = u"IfcWall";
    };

    FakeHost();
    ~FakeHost();
    FakeHost(const FakeHost&) = delete;
    FakeHost& operator=(const FakeHost&) = delete;

    /// Adds a row to an object's display.
    void show(HostObjectId object, const std::u16string& setGuid, const std::u16string& setName,
              const std::u16string& property, const std::u16string& value = u"v",
              std::int32_t state = kHostUnchanged);
    /// What was noted since the last time, and forgets it.
    std::vector<std::string> takeCalls();

    HostApi api;
    HostCalls calls{api};
    std::map<HostObjectId, std::u16string> files;  // path, empty for none
    std::map<HostObjectId, Object> objects;
    std::map<std::string, HostObjectId> idsByGuid;  // instead of the first object with the GUID
    HostChangeId nextChange = 101;
    bool refusesChanges = false;
    std::optional<std::string> entry;  // Data.xml
    bool mayWrite = true;
    std::optional<std::u16string> saveName;  // what the save dialog gives; empty: cancelled
    std::int32_t messageAnswer = 0;
    std::vector<std::string> noted;
};
