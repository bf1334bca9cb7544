#include "edits/edit_many.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "edits/command_texts.h"
#include "edits/display_rows.h"
#include "edits/edit_many_texts.h"
#include "edits/property_check.h"
#include "ifc/io/guid.h"

namespace IFC {
namespace {

/// One change, with what belongs to it.
struct Step {
    const ManyEdit* edit = nullptr;
    std::vector<IfcProperty> newProperties;  // of AddSet and AddProperty
};

/// A step at one object.
struct StepAt {
    const Step* step = nullptr;
    std::vector<std::u16string_view> setGuids;  // the only sets that are meant; empty for all
};

std::vector<Step> stepsOf(const ManyEdits& edits) {
    using Kind = ManyEdit::Kind;
    std::vector<Step> steps;
    for (const ManyEdit& edit : edits.edits) {
        const auto newSet = std::find_if(steps.rbegin(), steps.rend(), [&](const Step& step) {
            return step.edit->kind == Kind::AddSet && step.edit->setName == edit.setName;
        });
        IfcProperty property = edit.property;
        if (edit.kind == Kind::AddProperty || edit.kind == Kind::AddSet)
            property.initialName = property.name;
        if (edit.kind == Kind::AddProperty && newSet != steps.rend()) {
            newSet->newProperties.push_back(std::move(property));
            continue;
        }
        steps.push_back({.edit = &edit, .newProperties = {}});
        const bool hasProperty =
            edit.kind == Kind::AddProperty || (edit.kind == Kind::AddSet && !property.name.empty());
        if (hasProperty)
            steps.back().newProperties.push_back(std::move(property));
    }
    return steps;
}

/// The steps by the objects that they concern, found without going over all places for each object.
class StepsOfObjects {
public:
    explicit StepsOfObjects(const std::vector<Step>& steps) : steps_(steps) {
        for (std::size_t at = 0; at < steps.size(); ++at)
            for (const ManyEditPlace& place : steps[at].edit->places)
                places_[place.object].emplace_back(at, place.setGuid);
    }

    /// In their order.
    std::vector<StepAt> of(HostObjectId object) const {
        std::vector<StepAt> found;
        const auto places = places_.find(object);
        // Places were entered step by step, so that one walk over both lists meets them all.
        std::size_t next = 0;
        const std::size_t count = places == places_.end() ? 0 : places->second.size();
        for (std::size_t at = 0; at < steps_.size(); ++at) {
            StepAt step{.step = &steps_[at], .setGuids = {}};
            bool isMeant = steps_[at].edit->places.empty();
            bool isWholeObject = false;
            for (; next < count && places->second[next].first == at; ++next) {
                isMeant = true;
                isWholeObject |= places->second[next].second.empty();
                step.setGuids.push_back(places->second[next].second);
            }
            if (isWholeObject)
                step.setGuids.clear();
            if (isMeant)
                found.push_back(std::move(step));
        }
        return found;
    }

private:
    const std::vector<Step>& steps_;
    std::unordered_map<HostObjectId, std::vector<std::pair<std::size_t, std::u16string_view>>>
        places_;
};

/// What the object shows of one set. Kept up to date here, so that the host need not be asked again
/// after each change.
struct ShownSet {
    std::u16string name;
    std::u16string guid;
    std::u16string entityName;
    std::vector<DisplayedProperty> rows;

    bool isEditable() const {
        return entityName == texts::kPropertySetEntity || entityName == texts::kQuantitySetEntity;
    }
    std::vector<DisplayedProperty>::iterator find(std::u16string_view property) {
        return std::find_if(rows.begin(), rows.end(), [&](const DisplayedProperty& row) {
            return row.name == property && row.state != kHostDeleted && row.kind != kHostEmptySet;
        });
    }
    bool has(std::u16string_view property) { return find(property) != rows.end(); }
};

class ObjectChanges {
public:
    ObjectChanges(EditSession& session, CommandGroup& group, const ObjectInfo& object,
                  const std::u16string& filePath, std::int32_t policy,
                  std::shared_ptr<AddPropertyOperation> operation)
        : session_(session),
          group_(group),
          object_(object),
          filePath_(filePath),
          policy_(policy),
          operation_(std::move(operation)) {
        for (DisplayedProperty& row : session.host.properties(object.id)) {
            auto set = std::find_if(sets_.begin(), sets_.end(), [&](const ShownSet& shown) {
                return shown.guid == row.setGuid && shown.name == row.setName;
            });
            if (set == sets_.end())
                set = sets_.insert(set, {.name = row.setName,
                                         .guid = row.setGuid,
                                         .entityName = row.setEntityName,
                                         .rows = {}});
            set->rows.push_back(std::move(row));
        }
    }

