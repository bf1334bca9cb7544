#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "plugin/host_api.h"
#include "plugin/host_calls.h"

/// A host with one file, in which the wall #7 has the rows of `rows`, that notes what is asked of
/// it. The text of a key is the key in angle brackets. There is one at a time.
class FakeHost {
public:
    static constexpr HostHandle kHandle = 77;
    static constexpr HostObjectId kAllObjects = 1;
    static constexpr HostObjectId kFile = 2;
    static constexpr HostObjectId kWall = 3;

    FakeHost();
    ~FakeHost();
    FakeHost(const FakeHost&) = delete;
    FakeHost& operator=(const FakeHost&) = delete;

    /// A host that answers windows, with these in their order; then it cancels.
    void answer(std::optional<WindowFields> fields);

    HostApi api;
    std::vector<HostProperty> rows;
    std::u16string filePath = u"/models/house.ifc";
    std::u16string entityName = u"IfcWall";
    std::int32_t instanceNumber = 7;
    std::vector<HostObjectId> selected = {kWall};
    std::string language = "de";
    std::vector<std::string> missingFiles;  ///< that load_texts does not find

    HostEventCallback clickedCallback = nullptr;
    HostEventCallback contextMenuCallback = nullptr;
    HostButtonId clicked = 0;

    std::vector<std::string> messages;  ///< "caption|text|flags"
    std::vector<std::string> ribbon;    ///< "create_group(<group.quillet>)=1" and so on
    std::vector<std::string> registered;
    std::vector<std::string> changes;  ///< "4 Pset_A.Width = 3", by what is asked for
    std::vector<std::string> undoList;
    std::vector<std::string> loadedFiles;
    std::vector<std::string> windows;  ///< "property mode=add-set title=..."
    int savesNeeded = 0;

private:
    friend struct FakeHostFunctions;
    HostButtonId nextButton_ = 1;
    HostChangeId nextChange_ = 100;
    std::u16string text_;  // handed out last
    std::deque<std::optional<WindowFields>> answers_;
    WindowFields answer_;
    std::vector<HostWindowField> answerRecords_;
};
