#include "ifc/model/property_set_record.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "ifc/model/record_texts.h"
#include "platform/message_box.h"

namespace {

void showError(std::u16string_view text) {
    platform::showMessageBox(text, texts::kRecordCaption, platform::MessageButtons::Ok,
                             platform::MessageIcon::Error);
}

/// Whether a property of the same name is to be replaced; asks at most once per operation.
bool mayReplace(AddPropertyOperation& operation) {
    if (operation.addingPolicy == AddPropertyOperation::kReplaceWithoutQuestion)
        operation.replaceAnswer = true;
    if (!operation.replaceAnswer)
        operation.replaceAnswer =
            platform::showMessageBox(
                operation.question, texts::kRecordCaption, platform::MessageButtons::YesNo,
                platform::MessageIcon::Question) == platform::MessageAnswer::Yes;
    return *operation.replaceAnswer;
}

void fillFrom(const std::u16string& predecessor, std::u16string& field) {
    if (field.empty())
        field = predecessor;
}

/// `record` with its empty fields from `predecessor`.
IfcProperty successor(const IfcProperty& predecessor, IfcProperty record) {
    record.state = predecessor.state;
    fillFrom(predecessor.name, record.name);
    if (predecessor.state == kPropertyAdded)
        record.initialName = record.name;  // the file knows no other
    else if (!predecessor.initialName.empty())
        record.initialName = predecessor.initialName;
    if (record.value.empty() && !record.clearsValue) {
        record.value = predecessor.value;
        record.valueType = predecessor.valueType;
        record.clearsValue = predecessor.clearsValue;
    }
    fillFrom(predecessor.quantityType, record.quantityType);
    fillFrom(predecessor.entityName, record.entityName);
    if (record.unit.empty() && !record.clearsUnit) {
        record.unit = predecessor.unit;
        record.prefix = predecessor.prefix;
        record.clearsUnit = predecessor.clearsUnit;
    }
    return record;
}

}  // namespace

IfcPropertySet::IfcPropertySet(std::u16string_view setIdentifier, std::u16string_view setName)
    : SetIdentifier(setIdentifier), name(setName) {
    if (SetIdentifier.empty())
        throw std::runtime_error(texts::kEmptySetIdentifier);
}

std::u16string IfcPropertySet::keyAside(const IfcProperty& deleted) {
    constexpr char16_t kNoCharacter = u'\uFFFF';  // so that no name is the same
    return kNoCharacter + (deleted.initialName.empty() ? deleted.name : deleted.initialName);
}

void IfcPropertySet::freeName(const std::u16string& propertyName) {
    const auto held = properties.find(propertyName);
    if (held == properties.end() || held->second.state != kPropertyDeleted)
        return;
    auto node = properties.extract(held);
    node.key() = keyAside(node.mapped());
    properties.insert(std::move(node));
}

bool IfcPropertySet::AddProperty(const IfcProperty& record, AddPropertyOperation& operation) {
    freeName(record.name);
    const auto [place, inserted] = properties.try_emplace(record.name, record);
    if (!inserted) {
        if (!mayReplace(operation)) {
            state = kSetOperationFailed;
            return false;
        }
        IfcProperty& held = place->second;
        const bool inFile = held.state != kPropertyAdded;
        const std::u16string initialName = std::exchange(held, record).initialName;
        if (inFile) {
            held.initialName = initialName.empty() ? record.name : initialName;
            held.state = kPropertyEdited;
        }
    }
    state = kSetPropertyAdded;
    return true;
}

const IfcProperty* IfcPropertySet::predecessorOf(const IfcProperty& record) const {
    const auto found = findPredecessor(record);
    return found != properties.end() ? &found->second : nullptr;
}

IfcPropertySet::Properties::const_iterator IfcPropertySet::findPredecessor(
    const IfcProperty& record) const {
    const std::u16string& initialName = record.initialName;
    const auto sameName = properties.find(record.name);
    if (sameName != properties.end() && (initialName.empty() || initialName == record.name ||
                                         initialName == sameName->second.initialName))
        return sameName;
    if (initialName.empty())
        return properties.end();
    // A present name counts first: what had the name before may be called otherwise by now.
    const auto present = properties.find(initialName);
    if (present != properties.end())
        return present;
    return std::find_if(properties.begin(), properties.end(), [&initialName](const auto& entry) {
        return entry.second.initialName == initialName;
    });
}

IfcProperty* IfcPropertySet::EditProperty(const IfcProperty& record) {
    if (!record.initialName.empty() && record.initialName != record.name)
        freeName(record.name);
    const auto predecessor = findPredecessor(record);
    IfcProperty edited =
        predecessor != properties.end() ? successor(predecessor->second, record) : record;
    const auto taken = std::as_const(properties).find(edited.name);
    if (taken != properties.end() && taken != predecessor) {
        state = kSetOperationFailed;
        showError(std::u16string(texts::kEditToTakenName)
                      .append(edited.name)
                      .append(texts::kEditToTakenNameEnd));
        return nullptr;
    }
    if (predecessor == properties.end()) {
        state = kSetOperationFailed;
        showError(texts::kEditOfMissingProperty);
        return nullptr;
    }
    auto node = properties.extract(predecessor);
    node.key() = edited.name;
    node.mapped() = std::move(edited);
    state = kSetEdited;
    return &properties.insert(std::move(node)).position->second;
}

bool IfcPropertySet::DeleteProperty(std::u16string_view propertyName) {
    const auto found = properties.find(propertyName);
    if (found == properties.end()) {
        state = kSetOperationFailed;
        showError(std::u16string(texts::kDeleteOfMissingProperty)
                      .append(propertyName)
                      .append(texts::kDeleteOfMissingPropertyEnd));
        return false;
    }
    if (found->second.state == kPropertyAdded) {
        properties.erase(found);
        state = kSetAdditionUndone;
    } else {
        found->second.state = kPropertyDeleted;
        state = kSetEdited;
    }
    return true;
}
