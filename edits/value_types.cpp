#include "edits/value_types.h"

#include <algorithm>
#include <array>

namespace IFC {
namespace {

using Kind = ValueKind;
using Range = ValueRange;

/// Source: the members of IfcValue in the EXPRESS schemas of all eight releases, with their
/// underlying types and WHERE rules (a release lacks some, none has another rule); the quantities
/// with the WHERE rules of their entities (WR21, WR22). Units: the dimensions of IfcUnitEnum and
/// IfcDerivedUnitEnum in the documentation of IFC4 (IfcMeasureResource), where a derived unit such
/// as N/m2 has the dimension of a unit with a name.
constexpr std::array kTypes = std::to_array<ValueType>({
    {u"IfcAbsorbedDoseMeasure", Kind::Real, Range::Any, "ABSORBEDDOSEUNIT"},
    {u"IfcAccelerationMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcAmountOfSubstanceMeasure", Kind::Real, Range::Any, "AMOUNTOFSUBSTANCEUNIT"},
    {u"IfcAngularVelocityMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcAreaDensityMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcAreaMeasure", Kind::Real, Range::Any, "AREAUNIT"},
    {u"IfcBinary", Kind::Closed},
    {u"IfcBoolean", Kind::Truth, Range::Any, kNoSIUnit},
    {u"IfcComplexNumber", Kind::Closed},
    {u"IfcCompoundPlaneAngleMeasure", Kind::Closed},
    {u"IfcContextDependentMeasure", Kind::Real},
    {u"IfcCountMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcCurvatureMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcDate", Kind::Date, Range::Any, kNoSIUnit},
    {u"IfcDateTime", Kind::DateTime, Range::Any, kNoSIUnit},
    {u"IfcDescriptiveMeasure", Kind::Text},
    {u"IfcDoseEquivalentMeasure", Kind::Real, Range::Any, "DOSEEQUIVALENTUNIT"},
    {u"IfcDuration", Kind::Duration, Range::Any, kNoSIUnit},
    {u"IfcDynamicViscosityMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcElectricCapacitanceMeasure", Kind::Real, Range::Any, "ELECTRICCAPACITANCEUNIT"},
    {u"IfcElectricChargeMeasure", Kind::Real, Range::Any, "ELECTRICCHARGEUNIT"},
    {u"IfcElectricConductanceMeasure", Kind::Real, Range::Any, "ELECTRICCONDUCTANCEUNIT"},
    {u"IfcElectricCurrentMeasure", Kind::Real, Range::Any, "ELECTRICCURRENTUNIT"},
    {u"IfcElectricResistanceMeasure", Kind::Real, Range::Any, "ELECTRICRESISTANCEUNIT"},
    {u"IfcElectricVoltageMeasure", Kind::Real, Range::Any, "ELECTRICVOLTAGEUNIT"},
    {u"IfcEnergyMeasure", Kind::Real, Range::Any, "ENERGYUNIT"},
    {u"IfcForceMeasure", Kind::Real, Range::Any, "FORCEUNIT"},
    {u"IfcFrequencyMeasure", Kind::Real, Range::Any, "FREQUENCYUNIT"},
    {u"IfcHeatFluxDensityMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcHeatingValueMeasure", Kind::Real, Range::Positive, kNoSIUnit},
    {u"IfcIdentifier", Kind::Text},
    {u"IfcIlluminanceMeasure", Kind::Real, Range::Any, "ILLUMINANCEUNIT"},
    {u"IfcInductanceMeasure", Kind::Real, Range::Any, "INDUCTANCEUNIT"},
    {u"IfcInteger", Kind::Integer},
    {u"IfcIntegerCountRateMeasure", Kind::Integer, Range::Any, kNoSIUnit},
    {u"IfcIonConcentrationMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcIsothermalMoistureCapacityMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcKinematicViscosityMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcLabel", Kind::Text},
    {u"IfcLengthMeasure", Kind::Real, Range::Any, "LENGTHUNIT"},
    {u"IfcLinearForceMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcLinearMomentMeasure", Kind::Real, Range::Any, "FORCEUNIT"},  // N m/m
    {u"IfcLinearStiffnessMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcLinearVelocityMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcLogical", Kind::Logical, Range::Any, kNoSIUnit},
    {u"IfcLuminousFluxMeasure", Kind::Real, Range::Any, "LUMINOUSFLUXUNIT"},
    {u"IfcLuminousIntensityDistributionMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcLuminousIntensityMeasure", Kind::Real, Range::Any, "LUMINOUSINTENSITYUNIT"},
    {u"IfcMagneticFluxDensityMeasure", Kind::Real, Range::Any, "MAGNETICFLUXDENSITYUNIT"},
    {u"IfcMagneticFluxMeasure", Kind::Real, Range::Any, "MAGNETICFLUXUNIT"},
    {u"IfcMassDensityMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcMassFlowRateMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcMassMeasure", Kind::Real, Range::Any, "MASSUNIT"},
    {u"IfcMassPerLengthMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcModulusOfElasticityMeasure", Kind::Real, Range::Any, "PRESSUREUNIT"},
    {u"IfcModulusOfLinearSubgradeReactionMeasure", Kind::Real, Range::Any, "PRESSUREUNIT"},
    {u"IfcModulusOfRotationalSubgradeReactionMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcModulusOfSubgradeReactionMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcMoistureDiffusivityMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcMolecularWeightMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcMomentOfInertiaMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcMonetaryMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcNonNegativeLengthMeasure", Kind::Real, Range::NotNegative, "LENGTHUNIT"},
    {u"IfcNormalisedRatioMeasure", Kind::Real, Range::Ratio, kNoSIUnit},
    {u"IfcNumericMeasure", Kind::Real},
    {u"IfcParameterValue", Kind::Real},
    {u"IfcPHMeasure", Kind::Real, Range::PH, kNoSIUnit},
    {u"IfcPlanarForceMeasure", Kind::Real, Range::Any, "PRESSUREUNIT"},
    {u"IfcPlaneAngleMeasure", Kind::Real, Range::Any, "PLANEANGLEUNIT"},
    {u"IfcPositiveInteger", Kind::Integer, Range::Positive},
    {u"IfcPositiveLengthMeasure", Kind::Real, Range::Positive, "LENGTHUNIT"},
    {u"IfcPositivePlaneAngleMeasure", Kind::Real, Range::Positive, "PLANEANGLEUNIT"},
    {u"IfcPositiveRatioMeasure", Kind::Real, Range::Positive, kNoSIUnit},
    {u"IfcPowerMeasure", Kind::Real, Range::Any, "POWERUNIT"},
    {u"IfcPressureMeasure", Kind::Real, Range::Any, "PRESSUREUNIT"},
    {u"IfcQuantityArea", Kind::Real, Range::NotNegative, "AREAUNIT"},
    {u"IfcQuantityCount", Kind::Real, Range::NotNegative, kNoSIUnit},
    {u"IfcQuantityLength", Kind::Real, Range::NotNegative, "LENGTHUNIT"},
    {u"IfcQuantityNumber", Kind::Real},
    {u"IfcQuantityTime", Kind::Real, Range::NotNegative, "TIMEUNIT"},
    {u"IfcQuantityVolume", Kind::Real, Range::NotNegative, "VOLUMEUNIT"},
    {u"IfcQuantityWeight", Kind::Real, Range::NotNegative, "MASSUNIT"},
    {u"IfcRadioActivityMeasure", Kind::Real, Range::Any, "RADIOACTIVITYUNIT"},
    {u"IfcRatioMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcReal", Kind::Real},
    {u"IfcRotationalFrequencyMeasure", Kind::Real, Range::Any, "FREQUENCYUNIT"},
    {u"IfcRotationalMassMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcRotationalStiffnessMeasure", Kind::Real, Range::Any, "ENERGYUNIT"},  // N m/rad
    {u"IfcSectionalAreaIntegralMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcSectionModulusMeasure", Kind::Real, Range::Any, "VOLUMEUNIT"},
    {u"IfcShearModulusMeasure", Kind::Real, Range::Any, "PRESSUREUNIT"},
    {u"IfcSolidAngleMeasure", Kind::Real, Range::Any, "SOLIDANGLEUNIT"},
    {u"IfcSoundPowerLevelMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcSoundPowerMeasure", Kind::Real, Range::Any, "POWERUNIT"},
    {u"IfcSoundPressureLevelMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcSoundPressureMeasure", Kind::Real, Range::Any, "PRESSUREUNIT"},
    {u"IfcSpecificHeatCapacityMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcTemperatureGradientMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcTemperatureRateOfChangeMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcText", Kind::Text},
    {u"IfcThermalAdmittanceMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcThermalConductivityMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcThermalExpansionCoefficientMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcThermalResistanceMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcThermalTransmittanceMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcThermodynamicTemperatureMeasure", Kind::Real, Range::Any, "THERMODYNAMICTEMPERATUREUNIT"},
    {u"IfcTime", Kind::Time, Range::Any, kNoSIUnit},
    {u"IfcTimeMeasure", Kind::Real, Range::Any, "TIMEUNIT"},
    {u"IfcTimeStamp", Kind::Integer, Range::Any, "TIMEUNIT"},
    {u"IfcTorqueMeasure", Kind::Real, Range::Any, "ENERGYUNIT"},
    {u"IfcURIReference", Kind::Text},
    {u"IfcVaporPermeabilityMeasure", Kind::Real, Range::Any, "TIMEUNIT"},  // kg/(s m Pa)
    {u"IfcVolumeMeasure", Kind::Real, Range::Any, "VOLUMEUNIT"},
    {u"IfcVolumetricFlowRateMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcWarpingConstantMeasure", Kind::Real, Range::Any, kNoSIUnit},
    {u"IfcWarpingMomentMeasure", Kind::Real, Range::Any, kNoSIUnit},
});

constexpr std::u16string_view kQuantityPrefix = u"IfcQuantity";

constexpr char16_t lowered(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

constexpr bool isLess(std::u16string_view left, std::u16string_view right) {
    return std::lexicographical_compare(
        left.begin(), left.end(), right.begin(), right.end(),
        [](char16_t a, char16_t b) { return lowered(a) < lowered(b); });
}

constexpr bool areInOrder() {
    for (std::size_t at = 1; at < kTypes.size(); ++at)
        if (!isLess(kTypes[at - 1].name, kTypes[at].name))
            return false;
    return true;
}
static_assert(areInOrder(), "the look-up halves the list");

}  // namespace

const ValueType* findValueType(std::u16string_view name) {
    const auto found = std::lower_bound(kTypes.begin(), kTypes.end(), name,
                                        [](const ValueType& type, std::u16string_view wanted) {
                                            return isLess(type.name, wanted);
                                        });
    return found != kTypes.end() && !isLess(name, found->name) ? &*found : nullptr;
}

bool isQuantityType(std::u16string_view name) {
    const ValueType* const type = findValueType(name);
    return type && type->name.starts_with(kQuantityPrefix);
}

}  // namespace IFC
