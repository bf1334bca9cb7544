#include "ifc/model/project_units.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <deque>
#include <vector>

#include "ifc/io/output_text_stream.h"
#include "ifc/model/attribute_writer.h"
#include "ifc/model/model.h"
#include "ifc/model/property_queries.h"
#include "ifc/model/units.h"
#include "ifc/model/views.h"

namespace IFC {
namespace {

struct Measure {
    std::u16string_view name;
    std::string_view unitType;
};

/// The measures whose units are not called like them.
constexpr std::array kOtherwiseNamed = {
    Measure{u"IfcNonNegativeLengthMeasure", "LENGTHUNIT"},
    Measure{u"IfcPositiveLengthMeasure", "LENGTHUNIT"},
    Measure{u"IfcPositivePlaneAngleMeasure", "PLANEANGLEUNIT"},
    Measure{u"IfcQuantityWeight", "MASSUNIT"},
    Measure{u"IfcSectionalAreaIntegralMeasure", "SECTIONAREAINTEGRALUNIT"},
    Measure{u"IfcThermalConductivityMeasure", "THERMALCONDUCTANCEUNIT"},
};

constexpr std::string_view kMonetaryUnit = "MONETARYUNIT";  // which the schema's lists lack

std::u16string symbolOf(IfcEntity* unit) {
    const auto* const si = dynamic_cast<VirtualIfcSIUnit*>(unit);
    if (!si)
        return unitText(unit);
    const std::u16string label = unitText(unit);  // "kg (KiloGram)"
    return label.substr(0, label.find(u" ("));
}

/// A factor of a derived unit: another unit to a power.
struct Factor {
    IfcEntity* unit = nullptr;
    int exponent = 0;
};

/// Of an IfcDerivedUnitElement, whose record is "#unit,exponent,".
Factor factorOf(const IfcEntity& element) {
    std::deque<IfcEntity*> references;
    element.collectReferences(references);
    FileStream::OutputTextStream out;
    AttributeWriter writer(out);
    element.writeAttributes(writer);
    const std::string record = out.take();
    Factor factor;
    const std::size_t comma = record.find(',');
    if (references.size() == 1 && comma != record.npos)
        std::from_chars(record.data() + comma + 1, record.data() + record.size(), factor.exponent);
    factor.unit = factor.exponent != 0 ? references.front() : nullptr;
    return factor;
}

std::u16string powerText(const Factor& factor) {
    std::u16string text = symbolOf(factor.unit);
    const int exponent = std::abs(factor.exponent);
    if (exponent == 1)
        return text;
    if (!text.empty() && text.back() >= u'0' && text.back() <= u'9')
        text += u'^';  // of square metres
    for (const char digit : std::to_string(exponent))
        text += static_cast<char16_t>(digit);
    return text;
}

/// Empty when one of the factors cannot be understood.
std::u16string derivedUnitText(const IfcEntity& unit) {
    std::deque<IfcEntity*> elements;
    unit.collectReferences(elements);
    std::u16string above;
    std::u16string below;
    int countBelow = 0;
    for (const IfcEntity* element : elements) {
        const Factor factor = factorOf(*element);
        if (!factor.unit)
            return {};
        std::u16string& side = factor.exponent > 0 ? above : below;
        countBelow += factor.exponent < 0 ? 1 : 0;
        side.append(side.empty() ? u"" : u"\u00B7").append(powerText(factor));
    }
    if (below.empty())
        return above;
    if (countBelow > 1)
        below = u"(" + below + u")";
    return (above.empty() ? u"1" : above) + u"/" + below;
}

}  // namespace

std::string unitTypeOf(std::u16string_view measure) {
    const auto found = std::find_if(kOtherwiseNamed.begin(), kOtherwiseNamed.end(),
                                    [&](const Measure& entry) { return entry.name == measure; });
    if (found != kOtherwiseNamed.end())
        return std::string(found->unitType);
    constexpr std::u16string_view kPrefix = u"Ifc";
    constexpr std::u16string_view kQuantityPrefix = u"IfcQuantity";
    constexpr std::u16string_view kSuffix = u"Measure";
    if (measure.starts_with(kQuantityPrefix))
        measure.remove_prefix(kQuantityPrefix.size());
    else if (measure.starts_with(kPrefix) && measure.ends_with(kSuffix))
        measure = measure.substr(kPrefix.size(), measure.size() - kPrefix.size() - kSuffix.size());
    else
        return {};
    std::string unitType;
    for (const char16_t unit : measure) {
        const auto letter = static_cast<char>(unit);
        unitType += letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    }
    return unitType + "UNIT";
}

std::u16string unitLabelOf(IfcEntity* unit) {
    const bool isDerived =
        unit && !dynamic_cast<VirtualIfcSIUnit*>(unit) && !dynamic_cast<VirtualNamedUnit*>(unit);
    const std::u16string derived = isDerived ? derivedUnitText(*unit) : std::u16string();
    return derived.empty() ? unitText(unit) : derived;
}

ProjectUnits::ProjectUnits(const Model& model) {
    for (IfcEntity* entity : model.rooted()) {
        const auto* const project = dynamic_cast<IfcProjectVirtual*>(entity);
        const auto* const assignment =
            project && !entity->isDeleted()
                ? dynamic_cast<VirtualIfcUnitAssignment*>(project->unitsInContext())
                : nullptr;
        if (!assignment)
            continue;
        std::vector<IfcEntity*> units;
        assignment->units(units);
        for (IfcEntity* unit : units) {
            const auto* const typed = dynamic_cast<IfcUnit*>(unit);
            const std::string_view type = typed ? typed->unitType() : std::string_view();
            units_.try_emplace(std::string(type.empty() ? kMonetaryUnit : type), unit);
        }
    }
}

IfcEntity* ProjectUnits::find(std::u16string_view measure) const {
    const auto found = units_.find(unitTypeOf(measure));
    return found != units_.end() ? found->second : nullptr;
}

CountingUnit countingUnitOf(IfcEntity* property, const ProjectUnits& projectUnits) {
    IfcEntity* own = nullptr;
    std::u16string type;
    if (const auto* single = dynamic_cast<VIfcPropertySingleValue*>(property)) {
        own = single->unit();
        if (single->nominalValue())
            type = single->nominalValue()->typeName();
    } else if (const auto* quantity = dynamic_cast<VQuantityProperty*>(property)) {
        own = quantity->quantityUnit();
        type = property->typeName();
    }
    if (own)
        return {own, CountingUnit::Source::Property};
    IfcEntity* const ofProject = projectUnits.find(type);
    return {ofProject, ofProject ? CountingUnit::Source::Project : CountingUnit::Source::None};
}

}  // namespace IFC
