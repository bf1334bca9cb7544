#pragma once

#include <map>
#include <string>
#include <string_view>

#include "ifc/model/entity.h"

/// Which unit a value is in: its own or, as for most values of a file, the one that the project
/// has for measures of that kind.
namespace IFC {

class Model;

/// What the unit of a measure is called in IfcUnitEnum and IfcDerivedUnitEnum, without dots:
/// "LENGTHUNIT" of "IfcPositiveLengthMeasure" or "IfcQuantityLength"; "MONETARYUNIT" of
/// IfcMonetaryMeasure. What has no unit gets a name that no unit has ("RATIOUNIT" of
/// IfcRatioMeasure), or none when it is no measure (IfcLabel).
/// Source: IFC4 ADD2 TC1, IfcMeasureResource, the definitions of the measures and of both lists.
std::string unitTypeOf(std::u16string_view measure);

/// What users read: "kg (KiloGram)", the name of a unit that is not of the SI ("DEGREE", "EUR"),
/// "W/(m2·K)" of a derived one. Empty for null.
std::u16string unitLabelOf(IfcEntity* unit);

/// The units that the project of a model sets (IfcUnitAssignment), as they were at construction.
class ProjectUnits {
public:
    explicit ProjectUnits(const Model& model);

    /// The unit of values of this type ("IfcLengthMeasure", "IfcQuantityArea"); null when the
    /// project sets none.
    IfcEntity* find(std::u16string_view measure) const;

private:
    std::map<std::string, IfcEntity*, std::less<>> units_;  // by the type of the unit
};

/// A unit and whose it is.
struct CountingUnit {
    enum class Source { None, Property, Project };

    IfcEntity* unit = nullptr;
    Source source = Source::None;
};

/// The unit that the value of a single-value property or a quantity is in.
CountingUnit countingUnitOf(IfcEntity* property, const ProjectUnits& projectUnits);

}  // namespace IFC
