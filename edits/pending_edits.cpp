#include "edits/pending_edits.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace IFC {
namespace {

constexpr char16_t lowered(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

std::u16string wholePath(std::u16string_view path) {
    std::u16string unified(path);
    std::replace(unified.begin(), unified.end(), u'\\', u'/');
    return unified;
}

PropertySetRecords copyOf(const PropertySetRecords& records) {
    PropertySetRecords copies;
    copies.reserve(records.size());
    for (const auto& record : records)
        copies.push_back(std::make_shared<IfcPropertySet>(*record));
    return copies;
}

bool sameContent(const PropertySetRecords& a, const PropertySetRecords& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const auto& left, const auto& right) { return *left == *right; });
}

/// The place of the target's set: by GUID, or without one by a name that only one set has.
PropertySetRecords::iterator findSet(PropertySetRecords& records, const EditTarget& target) {
    const auto matches = [&target](const std::shared_ptr<IfcPropertySet>& record) {
        return target.setGuid.empty() ? record->name == target.setName
                                      : record->SetIdentifier == target.setGuid;
    };
    const auto found = std::find_if(records.begin(), records.end(), matches);
    const bool isAmbiguous = target.setGuid.empty() && found != records.end() &&
                             std::any_of(found + 1, records.end(), matches);
    return isAmbiguous ? records.end() : found;
}

/// A property of the model that the edited set does not hold yet enters it in the given state.
/// @return whether it did.
bool enterProperty(IfcPropertySet& set, IfcProperty& property, PropertyState state) {
    if (set.predecessorOf(property))
        return false;
    set.freeName(property.name);
    if (set.properties.contains(property.name))
        return false;
    if (property.initialName.empty())
        property.initialName = property.name;
    property.state = state;
    set.properties.emplace(property.name, property);
    set.state = kSetEdited;
    return true;
}

}  // namespace

std::u16string normalisedFileName(std::u16string_view path) {
    const std::u16string_view name = path.substr(path.find_last_of(u"/\\|") + 1);
    return std::u16string(name.empty() ? path : name);
}

bool FileNameOrder::operator()(std::u16string_view a, std::u16string_view b) const {
    return std::lexicographical_compare(
        a.begin(), a.end(), b.begin(), b.end(),
        [](char16_t left, char16_t right) { return lowered(left) < lowered(right); });
}

ObjectEdits::ObjectEdits(const ObjectEdits& other)
    : objectId(other.objectId),
      objectGuid(other.objectGuid),
      newSets(copyOf(other.newSets)),
      editedSets(copyOf(other.editedSets)),
      deletedSets(copyOf(other.deletedSets)) {}

ObjectEdits& ObjectEdits::operator=(const ObjectEdits& other) { return *this = ObjectEdits(other); }

bool ObjectEdits::operator==(const ObjectEdits& other) const {
    return objectId == other.objectId && objectGuid == other.objectGuid &&
           sameContent(newSets, other.newSets) && sameContent(editedSets, other.editedSets) &&
           sameContent(deletedSets, other.deletedSets);
}

const FileEdits* PendingEdits::find(std::u16string_view fileName) const {
    const auto found = files_.find(keyOf(fileName));
    return found != files_.end() ? &found->second : nullptr;
}

FileEdits& PendingEdits::open(std::u16string_view fileName) { return files_[keyOf(fileName)]; }

PendingEdits PendingEdits::emptied() const {
    PendingEdits empty;
    empty.keptApart_ = keptApart_;
    return empty;
}

std::u16string PendingEdits::keyOf(std::u16string_view fileName) const {
    std::u16string baseName = normalisedFileName(fileName);
    return keptApart_.contains(baseName) ? wholePath(fileName) : baseName;
}

void PendingEdits::keepApart(std::u16string_view path) {
    if (!keptApart_.insert(normalisedFileName(path)).second)
        return;
    if (auto entry = files_.extract(normalisedFileName(path))) {
        entry.key() = wholePath(path);
        files_.insert(std::move(entry));
    }
}

void PendingEdits::moveFile(std::u16string_view from, std::u16string_view to) {
    if (auto entry = files_.extract(keyOf(from))) {
        entry.key() = keyOf(to);
        files_.insert(std::move(entry));
    }
}

ObjectEdits* PendingEdits::findObject(const EditTarget& target) {
    const auto file = files_.find(keyOf(target.fileName));
    return file != files_.end() ? file->second.objects.findForWriting(target.objectNumber)
                                : nullptr;
}

