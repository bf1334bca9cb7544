#include "ifc/model/property_operations.h"

#include <algorithm>

#include "ifc/io/guid.h"
#include "ifc/io/numbers.h"
#include "ifc/io/token.h"
#include "ifc/model/enumeration.h"
#include "ifc/model/model.h"
#include "ifc/model/operation_texts.h"
#include "ifc/model/property_queries.h"
#include "ifc/model/units.h"
#include "ifc/model/views.h"

namespace IFC {

namespace {

constexpr std::u16string_view kRelationName = u"IfcRelDefinesByProperties";
/// IfcLabel holds no more (its declaration in every release).
constexpr std::size_t kLongestLabel = 255;

/// ASCII upper case; other units become "?", which no name contains.
std::string keyOf(std::u16string_view name) {
    std::string key;
    for (const char16_t unit : name) {
        const char byte = unit < 0x80 ? static_cast<char>(unit) : '?';
        key.push_back(byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte);
    }
    return key;
}

bool isSingleOrQuantity(IfcEntity* member) {
    return dynamic_cast<VIfcPropertySingleValue*>(member) ||
           dynamic_cast<VQuantityProperty*>(member);
}

std::u16string_view memberName(IfcEntity* member) {
    const auto* property = dynamic_cast<VIfcProperty*>(member);
    return property ? property->propertyName() : std::u16string_view();
}

/// The relations that assign `set` to objects, by their type name.
std::vector<IfcEntity*> relationsOf(const IfcEntity* set) {
    std::vector<IfcEntity*> relations;
    for (IfcEntity* user : set->referencing()) {
        if (!user->isDeleted() && user->typeName() == kRelationName)
            relations.push_back(user);
    }
    return relations;
}

std::optional<Logical> logicalOf(std::u16string_view text, bool isUnknownAllowed) {
    const std::optional<Truth> truth = truthOf(text);
    if (truth == Truth::True)
        return Logical{Logical::kTrue, true};
    if (truth == Truth::False)
        return Logical{Logical::kFalse, true};
    if (truth == Truth::Unknown && isUnknownAllowed)
        return Logical{Logical::kUnknown, true};
    return std::nullopt;
}

/// Stores `text` where `place` points. @return false when it does not convert.
bool store(MemoryPool& pool, const SimpleValue& place, std::u16string_view text,
           std::string_view classKey) {
    if (place.text) {
        *place.text = {pool.copy(text), static_cast<std::uint32_t>(text.size()), true};
        return true;
    }
    if (place.real) {
        const std::optional<double> value = realOf(text);
        if (value)
            *place.real = {*value, true};
        return value.has_value();
    }
    if (place.integer) {
        const std::optional<std::int64_t> value = integerOf(text);
        if (value)
            *place.integer = {*value, true};
        return value.has_value();
    }
    if (place.logical) {
        const std::optional<Logical> value = logicalOf(text, classKey != "IFCBOOLEAN");
        if (value)
            *place.logical = *value;
        return value.has_value();
    }
    if (place.enumeration && place.enumerationInfo) {
        const std::int32_t index = place.enumerationInfo->find(keyOf(text));
        if (index >= 0)
            *place.enumeration = {index, true};
        return index >= 0;
    }
    return false;
}

/// The value class that stands for a record's kind of value when nothing better is known.
std::string_view usualClass(const IfcProperty& record) {
    switch (record.valueType) {
        case kTruthValue: return "IFCBOOLEAN";
        case kRealValue: return "IFCREAL";
        case kIntegerValue: return "IFCINTEGER";
        default: return record.value.size() > kLongestLabel ? "IFCTEXT" : "IFCLABEL";
    }
}

std::function<std::u16string(const char*)>& getTextFunction() {
    static std::function<std::u16string(const char*)> function;
    return function;
}

}  // namespace

PropertyOperations::PropertyOperations(Model& model, ErrorCallback errors)
    : model_(model), errors_(std::move(errors)) {
    model_.recordReferencing();
}

IfcEntity* PropertyOperations::FindPropertySetByGuid(std::u16string_view guid) {
    IfcEntity* set = model_.findByGuid(guid);
    if (!set || set->isDeleted()) {
        reportText(std::u16string(texts::kSetNotInGuidMap) + std::u16string(guid));
        return nullptr;
    }
    if (!isEditableSet(set)) {
        reportText(std::u16string(texts::kPredefinedSet) + set->typeName() + u" #" +
                   widened(std::to_string(set->id())));
        return nullptr;
    }
    return set;
}

// Who uses what.

bool PropertyOperations::hasOtherUsers(IfcEntity* entity, IfcEntity* user) const {
    const auto users = entity->referencing();
    return std::any_of(users.begin(), users.end(), [&](const IfcEntity* other) {
        return other != user && !other->isDeleted();
    });
}

/// To be called before an entity that was read is changed.
void PropertyOperations::changed(IfcEntity* entity) { model_.markEdited(entity); }

IfcEntity* PropertyOperations::setForObject(IfcEntity* set, IfcEntity* object) {
    const auto users = set->referencing();
    const bool shared = std::any_of(users.begin(), users.end(), [&](IfcEntity* user) {
        if (user->isDeleted() || user == object)
            return false;
        const std::vector<IfcEntity*> objects = objectsOf(user);
        return objects.size() != 1 || objects.front() != object;
    });
    return shared ? UnsharePropertySet(set, guidOf(object)) : set;
}

IfcEntity* PropertyOperations::UnsharePropertySet(IfcEntity* set, std::u16string_view objectGuid) {
    IfcEntity* object = model_.findByGuid(objectGuid);
    auto* prototype = dynamic_cast<Prototype*>(set);
    if (!object || !prototype)
        return nullptr;
    detach(set, object);

    IfcEntity* copy = prototype->clone(model_.pool());
    model_.adopt(copy);
    model_.copyShape(set, copy);
    changed(copy);
    for (IfcEntity* member : membersOf(copy)) {
        if (IfcEntity* memberCopy = cloneMember(member))
            replaceMember(copy, member, memberCopy);
    }
    auto* root = dynamic_cast<VirtualIfcRoot*>(copy);
    root->setGlobalId(model_.pool(), newIfcGuid());
    model_.registerGuid(root->globalId(), copy);
    model_.recordReferencesOf(copy);
    relate(object, copy);
    removeUnusedSet(set);
    return copy;
}

/// Null for a member that cannot be copied: it stays shared.
IfcEntity* PropertyOperations::cloneMember(IfcEntity* member) {
    const auto* prototype = isSingleOrQuantity(member) ? dynamic_cast<Prototype*>(member) : nullptr;
    if (!prototype)
        return nullptr;
    IfcEntity* copy = prototype->clone(model_.pool());
    model_.adopt(copy);
    model_.copyShape(member, copy);
    return copy;
}

/// Ends the object's relations to `set`; what else these assign to it, it keeps.
void PropertyOperations::detach(IfcEntity* set, IfcEntity* object) {
    for (IfcEntity* relation : relationsOf(set)) {
        const std::vector<IfcEntity*> objects = objectsOf(relation);
        if (std::find(objects.begin(), objects.end(), object) == objects.end())
            continue;
        std::vector<IfcEntity*> others = definitionsOf(relation);
        std::erase(others, set);
        auto* view = dynamic_cast<VirtualPropertyRelation*>(relation);
        changed(relation);
        if (objects.size() > 1) {
            view->removeRelatedObject(model_.pool(), guidOf(object));
        } else if (others.empty()) {
            relation->markDeleted();
        } else {
            view->setRelatingPropertyDefinition(others.front());
            set->links(model_.pool()).referencing.erase(relation);
            others.erase(others.begin());
        }
        for (IfcEntity* other : others)
            relate(object, other);
    }
}

/// Removes a set that nobody refers to any more, with the members that only it has.
void PropertyOperations::removeUnusedSet(IfcEntity* set) {
    if (hasOtherUsers(set, nullptr))
        return;
    for (IfcEntity* member : membersOf(set)) {
        if (!hasOtherUsers(member, set))
            member->markDeleted();
    }
    set->markDeleted();
}

// New instances.

/// guid: empty for a new one.
IfcEntity* PropertyOperations::newRooted(std::string_view className, std::u16string_view guid,
                                         const std::u16string_view* name) {
    IfcEntity* entity = model_.createEntity(className, errors_);
    auto* root = dynamic_cast<VirtualIfcRoot*>(entity);
    if (!root)
        return nullptr;
    const std::u16string text =
        guid.empty() || model_.findByGuid(guid) ? newIfcGuid() : std::u16string(guid);
    const std::u16string_view view = text;
    root->setRootAttributes(model_.pool(), &view, model_.ownerHistory(), name);
    model_.registerGuid(root->globalId(), entity);
    return entity;
}

void PropertyOperations::relate(IfcEntity* object, IfcEntity* set) {
    IfcEntity* relation = newRooted("IfcRelDefinesByProperties", {}, nullptr);
    auto* view = dynamic_cast<VirtualPropertyRelation*>(relation);
    if (!view)
        return;
    if (!view->addRelatedObject(model_.pool(), object)) {
        reportText(std::u16string(texts::kObjectTakesNoSet) +
                   widened(std::to_string(object->id())));
        relation->markDeleted();
        return;
    }
    view->setRelatingPropertyDefinition(set);
    model_.recordReferencesOf(relation);
}

IfcEntity* PropertyOperations::newSet(bool quantities, IfcEntity* object, std::u16string_view guid,
                                      std::u16string_view name) {
    IfcEntity* relation = newRooted("IFCRELDEFINESBYPROPERTIES", {}, nullptr);
    auto* view = dynamic_cast<VirtualPropertyRelation*>(relation);
    if (!view)
        return nullptr;
    if (!view->addRelatedObject(model_.pool(), object)) {
        reportText(std::u16string(texts::kObjectTakesNoSet) +
                   widened(std::to_string(object->id())));
        relation->markDeleted();
        return nullptr;
    }
    IfcEntity* set = newRooted(quantities ? "IFCELEMENTQUANTITY" : "IFCPROPERTYSET", guid, &name);
    if (!set) {
        relation->markDeleted();
        return nullptr;
    }
    view->setRelatingPropertyDefinition(set);
    model_.recordReferencesOf(relation);
    return set;
}

std::size_t PropertyOperations::addPropertySet(std::int32_t objectNumber,
                                               std::u16string_view setGuid,
                                               std::u16string_view setName,
                                               const std::vector<IfcProperty>& records) {
    IfcEntity* object = model_.find(objectNumber);
    if (!object || object->isDeleted()) {
        reportText(std::u16string(texts::kUnableToAddSet) + std::u16string(setName) +
                   std::u16string(texts::kObjectNumer) + widened(std::to_string(objectNumber)) +
                   std::u16string(texts::kNotFoundInFile) + model_.filePath);
        return 0;
    }
    std::size_t made = 0;
    for (const bool quantities : {false, true}) {
        IfcEntity* set = nullptr;
        for (const IfcProperty& record : records) {
            if (record.quantityType.empty() == quantities)
                continue;
            if (!set)
                set = newSet(quantities, object, setGuid, setName);
            IfcEntity* member = set ? newMember(record) : nullptr;
            if (!member)
                continue;
            appendMember(set, member);
            ++made;
        }
        if (set && membersOf(set).empty()) {
            for (IfcEntity* relation : relationsOf(set))
                relation->markDeleted();
            set->markDeleted();
        }
    }
    return made;
}

/// The object's own set of the other kind and the same name, made when there is none.
IfcEntity* PropertyOperations::companionSet(bool quantities, IfcEntity* object,
                                            std::u16string_view name) {
    const std::vector<IfcEntity*> ownSets = setsByObject(model_)[object];
    for (IfcEntity* set : ownSets) {
        const bool ofKind = quantities ? dynamic_cast<VIfcElementQuantitySet*>(set) != nullptr
                                       : dynamic_cast<VirtualIfcPropertySet*>(set) != nullptr;
        if (ofKind && nameOf(set) == name)
            return setForObject(set, object);
    }
    return newSet(quantities, object, {}, name);
}

bool PropertyOperations::addMember(IfcEntity* set, IfcEntity* object, const IfcProperty& record) {
    const bool quantity = !record.quantityType.empty();
    const bool fits = quantity ? dynamic_cast<VIfcElementQuantitySet*>(set) != nullptr
                               : dynamic_cast<VirtualIfcPropertySet*>(set) != nullptr;
    IfcEntity* target = fits ? set : companionSet(quantity, object, nameOf(set));
    IfcEntity* member = target ? newMember(record) : nullptr;
    if (!member)
        return false;
    appendMember(target, member);
    return true;
}

/// A property or quantity with the record's name, value and unit; null, and nothing is left, when
/// it cannot be made.
IfcEntity* PropertyOperations::newMember(const IfcProperty& record) {
    const bool quantity = !record.quantityType.empty();
    const std::string key = quantity ? keyOf(record.quantityType) : "IFCPROPERTYSINGLEVALUE";
    IfcEntity* member = nullptr;
    if (model_.findClass(key))
        member = model_.createEntity(key, errors_);
    auto* named = dynamic_cast<VIfcProperty*>(member);
    if (!named || !isSingleOrQuantity(member)) {
        reportText(std::u16string(texts::kProperty) + record.name +
                   std::u16string(texts::kUnknownQuantityType) + record.quantityType);
        if (member)
            member->markDeleted();
        return nullptr;
    }
    named->setPropertyName(model_.pool(), record.name);
    const bool hasValue = quantity || !record.value.empty() || record.valueType == kTextValue;
    if (hasValue && !setValue(member, record)) {
        member->markDeleted();
        return nullptr;
    }
    setUnit(member, record);
    return member;
}

void PropertyOperations::appendMember(IfcEntity* set, IfcEntity* member) {
    changed(set);
    if (auto* properties = dynamic_cast<VirtualIfcPropertySet*>(set))
        properties->addProperty(model_.pool(), member);
    else if (auto* quantities = dynamic_cast<VIfcElementQuantitySet*>(set))
        quantities->replaceQuantity(model_.pool(), nullptr, member);
    member->links(model_.pool()).referencing.insert(model_.pool(), set);
}

/// replacement: null takes the member out.
void PropertyOperations::replaceMember(IfcEntity* set, IfcEntity* member, IfcEntity* replacement) {
    changed(set);
    if (auto* properties = dynamic_cast<VirtualIfcPropertySet*>(set))
        properties->replaceProperty(model_.pool(), member, replacement);
    else if (auto* quantities = dynamic_cast<VIfcElementQuantitySet*>(set))
        quantities->replaceQuantity(model_.pool(), member, replacement);
    member->links(model_.pool()).referencing.erase(set);
    if (replacement)
        replacement->links(model_.pool()).referencing.insert(model_.pool(), set);
}

/// `member`, or the copy that the set gets in its place because others have it too.
IfcEntity* PropertyOperations::ownMember(IfcEntity* set, IfcEntity* member) {
    if (!hasOtherUsers(member, set))
        return member;
    IfcEntity* copy = cloneMember(member);
    if (copy)
        replaceMember(set, member, copy);
    return copy;
}

// Editing.

bool PropertyOperations::EditPropertyInModel(std::u16string_view objectGuid,
                                             std::u16string_view setGuid,
                                             const IfcProperty& record) {
    IfcEntity* set = FindPropertySetByGuid(setGuid);
    IfcEntity* object = model_.findByGuid(objectGuid);
    IfcEntity* own = set && object ? setForObject(set, object) : nullptr;
    if (!own)
        reportText(texts::kNoSetToEdit);
    IfcEntity* member = own ? findRecorded(own, record) : nullptr;
    if (member && editMember(own, object, member, record))
        return true;
    reportText(std::u16string(texts::kUnableToEdit) + u"\n" + std::u16string(texts::kObjectGuid) +
               std::u16string(objectGuid) + u"\n" + std::u16string(texts::kSetGuid) +
               std::u16string(setGuid) + u"\n" + std::u16string(texts::kPropertyName) +
               record.name);
    return false;
}

IfcEntity* PropertyOperations::findRecorded(IfcEntity* set, const IfcProperty& record) {
    const std::u16string& oldName = record.initialName.empty() ? record.name : record.initialName;
    IfcEntity* member = findMember(set, oldName);
    if (!member && record.state == kPropertyDeleted) {
        reportText(std::u16string(texts::kUnableToDelete) + oldName +
                   std::u16string(texts::kPropertyNotFound));
    } else if (!member) {
        const bool quantity = dynamic_cast<VIfcElementQuantitySet*>(set) != nullptr;
        reportText(std::u16string(quantity ? texts::kQuantity : texts::kProperty) + oldName +
                   std::u16string(texts::kQuantityNotFound));
    }
    return member;
}

bool PropertyOperations::editMember(IfcEntity* set, IfcEntity* object, IfcEntity* member,
                                    const IfcProperty& record) {
    if (!isSingleOrQuantity(member)) {
        reportText(std::u16string(texts::kBadCastToProperty) + u" " +
                   std::u16string(memberName(member)));
        return false;
    }
    const bool staysOfKind =
        record.quantityType.empty() || keyOf(record.quantityType) == member->classInfo().key;
    if (!staysOfKind) {
        const bool done = addMember(set, object, record);
        if (done)
            deleteMember(set, member);
        return done;
    }
    IfcEntity* own = ownMember(set, member);
    changed(own);
    if (!record.name.empty() && record.name != memberName(own))
        dynamic_cast<VIfcProperty*>(own)->setPropertyName(model_.pool(), record.name);
    const bool valueDone = record.value.empty() || setValue(own, record);
    const bool unitDone = setUnit(own, record);
    return valueDone && unitDone;
}

bool PropertyOperations::DeletePropertyInModel(IfcEntity* set, const IfcProperty& record) {
    if (!set) {
        reportText(std::u16string(texts::kSetIsNull) + record.name);
        return false;
    }
    if (!isEditableSet(set)) {
        reportText(texts::kBadCastToSet);
        return false;
    }
    IfcProperty deletion = record;
    deletion.state = kPropertyDeleted;
    IfcEntity* member = findRecorded(set, deletion);
    if (member)
        deleteMember(set, member);
    return member != nullptr;
}

void PropertyOperations::deleteMember(IfcEntity* set, IfcEntity* member) {
    changed(set);
    if (hasOtherUsers(member, set))
        replaceMember(set, member, nullptr);
    else
        member->markDeleted();
    if (!membersOf(set).empty())
        return;
    for (IfcEntity* relation : relationsOf(set)) {
        if (objectsOf(relation).size() >= 2)
            continue;
        changed(relation);
        // A relation of several sets lists this one no more once it is removed.
        if (definitionsOf(relation).size() > 1)
            set->links(model_.pool()).referencing.erase(relation);
        else
            relation->markDeleted();
    }
    if (!hasOtherUsers(set, nullptr))
        set->markDeleted();
}

void PropertyOperations::renameSet(IfcEntity* set, std::u16string_view name) {
    if (auto* root = dynamic_cast<VirtualIfcRoot*>(set)) {
        changed(set);
        root->setRootAttributes(model_.pool(), nullptr, nullptr, &name);
    }
}

void PropertyOperations::deleteSet(IfcEntity* set, IfcEntity* object) {
    detach(set, object);
    removeUnusedSet(set);
}

// Values and units.

bool PropertyOperations::setValue(IfcEntity* property, const IfcProperty& record) {
    if (auto* quantity = dynamic_cast<VQuantityProperty*>(property)) {
        if (store(model_.pool(), quantity->quantityValue(), record.value, {}))
            return true;
        reportText(std::u16string(texts::kQuantity) + record.name +
                   std::u16string(texts::kNotANumber) + record.value);
        return false;
    }
    auto* single = dynamic_cast<VIfcPropertySingleValue*>(property);
    IfcEntity* value = single ? convertedValue(single->nominalValue(), record) : nullptr;
    if (value && single->setNominalValue(value))
        return true;
    reportText(std::u16string(texts::kProperty) + record.name +
               std::u16string(texts::kValueDoesNotConvert) + record.entityName);
    return false;
}

/// The record's value in the class that it names, else in the class that the property had, else in
/// that of its kind.
IfcEntity* PropertyOperations::convertedValue(IfcEntity* old, const IfcProperty& record) {
    const std::u16string reportBegin = std::u16string(texts::kProperty) + record.name;
    const std::string named = keyOf(record.entityName);
    const ClassInfo* namedClass = model_.findClass(named);
    const bool namesValue = namedClass && namedClass->isValue;
    if (!record.entityName.empty() && !namedClass)
        reportText(reportBegin + u". " + record.entityName +
                   std::u16string(texts::kNotPartOfTheSchema));
    const ClassInfo* oldClass = old ? &old->classInfo() : nullptr;
    const ClassInfo* wanted = namesValue ? namedClass : oldClass;
    if (!wanted)
        return valueOfClass(usualClass(record), record);
    if (IfcEntity* value = valueOfClass(wanted->key, record)) {
        if (oldClass && wanted != oldClass)
            reportText(reportBegin + std::u16string(texts::kTypeChanged) + oldClass->name +
                       std::u16string(texts::kTo) + wanted->name);
        return value;
    }
    IfcEntity* value = valueOfClass(usualClass(record), record);
    if (value)
        reportText(reportBegin + std::u16string(texts::kValueDoesNotConvert) + wanted->name +
                   std::u16string(texts::kStoredAs) + value->typeName());
    return value;
}

IfcEntity* PropertyOperations::valueOfClass(std::string_view key, const IfcProperty& record) {
    auto* value = dynamic_cast<IfcSimpleType*>(model_.createValue(key));
    return value && store(model_.pool(), value->value(), record.value, key) ? value : nullptr;
}

/// An empty unit leaves the property's as it is.
bool PropertyOperations::setUnit(IfcEntity* property, const IfcProperty& record) {
    if (record.unit.empty())
        return true;
    IfcEntity* unit = siUnit(record.prefix, record.unit);
    if (!unit) {
        reportText(std::u16string(texts::kProperty) + record.name +
                   std::u16string(texts::kUnknownUnit) + record.prefix + record.unit);
        return false;
    }
    auto* single = dynamic_cast<VIfcPropertySingleValue*>(property);
    auto* quantity = dynamic_cast<VQuantityProperty*>(property);
    if ((single && single->setUnit(unit)) || (quantity && quantity->setQuantityUnit(unit)))
        return true;
    reportText(std::u16string(texts::kProperty) + record.name + std::u16string(texts::kNoUnitHere));
    return false;
}

/// The model's unit of that name and prefix (empty for none), made when it has none. Null for names
/// that do not exist.
IfcEntity* PropertyOperations::siUnit(std::u16string_view prefix, std::u16string_view unit) {
    std::string_view type;
    try {
        type = siUnitType(GetIfcSIUnitNameFromWstring(unit));
        if (!prefix.empty())
            GetIfcSIPrefixFromWstring(prefix);
    } catch (const std::exception&) {
        return nullptr;
    }
    const ClassInfo* siClass = model_.findClass("IFCSIUNIT");
    if (!unitsKnown_) {
        unitsKnown_ = true;
        for (IfcEntity* entity : model_.entities()) {
            if (entity->isDeleted() || &entity->classInfo() != siClass)
                continue;
            const auto* si = dynamic_cast<VirtualIfcSIUnit*>(entity);
            const auto* common = dynamic_cast<IfcUnit*>(entity);
            units_.try_emplace({std::string(common->unitType()), std::string(si->prefix()),
                                std::string(si->unitName())},
                               entity);
        }
    }
    IfcEntity*& known = units_[{std::string(type), keyOf(prefix), keyOf(unit)}];
    if (!known && siClass) {
        IfcEntity* created = model_.createEntity(siClass->key, errors_);
        if (dynamic_cast<VirtualIfcSIUnit*>(created)->setSIUnit(type, keyOf(prefix), keyOf(unit)))
            known = created;
        else
            created->markDeleted();
    }
    return known;
}

std::u16string GetText(const char* key) {
    const auto& function = getTextFunction();
    return function ? function(key) : std::u16string(texts::kNoGetTextFunction);
}

std::function<std::u16string(const char*)> setGetTextFunction(
    std::function<std::u16string(const char*)> function) {
    std::swap(getTextFunction(), function);
    return function;
}

}  // namespace IFC
