#include "ifc/model/units.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <string>

#include "ifc/model/record_texts.h"

namespace IFC {
namespace {

struct PrefixRow {
    std::string_view name;
    std::u16string_view symbol;
    std::u16string_view labelName;
};

// Row index: IfcSIPrefix.
constexpr std::array<PrefixRow, kSIPrefixCount> kPrefixes{{
    {"EXA", u"E", u"Exa"},
    {"PETA", u"P", u"Peta"},
    {"TERA", u"T", u"Tera"},
    {"GIGA", u"G", u"Giga"},
    {"MEGA", u"M", u"Mega"},
    {"KILO", u"k", u"Kilo"},
    {"HECTO", u"h", u"Hecto"},
    {"DECA", u"da", u"Deca"},
    {"DECI", u"d", u"Deci"},
    {"CENTI", u"c", u"Centi"},
    {"MILLI", u"m", u"Milli"},
    {"MICRO", u"\u03BC", u"Micro"},  // Greek small mu, not the micro sign
    {"NANO", u"n", u"Nano"},
    {"PICO", u"p", u"Pico"},
    {"FEMTO", u"f", u"Femto"},
    {"ATTO", u"a", u"Atto"},
}};

struct UnitRow {
    std::string_view name;
    std::u16string_view symbol;
    std::u16string_view labelName;
    std::string_view type;
};

// Row index: IfcSIUnitName.
constexpr std::array<UnitRow, kSIUnitNameCount> kUnits{{
    {"AMPERE", u"A", u"Ampere", "ELECTRICCURRENTUNIT"},
    {"BECQUEREL", u"Bq", u"Becquerel", "RADIOACTIVITYUNIT"},
    {"CANDELA", u"cd", u"Candela", "LUMINOUSINTENSITYUNIT"},
    {"COULOMB", u"C", u"Coulomb", "ELECTRICCHARGEUNIT"},
    {"CUBIC_METRE", u"m3", u"CubicMetre", "VOLUMEUNIT"},
    {"DEGREE_CELSIUS", u"\u00B0C", u"DegreeCelsius", "THERMODYNAMICTEMPERATUREUNIT"},
    {"FARAD", u"F", u"Farad", "ELECTRICCAPACITANCEUNIT"},
    {"GRAM", u"g", u"Gram", "MASSUNIT"},
    {"GRAY", u"Gy", u"Gray", "ABSORBEDDOSEUNIT"},
    {"HENRY", u"H", u"Henry", "INDUCTANCEUNIT"},
    {"HERTZ", u"Hz", u"Hertz", "FREQUENCYUNIT"},
    {"JOULE", u"J", u"Joule", "ENERGYUNIT"},
    {"KELVIN", u"K", u"Kelvin", "THERMODYNAMICTEMPERATUREUNIT"},
    {"LUMEN", u"lm", u"Lumen", "LUMINOUSFLUXUNIT"},
    {"LUX", u"lx", u"Lux", "ILLUMINANCEUNIT"},
    {"METRE", u"m", u"Metre", "LENGTHUNIT"},
    {"MOLE", u"mo", u"Mole", "AMOUNTOFSUBSTANCEUNIT"},  // Kept: "mo", as users know the list.
    {"NEWTON", u"N", u"Newton", "FORCEUNIT"},
    {"OHM", u"\u03A9", u"Ohm", "ELECTRICRESISTANCEUNIT"},  // Greek capital omega
    {"PASCAL", u"Pa", u"Pascal", "PRESSUREUNIT"},
    {"RADIAN", u"rad", u"Radian", "PLANEANGLEUNIT"},
    {"SECOND", u"s", u"Second", "TIMEUNIT"},
    {"SIEMENS", u"S", u"Siemens", "ELECTRICCONDUCTANCEUNIT"},
    {"SIEVERT", u"Sv", u"Sievert", "DOSEEQUIVALENTUNIT"},
    {"SQUARE_METRE", u"m2", u"SquareMetre", "AREAUNIT"},
    {"STERADIAN", u"sr", u"Steradian", "SOLIDANGLEUNIT"},
    {"TESLA", u"T", u"Tesla", "MAGNETICFLUXDENSITYUNIT"},
    {"VOLT", u"V", u"Volt", "ELECTRICVOLTAGEUNIT"},
    {"WATT", u"W", u"Watt", "POWERUNIT"},
    {"WEBER", u"", u"", "MAGNETICFLUXUNIT"},
}};

constexpr std::string_view kAbsent = "$";

// The label table: groups without a prefix and with EXA to FEMTO, in each the units before WEBER.
constexpr std::size_t kLabelGroups = kSIPrefixCount;
constexpr std::size_t kLabelsPerGroup = kSIUnitNameCount - 1;
constexpr std::size_t kLabelCount = kLabelGroups * kLabelsPerGroup;

struct LabelText {
    std::array<char16_t, 32> units{};
    std::size_t length = 0;