    void apply(const StepAt& at) {
        using Kind = ManyEdit::Kind;
        const ManyEdit& edit = *at.step->edit;
        if (edit.kind == Kind::AddSet)
            return addSet(edit.setName, at.step->newProperties);
        const std::vector<std::size_t> sets = editableSets(edit.setName, at.setGuids);
        if (edit.kind == Kind::AddProperty)
            return addAlone(sets, at.step->newProperties.front());
        // From the last to the first, because a deleted set leaves the list.
        for (auto set = sets.rbegin(); set != sets.rend(); ++set) {
            switch (edit.kind) {
                case Kind::EditProperty: editProperty(sets_[*set], edit.property); break;
                case Kind::DeleteProperty: deleteProperty(sets_[*set], edit.property.name); break;
                case Kind::RenameSet: renameSet(sets_[*set], edit.newSetName); break;
                case Kind::DeleteSet: deleteSet(*set); break;
                case Kind::AddSet:
                case Kind::AddProperty: break;  // done above
            }
        }
    }

private:
    EditTarget targetOf(const ShownSet& set) const {
        return {.fileName = filePath_,
                .objectNumber = object_.instanceNumber,
                .objectId = object_.id,
                .objectGuid = object_.guid,
                .setName = set.name,
                .setGuid = set.guid};
    }

    void report(std::u16string_view text, const std::u16string& name) {
        session_.reporter.report(
            "", std::u16string(text) + name + std::u16string(texts::kOfObject) + object_.name);
    }

    bool hasSet(const std::u16string& name) const {
        return std::any_of(sets_.begin(), sets_.end(),
                           [&](const ShownSet& set) { return set.name == name; });
    }

    /// The places of the sets of that name, of one of the GUIDs if there are any; those that take
    /// no edits are reported.
    std::vector<std::size_t> editableSets(const std::u16string& name,
                                          const std::vector<std::u16string_view>& guids = {}) {
        std::vector<std::size_t> places;
        for (std::size_t place = 0; place < sets_.size(); ++place) {
            if (sets_[place].name != name)
                continue;
            if (!guids.empty() &&
                std::find(guids.begin(), guids.end(), sets_[place].guid) == guids.end())
                continue;
            if (sets_[place].isEditable())
                places.push_back(place);
            else
                report(texts::kSetNotEditable, name);
        }
        return places;
    }

    void addSet(const std::u16string& name, const std::vector<IfcProperty>& properties) {
        if (object_.entityName == texts::kSiteEntity)  // sites take no new sets
            return;
        if (!hasSet(name))
            return addWholeSet(name, properties);
        if (policy_ == kOverrideExistingSet) {
            const std::vector<std::size_t> sets = editableSets(name);
            for (auto set = sets.rbegin(); set != sets.rend(); ++set)
                deleteSet(*set);
            if (!hasSet(name))
                addWholeSet(name, properties);
        } else if (policy_ == kSkipExistingProperty || policy_ == kOverrideExistingProperty) {
            const std::vector<std::size_t> sets = editableSets(name);
            for (const IfcProperty& property : properties)
                addToOneOf(sets, property, policy_ == kOverrideExistingProperty);
        }
    }

    void addWholeSet(const std::u16string& name, const std::vector<IfcProperty>& properties) {
        const std::u16string guid = newIfcGuid();
        if (guid.empty())
            return;  // the user was told
        IfcPropertySet set(guid, name);
        for (const IfcProperty& property : properties)
            set.properties.emplace(property.name, property);
        ShownSet shown{.name = name,
                       .guid = guid,
                       .entityName = std::u16string(texts::kPropertySetEntity),
                       .rows = rowsOf(set)};
        if (group_.run(std::make_unique<AddPropertySetCommand>(session_, targetOf(shown), set)))
            sets_.push_back(std::move(shown));
    }

    /// A property that is added by itself; the user may have to say whether it replaces another.
    void addAlone(const std::vector<std::size_t>& sets, const IfcProperty& property) {
        bool mayReplace = policy_ == kOverrideExistingProperty;
        const bool isTaken = std::any_of(sets.begin(), sets.end(), [&](std::size_t set) {
            return sets_[set].has(property.name);
        });
        if (isTaken && policy_ == AddPropertyOperation::kPolicyNotSpecified) {
            IfcPropertySet taken(u"-", {});
            taken.properties.emplace(property.name, property);
            mayReplace = taken.AddProperty(property, *operation_);
        }
        addToOneOf(sets, property, mayReplace);
    }

