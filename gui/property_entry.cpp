#include "gui/property_entry.h"

#include <algorithm>
#include <array>
#include <optional>

#include "edits/property_check.h"
#include "edits/property_check_texts.h"
#include "gui/dialog_texts.h"
#include "ifc/model/units.h"

namespace {

using IFC::IfcSIUnitName;
using IFC::PropertyWindowInput;
using IFC::PropertyWindowMode;

struct QuantityType {
    std::u16string_view name;
    std::optional<IfcSIUnitName> unit;  // that measures it, with any prefix
    int unitIndex;                      // of the label that is chosen with it
};

constexpr std::array<QuantityType, 6> kQuantityTypes = {{
    {u"IfcQuantityArea", IfcSIUnitName::SQUARE_METRE, 24},
    {u"IfcQuantityCount", std::nullopt, kNoUnit},
    {u"IfcQuantityLength", IfcSIUnitName::METRE, 15},
    {u"IfcQuantityTime", IfcSIUnitName::SECOND, kNoUnit},
    {u"IfcQuantityVolume", IfcSIUnitName::CUBIC_METRE, 4},
    {u"IfcQuantityWeight", IfcSIUnitName::GRAM, kNoUnit},
}};

const QuantityType* findQuantityType(std::u16string_view name) {
    const auto found = std::find_if(kQuantityTypes.begin(), kQuantityTypes.end(),
                                    [&](const QuantityType& type) { return type.name == name; });
    return found != kQuantityTypes.end() ? &*found : nullptr;
}

std::u16string fromAscii(std::string_view text) { return {text.begin(), text.end()}; }

/// The entry of the list for the unit that the property has; its names where there is no label.
std::u16string labelOf(const PropertyWindowInput& input) {
    if (input.unit.empty())
        return {};
    for (const std::u16string_view label : IFC::siUnitLabels()) {
        const auto unit = IFC::siUnitFromLabel(label);
        if (fromAscii(IFC::siUnitName(unit->name)) == input.unit &&
            (unit->prefix ? fromAscii(IFC::siPrefixName(*unit->prefix)) : std::u16string()) ==
                input.prefix)
            return std::u16string(label);
    }
    return input.prefix.empty() ? input.unit : input.prefix + u' ' + input.unit;
}

/// ASCII and the few other letters of the labels: the Greek ones have no case that matters.
std::u16string lowered(std::u16string_view text) {
    std::u16string lower(text);
    for (char16_t& unit : lower)
        if (unit >= u'A' && unit <= u'Z')
            unit = static_cast<char16_t>(unit - u'A' + u'a');
    return lower;
}

template <class Matches>
int indexWhere(const std::vector<std::u16string>& labels, Matches matches) {
    const auto found = std::find_if(labels.begin(), labels.end(), matches);
    return found != labels.end() ? static_cast<int>(found - labels.begin()) : kNoUnit;
}

/// Takes the unit that is meant by `label` into `property`. @return whether there is one.
bool takeUnit(const PropertyWindowInput& input, const std::u16string& label,
              IfcProperty& property) {
    if (label.empty())
        return true;
    if (label == labelOf(input)) {
        property.prefix = input.prefix;
        property.unit = input.unit;
        return true;
    }
    const auto unit = IFC::siUnitFromLabel(label);
    if (!unit)
        return false;
    property.unit = fromAscii(IFC::siUnitName(unit->name));
    if (unit->prefix)
        property.prefix = fromAscii(IFC::siPrefixName(*unit->prefix));
    return true;
}

bool measures(const std::u16string& unit, const QuantityType& type) {
    return unit.empty() || (type.unit && unit == fromAscii(IFC::siUnitName(*type.unit)));
}

PropertyField fieldOf(std::string_view problemKey) {
    if (problemKey == texts::kPropertyNameMissingKey)
        return PropertyField::PropertyName;
    if (problemKey == texts::kUnknownUnitKey)
        return PropertyField::Unit;
    if (problemKey == texts::kUnknownQuantityTypeKey)
        return PropertyField::QuantityType;
    return PropertyField::Value;
}

/// Of a property of the window's kind; what is as it was shown is not looked at.
std::optional<FieldProblem> problemOfEntry(const PropertyWindowInput& input,
                                           const IfcProperty& property) {
    const bool isEdit = input.mode == PropertyWindowMode::EditProperty;
    const bool isTypeKept = isEdit && property.quantityType == input.quantityType;
    const bool isValueKept = isEdit && property.value == input.value;
    const bool isUnitKept =
        isEdit && property.unit == input.unit && property.prefix == input.prefix;
    IfcProperty checked = property;
    if (isTypeKept && isValueKept) {
        checked.quantityType.clear();
        checked.valueType = kTextValue;
    }
    if (isUnitKept) {
        checked.unit.clear();
        checked.prefix.clear();
    }
    if (const char* const key = problemOf(checked))
        return FieldProblem{fieldOf(key), key};
    if (isEdit && property.value.empty() && !input.value.empty())
        return FieldProblem{PropertyField::Value, texts::kValueMissingKey};
    if (isEdit && property.unit.empty() && !input.unit.empty() && isTypeKept)
        return FieldProblem{PropertyField::Unit, texts::kUnitMissingKey};
    if (hasQuantityType(input) && !(isTypeKept && isUnitKept)) {
        const QuantityType* const type = findQuantityType(property.quantityType);
        if (!type)
            return FieldProblem{PropertyField::QuantityType, texts::kUnknownQuantityTypeKey};
        if (!measures(property.unit, *type))
            return FieldProblem{PropertyField::Unit, texts::kUnitNotOfQuantityKey};
    }
    return std::nullopt;
}

}  // namespace

