#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ifc/io/error_callback.h"
#include "ifc/io/token.h"
#include "ifc/model/entity.h"
#include "ifc/model/entity_table.h"
#include "ifc/model/guid_index.h"
#include "ifc/model/memory_pool.h"
#include "ifc/model/record_shape.h"

namespace IFC {

/// One IFC model in memory: its header and its entities, all of one schema release. Owns every
/// entity; they end with it.
class Model {
public:
    /// classes: every entity and value class of the release, for the whole run.
    explicit Model(std::span<const ClassInfo* const> classes);
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    HeaderFields header;
    std::u16string iso;       ///< "ISO-10303-21"
    std::u16string filePath;  ///< where it was read from

    MemoryPool& pool() { return pool_; }
    EntityTable& table() { return table_; }

    /// Null when there is none; deleted entities are found.
    IfcEntity* find(std::int32_t number) const { return table_.find(number); }
    /// The entities in the order in which they were read, new ones behind them, deleted ones
    /// included.
    const std::deque<IfcEntity*>& entities() const { return order_; }
    /// Rooted entities (those that have a GUID), in the same order.
    const std::vector<IfcEntity*>& rooted() const { return rooted_; }

    /// key: upper-case name. Null when the release has no such entity or value class.
    const ClassInfo* findClass(std::string_view key) const;

    /// Enters an entity that has its number. @return false, with nothing changed, when the number
    /// is taken.
    bool add(IfcEntity* entity);
    /// A new entity of a class given by name in any case, with the next free number, entered.
    /// Reports through `errors` and returns null when the release has no such class.
    IfcEntity* createEntity(std::string_view name, const ErrorCallback& errors);
    /// A new value of a defined type ("IFCLABEL"), unnamed. Null when the release has no such value
    /// class.
    IfcEntity* createValue(std::string_view key);
    /// Gives `entity`, which was made by copying, the next free number and enters it.
    void adopt(IfcEntity* entity);

    /// The object with that GUID, null when there is none. New and changed GUIDs are found after
    /// registerGuid().
    IfcEntity* findByGuid(std::u16string_view guid) const { return guids_.find(guid); }
    void reserveGuids(std::size_t count) { guids_.reserve(count); }
    /// guid: stored in the pool. @return false when another entity has it already.
    bool registerGuid(std::u16string_view guid, IfcEntity* entity) {
        return guids_.insert(guid, entity);
    }

    /// Keeps what the file has as the GUID of `entity`, which got another one when it was read.
    /// inFile: stored in the pool.
    void noteReplacedGuid(IfcEntity* entity, std::u16string_view inFile);
    /// What the file has as the GUID of an entity that got another one when it was read: the GUID
    /// of another entity, or nothing. No value for entities that have the file's.
    std::optional<std::u16string_view> replacedGuid(const IfcEntity* entity) const;
    /// Whether `entity` has that GUID, here or in the file.
    bool hasGuid(IfcEntity* entity, std::u16string_view guid) const;
    /// All that have that GUID, here or in the file: the one that kept it first, then the others in
    /// the order of the file; without deleted ones. An empty text finds nothing.
    std::vector<IfcEntity*> findAllByGuid(std::u16string_view guid) const;

    // The instances that editing needs; the first of each in the file, null when there is none.
    IfcEntity* unitAssignment() const { return unitAssignment_; }
    IfcEntity* project() const { return project_; }
    IfcEntity* site() const { return site_; }
    IfcEntity* building() const { return building_; }
    IfcEntity* ownerHistory() const { return ownerHistory_; }

    /// Fills the referencing sets of properties, quantities and their sets from the entities noted
    /// while reading. Does nothing the second time.
    void recordReferencing();
    void noteEditableOwners(std::vector<IfcEntity*> owners) { editableOwners_ = std::move(owners); }
    /// Enters what `owner` refers to into the targets' referencing sets.
    void recordReferencesOf(IfcEntity* owner);

    void keepShape(const IfcEntity* entity, RecordShape shape) {
        shapes_[entity] = std::move(shape);
    }
    /// Null for a record of the usual shape.
    const RecordShape* shapeOf(const IfcEntity* entity) const;
    /// To be called before an entity is changed: what it has then counts, not the record that was
    /// read.
    void markEdited(const IfcEntity* entity);
    /// Gives a copy of an entity the original's shape.
    void copyShape(const IfcEntity* from, const IfcEntity* to);
    bool hasShapes() const { return !shapes_.empty(); }

    /// What a class is to the model, found once per class.
    struct ClassRole {
        bool rooted = false;
        IfcEntity* Model::*special = nullptr;
    };
    /// entity: any object of the class.
    static ClassRole roleOf(IfcEntity* entity);
    /// `add`, with the role of the entity's class known.
    bool add(IfcEntity* entity, const ClassRole& role);

private:
    MemoryPool pool_;
    EntityTable table_{pool_};
    std::deque<IfcEntity*> order_;
    std::vector<IfcEntity*> rooted_;
    std::unordered_map<std::string_view, const ClassInfo*> classes_;
    GuidIndex guids_;
    std::unordered_map<const IfcEntity*, std::u16string_view> replacedGuids_;
    std::unordered_map<std::u16string_view, std::vector<IfcEntity*>> byReplacedGuid_;
    std::unordered_map<const IfcEntity*, RecordShape> shapes_;
    std::vector<IfcEntity*> editableOwners_;
    bool referencingRecorded_ = false;
    IfcEntity* unitAssignment_ = nullptr;
    IfcEntity* project_ = nullptr;
    IfcEntity* site_ = nullptr;
    IfcEntity* building_ = nullptr;
    IfcEntity* ownerHistory_ = nullptr;
};

}  // namespace IFC
