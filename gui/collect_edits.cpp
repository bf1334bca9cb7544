#include "gui/collect_edits.h"

#include <QHash>
#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

#include "edits/edit_many.h"
#include "edits/edit_many_texts.h"
#include "edits/property_check.h"
#include "edits/property_check_texts.h"
#include "gui/edit_many_state.h"
#include "gui/edit_many_texts.h"
#include "gui/qt_text.h"
#include "gui/trace.h"
#include "gui/value_grouping.h"
#include "ifc/model/units.h"
#include "platform/text.h"
#include "plugin/host_abi.h"

namespace {

using IFC::ManyEdit;

QString nodeOf(const QString& set, const QString& property) {
    return set + toQString(texts::many::kNodeSeparator) + property;
}

QString withUnit(const QString& value, const QString& unit) {
    return unit.isEmpty() ? value : value + u' ' + unit;
}

QString shownValue(const ExistingValueRowGui& row, const QString& value, const QString& unit) {
    if (row.isBoolean() && value == u"1")
        return editManyState().captions.yes;
    if (row.isBoolean() && value == u"0")
        return editManyState().captions.no;
    return withUnit(value, unit);
}

/// Sets prefix and unit; leaves them empty, which means unchanged, for an index that is none.
void setUnit(IfcProperty& property, int unitIndex) {
    const auto unit = IFC::siUnitFromLabel(fromQString(unitLabelAt(unitIndex)));
    if (!unit)
        return;
    property.unit = platform::fromUtf8(IFC::siUnitName(unit->name));
    if (unit->prefix)
        property.prefix = platform::fromUtf8(IFC::siPrefixName(*unit->prefix));
}

/// Puts objects that have a key in common together, in the order in which the keys are first met.
template <class Group>
class Groups {
public:
    Group& of(const QString& key) {
        const auto [place, isNew] = places_.try_emplace(key, groups_.size());
        if (isNew)
            groups_.emplace_back();
        return groups_[place->second];
    }
    std::vector<Group>& all() { return groups_; }

private:
    std::unordered_map<QString, std::size_t> places_;
    std::vector<Group> groups_;
};

/// A sign that ends the parts of a key; it can be in no text of a file.
constexpr QChar kPartEnd = u'\0';

bool changes(const ExistingValueRowGui& row) {
    return row.isSelected() && (row.isValueChanged() || row.isUnitChanged());
}

void collectValues(const ExistingSetGui& set, const ExistingPropertyGui& property,
                   CollectedEdits& collected) {
    Groups<ManyEdit> edits;
    Groups<SummaryRecord> records;
    for (const auto& row : property.rows()) {
        if (!property.isEditable() || !changes(*row))
            continue;
        const QString newValue = row->isValueChanged() ? row->value() : QString();
        const QString newUnit = row->isUnitChanged() ? row->unit() : QString();
        ManyEdit& edit = edits.of(newValue + kPartEnd + newUnit);
        edit.kind = ManyEdit::Kind::EditProperty;
        edit.setName = fromQString(set.initialName());
        edit.property.initialName = fromQString(property.initialName());
        edit.property.name = edit.property.initialName;
        edit.property.value = fromQString(newValue);
        if (row->isUnitChanged())
            setUnit(edit.property, row->unitIndex());
        edit.places.push_back({row->object().id, fromQString(row->setGuid())});
        const QString before = shownValue(*row, row->initialValue(), row->initialUnit());
        const QString after = shownValue(*row, row->value(), row->unit());
        SummaryRecord& record = records.of(before + kPartEnd + after);
        record.node = nodeOf(set.initialName(), property.initialName());
        record.oldText = before;
        record.newText = after;
        record.objects.push_back(row->object().id);
    }
    std::move(edits.all().begin(), edits.all().end(), std::back_inserter(collected.edits));
    std::move(records.all().begin(), records.all().end(), std::back_inserter(collected.changed));
}

template <class Rows>
std::vector<std::pair<QString, QString>> renamesOf(const Rows& rows) {
    std::vector<std::pair<QString, QString>> renames;
    for (const auto& row : rows)
        if (row->name() != row->initialName())
            renames.emplace_back(row->initialName(), row->name());
    return renames;
}

void collectPropertyRenames(const ExistingSetGui& set, CollectedEdits& collected) {
    const auto renames = renamesOf(set.properties());
    for (const std::size_t place : renameOrder(renames).order) {
        const auto& [from, to] = renames[place];
        const auto property =
            std::find_if(set.properties().begin(), set.properties().end(),
                         [&name = from](const auto& each) { return each->initialName() == name; });
        ManyEdit edit{.kind = ManyEdit::Kind::EditProperty,
                      .setName = fromQString(set.initialName()),
                      .newSetName = {},
                      .property = {},
                      .places = {}};
        edit.property.initialName = fromQString(from);
        edit.property.name = fromQString(to);
        SummaryRecord record{nodeOf(set.initialName(), from), from, to, {}};
        for (const auto& row : (*property)->rows()) {
            edit.places.push_back({row->object().id, fromQString(row->setGuid())});
            record.objects.push_back(row->object().id);
        }
        collected.edits.push_back(std::move(edit));
        collected.changed.push_back(std::move(record));
    }
}

void collectSetRenames(const LoadedRows& rows, CollectedEdits& collected) {
    const auto renames = renamesOf(rows.sets);
    for (const std::size_t place : renameOrder(renames).order) {
        const auto& [from, to] = renames[place];
        ManyEdit edit{.kind = ManyEdit::Kind::RenameSet,
                      .setName = fromQString(from),
                      .newSetName = fromQString(to),
                      .property = {},
                      .places = {}};
        SummaryRecord record{from, from, to, {}};
        for (const SetCarrier& carrier : *rows.carriersOf(from)) {
            if (!carrier.isEditable)
                continue;
            edit.places.push_back({carrier.object->id, fromQString(carrier.setGuid)});
            record.objects.push_back(carrier.object->id);
        }
        if (edit.places.empty())
            continue;
        collected.edits.push_back(std::move(edit));
        collected.changed.push_back(std::move(record));
    }
}

/// What is wrong with the row's new value or unit.
const char* problemOf(const ExistingPropertyGui& property, const ExistingValueRowGui& row) {
    if (!row.isValueChanged())
        return nullptr;
    // An empty value means "as it was" to those who make the change.
    if (row.value().isEmpty())
        return texts::kValueMissingKey;
    IfcProperty entry;
    entry.name = fromQString(property.initialName());
    entry.value = fromQString(row.value());
    entry.valueType = row.isQuantity() ? kRealValue : row.valueType();
    return problemOf(entry);
}

std::optional<ManyEditsProblem> problemOfNames(ExistingSetGui& set) {
    for (const auto& property : set.properties())
        if (property->name() != property->initialName() &&
            withoutWhiteSigns(fromQString(property->name())).empty())
            return ManyEditsProblem{.key = texts::kPropertyNameMissingKey,
                                    .where = nodeOf(set.name(), property->initialName()),
                                    .set = &set,
                                    .property = property.get()};
    const auto renames = renamesOf(set.properties());
    if (const auto ring = renameOrder(renames).inRing) {
        ExistingPropertyGui* const property = set.findProperty(renames[*ring].second);
        return ManyEditsProblem{.text = std::u16string(texts::many::kProperty) +
                                        fromQString(renames[*ring].second) +
                                        std::u16string(texts::many::kNameTaken),
                                .where = set.name(),
                                .set = &set,
                                .property = property};
    }
    return std::nullopt;
}

IfcProperty propertyFrom(const NewPropertyData& data) {
    IfcProperty property;
    property.name = fromQString(data.name);
    property.initialName = property.name;
    property.value = fromQString(data.value);
    setUnit(property, data.unitIndex);
    property.valueType = property.unit.empty() ? kTextValue : kRealValue;
    return property;
}

/// The row that an object has of a property; null for none.
using RowsByObject = std::unordered_map<const ObjectRecord*, const ExistingValueRowGui*>;

RowsByObject rowsByObject(const LoadedRows& rows, const QString& setName,
                          const QString& propertyName) {
    RowsByObject result;
    for (const auto& set : rows.sets) {
        if (set->name() != setName)
            continue;
        if (const ExistingPropertyGui* const property = set->findProperty(propertyName))
            for (const auto& row : property->rows())
                result.emplace(&row->object(), row.get());
    }
    return result;
}

void traceLine(std::u16string_view what, const QString& name) {
    if (isTracing())
        trace(std::u16string(what) + fromQString(name));
}

using ObjectSet = std::unordered_set<const ObjectRecord*>;

struct NewSetAtObjects {
    std::int32_t policy;
    std::vector<const ObjectRecord*> taking;  // in their order
    ObjectSet owners;                         // have a set of the name
};

void collectSetItself(const NewSetData& set, const NewSetAtObjects& at, CollectedEdits& collected) {
    ManyEdit edit{.kind = ManyEdit::Kind::AddSet,
                  .setName = fromQString(set.name),
                  .newSetName = {},
                  .property = {},
                  .places = {}};
    SummaryRecord replaced{set.name, set.name, {}, {}};
    SummaryRecord added{set.name, {}, set.name, {}};
    const bool isReplacing = at.policy == IFC::kOverrideExistingSet;
    for (const ObjectRecord* const object : at.taking) {
        edit.places.push_back({object->id, {}});
        const bool isOwner = at.owners.contains(object);
        if (isOwner && isReplacing)
            replaced.objects.push_back(object->id);
        if (!isOwner || isReplacing)
            added.objects.push_back(object->id);
    }
    if (!added.objects.empty())
        traceLine(texts::many::kLogAddingSet, set.name);
    if (!replaced.objects.empty()) {
        traceLine(texts::many::kLogDeletingSet, set.name);
        collected.changed.push_back(std::move(replaced));
    }
    // A set with properties is told of by them.
    if (set.properties.empty() && !added.objects.empty())
        collected.added.push_back(std::move(added));
    collected.edits.push_back(std::move(edit));
}

void collectNewProperty(const NewSetData& set, const NewPropertyData& data, const LoadedRows& rows,
                        const NewSetAtObjects& at, CollectedEdits& collected) {
    if (isTracing())
        trace(std::u16string(texts::many::kLogAddingProperty) + fromQString(data.name) +
              std::u16string(texts::many::kLogValue) + fromQString(data.value) +
              std::u16string(texts::many::kLogToSet) + fromQString(set.name));
    collected.edits.push_back({.kind = ManyEdit::Kind::AddProperty,
                               .setName = fromQString(set.name),
                               .newSetName = {},
                               .property = propertyFrom(data),
                               .places = {}});
    const bool isReplacing = at.policy == IFC::kOverrideExistingProperty;
    const RowsByObject present = isReplacing || at.policy == IFC::kSkipExistingProperty
                                     ? rowsByObject(rows, set.name, data.name)
                                     : RowsByObject();
    SummaryRecord added{
        nodeOf(set.name, data.name), {}, withUnit(data.value, unitLabelAt(data.unitIndex)), {}};
    Groups<SummaryRecord> replaced;
    for (const ObjectRecord* const object : at.taking) {
        const auto row = present.find(object);
        if (row == present.end()) {
            added.objects.push_back(object->id);
        } else if (isReplacing) {
            const ExistingValueRowGui& old = *row->second;
            const QString before = shownValue(old, old.value(), old.unit());
            SummaryRecord& record = replaced.of(before);
            record.node = added.node;
            record.oldText = before;
            record.newText = added.newText;
            record.objects.push_back(object->id);
        }
    }
    if (!replaced.all().empty())
        traceLine(texts::many::kLogDeletingProperty, data.name);
    std::move(replaced.all().begin(), replaced.all().end(), std::back_inserter(collected.changed));
    if (!added.objects.empty())
        collected.added.push_back(std::move(added));
}

}  // namespace