    void addToOneOf(const std::vector<std::size_t>& sets, const IfcProperty& property,
                    bool mayReplace) {
        if (sets.empty())
            return;
        bool isTaken = false;
        for (const std::size_t set : sets) {
            if (!sets_[set].has(property.name))
                continue;
            if (mayReplace)
                deleteProperty(sets_[set], property.name);
            isTaken |= sets_[set].has(property.name);
        }
        if (isTaken)
            return;
        // Quantities go to a quantity set where there is one, other properties to a property set.
        const std::u16string_view entity =
            property.quantityType.empty() ? texts::kPropertySetEntity : texts::kQuantitySetEntity;
        const auto ofKind = std::find_if(sets.begin(), sets.end(), [&](std::size_t set) {
            return sets_[set].entityName == entity;
        });
        ShownSet& set = sets_[ofKind != sets.end() ? *ofKind : sets.front()];
        if (group_.run(std::make_unique<AddPropertyCommand>(session_, targetOf(set), property,
                                                            operation_)))
            set.rows.push_back(rowOf(set.name, set.guid, property));
    }

    void editProperty(ShownSet& set, IfcProperty after) {
        const std::u16string present = after.initialName.empty() ? after.name : after.initialName;
        const auto row = editableRow(set, present);
        if (row == set.rows.end())
            return;
        if (!after.name.empty() && after.name != present && set.has(after.name))
            return report(texts::kNameTaken, after.name);
        after.initialName = present;
        if (after.name.empty())
            after.name = present;
        const IfcProperty before = propertyOf(*row);
        if (after.valueType == kTextValue)  // what was entered is of the property's own type
            after.valueType = before.valueType;
        after = filledFrom(before, std::move(after));
        IfcProperty unchanged = before;
        unchanged.initialName = after.initialName;
        if (after == unchanged)
            return;
        if (after.value != before.value) {
            if (const char* problem = problemOf(after))
                return session_.reporter.report(problem, after.name);
        }
        if (group_.run(
                std::make_unique<EditPropertyCommand>(session_, targetOf(set), before, after)))
            *row = rowOf(set.name, set.guid, after);
    }

    void deleteProperty(ShownSet& set, const std::u16string& name) {
        const auto row = editableRow(set, name);
        if (row != set.rows.end() && group_.run(std::make_unique<DeletePropertyCommand>(
                                         session_, targetOf(set), propertyOf(*row))))
            set.rows.erase(row);
    }

    /// The end when there is none, and when it is of a kind that is only shown.
    std::vector<DisplayedProperty>::iterator editableRow(ShownSet& set,
                                                         const std::u16string& name) {
        const auto row = set.find(name);
        if (row == set.rows.end() || row->kind == kHostSingleValue || row->kind == kHostQuantity)
            return row;
        report(texts::kPropertyNotEditable, name);
        return set.rows.end();
    }

    void renameSet(ShownSet& set, const std::u16string& newName) {
        if (group_.run(std::make_unique<EditPropertySetCommand>(session_, targetOf(set), newName)))
            set.name = newName;
    }

    void deleteSet(std::size_t place) {
        if (group_.run(
                std::make_unique<DeletePropertySetCommand>(session_, targetOf(sets_[place]))))
            sets_.erase(sets_.begin() + static_cast<std::ptrdiff_t>(place));
    }

    EditSession& session_;
    CommandGroup& group_;
    const ObjectInfo& object_;
    const std::u16string& filePath_;
    std::int32_t policy_;
    std::shared_ptr<AddPropertyOperation> operation_;
    std::vector<ShownSet> sets_;
};

}  // namespace

std::unique_ptr<CommandGroup> applyToMany(EditSession& session,
                                          const std::vector<HostObjectId>& objects,
                                          const ManyEdits& edits, const ObjectProgress& progress) {
    const ErrorReporter::Collecting collecting(session.reporter);
    std::u16string displayText = session.host.text(texts::kEditManyUndoKey);
    if (displayText.empty())
        displayText = texts::kEditManyUndo;
    auto group = std::make_unique<CommandGroup>(session, std::move(displayText));
    const auto operation = std::make_shared<AddPropertyOperation>();
    operation->addingPolicy = edits.addingPolicy;
    operation->question = session.host.text(texts::kReplaceQuestionKey);
    const std::vector<Step> steps = stepsOf(edits);
    const StepsOfObjects stepsOfObjects(steps);
    std::size_t done = 0;
    for (const HostObjectId id : objects) {
        if (progress)
            progress(done++, objects.size());
        const std::vector<StepAt> stepsHere = stepsOfObjects.of(id);
        if (stepsHere.empty())
            continue;
        auto object = session.host.objectInfo2(id);
        const std::u16string path =
            object ? session.files.pathOf(object->fileId) : std::u16string();
        if (path.empty() || object->instanceNumber <= 0) {
            session.reporter.report("", std::u16string(texts::kObjectOfNoFile) +
                                            (object ? object->name : std::u16string()));
            continue;
        }
        object->id = id;
        ObjectChanges changes(session, *group, *object, path, edits.addingPolicy, operation);
        for (const StepAt& step : stepsHere)
            changes.apply(step);
    }
    return group->empty() ? nullptr : std::move(group);
}

}  // namespace IFC
