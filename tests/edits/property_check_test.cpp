#include "edits/property_check.h"

#include <gtest/gtest.h>

#include "platform/text.h"

namespace {

TEST(EnteredProperty, HasAValueOfItsKind) {
    const struct {
        std::int32_t valueType;
        std::u16string quantityType, value;
        const char* problem;
    } kCases[] = {{kTextValue, u"", u"", nullptr},
                  {kTextValue, u"", u"1,5", nullptr},
                  {kRealValue, u"", u"-1.5e3", nullptr},
                  {kRealValue, u"", u"12", nullptr},
                  {kRealValue, u"", u"1,5", "value_is_no_number"},
                  {kRealValue, u"", u"1.5m", "value_is_no_number"},
                  {kRealValue, u"", u"1e999", "value_is_no_number"},
                  {kRealValue, u"", u"", "value_is_no_number"},
                  {kIntegerValue, u"", u"+12", nullptr},
                  {kIntegerValue, u"", u"-9223372036854775808", nullptr},
                  {kIntegerValue, u"", u"9223372036854775808", "value_is_no_integer"},
                  {kIntegerValue, u"", u"1.0", "value_is_no_integer"},
                  {kIntegerValue, u"", u"+-1", "value_is_no_integer"},
                  {kIntegerValue, u"", u"\uFF11", "value_is_no_integer"},
                  {kIntegerValue, u"", u"", "value_is_no_integer"},
                  {kTruthValue, u"", u"1", nullptr},
                  {kTruthValue, u"", u"0", nullptr},
                  {kTruthValue, u"", u"true", "value_is_no_truth_value"},
                  {kTextValue, u"IfcQuantityLength", u"2.5", nullptr},
                  {kTextValue, u"IfcQuantityLength", u"long", "value_is_no_number"},
                  {kRealValue, u"IfcQuantitySpeed", u"2.5", "unknown_quantity_type"}};
    for (const auto& [valueType, quantityType, value, problem] : kCases) {
        IfcProperty property;
        property.name = u"Width";
        property.valueType = valueType;
        property.quantityType = quantityType;
        property.value = value;
        EXPECT_STREQ(problemOf(property), problem)
            << valueType << " " << platform::toUtf8(quantityType + u" " + value);
    }
}

TEST(EnteredProperty, HasANameAndAUnitOfTheSI) {
    const struct {
        std::u16string name, prefix, unit;
        const char* problem;
    } kCases[] = {{u"Width", u"", u"METRE", nullptr},
                  {u"Width", u"MILLI", u"METRE", nullptr},
                  {u"Width", u"MILLI", u"", "unknown_unit"},
                  {u"Width", u"milli", u"METRE", "unknown_unit"},
                  {u"Width", u"", u"FOOT", "unknown_unit"},
                  {u"", u"", u"", "property_name_missing"},
                  {u"\t\u00A0 ", u"", u"", "property_name_missing"}};
    for (const auto& [name, prefix, unit, problem] : kCases) {
        IfcProperty property;
        property.name = name;
        property.prefix = prefix;
        property.unit = unit;
        EXPECT_STREQ(problemOf(property), problem) << platform::toUtf8(prefix + u" " + unit);
    }
}

TEST(WhiteSigns, AreErasedAroundWhatWasEntered) {
    const struct {
        std::u16string entered, shown, kept;
    } kCases[] = {{u"  two words\r\n", u"", u"two words"},
                  {u"\u00A0\u3000x\u2028", u"", u"x"},
                  {u" \t", u"", u""},
                  {u" as shown ", u" as shown ", u" as shown "},
                  {u" changed ", u" as shown ", u"changed"}};
    for (const auto& [entered, shown, kept] : kCases) {
        std::u16string text = entered;
        eraseWhiteSigns(text, shown);
        EXPECT_EQ(text, kept);
    }
}

}  // namespace