std::optional<ManyEditsProblem> problemOf(const LoadedRows& rows) {
    for (const auto& set : rows.sets) {
        if (set->name() != set->initialName() &&
            withoutWhiteSigns(fromQString(set->name())).empty())
            return ManyEditsProblem{
                .key = texts::kSetNameMissingKey, .where = set->initialName(), .set = set.get()};
        if (auto problem = problemOfNames(*set))
            return problem;
        for (const auto& property : set->properties()) {
            for (const auto& row : property->rows()) {
                if (!property->isEditable() || !changes(*row))
                    continue;
                if (const char* const key = problemOf(*property, *row))
                    return ManyEditsProblem{.key = key,
                                            .where = nodeOf(set->name(), property->name()),
                                            .set = set.get(),
                                            .property = property.get(),
                                            .row = row.get()};
            }
        }
    }
    const auto renames = renamesOf(rows.sets);
    if (const auto ring = renameOrder(renames).inRing)
        return ManyEditsProblem{.text = std::u16string(texts::many::kSet) +
                                        fromQString(renames[*ring].second) +
                                        std::u16string(texts::many::kNameTaken),
                                .set = rows.findSet(renames[*ring].first)};
    return std::nullopt;
}

std::optional<ManyEditsProblem> problemOf(const std::vector<NewSetData>& newSets) {
    for (std::size_t set = 0; set < newSets.size(); ++set) {
        const NewSetData& data = newSets[set];
        if (withoutWhiteSigns(fromQString(data.name)).empty())
            return ManyEditsProblem{.key = texts::kSetNameMissingKey,
                                    .newSet = set,
                                    .newProperty = data.properties.size()};
        for (std::size_t property = 0; property < data.properties.size(); ++property) {
            const IfcProperty entry = propertyFrom(data.properties[property]);
            if (const char* const key = problemOf(entry))
                return ManyEditsProblem{.key = key,
                                        .where = nodeOf(data.name, data.properties[property].name),
                                        .newSet = set,
                                        .newProperty = property,
                                        .isValue = !withoutWhiteSigns(entry.name).empty()};
        }
    }
    return std::nullopt;
}

