#include "edits/apply_edits.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "edits/apply_texts.h"
#include "edits/edit_targets.h"
#include "ifc/model/entity.h"
#include "ifc/model/property_operations.h"
#include "ifc/model/property_queries.h"

namespace IFC {

namespace {

class Application {
public:
    Application(Model& model, const ErrorCallback& errors)
        : errors_(errors), operations_(model, errors), targets_(operations_, errors) {}

    void applyTo(std::int32_t number, const ObjectEdits& edits);
    ApplyResult finish();

private:
    void addSet(IfcEntity* object, const IfcPropertySet& record);
    void editSet(IfcEntity* object, const IfcPropertySet& record);
    bool deleteSet(IfcEntity* object, const IfcPropertySet& record);
    /// done: at least in part. failed: likewise.
    void count(bool done, bool failed) {
        result_.applied += done ? 1 : 0;
        result_.failed += failed ? 1 : 0;
    }

    const ErrorCallback& errors_;
    PropertyOperations operations_;
    EditTargets targets_;
    std::vector<std::u16string> emptySets_;
    ApplyResult result_;
};

void Application::applyTo(std::int32_t number, const ObjectEdits& edits) {
    IfcEntity* object = targets_.findObject(number, edits.objectGuid);
    if (!object) {
        result_.failed += edits.newSets.size() + edits.editedSets.size() + edits.deletedSets.size();
        return;
    }
    for (const auto& record : edits.newSets)
        addSet(object, *record);
    for (const auto& record : edits.editedSets)
        editSet(object, *record);
    for (const auto& record : edits.deletedSets) {
        const bool done = deleteSet(object, *record);
        count(done, !done);
    }
}

void Application::addSet(IfcEntity* object, const IfcPropertySet& record) {
    std::vector<IfcProperty> properties;
    for (const auto& [name, property] : record.properties) {
        if (property.state != kPropertyDeleted)
            properties.push_back(property);
    }
    if (properties.empty()) {
        emptySets_.push_back(record.name);
        return;
    }
    const std::size_t made =
        operations_.addPropertySet(object->id(), record.SetIdentifier, record.name, properties);
    count(made > 0, made < properties.size());
}

/// Members are found by their names in the file before any of them is renamed, and additions come
/// before deletions, so that a set that ends with other properties than it had is not removed
/// between them.
void Application::editSet(IfcEntity* object, const IfcPropertySet& record) {
    IfcEntity* shared = targets_.findSet(object, record.SetIdentifier);
    if (!shared)
        return count(false, true);
    const bool renamed = !record.name.empty() && nameOf(shared) != record.name;
    const bool touched =
        std::any_of(record.properties.begin(), record.properties.end(),
                    [](const auto& entry) { return entry.second.state != kPropertyUnchanged; });
    if (!renamed && !touched)
        return count(true, false);
    IfcEntity* set = operations_.setForObject(shared, object);
    if (!set)
        return count(false, true);
    if (renamed)
        operations_.renameSet(set, record.name);
    bool done = renamed;
    bool failed = false;
    const auto note = [&](bool success) { (success ? done : failed) = true; };
    std::vector<std::pair<const IfcProperty*, IfcEntity*>> known;
    for (const auto& [name, property] : record.properties) {
        if (property.state != kPropertyEdited && property.state != kPropertyDeleted)
            continue;
        if (IfcEntity* member = operations_.findRecorded(set, property))
            known.emplace_back(&property, member);
        else
            failed = true;
    }
    for (const auto& [property, member] : known) {
        if (property->state == kPropertyEdited)
            note(operations_.editMember(set, object, member, *property));
    }
    for (const auto& [name, property] : record.properties) {
        if (property.state == kPropertyAdded)
            note(operations_.addMember(set, object, property));
    }
    for (const auto& [property, member] : known) {
        if (property->state == kPropertyDeleted) {
            operations_.deleteMember(set, member);
            done = true;
        }
    }
    count(done, failed);
}

bool Application::deleteSet(IfcEntity* object, const IfcPropertySet& record) {
    IfcEntity* set = targets_.findSet(object, record.SetIdentifier);
    if (!set)
        return false;
    operations_.deleteSet(set, object);
    const auto users = set->referencing();
    const bool stillUsed = std::any_of(users.begin(), users.end(), [&](IfcEntity* user) {
        if (user->isDeleted())
            return false;
        const std::vector<IfcEntity*> objects = objectsOf(user);
        return user == object || std::find(objects.begin(), objects.end(), object) != objects.end();
    });
    if (stillUsed)
        report(errors_, "", std::u16string(texts::kSetStillUsed) + record.SetIdentifier);
    return !stillUsed;
}

ApplyResult Application::finish() {
    if (!emptySets_.empty()) {
        std::u16string text(texts::kEmptySets);
        for (std::size_t index = 0; index < emptySets_.size(); ++index)
            text += (index == 0 ? u"" : u", ") + emptySets_[index];
        report(errors_, "", text);
        result_.failed += emptySets_.size();
    }
    return result_;
}

}  // namespace

ApplyResult applyEdits(Model& model, const FileEdits& edits, const ErrorCallback& errors) {
    Application application(model, errors);
    for (const auto& [number, objectEdits] : edits.objects)
        application.applyTo(number, objectEdits);
    return application.finish();
}

}  // namespace IFC
