#include "plugin/edit_flows.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "edits/command_texts.h"
#include "edits/display_rows.h"
#include "edits/edit_many.h"
#include "edits/property_check.h"
#include "edits/property_check_texts.h"
#include "ifc/io/guid.h"
#include "platform/message_box.h"
#include "plugin/plugin_texts.h"

namespace {

using IFC::PropertyWindowMode;

/// Entities that hold others. An edit of one is easily mistaken for an edit of what it holds.
constexpr std::array<std::u16string_view, 6> kContainers = {
    u"IfcProject",         u"IfcSite", u"IfcBuilding", u"IfcBuildingStorey",
    u"IfcElementAssembly", u"IfcSpace"};

bool isContainer(std::u16string_view entityName) {
    return std::find(kContainers.begin(), kContainers.end(), entityName) != kContainers.end();
}

/// Types hold their sets themselves, and hand them on to all objects of the type.
bool isType(std::u16string_view entityName) {
    return entityName.starts_with(u"IfcType") || entityName.ends_with(u"Type") ||
           entityName.ends_with(u"Style");
}

std::u16string textOf(const char16_t* text) { return text ? text : std::u16string(); }

/// `entered` as the next form of the property in `row`: it keeps its type, because the property
/// window changes none but that of a quantity.
IfcProperty nextForm(const DisplayedProperty& row, IfcProperty entered) {
    IfcProperty next = IFC::propertyOf(row);
    next.initialName = row.name;
    next.name = std::move(entered.name);
    next.value = std::move(entered.value);
    next.prefix = std::move(entered.prefix);
    next.unit = std::move(entered.unit);
    if (row.kind == kHostQuantity && entered.quantityType != row.quantityType) {
        next.quantityType = std::move(entered.quantityType);
        next.entityName = next.quantityType;
    }
    return next;
}

}  // namespace

/// HostChangeRequest with its own texts.
struct EditFlows::Request {
    explicit Request(const HostChangeRequest& request)
        : isQuantity(request.quantity != 0),
          setName(textOf(request.setName)),
          setGuid(textOf(request.setGuid)),
          propertyName(textOf(request.propertyName)) {}

    bool isQuantity;
    std::u16string setName;
    std::u16string setGuid;
    std::u16string propertyName;
};

/// The object to be edited.
struct EditFlows::Chosen {
    ObjectInfo object;
    std::u16string filePath;
    std::vector<DisplayedProperty> rows;

    IFC::EditTarget target(const std::u16string& setName, const std::u16string& setGuid) const {
        return {.fileName = filePath,
                .objectNumber = object.instanceNumber,
                .objectId = object.id,
                .objectGuid = object.guid,
                .setName = setName,
                .setGuid = setGuid};
    }
    IFC::EditTarget target(const DisplayedProperty& row) const {
        return target(row.setName, row.setGuid);
    }

    /// The row of a property in the set that `inSet` is a row of; null when there is none.
    const DisplayedProperty* findProperty(const DisplayedProperty& inSet,
                                          std::u16string_view name) const {
        const auto found = std::find_if(rows.begin(), rows.end(), [&](const auto& row) {
            return row.setGuid == inSet.setGuid && row.setName == inSet.setName &&
                   row.kind != kHostEmptySet && row.state != kHostDeleted && row.name == name;
        });
        return found != rows.end() ? &*found : nullptr;
    }
};

void EditFlows::changeRequested(const HostChangeRequest& hostRequest) {
    const Request request(hostRequest);
    const std::int32_t action = hostRequest.action;
    const auto object = onlySelectedObject();
    if (!object)
        return tell(texts::kSelectOneObjectKey);
    const auto chosen = chosenObject(*object);
    if (!chosen)
        return;
    switch (action) {
        case kHostAskEditProperty: return editProperty(*chosen, request);
        case kHostAskDeleteProperty: return deleteProperty(*chosen, request);
        case kHostAskAddProperty: return addProperty(*chosen, request);
        case kHostAskDeleteSet: return deleteSet(*chosen, request);
        case kHostAskRenameSet: return renameSet(*chosen, request);
        default: return;  // a host that can ask for more than this plug-in knows
    }
}

