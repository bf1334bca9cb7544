#include "ifc/model/units.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/reports.h"

namespace {

using namespace IFC;

struct LabelCase {
    std::optional<IfcSIPrefix> prefix;
    IfcSIUnitName name;
    std::u16string_view label;  // empty: not offered
};

const LabelCase kLabelCases[] = {
    {std::nullopt, IfcSIUnitName::AMPERE, u"A (Ampere)"},
    {IfcSIPrefix::KILO, IfcSIUnitName::AMPERE, u"kA (KiloAmpere)"},
    {IfcSIPrefix::KILO, IfcSIUnitName::GRAM, u"kg (KiloGram)"},
    {IfcSIPrefix::MILLI, IfcSIUnitName::METRE, u"mm (MilliMetre)"},
    {IfcSIPrefix::DECA, IfcSIUnitName::MOLE, u"damo (DecaMole)"},
    {std::nullopt, IfcSIUnitName::SQUARE_METRE, u"m2 (SquareMetre)"},
    {IfcSIPrefix::MICRO, IfcSIUnitName::CUBIC_METRE, u"\x03BCm3 (MicroCubicMetre)"},
    {IfcSIPrefix::MICRO, IfcSIUnitName::DEGREE_CELSIUS,
     u"\x03BC\x00B0"
     u"C (MicroDegreeCelsius)"},
    {IfcSIPrefix::EXA, IfcSIUnitName::OHM, u"E\x03A9 (ExaOhm)"},
    {IfcSIPrefix::FEMTO, IfcSIUnitName::WATT, u"fW (FemtoWatt)"},
    {std::nullopt, IfcSIUnitName::WEBER, u""},
    {IfcSIPrefix::KILO, IfcSIUnitName::WEBER, u""},
    {IfcSIPrefix::ATTO, IfcSIUnitName::METRE, u""},
    {static_cast<IfcSIPrefix>(-2), IfcSIUnitName::METRE, u""},
    {std::nullopt, static_cast<IfcSIUnitName>(-1), u""},
};

TEST(UnitLabels, NameTheUnitBothWays) {
    for (const auto& [prefix, name, label] : kLabelCases) {
        const std::string shown = platform::toUtf8(label);
        EXPECT_EQ(siUnitLabel({prefix, name}), label) << shown;
        if (!label.empty()) {
            EXPECT_EQ(siUnitFromLabel(label), (SIUnit{prefix, name})) << shown;
        }
    }
    EXPECT_FALSE(siUnitFromLabel(u""));
    EXPECT_FALSE(siUnitFromLabel(u"Wb (Weber)"));
    EXPECT_FALSE(siUnitFromLabel(u"KG (KiloGram)"));
}

TEST(UnitLabels, AreOfferedByPrefixAndEachIsUnique) {
    const auto labels = siUnitLabels();
    ASSERT_EQ(labels.size(), 464u);
    EXPECT_EQ(labels.front(), u"A (Ampere)");
    EXPECT_EQ(labels[28], u"W (Watt)");
    EXPECT_EQ(labels[29], u"EA (ExaAmpere)");
    EXPECT_EQ(labels.back(), u"fW (FemtoWatt)");
    for (const std::u16string_view label : labels)
        EXPECT_EQ(siUnitLabel(siUnitFromLabel(label).value()), label);
}

TEST(UnitNames, AreLookedUpInExactCase) {
    EXPECT_EQ(GetIfcSIUnitNameFromWstring(u"WEBER"), static_cast<IfcSIUnitName>(29));
    EXPECT_EQ(GetIfcSIPrefixFromWstring(u"KILO"), static_cast<IfcSIPrefix>(5));
    const auto faultOf = [](auto lookUp, std::u16string_view name) -> std::string {
        try {
            lookUp(name);
        } catch (const std::runtime_error& fault) {
            return fault.what();
        }
        return {};
    };
    for (const std::u16string_view bad : {u"Kilo", u"", u"KIL", u"KILOS", u"METR", u"\u014BILO"}) {
        EXPECT_EQ(faultOf(GetIfcSIPrefixFromWstring, bad),
                  "Unknown enume name in function: GetIfcSIPrefixFromWstring");
        EXPECT_EQ(faultOf(GetIfcSIUnitNameFromWstring, bad),
                  "Unknown enume name in function: GetIfcSIUnitNameFromWstring");
    }
}

TEST(UnitNames, AreNeutralForAnUnknownIndex) {
    ErrorLog errors;
    for (const int index : {-1, 16}) {
        EXPECT_EQ(siPrefixName(static_cast<IfcSIPrefix>(index), errors.callback()), "");
        EXPECT_EQ(siPrefixSymbol(static_cast<IfcSIPrefix>(index), errors.callback()), u"");
    }
    for (const int index : {-1, 30}) {
        EXPECT_EQ(siUnitName(static_cast<IfcSIUnitName>(index)), "$");
        EXPECT_EQ(siUnitType(static_cast<IfcSIUnitName>(index)), "$");
        EXPECT_EQ(siUnitSymbol(static_cast<IfcSIUnitName>(index), errors.callback()), u"");
    }
    EXPECT_EQ(siUnitSymbol(IfcSIUnitName::WEBER, errors.callback()), u"");
    std::vector<std::string> expected(4, "|Unknown IfcSIPrefix");
    expected.insert(expected.end(), 2, "|Unknown IfcSIUnitName");
    EXPECT_EQ(errors.entries, expected);
}

/// The values of an enumeration as an EXPRESS file declares them.
std::vector<std::string> enumerationIn(const std::string& express, const std::string& name) {
    const std::size_t declaration = express.find("TYPE " + name + " = ENUMERATION OF");
    const std::size_t begin = express.find('(', declaration);
    std::vector<std::string> values(1);
    for (std::size_t at = begin + 1; express[at] != ')'; ++at) {
        if (express[at] == ',')
            values.emplace_back();
        else if (static_cast<unsigned char>(express[at]) > ' ')
            values.back() += express[at];
    }
    return values;
}

std::vector<std::string> sorted(std::vector<std::string> names) {
    std::sort(names.begin(), names.end());
    return names;
}

TEST(UnitNames, AgreeWithEveryRelease) {
    const std::string folder = std::string(QUILLET_SHARED_DIR) + "/schemas/";
    for (const char* release : {"IFC2X_FINAL", "IFC2X2_PLATFORM", "IFC2X2_FINAL", "IFC2X3", "IFC4",
                                "IFC4X1", "IFC4X2", "IFC4X3_ADD2"}) {
        std::ifstream file(folder + release + ".exp", std::ios::binary);
        if (!file)
            GTEST_SKIP() << "no schemas in " << folder;
        const std::string express{std::istreambuf_iterator<char>(file), {}};
        std::vector<std::string> prefixes, units;
        const auto typeList = enumerationIn(express, "IfcUnitEnum");
        const std::set<std::string, std::less<>> types(typeList.begin(), typeList.end());
        for (int i = 0; i < kSIPrefixCount; ++i)
            prefixes.emplace_back(siPrefixName(static_cast<IfcSIPrefix>(i)));
        for (int i = 0; i < kSIUnitNameCount; ++i) {
            units.emplace_back(siUnitName(static_cast<IfcSIUnitName>(i)));
            EXPECT_TRUE(types.contains(siUnitType(static_cast<IfcSIUnitName>(i)))) << units.back();
        }
        EXPECT_EQ(sorted(prefixes), sorted(enumerationIn(express, "IfcSIPrefix"))) << release;
        EXPECT_EQ(units, enumerationIn(express, "IfcSIUnitName")) << release;
    }
}

TEST(UnitTypes, BelongToTheirUnits) {
    EXPECT_EQ(siUnitType(IfcSIUnitName::METRE), "LENGTHUNIT");
    EXPECT_EQ(siUnitType(IfcSIUnitName::SQUARE_METRE), "AREAUNIT");
    EXPECT_EQ(siUnitType(IfcSIUnitName::CUBIC_METRE), "VOLUMEUNIT");
    EXPECT_EQ(siUnitType(IfcSIUnitName::GRAM), "MASSUNIT");
    EXPECT_EQ(siUnitType(IfcSIUnitName::SECOND), "TIMEUNIT");
}

}  // namespace
