#include "edits/edit_rules.h"

#include <gtest/gtest.h>

#include "platform/text.h"

namespace {

using namespace IFC;

const EditRules kEnglish = rulesFor("IFC4", u"en");
const EditRules kGerman = rulesFor("IFC4X3_ADD2", u"de");

/// What is made of an entry, as "result" or "! field: English words".
std::string shown(const Judged<std::u16string>& judged) {
    if (const auto* const refusal = std::get_if<Refusal>(&judged))
        return "! " + platform::toUtf8(wordsOf(*refusal));
    return platform::toUtf8(std::get<std::u16string>(judged));
}

TEST(EditRules, ReadValuesByTheirType) {
    const std::string kReal =
        ". Expected: a number with a point before its decimals, such as 1234.5";
    const struct {
        std::u16string type, text;
        std::string result;
        EditRules rules = kEnglish;
    } kCases[] = {
        {u"IfcLabel", u" 1,5\r\nx", " 1,5\r\nx"},
        {u"IfcReal", u"-1.5e3", "-1.5e3"},
        {u"IfcReal", u" 12\u00A0", "12"},
        {u"IfcReal", u"1,5", "! \"1,5\" is no IfcReal" + kReal},
        {u"IfcReal", u"", "! \"\" is no IfcReal" + kReal},
        {u"ifcreal", u"1e999", "! \"1e999\" is no IfcReal" + kReal},
        {u"IfcReal", u"1,5", "1.5", kGerman},
        {u"IfcReal", u"-0,125", "-0.125", kGerman},
        {u"IfcReal", u"1234,125", "1234.125", kGerman},
        {u"IfcReal", u"1,50e3", "1.50e3", kGerman},
        {u"IfcReal", u"1,234", "! \"1,234\" is no IfcReal" + kReal, kGerman},
        {u"IfcReal", u"1.234,5", "! \"1.234,5\" is no IfcReal" + kReal, kGerman},
        {u"IfcReal", u"1,2,3", "! \"1,2,3\" is no IfcReal" + kReal, kGerman},
        {u"IfcInteger", u"+9223372036854775807", "+9223372036854775807"},
        {u"IfcInteger", u"9223372036854775808",
         "! \"9223372036854775808\" is no IfcInteger. Expected: a whole number"},
        {u"IfcInteger", u"3.5", "! \"3.5\" is no IfcInteger. Expected: a whole number"},
        {u"IfcInteger", u"\uFF11", "! \"\uFF11\" is no IfcInteger. Expected: a whole number"},
        {u"IfcCountMeasure", u"12.5", "12.5"},
        {u"IfcCountMeasure", u"12.5", "! \"12.5\" is no IfcCountMeasure. Expected: a whole number",
         kGerman},
        {u"IfcQuantityCount", u"many", "! \"many\" is no IfcQuantityCount" + kReal},
        {u"IfcQuantityLength", u"-1",
         "! \"-1\" is no IfcQuantityLength. Expected: a number \u2265 0"},
        {u"IfcPositiveLengthMeasure", u"0",
         "! \"0\" is no IfcPositiveLengthMeasure. Expected: a number > 0"},
        {u"IfcNormalisedRatioMeasure", u"1", "1"},
        {u"IfcNormalisedRatioMeasure", u"1.01",
         "! \"1.01\" is no IfcNormalisedRatioMeasure. Expected: a number 0 \u2026 1"},
        {u"IfcPHMeasure", u"14.5", "! \"14.5\" is no IfcPHMeasure. Expected: a number 0 \u2026 14"},
        {u"IfcBoolean", u".T.", "1"},
        {u"IfcBoolean", u"no", "0"},
        {u"IfcBoolean", u"maybe",
         "! \"maybe\" is no IfcBoolean. Expected: yes or no (true or false)"},
        {u"IfcBoolean", u"unknown",
         "! \"unknown\" is no IfcBoolean. Expected: yes or no (true or false)"},
        {u"IfcLogical", u"U", "unknown"},
        {u"IfcDate", u"2024-02-29", "2024-02-29"},
        {u"IfcDate", u"2023-02-29",
         "! \"2023-02-29\" is no IfcDate. Expected (ISO 8601): YYYY-MM-DD, 2024-05-31"},
        {u"IfcDate", u"foo",
         "! \"foo\" is no IfcDate. Expected (ISO 8601): YYYY-MM-DD, 2024-05-31"},
        {u"IfcTime", u"24:00:00", "24:00:00"},
        {u"IfcTime", u"23:59:59.5+02:00", "23:59:59.5+02:00"},
        {u"IfcTime", u"24:00:01",
         "! \"24:00:01\" is no IfcTime. Expected (ISO 8601): hh:mm:ss, 14:30:00"},
        {u"IfcDateTime", u"2024-05-31T14:30:00Z", "2024-05-31T14:30:00Z"},
        {u"IfcDateTime", u"2024-05-31",
         "! \"2024-05-31\" is no IfcDateTime. Expected (ISO 8601): YYYY-MM-DDThh:mm:ss, "
         "2024-05-31T14:30:00"},
        {u"IfcDuration", u"P1Y2M10DT2H30M1.5S", "P1Y2M10DT2H30M1.5S"},
        {u"IfcDuration", u"P3W", "P3W"},
        {u"IfcDuration", u"P1DT",
         "! \"P1DT\" is no IfcDuration. Expected (ISO 8601): PnYnMnDTnHnMnS, P1DT2H30M"},
        {u"IfcDuration", u"P1D2Y",
         "! \"P1D2Y\" is no IfcDuration. Expected (ISO 8601): PnYnMnDTnHnMnS, P1DT2H30M"},
        {u"IfcBinary", u"0F", "! A value of type IfcBinary cannot be entered as text: \"0F\""},
        {u"IfcPropertySingleValue", u"1,5", "1,5"}};
    for (const auto& [type, text, result, rules] : kCases)
        EXPECT_EQ(shown(valueOf(text, type, kTextValue, rules)), result) << platform::toUtf8(type);
}

TEST(EditRules, ReadUnitsAsPeopleWriteThem) {
    const struct {
        std::u16string text;
        std::string names;
    } kCases[] = {
        {u"mm (MilliMetre)", "MILLI METRE"},
        {u"mm", "MILLI METRE"},
        {u"m\u00B2", "SQUARE_METRE"},
        {u"cm^3", "CENTI CUBIC_METRE"},
        {u"kg", "KILO GRAM"},
        {u"\u00B0C", "DEGREE_CELSIUS"},
        {u"cd", "CANDELA"},
        {u"\u00B5m", "MICRO METRE"},
        {u"uF", "MICRO FARAD"},
        {u"k\u2126", "KILO OHM"},
        {u"mmol", "MILLI MOLE"},
        {u"Wb", "WEBER"},
        {u"square meter", "SQUARE_METRE"},
        {u"MILLI METRE", "MILLI METRE"},
        {u"attometre", "ATTO METRE"},
        {u"kWh", "! \"kWh\" is no unit of the SI. Enter the value in MJ (1 kWh = 3.6 MJ)."},
        {u"mM",
         "! \"mM\" is no unit of the SI. Expected: one from the list, or a symbol "
         "such as mm, m2, kg"}};
    for (const auto& [text, names] : kCases) {
        const auto unit = unitOf(text);
        IfcProperty property;
        if (const auto* const meant = std::get_if<SIUnit>(&unit)) {
            setUnit(property, *meant);
            EXPECT_EQ(unitOf(property), *meant);
        }
        const auto* const refusal = std::get_if<Refusal>(&unit);
        EXPECT_EQ(
            platform::toUtf8(refusal ? wordsOf(*refusal)
                                     : property.prefix + (property.prefix.empty() ? u"" : u" ") +
                                           property.unit),
            refusal ? names.substr(2) : names);
    }
}

/// A property, as "name value unit type", and with "-" for what is cleared.
std::string shown(const IfcProperty& property) {
    const auto part = [](const std::u16string& text, bool isCleared) {
        return platform::toUtf8(text) + (isCleared ? "-|" : "|");
    };
    return part(property.name, false) + part(property.value, property.clearsValue) +
           part(property.prefix + property.unit, property.clearsUnit) +
           part(property.quantityType.empty() ? property.entityName : property.quantityType, false);
}

struct Entry {
    std::u16string name = {}, value = {}, prefix = {}, unit = {}, quantityType = {},
                   entityName = {};
    bool clearsValue = false, clearsUnit = false;

