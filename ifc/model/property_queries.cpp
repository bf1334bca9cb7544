#include "ifc/model/property_queries.h"

#include <algorithm>
#include <charconv>

#include "ifc/io/numbers.h"
#include "ifc/io/token.h"
#include "ifc/model/enumeration.h"
#include "ifc/model/model.h"
#include "ifc/model/units.h"
#include "ifc/model/views.h"

namespace IFC {

namespace {

/// 5 and 0.25 rather than STEP's "5." .
std::u16string realText(double value) {
    char text[kRealTextBytes];
    std::string_view step(text, static_cast<std::size_t>(formatReal(text, value) - text));
    if (step.ends_with('.'))
        step.remove_suffix(1);
    return widened(step);
}

std::u16string simpleText(const SimpleValue& value) {
    if (value.text)
        return std::u16string(value.text->view());
    if (value.real && value.real->present)
        return realText(value.real->value);
    if (value.integer && value.integer->present)
        return widened(std::to_string(value.integer->value));
    if (value.logical && value.logical->present) {
        switch (value.logical->index) {
            case Logical::kTrue: return u"true";
            case Logical::kFalse: return u"false";
            default: return u"unknown";
        }
    }
    if (value.binary && value.binary->present)
        return widened(value.binary->view());
    if (value.enumeration && value.enumerationInfo && value.enumeration->present) {
        const auto values = value.enumerationInfo->values();
        const auto index = static_cast<std::size_t>(value.enumeration->index);
        return index < values.size() ? widened(values[index]) : std::u16string();
    }
    return {};
}

void removeDeleted(std::vector<IfcEntity*>& entities) {
    std::erase_if(entities, [](const IfcEntity* entity) { return entity->isDeleted(); });
}

}  // namespace

bool isEditableSet(IfcEntity* entity) {
    return dynamic_cast<VirtualIfcPropertySet*>(entity) ||
           dynamic_cast<VIfcElementQuantitySet*>(entity);
}

std::vector<IfcEntity*> membersOf(IfcEntity* set) {
    std::vector<IfcEntity*> members;
    if (const auto* properties = dynamic_cast<VirtualIfcPropertySet*>(set))
        properties->properties(members);
    else if (const auto* quantities = dynamic_cast<VIfcElementQuantitySet*>(set))
        quantities->quantities(members);
    removeDeleted(members);
    return members;
}

IfcEntity* findMember(IfcEntity* set, std::u16string_view name) {
    const std::vector<IfcEntity*> members = membersOf(set);
    const auto found = std::find_if(members.begin(), members.end(), [&](IfcEntity* member) {
        const auto* property = dynamic_cast<VIfcProperty*>(member);
        return property && property->propertyName() == name;
    });
    return found == members.end() ? nullptr : *found;
}

std::vector<IfcEntity*> definitionsOf(IfcEntity* relation) {
    std::vector<IfcEntity*> definitions;
    const auto* view = dynamic_cast<VirtualPropertyRelation*>(relation);
    IfcEntity* definition = view ? view->relatingPropertyDefinition() : nullptr;
    if (!definition)
        return definitions;
    if (definition->holdsReferences()) {
        std::deque<IfcEntity*> several;
        definition->collectReferences(several);
        definitions.assign(several.begin(), several.end());
    } else {
        definitions.push_back(definition);
    }
    removeDeleted(definitions);
    return definitions;
}

std::vector<IfcEntity*> objectsOf(IfcEntity* relation) {
    std::vector<IfcEntity*> objects;
    if (const auto* view = dynamic_cast<VirtualPropertyRelation*>(relation))
        view->relatedObjects(objects);
    removeDeleted(objects);
    return objects;
}

std::u16string_view guidOf(IfcEntity* entity) {
    const auto* root = dynamic_cast<VirtualIfcRoot*>(entity);
    return root ? root->globalId() : std::u16string_view();
}

std::u16string_view nameOf(IfcEntity* entity) {
    const auto* root = dynamic_cast<VirtualIfcRoot*>(entity);
    return root ? root->name() : std::u16string_view();
}

std::unordered_map<IfcEntity*, std::vector<IfcEntity*>> setsByObject(const Model& model) {
    std::unordered_map<IfcEntity*, std::vector<IfcEntity*>> sets;
    for (IfcEntity* relation : model.rooted()) {
        if (relation->isDeleted() || !dynamic_cast<VirtualPropertyRelation*>(relation))
            continue;
        const std::vector<IfcEntity*> definitions = definitionsOf(relation);
        for (IfcEntity* object : objectsOf(relation)) {
            std::vector<IfcEntity*>& own = sets[object];
            own.insert(own.end(), definitions.begin(), definitions.end());
        }
    }
    return sets;
}

SimpleValue simpleValueOf(IfcEntity* property) {
    if (auto* quantity = dynamic_cast<VQuantityProperty*>(property))
        return quantity->quantityValue();
    const auto* single = dynamic_cast<VIfcPropertySingleValue*>(property);
    auto* value = single ? dynamic_cast<IfcSimpleType*>(single->nominalValue()) : nullptr;
    return value ? value->value() : SimpleValue();
}

std::u16string valueText(IfcEntity* value) {
    auto* simple = dynamic_cast<IfcSimpleType*>(value);
    return simple ? simpleText(simple->value()) : std::u16string();
}

std::u16string unitText(IfcEntity* unit) {
    if (!unit)
        return {};
    if (const auto* si = dynamic_cast<VirtualIfcSIUnit*>(unit)) {
        const std::u16string prefixName = widened(si->prefix());
        const std::u16string unitName = widened(si->unitName());
        SIUnit key;
        try {
            if (!prefixName.empty())
                key.prefix = GetIfcSIPrefixFromWstring(prefixName);
            key.name = GetIfcSIUnitNameFromWstring(unitName);
        } catch (const std::exception&) {
            return prefixName + unitName;
        }
        const std::u16string_view label = siUnitLabel(key);
        return label.empty() ? prefixName + unitName : std::u16string(label);
    }
    if (const auto* named = dynamic_cast<VirtualNamedUnit*>(unit))
        return std::u16string(named->displayName());
    return unit->typeName();
}

PropertyDisplay displayOf(IfcEntity* property) {
    PropertyDisplay display;
    if (const auto* named = dynamic_cast<VIfcProperty*>(property))
        display.name = named->propertyName();
    display.type = property->typeName();
    if (const auto* single = dynamic_cast<VIfcPropertySingleValue*>(property)) {
        display.single = true;
        display.value = valueText(single->nominalValue());
        display.type = single->nominalValue() ? single->nominalValue()->typeName() : u"";
        display.unit = unitText(single->unit());
    } else if (auto* quantity = dynamic_cast<VQuantityProperty*>(property)) {
        display.single = true;
        display.value = simpleText(quantity->quantityValue());
        display.unit = unitText(quantity->quantityUnit());
    }
    return display;
}

}  // namespace IFC
