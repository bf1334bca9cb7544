#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "plugin/host_abi.h"
#include "standin/core/display.h"

namespace standin {

/// An object of a loaded file: a project, a site, a wall ...
struct Object {
    HostObjectId id = 0;
    HostObjectId fileId = 0;
    HostObjectId parentId = 0;  ///< the file where the model names none
    std::u16string guid;
    std::u16string name;
    std::u16string entityName;  ///< "IfcWall"
    std::int32_t instanceNumber = 0;
    Display display;
};

/// A loaded model.
struct LoadedFile {
    HostObjectId id = 0;
    std::u16string path;       ///< where it lies now: as opened, or extracted from the project
    std::u16string entryName;  ///< in the project file
    std::vector<std::unique_ptr<Object>> objects;  ///< in the order of the file
    std::vector<std::string> reports;              ///< what reading it reported; UTF-8
};

/// What is loaded and selected. Ids need more than 32 bits and are never given twice, so that a
/// plug-in that cuts or keeps them is found out.
class Objects {
public:
    static constexpr HostObjectId kAllObjects = 1;
    static constexpr HostObjectId kSelection = 2;

    /// Enters a file whose objects have no ids yet but hold in `parentId` the instance number of
    /// their parent, 0 for none. Parents that go round in a circle count for none.
    void add(LoadedFile file);
    /// Forgets all files and the selection.
    void clear();

    const std::vector<LoadedFile>& files() const { return files_; }
    const LoadedFile* findFile(HostObjectId id) const;
    /// Null for files and pseudo-objects.
    Object* find(HostObjectId id) const;
    /// The first object of that GUID; null when there is none.
    Object* findByGuid(std::u16string_view guid) const;
    /// By what a user writes: a GUID, "#65", or a name. Null when there is none.
    Object* findNamed(std::u16string_view text) const;

    /// The objects of all files.
    std::vector<HostObjectId> all() const;
    /// Of a pseudo-object, a file, or an object.
    std::vector<HostObjectId> children(HostObjectId parent) const;

    const std::vector<HostObjectId>& selected() const { return selected_; }
    bool isSelected(HostObjectId id) const { return isSelected_.contains(id); }
    void select(std::vector<HostObjectId> ids);

private:
    std::vector<LoadedFile> files_;
    std::map<HostObjectId, Object*> byId_;
    std::unordered_map<std::u16string_view, Object*> byGuid_;  // keys: texts of the objects
    std::unordered_map<HostObjectId, std::vector<HostObjectId>> children_;  // of files and objects
    std::vector<HostObjectId> selected_;
    std::unordered_set<HostObjectId> isSelected_;
    HostObjectId nextFile_ = (HostObjectId{1} << 32) + 17;
    HostObjectId nextObject_ = (HostObjectId{2} << 32) + 1001;
};

}  // namespace standin
