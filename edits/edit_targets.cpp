#include "edits/edit_targets.h"

#include <algorithm>
#include <deque>
#include <string>

#include "edits/apply_texts.h"
#include "ifc/io/token.h"
#include "ifc/model/model.h"
#include "ifc/model/property_operations.h"
#include "ifc/model/property_queries.h"

namespace IFC {

IfcEntity* EditTargets::findObject(std::int32_t number, std::u16string_view guid) const {
    const Model& model = operations_.model();
    const std::u16string begin =
        std::u16string(texts::kObjectWithNumber) + widened(std::to_string(number));
    IfcEntity* object = model.find(number);
    if (!object || object->isDeleted()) {
        report(errors_, "", begin + std::u16string(texts::kObjectNotFound));
        return nullptr;
    }
    if (guid.empty() || model.hasGuid(object, guid))
        return object;
    const std::vector<IfcEntity*> others = model.findAllByGuid(guid);
    if (others.size() != 1) {
        report(errors_, "", begin + std::u16string(texts::kObjectHasOtherGuid).append(guid));
        return nullptr;
    }
    report(errors_, "",
           begin + std::u16string(texts::kObjectHasOtherNumber) +
               widened(std::to_string(others.front()->id())));
    return others.front();
}

IfcEntity* EditTargets::findSet(IfcEntity* object, std::u16string_view guid) {
    std::vector<IfcEntity*> sets = operations_.model().findAllByGuid(guid);
    std::erase_if(sets, [](IfcEntity* entity) { return !isEditableSet(entity); });
    if (sets.size() > 1) {
        const auto own = std::find_if(sets.begin(), sets.end(),
                                      [&](IfcEntity* set) { return hasSet(object, set); });
        return own == sets.end() ? sets.front() : *own;
    }
    IfcEntity* set = sets.empty() ? operations_.FindPropertySetByGuid(guid) : sets.front();
    if (!set)
        report(errors_, "",
               std::u16string(texts::kPropertySetGuid).append(guid).append(texts::kSetNotFound));
    return set;
}

bool EditTargets::hasSet(IfcEntity* object, IfcEntity* set) {
    if (assigned_.empty())
        assigned_ = setsByObject(operations_.model());
    const auto found = assigned_.find(object);
    if (found != assigned_.end() &&
        std::find(found->second.begin(), found->second.end(), set) != found->second.end())
        return true;
    std::deque<IfcEntity*> references;  // a type refers to its sets itself
    object->collectReferences(references);
    return std::find(references.begin(), references.end(), set) != references.end();
}

}  // namespace IFC