ObjectEdits& PendingEdits::openObject(const EditTarget& target) {
    ObjectEdits& object = open(target.fileName).objects[target.objectNumber];
    if (target.objectId != 0)
        object.objectId = target.objectId;
    if (!target.objectGuid.empty())
        object.objectGuid = target.objectGuid;
    return object;
}

PendingEdits::EditableSet PendingEdits::editableSet(const EditTarget& target) {
    if (ObjectEdits* object = findObject(target)) {
        if (const auto set = findSet(object->newSets, target); set != object->newSets.end())
            return {.record = *set, .isNew = true};
        if (const auto set = findSet(object->editedSets, target); set != object->editedSets.end())
            return {.record = *set};
        if (findSet(object->deletedSets, target) != object->deletedSets.end())
            return {};
    }
    if (target.setGuid.empty())
        return {};
    const auto set = std::make_shared<IfcPropertySet>(target.setGuid, target.setName);
    openObject(target).editedSets.push_back(set);
    return {.record = set};
}

std::shared_ptr<IfcPropertySet> PendingEdits::addProperty(const EditTarget& target,
                                                          IfcProperty property,
                                                          AddPropertyOperation& operation) {
    const EditableSet set = editableSet(target);
    property.state = kPropertyAdded;
    if (!set.record || !set.record->AddProperty(property, operation))
        return nullptr;
    set.record->state = set.isNew ? kSetPropertyPut : kSetPropertyAdded;
    currentObjectNumber_ = target.objectNumber;
    return set.record;
}

std::shared_ptr<IfcPropertySet> PendingEdits::editProperty(const EditTarget& target,
                                                           IfcProperty property) {
    const EditableSet set = editableSet(target);
    if (!set.record)
        return nullptr;
    if (set.isNew || !enterProperty(*set.record, property, kPropertyEdited)) {
        IfcProperty* edited = set.record->EditProperty(property);
        if (!edited)
            return nullptr;
        if (edited->state == kPropertyUnchanged)
            edited->state = kPropertyEdited;
    }
    currentObjectNumber_ = target.objectNumber;
    return set.record;
}

std::shared_ptr<IfcPropertySet> PendingEdits::deleteProperty(const EditTarget& target,
                                                             IfcProperty property) {
    const EditableSet set = editableSet(target);
    if (!set.record)
        return nullptr;
    if (set.isNew || !enterProperty(*set.record, property, kPropertyDeleted)) {
        const IfcProperty* held = set.record->predecessorOf(property);
        if (!set.record->DeleteProperty(held ? held->name : property.name))
            return nullptr;
    }
    currentObjectNumber_ = target.objectNumber;
    return set.record;
}

std::shared_ptr<IfcPropertySet> PendingEdits::addPropertySet(const EditTarget& target,
                                                             const IfcPropertySet& set) {
    EditTarget byGuid;
    byGuid.setGuid = set.SetIdentifier;
    if (ObjectEdits* object = findObject(target))
        for (PropertySetRecords* records :
             {&object->newSets, &object->editedSets, &object->deletedSets})
            if (findSet(*records, byGuid) != records->end())
                return nullptr;
    auto added = std::make_shared<IfcPropertySet>(set);
    for (auto& [name, property] : added->properties)
        property.state = kPropertyAdded;
    added->state = kSetAdded;
    openObject(target).newSets.push_back(added);
    currentObjectNumber_ = target.objectNumber;
    return added;
}

std::shared_ptr<IfcPropertySet> PendingEdits::editPropertySet(const EditTarget& target,
                                                              std::u16string_view newName) {
    const EditableSet set = editableSet(target);
    if (!set.record)
        return nullptr;
    set.record->name = newName;
    set.record->state = kSetEdited;
    currentObjectNumber_ = target.objectNumber;
    return set.record;
}

std::shared_ptr<IfcPropertySet> PendingEdits::deletePropertySet(const EditTarget& target) {
    const EditableSet set = editableSet(target);
    if (!set.record)
        return nullptr;
    ObjectEdits& object = openObject(target);
    std::erase(set.isNew ? object.newSets : object.editedSets, set.record);
    if (!set.isNew)
        object.deletedSets.push_back(set.record);
    set.record->state = set.isNew ? kSetAdditionUndone : kSetEdited;
    currentObjectNumber_ = target.objectNumber;
    return set.record;
}

}  // namespace IFC
