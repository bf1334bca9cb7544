#include "cli/object_sets.h"

#include <algorithm>
#include <charconv>
#include <deque>

#include "ifc/model/model.h"
#include "ifc/model/property_queries.h"

namespace cli {
namespace {

bool isOfClass(const IFC::Model& model, std::string_view key, IFC::IfcEntity* entity) {
    const IFC::ClassInfo* info = model.findClass(key);
    return info && info->cast(entity) != nullptr;
}

}  // namespace

std::string classKey(std::u16string_view name) {
    std::string key;
    for (const char16_t unit : name) {
        const char letter = unit < 0x80 ? static_cast<char>(unit) : '?';
        key.push_back(letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A')
                                                     : letter);
    }
    return key;
}

ObjectSets::ObjectSets(IFC::Model& model) : model_(model), assigned_(IFC::setsByObject(model)) {}

IFC::IfcEntity* ObjectSets::find(std::u16string_view name) const {
    if (IFC::IfcEntity* object = model_.findByGuid(name))
        return object;
    const std::string digits = classKey(name.starts_with(u'#') ? name.substr(1) : name);
    std::int32_t number = 0;
    const char* const last = digits.data() + digits.size();
    const auto [end, error] = std::from_chars(digits.data(), last, number);
    return error == std::errc() && end == last ? model_.find(number) : nullptr;
}

std::vector<IFC::IfcEntity*> ObjectSets::objectsOfClass(const IFC::ClassInfo& objectClass) const {
    std::vector<IFC::IfcEntity*> objects;
    std::copy_if(
        model_.rooted().begin(), model_.rooted().end(), std::back_inserter(objects),
        [&](const IFC::IfcEntity* object) { return &object->classInfo() == &objectClass; });
    return objects;
}

std::vector<IFC::IfcEntity*> ObjectSets::objectsWithSets() const {
    std::vector<IFC::IfcEntity*> objects;
    std::copy_if(model_.rooted().begin(), model_.rooted().end(), std::back_inserter(objects),
                 [this](IFC::IfcEntity* object) { return assigned_.contains(object); });
    return objects;
}

std::vector<IFC::IfcEntity*> ObjectSets::setsOf(IFC::IfcEntity* object) const {
    std::vector<IFC::IfcEntity*> sets;
    if (isType(object)) {
        std::deque<IFC::IfcEntity*> references;
        object->collectReferences(references);
        std::copy_if(references.begin(), references.end(), std::back_inserter(sets),
                     [this](IFC::IfcEntity* entity) {
                         return isOfClass(model_, "IFCPROPERTYSETDEFINITION", entity);
                     });
    }
    if (const auto found = assigned_.find(object); found != assigned_.end())
        for (IFC::IfcEntity* set : found->second)
            if (std::find(sets.begin(), sets.end(), set) == sets.end())
                sets.push_back(set);
    return sets;
}

bool ObjectSets::isType(IFC::IfcEntity* object) const {
    return isOfClass(model_, "IFCTYPEOBJECT", object);
}

}  // namespace cli