std::optional<ObjectInfo> EditFlows::onlySelectedObject() const {
    const std::vector<HostObjectId> selected = session_.host.selected();
    return selected.size() == 1 ? session_.host.objectInfo(selected[0]) : std::nullopt;
}

/// What there is to know of the object; nothing, after telling the user, when it cannot be edited.
std::optional<EditFlows::Chosen> EditFlows::chosenObject(const ObjectInfo& object) {
    Chosen chosen{.object = object, .filePath = {}, .rows = {}};
    chosen.filePath = session_.files.pathOf(object.fileId);
    if (chosen.filePath.empty()) {
        session_.files.refresh(session_.host, session_.store);
        chosen.filePath = session_.files.pathOf(object.fileId);
    }
    if (chosen.filePath.empty() || object.instanceNumber <= 0) {
        refuse(texts::kObjectNotInFileKey, object.name);
        return std::nullopt;
    }
    if (isType(object.entityName)) {
        refuse(texts::kTypeNotEditableKey, object.entityName);
        return std::nullopt;
    }
    chosen.rows = session_.host.properties(object.id);
    return chosen;
}

/// A row of the set that the request names; null, after telling the user, when it is not there or
/// takes no edits.
const DisplayedProperty* EditFlows::editableSet(const Chosen& chosen, const Request& request,
                                                const char* refusal) const {
    const auto row =
        std::find_if(chosen.rows.begin(), chosen.rows.end(), [&](const DisplayedProperty& each) {
            return request.setGuid.empty() ? each.setName == request.setName
                                           : each.setGuid == request.setGuid;
        });
    if (row == chosen.rows.end()) {
        refuse(refusal, request.setName);
        return nullptr;
    }
    if (row->setEntityName != texts::kPropertySetEntity &&
        row->setEntityName != texts::kQuantitySetEntity) {
        refuse(texts::kSetNotEditableKey, row->setEntityName);
        return nullptr;
    }
    return &*row;
}

/// The row of the property that the request names; null, after telling the user, when it is not
/// there or takes no edits.
const DisplayedProperty* EditFlows::requestedProperty(const Chosen& chosen, const Request& request,
                                                      const char* refusal) const {
    const DisplayedProperty* const set = editableSet(chosen, request, refusal);
    if (!set)
        return nullptr;
    const DisplayedProperty* const row = chosen.findProperty(*set, request.propertyName);
    if (!row) {
        refuse(refusal, request.propertyName);
        return nullptr;
    }
    if (row->kind != kHostSingleValue && row->kind != kHostQuantity) {
        refuse(texts::kPropertyNotEditableKey, row->name);
        return nullptr;
    }
    return row;
}

/// Set names of an object are unique; the user is told when this one is not.
bool EditFlows::isNameFree(const Chosen& chosen, const std::u16string& setName) const {
    const bool isTaken = std::any_of(chosen.rows.begin(), chosen.rows.end(),
                                     [&](const auto& row) { return row.setName == setName; });
    if (isTaken)
        refuse(texts::kSetNameTakenKey, setName);
    return !isTaken;
}

