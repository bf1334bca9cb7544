#include "gui/loaded_rows.h"

#include <algorithm>
#include <utility>

#include "edits/command_texts.h"
#include "gui/edit_many_texts.h"
#include "gui/qt_text.h"
#include "gui/value_grouping.h"

bool LoadedRows::load(std::uint64_t object) {
    if (object == 0 || objectInfo.contains(object))
        return false;
    const auto info = host_.objectInfo(object);
    ObjectRecord& record = objectInfo[object];
    record.id = object;
    if (info) {
        record.guid = toQString(info->guid);
        record.entityName = shared(info->entityName);
        record.name = toQString(info->name);
        record.ifcNumber = info->instanceNumber;
    }
    if (record.guid.isEmpty())
        record.guid = shared(std::u16string(texts::many::kNoGuid));
    lacksIfcNumber_ |= record.ifcNumber == 0;
    for (const DisplayedProperty& row : host_.properties(object))
        if (!row.setName.empty() && row.state != kHostDeleted)
            addRow(record, row);
    return true;
}

void LoadedRows::finish() {
    texts_.clear();
    units_.clear();
}

const QString& LoadedRows::shared(const std::u16string& text) {
    const auto known = texts_.find(std::u16string_view(text));
    return known != texts_.end() ? known->second
                                 : texts_.emplace(text, toQString(text)).first->second;
}

const LoadedRows::Unit& LoadedRows::unitOf(const DisplayedProperty& row) {
    std::u16string key = row.prefix + std::u16string(texts::many::kKeySeparator) + row.unit;
    const auto known = units_.find(std::u16string_view(key));
    if (known != units_.end())
        return known->second;
    Unit unit{unitIndexOf(row.prefix, row.unit), {}};
    unit.text = unit.index >= 0 ? unitLabelAt(unit.index) : toQString(row.prefix + row.unit);
    return units_.emplace(std::move(key), std::move(unit)).first->second;
}

void LoadedRows::addRow(const ObjectRecord& object, const DisplayedProperty& row) {
    const bool isEditableSet = row.setEntityName == texts::kPropertySetEntity ||
                               row.setEntityName == texts::kQuantitySetEntity;
    const SetCarriers& carriers = noteCarrier(object, row, isEditableSet);
    if (row.kind == kHostEmptySet)
        return;
    const QString& name = shared(row.setName);
    ExistingSetGui*& set = setsByName_[name];
    if (!set)
        set =
            sets.emplace_back(std::make_unique<ExistingSetGui>(name, shared(row.setGuid), carriers))
                .get();
    const Unit& unit = unitOf(row);
    const bool isEditable =
        isEditableSet && (row.kind == kHostSingleValue || row.kind == kHostQuantity);
    set->property(shared(row.name))
        .addRow({.object = &object,
                 .setGuid = shared(row.setGuid),
                 .value = shared(row.value),
                 .unit = unit.text,
                 .unitIndex = unit.index,
                 .kind = row.kind,
                 .valueType = row.valueType},
                isEditable);
}

SetCarriers& LoadedRows::noteCarrier(const ObjectRecord& object, const DisplayedProperty& row,
                                     bool isEditableSet) {
    SetCarriers& carriers = carriers_[shared(row.setName)];
    const QString& guid = shared(row.setGuid);
    // The sets of one object stand at the end.
    for (auto each = carriers.rbegin(); each != carriers.rend() && each->object == &object; ++each)
        if (each->setGuid == guid)
            return carriers;
    carriers.push_back({&object, guid, isEditableSet});
    return carriers;
}

const SetCarriers* LoadedRows::carriersOf(const QString& setName) const {
    const auto found = carriers_.find(setName);
    return found != carriers_.end() ? &found->second : nullptr;
}

ExistingSetGui* LoadedRows::findSet(const QString& initialName) const {
    const auto found = setsByName_.find(initialName);
    return found != setsByName_.end() ? found->second : nullptr;
}
