#include "edits/display_rows.h"

#include "edits/command_texts.h"

namespace IFC {

DisplayedProperty rowOf(std::u16string_view setName, std::u16string_view setGuid,
                        const IfcProperty& property) {
    const bool isQuantity = !property.quantityType.empty();
    return {.setName = std::u16string(setName),
            .setGuid = std::u16string(setGuid),
            .setEntityName =
                std::u16string(isQuantity ? texts::kQuantitySetEntity : texts::kPropertySetEntity),
            .name = property.name,
            .initialName = property.initialName.empty() ? property.name : property.initialName,
            .value = property.value,
            .entityName = property.entityName,
            .quantityType = property.quantityType,
            .prefix = property.prefix,
            .unit = property.unit,
            .kind = isQuantity ? kHostQuantity : kHostSingleValue,
            .valueType = property.valueType,
            .state = property.state};
}

std::vector<DisplayedProperty> rowsOf(const IfcPropertySet& set) {
    std::vector<DisplayedProperty> rows;
    for (const auto& [name, property] : set.properties)
        if (property.state != kPropertyDeleted)
            rows.push_back(rowOf(set.name, set.SetIdentifier, property));
    if (rows.empty()) {
        DisplayedProperty& row = rows.emplace_back();
        row.setName = set.name;
        row.setGuid = set.SetIdentifier;
        row.setEntityName = texts::kPropertySetEntity;
        row.kind = kHostEmptySet;
        row.state = kHostAdded;
    }
    return rows;
}

IfcProperty propertyOf(const DisplayedProperty& row) {
    IfcProperty property;
    property.initialName = row.initialName.empty() ? row.name : row.initialName;
    property.name = row.name;
    property.value = row.value;
    property.valueType = row.valueType;
    property.quantityType = row.quantityType;
    property.entityName = row.entityName;
    property.prefix = row.prefix;
    property.unit = row.unit;
    property.state = row.state;
    return property;
}

}  // namespace IFC