void EditFlows::addProperty(const Chosen& chosen, const Request& request) {
    const DisplayedProperty* const set =
        editableSet(chosen, request, texts::kUnableToAddPropertyKey);
    if (!set)
        return;
    // The row of a set without properties stands for the set.
    if (request.propertyName.empty() && set->kind != kHostEmptySet)
        return refuse(texts::kUnableToAddPropertyKey, {});
    auto input = windowInput(PropertyWindowMode::AddProperty, chosen);
    input.setName = set->setName;
    input.isQuantity = request.isQuantity || set->setEntityName == texts::kQuantitySetEntity;
    const auto entered = ask(input);
    if (!entered)
        return;
    IfcProperty property = entered->property;
    if (input.isQuantity)
        property.valueType = kRealValue;
    else
        property.quantityType.clear();
    if (!isAcceptable(property))
        return;
    if (input.isQuantity && property.quantityType.empty())
        return refuse(texts::kUnknownQuantityTypeKey, {});
    property.initialName = property.name;
    if (const DisplayedProperty* const taken = chosen.findProperty(*set, property.name)) {
        if (taken->kind == kHostOtherProperty)
            return refuse(texts::kPropertyNotEditableKey, taken->name);
        const auto answer = platform::showMessageBox(
            text(texts::kReplaceQuestionKey), texts::kCaption, platform::MessageButtons::YesNo,
            platform::MessageIcon::Question);
        if (answer == platform::MessageAnswer::Yes) {
            run(std::make_unique<IFC::EditPropertyCommand>(session_, chosen.target(*taken),
                                                           IFC::propertyOf(*taken), property),
                texts::kUnableToAddPropertyKey);
        }
        return;
    }
    run(std::make_unique<IFC::AddPropertyCommand>(session_, chosen.target(*set), property),
        texts::kUnableToAddPropertyKey);
}

void EditFlows::editProperty(const Chosen& chosen, const Request& request) {
    const DisplayedProperty* const row =
        requestedProperty(chosen, request, texts::kUnableToEditPropertyKey);
    if (!row)
        return;
    auto input = windowInput(PropertyWindowMode::EditProperty, chosen);
    input.setName = row->setName;
    input.propertyName = row->name;
    input.value = row->value;
    input.isTruthValue = row->kind == kHostSingleValue && row->valueType == kHostTruth;
    input.truthValue = input.isTruthValue && row->value == u"1";
    input.isQuantity = row->kind == kHostQuantity;
    input.quantityType = row->quantityType;
    input.prefix = row->prefix;
    input.unit = row->unit;
    if (const auto entered = ask(input))
        changeTo(chosen, *row, entered->property);
}

void EditFlows::changeTo(const Chosen& chosen, const DisplayedProperty& row, IfcProperty entered) {
    const IfcProperty before = IFC::propertyOf(row);
    const IfcProperty after = nextForm(row, std::move(entered));
    const bool isTypeKept = after.quantityType == before.quantityType;
    const bool isUnitKept = after.unit == before.unit && after.prefix == before.prefix;
    if (after.name == before.name && after.value == before.value && isTypeKept && isUnitKept)
        return;
    // What stays as it is in the file need not be what this program would write.
    IfcProperty entry = after;
    if (isTypeKept && after.value == before.value) {
        entry.quantityType.clear();
        entry.valueType = kTextValue;
    }
    if (isUnitKept) {
        entry.unit.clear();
        entry.prefix.clear();
    }
    if (!isAcceptable(entry))
        return;
    if (after.name != before.name && chosen.findProperty(row, after.name))
        return refuse(texts::kPropertyNameTakenKey, after.name);
    // An empty field means "as it was" to the store: it cannot empty a value or take a unit away.
    if (after.value.empty() && !before.value.empty())
        return refuse(texts::kValueMissingKey, after.name);
    if (after.unit.empty() && !before.unit.empty() && isTypeKept)
        return refuse(texts::kUnitMissingKey, after.name);
    run(std::make_unique<IFC::EditPropertyCommand>(session_, chosen.target(row), before, after),
        texts::kUnableToEditPropertyKey);
}

void EditFlows::deleteProperty(const Chosen& chosen, const Request& request) {
    const DisplayedProperty* const row =
        requestedProperty(chosen, request, texts::kUnableToDeletePropertyKey);
    if (row)
        run(std::make_unique<IFC::DeletePropertyCommand>(session_, chosen.target(*row),
                                                         IFC::propertyOf(*row)),
            texts::kUnableToDeletePropertyKey);
}