    IfcProperty record() const {
        IfcProperty property;
        property.name = name;
        property.value = value;
        property.quantityType = quantityType;
        property.entityName = entityName;
        property.prefix = prefix;
        property.unit = unit;
        property.clearsValue = clearsValue;
        property.clearsUnit = clearsUnit;
        return property;
    }
};

TEST(EditRules, KeepTypesAndUnitsOfEditedProperties) {
    const Entry kLength{u"Height", u"odd", u"", u"GRAM", u"", u"IfcLengthMeasure"};
    const Entry kArea{u"Area", u"2", u"", u"SQUARE_METRE", u"IfcQuantityArea", u"IfcQuantityArea"};
    const struct {
        Entry shown, entered;
        std::string result;
    } kCases[] = {
        {kLength, kLength, "same"},
        {kLength, {}, "same"},
        {kLength, {.name = u"Width"}, "Width|odd|GRAM|IfcLengthMeasure|"},
        {kLength, {.name = u"Taken"}, "! The set has a property of this name already: Taken"},
        {kLength, {.name = u"\t\u00A0"}, "! Enter a name for the property."},
        {kLength, {.value = u"2.5"}, "Height|2.5|GRAM|IfcLengthMeasure|"},
        {kLength,
         {.value = u"wide"},
         "! \"wide\" is no IfcLengthMeasure. Expected: a number with a point before its decimals, "
         "such as 1234.5"},
        {kLength, {.value = u"wide", .entityName = u"IfcLabel"}, "Height|wide|GRAM|IfcLabel|"},
        {kLength, {.clearsValue = true}, "Height|-|GRAM|IfcLengthMeasure|"},
        {kLength, {.clearsUnit = true}, "Height|odd|-|IfcLengthMeasure|"},
        {kLength,
         {.prefix = u"MILLI", .unit = u"METRE"},
         "Height|odd|MILLIMETRE|IfcLengthMeasure|"},
        {kLength,
         {.prefix = u"KILO", .unit = u"GRAM"},
         "! \"kg (KiloGram)\" does not measure IfcLengthMeasure. Expected: m (Metre), with any "
         "prefix"},
        {kLength,
         {.prefix = u"milli", .unit = u"METRE"},
         "! \"milli METRE\" is no unit of the SI. Expected: one from the list, or a symbol such as "
         "mm, m2, kg"},
        {kArea, {.clearsValue = true}, "! Enter a value. Area cannot be without one."},
        {kArea,
         {.quantityType = u"IfcQuantityCount"},
         "! IfcQuantityCount has no unit of the SI, and \"m2 (SquareMetre)\" does not measure it."},
        {kArea,
         {.quantityType = u"IfcQuantityCount", .clearsUnit = true},
         "Area|2|-|IfcQuantityCount|"},
        {kArea,
         {.quantityType = u"IfcQuantitySpeed"},
         "! This is no type of quantity: \"IfcQuantitySpeed\". Choose one from the list."}};
    for (const auto& [before, entered, result] : kCases) {
        const auto judged = nextForm(
            before.record(), entered.record(), [](auto name) { return name == u"Taken"; },
            kEnglish);
        std::string got = "same";
        if (const auto* const refusal = std::get_if<Refusal>(&judged))
            got = "! " + platform::toUtf8(wordsOf(*refusal));
        else if (const auto& next = std::get<0>(judged))
            got = shown(*next);
        EXPECT_EQ(got, result);
    }
}

TEST(EditRules, SayWhatANewPropertyIs) {
    const struct {
        Entry entered;
        std::string result;
    } kCases[] = {
        {{.name = u"A", .value = u"text"}, "A|text||| as 0"},
        {{.name = u"A"}, "A|||| as 0"},
        {{.name = u" ", .value = u"text"}, "! Enter a name for the property."},
        {{.name = u"A", .value = u"1.5", .unit = u"METRE"}, "A|1.5|METRE|| as 1"},
        {{.name = u"A", .value = u"x", .unit = u"METRE"},
         "! \"x\" is no IfcReal. Expected: a number with a point before its decimals, such as "
         "1234.5"},
        {{.name = u"A", .value = u"yes", .entityName = u"IfcBoolean"}, "A|1||IfcBoolean| as 2"},
        {{.name = u"A", .value = u"2", .unit = u"METRE", .quantityType = u"IfcQuantityArea"},
         "! \"m (Metre)\" does not measure IfcQuantityArea. Expected: m2 (SquareMetre), with any "
         "prefix"},
        {{.name = u"A", .quantityType = u"IfcQuantityArea"},
         "! Enter a value. A cannot be without one."}};
    for (const auto& [entered, result] : kCases) {
        const auto judged = newProperty(entered.record(), kEnglish);
        const auto* const refusal = std::get_if<Refusal>(&judged);
        const auto* const made = std::get_if<IfcProperty>(&judged);
        EXPECT_EQ(made ? shown(*made) + " as " + std::to_string(made->valueType)
                       : "! " + platform::toUtf8(wordsOf(*refusal)),
                  result);
    }
}

TEST(EditRules, EraseWhiteSignsAroundWhatWasEntered) {
    const struct {
        std::u16string entered, shown, kept;
    } kCases[] = {{u"  two words\r\n", u"", u"two words"},
                  {u"\u00A0\u3000x\u2028", u"", u"x"},
                  {u" \t", u"", u""},
                  {u" as shown ", u" as shown ", u" as shown "},
                  {u" changed ", u" as shown ", u"changed"}};
    for (const auto& [entered, before, kept] : kCases) {
        std::u16string text = entered;
        eraseWhiteSigns(text, before);
        EXPECT_EQ(text, kept);
    }
}

}  // namespace