bool canEditSetName(PropertyWindowMode mode) {
    return mode == PropertyWindowMode::AddSet || mode == PropertyWindowMode::RenameSet;
}

bool hasPropertyFields(PropertyWindowMode mode) { return mode != PropertyWindowMode::RenameSet; }

bool hasQuantityType(const PropertyWindowInput& input) {
    return input.isQuantity && !canEditSetName(input.mode);
}

std::vector<std::u16string> offeredUnits(const PropertyWindowInput& input) {
    if (input.isTruthValue)
        return {};
    const auto labels = IFC::siUnitLabels();
    std::vector<std::u16string> units(labels.begin(), labels.end());
    const std::u16string own = labelOf(input);
    if (!own.empty() && !IFC::siUnitFromLabel(own))
        units.push_back(own);
    return units;
}

int firstUnitIndex(const PropertyWindowInput& input) {
    if (input.isTruthValue)
        return kNoUnit;
    if (!input.unit.empty())
        return indexWhere(offeredUnits(input),
                          [own = labelOf(input)](const auto& label) { return label == own; });
    return input.mode == PropertyWindowMode::AddProperty && input.isQuantity
               ? kQuantityTypes[0].unitIndex
               : kNoUnit;
}

std::vector<std::u16string> offeredQuantityTypes(const PropertyWindowInput& input) {
    std::vector<std::u16string> names;
    for (const QuantityType& type : kQuantityTypes)
        names.emplace_back(type.name);
    if (!input.quantityType.empty() && !findQuantityType(input.quantityType))
        names.push_back(input.quantityType);
    return names;
}

int firstQuantityTypeIndex(const PropertyWindowInput& input) {
    if (input.mode == PropertyWindowMode::AddProperty && input.quantityType.empty())
        return 0;
    return indexWhere(offeredQuantityTypes(input),
                      [&](const auto& name) { return name == input.quantityType; });
}

int unitIndexOf(std::u16string_view quantityType) {
    const QuantityType* const type = findQuantityType(quantityType);
    return type ? type->unitIndex : kNoUnit;
}

int unitIndexFor(const std::vector<std::u16string>& labels, std::u16string_view typed) {
    if (typed.empty())
        return kNoUnit;
    const std::u16string symbol = std::u16string(typed) + u" (";
    const std::u16string lower = lowered(typed);
    int index = indexWhere(labels, [&](const auto& label) { return label.starts_with(symbol); });
    if (index == kNoUnit)
        index = indexWhere(labels, [&](const auto& label) { return label.starts_with(typed); });
    if (index == kNoUnit)
        index = indexWhere(labels,
                           [&](const auto& label) { return lowered(label).starts_with(lower); });
    if (index == kNoUnit)
        index = indexWhere(labels, [&](const auto& label) {
            return lowered(label).find(lower) != std::u16string::npos;
        });
    return index;
}

std::variant<IFC::PropertyWindowResult, FieldProblem> resultOf(const PropertyWindowInput& input,
                                                               const PropertyEntry& entry) {
    IFC::PropertyWindowResult result;
    result.setName = entry.setName;
    if (canEditSetName(input.mode) && withoutWhiteSigns(entry.setName).empty())
        return FieldProblem{PropertyField::SetName, texts::kSetNameMissingKey};
    if (!hasPropertyFields(input.mode))
        return result;
    // A first property of a new set is the user's choice.
    const bool isLeftOut = canEditSetName(input.mode) &&
                           withoutWhiteSigns(entry.propertyName).empty() &&
                           withoutWhiteSigns(entry.value).empty();
    if (isLeftOut)
        return result;
    IfcProperty& property = result.property;
    property.name = entry.propertyName;
    property.value = entry.value;
    if (input.isTruthValue) {  // a unit that it may have cannot be chosen, nor taken away
        property.prefix = input.prefix;
        property.unit = input.unit;
    } else if (!takeUnit(input, entry.unit, property)) {
        return FieldProblem{PropertyField::Unit, texts::kUnknownUnitKey};
    }
    if (hasQuantityType(input))
        property.quantityType = entry.quantityType;
    // A new value is text unless something says that it is a number; one that is there keeps its
    // type.
    const bool isNew = input.mode != PropertyWindowMode::EditProperty;
    if (input.isTruthValue)
        property.valueType = kTruthValue;
    else if (hasQuantityType(input) || (isNew && !property.unit.empty()))
        property.valueType = kRealValue;
    if (const auto problem = problemOfEntry(input, property))
        return *problem;
    return result;
}