void EditFlows::deleteSet(const Chosen& chosen, const Request& request) {
    const DisplayedProperty* const row = editableSet(chosen, request, texts::kUnableToDeleteSetKey);
    if (!row)
        return;
    if (row->setGuid.empty())
        return refuse("", std::u16string(texts::kSetGuidMissing));
    run(std::make_unique<IFC::DeletePropertySetCommand>(session_, chosen.target(*row)),
        texts::kUnableToDeleteSetKey);
}

void EditFlows::renameSet(const Chosen& chosen, const Request& request) {
    const DisplayedProperty* const row = editableSet(chosen, request, texts::kUnableToEditSetKey);
    if (!row)
        return;
    if (row->setGuid.empty())
        return refuse("", std::u16string(texts::kSetGuidMissing));
    auto input = windowInput(PropertyWindowMode::RenameSet, chosen);
    input.setName = row->setName;
    const auto entered = ask(input);
    if (!entered || entered->setName == row->setName)
        return;
    if (withoutWhiteSigns(entered->setName).empty())
        return refuse(texts::kSetNameMissingKey, {});
    if (isNameFree(chosen, entered->setName))
        run(std::make_unique<IFC::EditPropertySetCommand>(session_, chosen.target(*row),
                                                          entered->setName),
            texts::kUnableToEditSetKey);
}

void EditFlows::addPropertySet() {
    const auto count = session_.host.selectedCount();
    if (count != 1)
        return tell(count > 1 ? texts::kSelectOneObjectKey : texts::kNoObjectSelectedKey);
    const auto object = onlySelectedObject();
    if (!object)
        return tell(texts::kSelectOneObjectKey);
    const auto chosen = chosenObject(*object);
    if (!chosen)
        return;
    const auto entered = ask(windowInput(PropertyWindowMode::AddSet, *chosen));
    if (!entered)
        return;
    if (withoutWhiteSigns(entered->setName).empty())
        return refuse(texts::kSetNameMissingKey, {});
    const std::u16string guid = IFC::newIfcGuid();
    if (guid.empty() || !isNameFree(*chosen, entered->setName))
        return;
    IfcPropertySet set(guid, entered->setName);
    if (!entered->property.name.empty()) {  // a first property is the user's choice
        IfcProperty property = entered->property;
        if (!isAcceptable(property))
            return;
        property.initialName = property.name;
        property.state = kPropertyAdded;
        set.properties.emplace(property.name, property);
    }
    run(std::make_unique<IFC::AddPropertySetCommand>(session_,
                                                     chosen->target(entered->setName, guid), set),
        texts::kUnableToAddSetKey);
}

void EditFlows::editMany() {
    const std::vector<HostObjectId> selected = session_.host.selected();
    if (selected.empty())
        return tell(texts::kNoObjectSelectedKey);
    if (!windows_)
        return tell(texts::kWindowNotAvailableKey);
    windows_->editMany(selected, [&](IFC::ManyEdits edits, const IFC::ObjectProgress& progress) {
        std::erase_if(edits.edits, [this](IFC::ManyEdit& edit) { return !isAcceptable(edit); });
        if (!edits.edits.empty())
            applyToMany(selected, edits, progress);
    });
}

void EditFlows::applyToMany(const std::vector<HostObjectId>& objects, const IFC::ManyEdits& edits,
                            const IFC::ObjectProgress& progress) {
    session_.files.refresh(session_.host, session_.store);
    if (auto group = IFC::applyToMany(session_, objects, edits, progress)) {
        const std::u16string displayText = group->displayText();
        history_.record(std::move(group), displayText);
        changed();
    }
}

