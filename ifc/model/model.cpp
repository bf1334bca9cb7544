#include "ifc/model/model.h"

#include <algorithm>
#include <array>

#include "ifc/io/parser_texts.h"
#include "ifc/model/property_queries.h"
#include "ifc/model/views.h"

namespace IFC {

namespace {

std::string upperCase(std::string_view name) {
    std::string key(name);
    std::transform(key.begin(), key.end(), key.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return key;
}

bool isEditable(IfcEntity* entity) {
    return dynamic_cast<VIfcProperty*>(entity) || dynamic_cast<VirtualIfcPropertySet*>(entity) ||
           dynamic_cast<VIfcElementQuantitySet*>(entity);
}

}  // namespace

Model::Model(std::span<const ClassInfo* const> classes) {
    classes_.reserve(classes.size());
    for (const ClassInfo* info : classes)
        classes_.emplace(info->key, info);
}

const ClassInfo* Model::findClass(std::string_view key) const {
    const auto found = classes_.find(key);
    return found == classes_.end() ? nullptr : found->second;
}

Model::ClassRole Model::roleOf(IfcEntity* entity) {
    ClassRole role;
    role.rooted = dynamic_cast<VirtualIfcRoot*>(entity) != nullptr;
    struct Special {
        std::string_view key;
        IfcEntity* Model::*member;
    };
    static constexpr std::array<Special, 5> kSpecials = {
        {{"IFCUNITASSIGNMENT", &Model::unitAssignment_},
         {"IFCPROJECT", &Model::project_},
         {"IFCSITE", &Model::site_},
         {"IFCBUILDING", &Model::building_},
         {"IFCOWNERHISTORY", &Model::ownerHistory_}}};
    for (const Special& special : kSpecials) {
        if (entity->classInfo().key == special.key)
            role.special = special.member;
    }
    return role;
}

bool Model::add(IfcEntity* entity, const ClassRole& role) {
    if (!table_.insert(entity->id(), entity))
        return false;
    order_.push_back(entity);
    if (role.rooted)
        rooted_.push_back(entity);
    if (role.special && !(this->*role.special))
        this->*role.special = entity;
    return true;
}

bool Model::add(IfcEntity* entity) { return add(entity, roleOf(entity)); }

IfcEntity* Model::createEntity(std::string_view name, const ErrorCallback& errors) {
    const ClassInfo* info = findClass(upperCase(name));
    if (!info) {
        report(errors, "",
               std::u16string(texts::kNoESetCalled) + widened(name) +
                   std::u16string(texts::kExistsInMap));
        return nullptr;
    }
    IfcEntity* entity = info->create(pool_);
    adopt(entity);
    return entity;
}

IfcEntity* Model::createValue(std::string_view key) {
    const ClassInfo* info = findClass(key);
    if (!info || !info->isValue)
        return nullptr;
    IfcEntity* value = info->create(pool_);
    value->setCreated();
    return value;
}

void Model::adopt(IfcEntity* entity) {
    // One past the largest number of 32 bits is negative, which setId refuses.
    entity->setId(
        static_cast<std::int32_t>(static_cast<std::uint32_t>(table_.largestNumber()) + 1));
    add(entity);
}

void Model::noteReplacedGuid(IfcEntity* entity, std::u16string_view inFile) {
    replacedGuids_.emplace(entity, inFile);
    byReplacedGuid_[inFile].push_back(entity);
}

std::optional<std::u16string_view> Model::replacedGuid(const IfcEntity* entity) const {
    const auto found = replacedGuids_.find(entity);
    return found == replacedGuids_.end() ? std::nullopt : std::optional(found->second);
}

bool Model::hasGuid(IfcEntity* entity, std::u16string_view guid) const {
    return guidOf(entity) == guid || replacedGuid(entity) == guid;
}

std::vector<IfcEntity*> Model::findAllByGuid(std::u16string_view guid) const {
    std::vector<IfcEntity*> all;
    if (guid.empty())
        return all;
    if (IfcEntity* kept = findByGuid(guid))
        all.push_back(kept);
    if (const auto others = byReplacedGuid_.find(guid); others != byReplacedGuid_.end())
        all.insert(all.end(), others->second.begin(), others->second.end());
    std::erase_if(all, [](const IfcEntity* entity) { return entity->isDeleted(); });
    return all;
}

void Model::recordReferencing() {
    if (referencingRecorded_)
        return;
    referencingRecorded_ = true;
    for (IfcEntity* owner : editableOwners_)
        recordReferencesOf(owner);
    editableOwners_.clear();
    editableOwners_.shrink_to_fit();
}

void Model::recordReferencesOf(IfcEntity* owner) {
    std::deque<IfcEntity*> targets;
    owner->collectReferences(targets);
    while (!targets.empty()) {
        IfcEntity* target = targets.back();
        targets.pop_back();
        if (isEditable(target))
            target->links(pool_).referencing.insert(pool_, owner);
        else if (target->holdsReferences())
            target->collectReferences(targets);
    }
}

void Model::markEdited(const IfcEntity* entity) {
    const auto found = shapes_.find(entity);
    if (found == shapes_.end())
        return;
    found->second.edited = true;
    found->second.attributeCount = ~0U;
}

void Model::copyShape(const IfcEntity* from, const IfcEntity* to) {
    if (const RecordShape* shape = shapeOf(from)) {
        RecordShape copy = *shape;
        keepShape(to, std::move(copy));
    }
}

const RecordShape* Model::shapeOf(const IfcEntity* entity) const {
    const auto found = shapes_.find(entity);
    return found == shapes_.end() ? nullptr : &found->second;
}

}  // namespace IFC