    constexpr void append(std::u16string_view part) {
        for (const char16_t unit : part)
            units[length++] = unit;
    }
};

constexpr LabelText labelText(std::size_t index) {
    const std::size_t group = index / kLabelsPerGroup;
    const PrefixRow prefix = group == 0 ? PrefixRow{} : kPrefixes[group - 1];
    const UnitRow& unit = kUnits[index % kLabelsPerGroup];
    LabelText label;
    for (const std::u16string_view part :
         {prefix.symbol, unit.symbol, std::u16string_view(u" ("), prefix.labelName, unit.labelName,
          std::u16string_view(u")")})
        label.append(part);
    return label;
}

constexpr std::array<LabelText, kLabelCount> kLabelTexts = [] {
    std::array<LabelText, kLabelCount> all;
    for (std::size_t i = 0; i < kLabelCount; ++i)
        all[i] = labelText(i);
    return all;
}();

constexpr std::array<std::u16string_view, kLabelCount> kLabels = [] {
    std::array<std::u16string_view, kLabelCount> all;
    for (std::size_t i = 0; i < kLabelCount; ++i)
        all[i] = {kLabelTexts[i].units.data(), kLabelTexts[i].length};
    return all;
}();

/// The row of `index`, or null when there is none.
template <class Row, std::size_t count, class Index>
constexpr const Row* rowOf(const std::array<Row, count>& rows, Index index) {
    const auto position = static_cast<std::int32_t>(index);
    if (position < 0 || position >= static_cast<std::int32_t>(count))
        return nullptr;
    return &rows[static_cast<std::size_t>(position)];
}

/// The index of the row with that name, or `count`.
template <class Row, std::size_t count>
std::size_t indexOfName(const std::array<Row, count>& rows, std::u16string_view name) {
    const auto found = std::find_if(rows.begin(), rows.end(), [name](const Row& row) {
        return std::equal(
            row.name.begin(), row.name.end(), name.begin(), name.end(),
            [](char ascii, char16_t unit) { return static_cast<char16_t>(ascii) == unit; });
    });
    return static_cast<std::size_t>(found - rows.begin());
}

}  // namespace

std::string_view siPrefixName(IfcSIPrefix prefix, const ErrorCallback& errors) {
    if (const PrefixRow* row = rowOf(kPrefixes, prefix))
        return row->name;
    report(errors, "", texts::kUnknownSIPrefix);
    return {};
}

std::u16string_view siPrefixSymbol(IfcSIPrefix prefix, const ErrorCallback& errors) {
    if (const PrefixRow* row = rowOf(kPrefixes, prefix))
        return row->symbol;
    report(errors, "", texts::kUnknownSIPrefix);
    return {};
}

std::string_view siUnitName(IfcSIUnitName unit) {
    const UnitRow* row = rowOf(kUnits, unit);
    return row ? row->name : kAbsent;
}

std::u16string_view siUnitSymbol(IfcSIUnitName unit, const ErrorCallback& errors) {
    if (const UnitRow* row = rowOf(kUnits, unit))
        return row->symbol;
    report(errors, "", texts::kUnknownSIUnitName);
    return {};
}

std::string_view siUnitType(IfcSIUnitName unit) {
    const UnitRow* row = rowOf(kUnits, unit);
    return row ? row->type : kAbsent;
}

IfcSIPrefix GetIfcSIPrefixFromWstring(std::u16string_view name) {
    const std::size_t index = indexOfName(kPrefixes, name);
    if (index == kPrefixes.size())
        throw std::runtime_error(texts::kUnknownSIPrefixText);
    return static_cast<IfcSIPrefix>(index);
}

IfcSIUnitName GetIfcSIUnitNameFromWstring(std::u16string_view name) {
    const std::size_t index = indexOfName(kUnits, name);
    if (index == kUnits.size())
        throw std::runtime_error(texts::kUnknownSIUnitNameText);
    return static_cast<IfcSIUnitName>(index);
}

std::span<const std::u16string_view> siUnitLabels() { return kLabels; }

std::u16string_view siUnitLabel(const SIUnit& unit) {
    const std::size_t group = unit.prefix ? static_cast<std::size_t>(*unit.prefix) + 1 : 0;
    const auto place = static_cast<std::size_t>(unit.name);
    if (group >= kLabelGroups || place >= kLabelsPerGroup)
        return {};
    return kLabels[group * kLabelsPerGroup + place];
}

std::optional<SIUnit> siUnitFromLabel(std::u16string_view label) {
    const auto found = std::find(kLabels.begin(), kLabels.end(), label);
    if (found == kLabels.end())
        return std::nullopt;
    const auto index = static_cast<std::size_t>(found - kLabels.begin());
    SIUnit unit;
    unit.name = static_cast<IfcSIUnitName>(index % kLabelsPerGroup);
    if (index >= kLabelsPerGroup)
        unit.prefix = static_cast<IfcSIPrefix>(index / kLabelsPerGroup - 1);
    return unit;
}

namespace {

struct OtherSign {
    std::u16string_view written;
    std::u16string_view meant;
};
/// The same signs as other keyboards and programs write them.
constexpr OtherSign kOtherSigns[] = {
    {u"\u00B2", u"2"},        // superscripts
    {u"\u00B3", u"3"},        //
    {u"^", u""},              // m^2
    {u"\u00B5", u"\u03BC"},   // the micro sign
    {u"\u2126", u"\u03A9"},   // the ohm sign
    {u"\u2103", u"\u00B0C"},  // degree Celsius in one sign
    {u"\u212A", u"K"},        // the kelvin sign
};

constexpr std::u16string_view kBlanks = u" \t\u00A0\u2009\u202F";

std::u16string withUsualSigns(std::u16string_view text) {
    std::u16string usual;
    for (const char16_t sign : text) {
        const auto other =
            std::find_if(std::begin(kOtherSigns), std::end(kOtherSigns),
                         [sign](const OtherSign& each) { return each.written[0] == sign; });
        if (other != std::end(kOtherSigns))
            usual += other->meant;
        else if (kBlanks.find(sign) == std::u16string_view::npos)
            usual += sign;
    }
    return usual;
}

/// Upper case, without what parts words, and spelt as in the schemas.
std::string nameKey(std::u16string_view text) {
    std::string key;
    for (const char16_t sign : text) {
        if (sign == u'_')
            continue;
        const char byte = sign < 0x80 ? static_cast<char>(sign) : '?';
        key.push_back(byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte);
    }
    const auto respell = [&key](std::string_view other, std::string_view usual) {
        const std::size_t at = key.find(other);
        if (at != std::string::npos)
            key.replace(at, other.size(), usual);
    };
    respell("METER", "METRE");
    respell("DEGREESCELSIUS", "DEGREECELSIUS");
    return key;
}

bool isSymbolOf(std::size_t unit, std::u16string_view text) {
    const std::u16string_view symbol = kUnits[unit].symbol;
    const auto name = static_cast<IfcSIUnitName>(unit);
    return (!symbol.empty() && text == symbol) || (name == IfcSIUnitName::MOLE && text == u"mol") ||
           (name == IfcSIUnitName::WEBER && text == u"Wb");
}

/// The unit for which `isMeant(unit, rest)` holds, rest being the text without the prefix that
/// `lengthOf(prefix, text)` finds at its beginning.
template <class IsMeant, class Text, class LengthOf>
std::optional<SIUnit> unitWhere(const Text& text, IsMeant isMeant, LengthOf lengthOf) {
    for (std::size_t unit = 0; unit < kUnits.size(); ++unit)
        if (isMeant(unit, text))
            return SIUnit{.prefix = {}, .name = static_cast<IfcSIUnitName>(unit)};
    for (std::size_t prefix = 0; prefix < kPrefixes.size(); ++prefix) {
        const std::size_t length = lengthOf(kPrefixes[prefix], text);
        for (std::size_t unit = 0; length > 0 && unit < kUnits.size(); ++unit)
            if (isMeant(unit, Text(text.substr(length))))
                return SIUnit{.prefix = static_cast<IfcSIPrefix>(prefix),
                              .name = static_cast<IfcSIUnitName>(unit)};
    }
    return std::nullopt;
}

}  // namespace

std::optional<SIUnit> siUnitFromText(std::u16string_view text) {
    if (const auto unit = siUnitFromLabel(text))
        return unit;
    const std::u16string symbol = withUsualSigns(text);
    const auto bySymbol =
        unitWhere(symbol, isSymbolOf, [](const PrefixRow& prefix, const auto& in) {
            if (in.starts_with(prefix.symbol))
                return prefix.symbol.size();
            const bool isMicro = prefix.name == "MICRO" && in.starts_with(u"u");
            return static_cast<std::size_t>(isMicro);
        });
    if (bySymbol)
        return bySymbol;
    return unitWhere(
        nameKey(symbol),
        [](std::size_t unit, const std::string& name) {
            return nameKey(std::u16string(kUnits[unit].name.begin(), kUnits[unit].name.end())) ==
                   name;
        },
        [](const PrefixRow& prefix, const std::string& name) {
            return name.starts_with(prefix.name) ? prefix.name.size() : 0;
        });
}

}  // namespace IFC