/// Erases the white signs and checks the edit; the user is told what is wrong with it.
bool EditFlows::isAcceptable(IFC::ManyEdit& edit) const {
    using Kind = IFC::ManyEdit::Kind;
    if (options_.eraseWhiteSigns) {
        eraseWhiteSigns(edit.property.value);
        // Names of what is there already are left alone: they would not be found any more.
        if (edit.property.name != edit.property.initialName || edit.kind == Kind::AddProperty)
            eraseWhiteSigns(edit.property.name);
        if (edit.kind == Kind::AddSet)
            eraseWhiteSigns(edit.setName);
        eraseWhiteSigns(edit.newSetName);
    }
    const std::u16string& newSetName =
        edit.kind == Kind::RenameSet ? edit.newSetName : edit.setName;
    if (withoutWhiteSigns(newSetName).empty()) {
        refuse(texts::kSetNameMissingKey, {});
        return false;
    }
    const bool hasProperty = edit.kind == Kind::AddProperty || edit.kind == Kind::EditProperty;
    return !hasProperty || isAcceptable(edit.property);
}

bool EditFlows::isAcceptable(const IfcProperty& property) const {
    const char* const problem = problemOf(property);
    if (problem)
        refuse(problem, property.name);
    return !problem;
}

IFC::PropertyWindowInput EditFlows::windowInput(PropertyWindowMode mode,
                                                const Chosen& chosen) const {
    IFC::PropertyWindowInput input;
    input.mode = mode;
    const bool isRename = mode == PropertyWindowMode::RenameSet;
    input.title = text(isRename ? texts::kEditPropertySetKey : texts::kPropertyWindowNameKey);
    if (isContainer(chosen.object.entityName))
        input.title.append(texts::kTitleSeparator)
            .append(chosen.object.entityName)
            .append(1, u' ')
            .append(chosen.object.name);
    input.setLabel = text(texts::kSetLabelKey);
    input.setNameMessage = text(texts::kSetNameMessageKey);
    input.propertyNameMessage = text(texts::kPropertyNameMessageKey);
    input.propertyData = text(texts::kPropertyDataKey);
    input.quantityTypeLabel = text(texts::kQuantityTypeLabelKey);
    input.yes = text(texts::kYesKey);
    input.no = text(texts::kNoKey);
    input.ok = text(texts::kOkKey);
    input.cancel = text(texts::kCancelKey);
    return input;
}

/// What the user entered, without white signs if they are to be erased; nothing when the window was
/// cancelled or there is none, of which the user is told.
std::optional<IFC::PropertyWindowResult> EditFlows::ask(
    const IFC::PropertyWindowInput& input) const {
    if (!windows_) {
        tell(texts::kWindowNotAvailableKey);
        return std::nullopt;
    }
    auto entered = windows_->askProperty(input);
    if (entered && options_.eraseWhiteSigns) {
        eraseWhiteSigns(entered->setName, input.setName);
        eraseWhiteSigns(entered->property.name, input.propertyName);
        eraseWhiteSigns(entered->property.value, input.value);
    }
    return entered;
}

void EditFlows::run(std::unique_ptr<IFC::Command> command, const char* refusal) {
    if (!command->redo())
        return refuse(refusal, {});
    const std::u16string displayText = command->displayText();
    history_.record(std::move(command), displayText);
    changed();
}

void EditFlows::changed() {
    session_.host.needSaveProject(true);
    session_.host.invalidate();
}

void EditFlows::tell(const char* key) const {
    session_.host.messageBox(std::u16string(texts::kCaption), text(key),
                             static_cast<std::uint32_t>(platform::MessageIcon::Information));
}

void EditFlows::refuse(const char* key, const std::u16string& detail) const {
    std::u16string message = *key ? text(key) : std::u16string();
    if (!message.empty() && !detail.empty())
        message += u'\n';
    session_.host.messageBox(std::u16string(texts::kErrorCaption), message + detail,
                             static_cast<std::uint32_t>(platform::MessageIcon::Error));
}