void collectExisting(const LoadedRows& rows, CollectedEdits& collected) {
    for (const auto& set : rows.sets) {
        for (const auto& property : set->properties())
            collectValues(*set, *property, collected);
        collectPropertyRenames(*set, collected);
    }
    collectSetRenames(rows, collected);
}

const SetCarriers* carriersAfterRenames(const LoadedRows& rows, const QString& setName) {
    for (const auto& set : rows.sets)
        if (set->name() == setName)
            return &set->carriers();
    return rows.findSet(setName) ? nullptr : rows.carriersOf(setName);
}

bool collectNewSet(const NewSetData& set, const LoadedRows& rows,
                   const std::vector<std::uint64_t>& objects, std::int32_t policy,
                   const std::vector<const ObjectRecord*>& excluded, CollectedEdits& collected) {
    traceLine(texts::many::kLogNewSet, set.name);
    NewSetAtObjects at{.policy = policy, .taking = {}, .owners = {}};
    if (const SetCarriers* const carriers = carriersAfterRenames(rows, set.name))
        for (const SetCarrier& carrier : *carriers)
            at.owners.insert(carrier.object);
    const ObjectSet left(excluded.begin(), excluded.end());
    for (const std::uint64_t id : objects) {
        const auto record = rows.objectInfo.find(id);
        if (record == rows.objectInfo.end())
            continue;
        const ObjectRecord* const object = &record->second;
        const bool isSkipped = policy == IFC::kSkipExistingSet && at.owners.contains(object);
        if (object->entityName != toQString(texts::kSiteEntity) && !left.contains(object) &&
            !isSkipped)
            at.taking.push_back(object);
    }
    CollectedEdits here;
    collectSetItself(set, at, here);
    for (const NewPropertyData& property : set.properties)
        collectNewProperty(set, property, rows, at, here);
    if (here.changed.empty() && here.added.empty())
        return false;
    const auto append = [](auto& to, auto& from) {
        std::move(from.begin(), from.end(), std::back_inserter(to));
    };
    append(collected.edits, here.edits);
    append(collected.changed, here.changed);
    append(collected.added, here.added);
    return true;
}

RenameOrder renameOrder(const std::vector<std::pair<QString, QString>>& renames) {
    std::unordered_map<QString, std::size_t> byFrom;
    for (std::size_t place = 0; place < renames.size(); ++place)
        byFrom.emplace(renames[place].first, place);
    enum class State { Open, Waiting, Done };
    std::vector<State> states(renames.size(), State::Open);
    RenameOrder result;
    for (std::size_t start = 0; start < renames.size(); ++start) {
        // Who has the name that is wanted gives it away first.
        std::vector<std::size_t> chain;
        std::size_t place = start;
        while (states[place] == State::Open) {
            states[place] = State::Waiting;
            chain.push_back(place);
            const auto owner = byFrom.find(renames[place].second);
            if (owner == byFrom.end())
                break;
            place = owner->second;
            if (states[place] == State::Waiting)
                result.inRing = place;
        }
        for (auto each = chain.rbegin(); each != chain.rend(); ++each) {
            states[*each] = State::Done;
            result.order.push_back(*each);
        }
    }
    return result;
}
