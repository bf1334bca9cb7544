#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "edits/snapshot_map.h"
#include "ifc/model/property_set_record.h"

namespace IFC {

/// The name by which an IFC file is known in the store and in the edit log: the file's name with
/// its extension, without folders, so that a project still finds its edits after it was moved. Both
/// "/" and "\" separate folders on every system; of "archive.ahx|folder/model.ifc" it is
/// "model.ifc". A path without a file's name stays as it is.
std::u16string normalisedFileName(std::u16string_view path);

/// Order of file names without regard to the case of ASCII letters.
struct FileNameOrder {
    using is_transparent = void;
    bool operator()(std::u16string_view a, std::u16string_view b) const;
};

using PropertySetRecords = std::vector<std::shared_ptr<IfcPropertySet>>;

/// The pending edits of one object. Copies have records of their own.
struct ObjectEdits {
    ObjectEdits() = default;
    ObjectEdits(const ObjectEdits& other);
    ObjectEdits(ObjectEdits&&) noexcept = default;
    ObjectEdits& operator=(const ObjectEdits& other);
    ObjectEdits& operator=(ObjectEdits&&) noexcept = default;
    ~ObjectEdits() = default;

    /// Compares what the records hold.
    bool operator==(const ObjectEdits& other) const;

    std::uint64_t objectId = 0;  // the host's; 0 while unknown
    std::u16string objectGuid;
    PropertySetRecords newSets;
    PropertySetRecords editedSets;   // with only the properties that were touched
    PropertySetRecords deletedSets;  // their properties do not matter
};

/// The pending edits of one IFC file.
struct FileEdits {
    bool operator==(const FileEdits&) const = default;

    SnapshotMap<ObjectEdits> objects;  // by STEP instance number
    bool loggedAsCached = false;  // "IsCached" in the edit log; kept for a file that is not loaded
};

/// Names the object and the set that an operation of the store concerns.
struct EditTarget {
    std::u16string fileName;        // any form that normalisedFileName() understands
    std::int32_t objectNumber = 0;  // STEP instance number
    std::uint64_t objectId = 0;     // the host's; 0 when unknown
    std::u16string objectGuid;
    std::u16string setName;
    std::u16string setGuid;  // may be empty for a set that is pending: it is found by its name then
};

/// The edits that were made and not yet exported, by IFC file.
///
/// A copy is a snapshot, which costs next to nothing: it shares the records with the original until
/// one of the two changes an object's edits, and the changed object then has records of its own.
/// Every operation returns the affected record, which stays the store's (and is the snapshot's
/// alone once a snapshot was taken and the object edited again), or null when it could not be
/// applied; then nothing was changed but, perhaps, the state of the record, which says what was
/// done (PropertySetState). A set that is not pending yet is one of the model and must be named by
/// its GUID. A set that is marked for deletion takes no edits.
class PendingEdits {
public:
    using Files = std::map<std::u16string, FileEdits, FileNameOrder>;

    bool operator==(const PendingEdits&) const = default;

    std::shared_ptr<IfcPropertySet> addProperty(const EditTarget& target, IfcProperty property,
                                                AddPropertyOperation& operation);
    /// A rename has the name in the file as initial name and the new one as name.
    std::shared_ptr<IfcPropertySet> editProperty(const EditTarget& target, IfcProperty property);
    std::shared_ptr<IfcPropertySet> deleteProperty(const EditTarget& target, IfcProperty property);
    /// Takes a copy of `set`, whose GUID must be new to the object. The set names of `target` are
    /// not looked at.
    std::shared_ptr<IfcPropertySet> addPropertySet(const EditTarget& target,
                                                   const IfcPropertySet& set);
    /// Renames the set.
    std::shared_ptr<IfcPropertySet> editPropertySet(const EditTarget& target,
                                                    std::u16string_view newName);
    std::shared_ptr<IfcPropertySet> deletePropertySet(const EditTarget& target);

    /// The entry of a file, null when it has none.
    const FileEdits* find(std::u16string_view fileName) const;
    /// The entry of a file, made when it has none. Valid until the file's entry is taken out.
    FileEdits& open(std::u16string_view fileName);
    /// A store without edits that keeps the same names apart.
    PendingEdits emptied() const;
    const Files& files() const { return files_; }

    /// The key of a file: its normalised name, or the whole path when such names are kept apart.
    std::u16string keyOf(std::u16string_view fileName) const;

    /// From now on files with the base name of `path` are told apart by their whole paths, as is
    /// needed when two of them are loaded. Edits that are there under the base name belong to
    /// `path`.
    void keepApart(std::u16string_view path);

    /// Gives the entry of a file to another one that has none, as when the file was moved.
    void moveFile(std::u16string_view from, std::u16string_view to);

    /// Number of the object that was edited last; part of what undo restores.
    std::int32_t currentObjectNumber() const { return currentObjectNumber_; }

private:
    struct EditableSet {
        std::shared_ptr<IfcPropertySet> record;  // null when the set takes no edits
        bool isNew = false;
    };

    ObjectEdits* findObject(const EditTarget& target);
    ObjectEdits& openObject(const EditTarget& target);
    EditableSet editableSet(const EditTarget& target);

    std::int32_t currentObjectNumber_ = 0;
    Files files_;
    std::set<std::u16string, FileNameOrder> keptApart_;  // base names
};

}  // namespace IFC
