#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "ifc/io/error_callback.h"

/// SI units and prefixes: their names in STEP files, their symbols, and the labels under which
/// windows offer them. Names are ASCII, symbols and labels UTF-16. The returned views live as long
/// as the program.
namespace IFC {

/// From the largest to the smallest. Not the position in a release's enumeration: IFC4X3_ADD2 lists
/// them by name.
enum class IfcSIPrefix : std::int32_t {
    EXA,
    PETA,
    TERA,
    GIGA,
    MEGA,
    KILO,
    HECTO,
    DECA,
    DECI,
    CENTI,
    MILLI,
    MICRO,
    NANO,
    PICO,
    FEMTO,
    ATTO
};
inline constexpr int kSIPrefixCount = 16;

/// By name, which is the order in every release.
enum class IfcSIUnitName : std::int32_t {
    AMPERE,
    BECQUEREL,
    CANDELA,
    COULOMB,
    CUBIC_METRE,
    DEGREE_CELSIUS,
    FARAD,
    GRAM,
    GRAY,
    HENRY,
    HERTZ,
    JOULE,
    KELVIN,
    LUMEN,
    LUX,
    METRE,
    MOLE,
    NEWTON,
    OHM,
    PASCAL,
    RADIAN,
    SECOND,
    SIEMENS,
    SIEVERT,
    SQUARE_METRE,
    STERADIAN,
    TESLA,
    VOLT,
    WATT,
    WEBER
};
inline constexpr int kSIUnitNameCount = 30;

struct SIUnit {
    std::optional<IfcSIPrefix> prefix;
    IfcSIUnitName name = IfcSIUnitName::METRE;

    bool operator==(const SIUnit&) const = default;
};

/// "KILO". @return empty, and "Unknown IfcSIPrefix" is reported, for a value that is none of the
/// enumeration.
std::string_view siPrefixName(IfcSIPrefix prefix, const ErrorCallback& errors = {});

/// "k". Fails like siPrefixName.
std::u16string_view siPrefixSymbol(IfcSIPrefix prefix, const ErrorCallback& errors = {});

/// "CUBIC_METRE". @return "$", STEP's sign for an absent value, for a value that is none of the
/// enumeration.
std::string_view siUnitName(IfcSIUnitName unit);

/// "m3"; empty for WEBER, which has none. @return empty, and "Unknown IfcSIUnitName" is reported,
/// for a value that is none of the enumeration.
std::u16string_view siUnitSymbol(IfcSIUnitName unit, const ErrorCallback& errors = {});

/// Name of the unit type (IfcUnitEnum) that a unit measures, without dots: "VOLUMEUNIT" of
/// CUBIC_METRE.
/// @return "$" for a value that is none of the enumeration. Source: ISO 10303-41, si_unit and its
/// dimensions; IfcUnitEnum.
std::string_view siUnitType(IfcSIUnitName unit);

/// The prefix of that name ("KILO", exact case). Throws std::runtime_error when there is none.
IfcSIPrefix GetIfcSIPrefixFromWstring(std::u16string_view name);

/// The unit of that name ("METRE", exact case). Throws std::runtime_error when there is none.
IfcSIUnitName GetIfcSIUnitNameFromWstring(std::u16string_view name);

/// The 464 labels such as "kA (KiloAmpere)" in the order in which windows offer them: without a
/// prefix first, then by prefix. There is none with ATTO and none for WEBER: such units can be
/// stored, but not chosen.
std::span<const std::u16string_view> siUnitLabels();

/// @return empty when the unit is not offered for choice.
std::u16string_view siUnitLabel(const SIUnit& unit);

/// The unit whose label equals `label`.
std::optional<SIUnit> siUnitFromLabel(std::u16string_view label);

/// The unit that people mean by a text: one of the labels; a symbol, with an optional prefix ("mm",
/// "m2", "m\u00B2", "\u00B5m", "um", "mol"); or a name ("METRE", "MILLI METRE", "millimeter",
/// "square metre"). The case of symbols counts, that of names does not. A symbol without a prefix
/// comes first: "cd" is the candela.
std::optional<SIUnit> siUnitFromText(std::u16string_view text);

}  // namespace IFC
