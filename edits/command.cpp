#include "edits/command.h"

#include <algorithm>
#include <utility>

#include "edits/command_texts.h"
#include "edits/display_rows.h"

namespace IFC {
namespace {

std::u16string joined(std::u16string_view prefix, std::u16string_view name) {
    return std::u16string(prefix).append(name);
}

/// The target's set among the pending ones, null when it is not pending.
const IfcPropertySet* pendingSet(const PendingEdits& store, const EditTarget& target) {
    const FileEdits* file = store.find(target.fileName);
    const ObjectEdits* object = file ? file->objects.find(target.objectNumber) : nullptr;
    if (!object)
        return nullptr;
    for (const PropertySetRecords* records : {&object->newSets, &object->editedSets})
        for (const auto& record : *records)
            if (target.setGuid.empty() ? record->name == target.setName
                                       : record->SetIdentifier == target.setGuid)
                return record.get();
    return nullptr;
}

EditTarget targetOf(EditTarget target, const IfcPropertySet& set) {
    target.setName = set.name;
    target.setGuid = set.SetIdentifier;
    return target;
}

}  // namespace

Command::Command(EditSession& session, std::u16string fileName)
    : session_(session), fileName_(std::move(fileName)), snapshot_(session.store) {}

void Command::undo() {
    if (!snapshot_)
        return;
    session_.store = *snapshot_;
    session_.files.keepNamesakesApart(session_.store);
}

ObjectCommand::ObjectCommand(EditSession& session, EditTarget target)
    : Command(session, target.fileName), target_(std::move(target)) {}

DisplayRequest ObjectCommand::requestOf(std::int32_t action, std::u16string setName) const {
    return {.action = action,
            .instanceNumber = target_.objectNumber,
            .objectId = target_.objectId,
            .objectGuid = target_.objectGuid,
            .setName = std::move(setName),
            .setGuid = target_.setGuid,
            .newSetName = {},
            .propertyName = {},
            .previousChange = changeId_};
}

void ObjectCommand::send(const DisplayRequest& request, std::span<const DisplayedProperty> rows) {
    changeId_ = session().host.changeProperty(request, rows);
}

void ObjectCommand::sendProperty(std::int32_t action, std::u16string name,
                                 const DisplayedProperty& row) {
    DisplayRequest request = requestOf(action, target_.setName);
    request.propertyName = std::move(name);
    send(request, {&row, 1});
}

// ---- properties ----

AddPropertyCommand::AddPropertyCommand(EditSession& session, EditTarget target,
                                       IfcProperty property,
                                       std::shared_ptr<AddPropertyOperation> operation)
    : ObjectCommand(session, std::move(target)),
      property_(std::move(property)),
      operation_(std::move(operation)) {
    if (operation_)
        return;
    operation_ = std::make_shared<AddPropertyOperation>();
    operation_->question = session.host.text(texts::kReplaceQuestionKey);
}

std::optional<std::int32_t> actionForAddedProperty(std::int32_t setState) {
    switch (setState) {
        case kSetPropertyAdded: return kHostAddToSet;
        case kSetPropertyPut: return kHostPutProperty;
        default: return std::nullopt;
    }
}

bool AddPropertyCommand::redo() {
    replaced_.reset();
    if (const IfcPropertySet* set = pendingSet(session().store, target_)) {
        const auto held = set->properties.find(property_.name);
        if (held != set->properties.end() && held->second.state != kPropertyDeleted)
            replaced_ = held->second;
    }
    const auto set = session().store.addProperty(target_, property_, *operation_);
    if (!set)
        return false;
    const auto action = actionForAddedProperty(set->state);
    if (!action)
        return false;
    DisplayRequest request = requestOf(*action, target_.setName);
    request.propertyName = property_.name;
    // Before the first change the object's number stands in for it.
    if (changeId_ == 0)
        request.previousChange = static_cast<HostChangeId>(target_.objectNumber);
    const DisplayedProperty row =
        rowOf(set->name, set->SetIdentifier, set->properties.at(property_.name));
    send(request, {&row, 1});
    session().host.needSaveProject(true);
    session().host.invalidate();
    return true;
}

void AddPropertyCommand::undo() {
    Command::undo();
    sendProperty(kHostRemove, property_.name, rowOf(target_.setName, target_.setGuid, property_));
    // The display has no other memory of the property that was replaced.
    if (replaced_)
        sendProperty(kHostPutProperty, property_.name,
                     rowOf(target_.setName, target_.setGuid, *replaced_));
    session().host.invalidate();
}

std::u16string AddPropertyCommand::displayText() const {
    return joined(texts::kUndoAddProperty, property_.name);
}

IfcProperty filledFrom(const IfcProperty& before, IfcProperty after) {
    IfcPropertySet set(u"-", {});
    set.properties.emplace(before.name, before);
    if (!set.predecessorOf(after))
        return after;
    if (const IfcProperty* filled = set.EditProperty(after))
        after = *filled;
    after.initialName = before.name;  // by which the store finds it
    return after;
}

EditPropertyCommand::EditPropertyCommand(EditSession& session, EditTarget target,
                                         IfcProperty before, IfcProperty after)
    : ObjectCommand(session, std::move(target)),
      before_(std::move(before)),
      after_(filledFrom(before_, std::move(after))) {}

bool EditPropertyCommand::redo() {
    if (fileName().empty())
        return false;
    const PendingEdits storeBefore = session().store;
    if (const auto set = session().store.editProperty(target_, after_);
        set && set->properties.contains(after_.name)) {
        held_ = set->properties.at(after_.name);
        sendProperty(kHostChange, before_.name, rowOf(set->name, set->SetIdentifier, held_));
        session().host.invalidate();
        if (changeId_ != 0)
            return true;
    }
    session().store = storeBefore;
    return false;
}

void EditPropertyCommand::undo() {
    Command::undo();
    if (!fileName().empty())
        sendProperty(kHostChange, held_.name, rowOf(target_.setName, target_.setGuid, before_));
    session().host.invalidate();
}

std::u16string EditPropertyCommand::displayText() const {
    return joined(texts::kUndoEditProperty, before_.name);
}

DeletePropertyCommand::DeletePropertyCommand(EditSession& session, EditTarget target,
                                             IfcProperty property)
    : ObjectCommand(session, std::move(target)), property_(std::move(property)) {}

bool DeletePropertyCommand::redo() {
    IfcProperty present = property_;
    present.initialName = present.name;  // by which the store finds it
    if (!session().store.deleteProperty(target_, std::move(present)))
        return false;
    sendProperty(kHostRemove, property_.name, rowOf(target_.setName, target_.setGuid, property_));
    session().host.invalidate();
    return true;
}

void DeletePropertyCommand::undo() {
    Command::undo();
    sendProperty(kHostPutProperty, property_.name,
                 rowOf(target_.setName, target_.setGuid, property_));
    session().host.invalidate();
}

std::u16string DeletePropertyCommand::displayText() const {
    return joined(texts::kUndoDeleteProperty, property_.name);
}

// ---- sets ----

AddPropertySetCommand::AddPropertySetCommand(EditSession& session, EditTarget target,
                                             const IfcPropertySet& set)
    : ObjectCommand(session, targetOf(std::move(target), set)), set_(set) {}

bool AddPropertySetCommand::redo() {
    const auto set = session().store.addPropertySet(target_, set_);
    if (!set)
        return false;
    send(requestOf(kHostPutSet, target_.setName), rowsOf(*set));
    session().host.invalidate();
    return true;
}

void AddPropertySetCommand::undo() {
    Command::undo();
    send(requestOf(kHostRemove, target_.setName));
    session().host.invalidate();
}

std::u16string AddPropertySetCommand::displayText() const {
    return joined(texts::kUndoAddPropertySet, target_.setName);
}

EditPropertySetCommand::EditPropertySetCommand(EditSession& session, EditTarget target,
                                               std::u16string newName)
    : ObjectCommand(session, std::move(target)), newName_(std::move(newName)) {}

void EditPropertySetCommand::sendName(std::u16string displayed, const std::u16string& wanted) {
    DisplayRequest request = requestOf(kHostChange, std::move(displayed));
    request.newSetName = wanted;
    send(request);
    session().host.needSaveProject(true);
    session().host.invalidate();
}

bool EditPropertySetCommand::redo() {
    if (!session().store.editPropertySet(target_, newName_))
        return false;
    sendName(target_.setName, newName_);
    return true;
}

void EditPropertySetCommand::undo() {
    Command::undo();
    sendName(newName_, target_.setName);
}

std::u16string EditPropertySetCommand::displayText() const {
    return joined(texts::kUndoEditPropertySet, target_.setName);
}

DeletePropertySetCommand::DeletePropertySetCommand(EditSession& session, EditTarget target)
    : ObjectCommand(session, std::move(target)) {}

bool DeletePropertySetCommand::redo() {
    if (!session().store.deletePropertySet(target_))
        return false;
    send(requestOf(kHostRemove, target_.setName));
    session().host.invalidate();
    return true;
}

/// The host still knows the set's properties, also those that only it can show.
void DeletePropertySetCommand::undo() {
    Command::undo();
    send(requestOf(kHostPutSet, target_.setName));
    session().host.invalidate();
}

std::u16string DeletePropertySetCommand::displayText() const {
    return joined(texts::kUndoDeletePropertySet, target_.setName);
}

// ---- groups ----

CommandGroup::CommandGroup(EditSession& session, std::u16string displayText)
    : Command(session, std::u16string()), displayText_(std::move(displayText)) {}

bool CommandGroup::run(std::unique_ptr<Command> command) {
    commands_.push_back(std::move(command));  // first, so that an applied one is never lost
    if (!commands_.back()->redo()) {
        commands_.pop_back();
        return false;
    }
    commands_.back()->dropSnapshot();
    return true;
}

void CommandGroup::undo() {
    Command::undo();
    std::for_each(commands_.rbegin(), commands_.rend(),
                  [](const std::unique_ptr<Command>& command) { command->undo(); });
}

bool CommandGroup::redo() {
    bool applied = false;
    for (const auto& command : commands_)
        applied |= command->redo();
    return applied;
}

}  // namespace IFC
