#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>

#include "ifc/io/guid.h"
#include "ifc/io/numbers.h"
#include "ifc/io/paths.h"
#include "ifc/io/time_stamp.h"
#include "tests/support/reports.h"

namespace {

std::string stepReal(double value) {
    char text[IFC::kRealTextBytes];
    return {text, IFC::formatReal(text, value)};
}

TEST(FormatReal, SpellsRealsAsStepDoes) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    struct Spelling {
        double value;
        std::string_view text;
    };
    const Spelling spellings[] = {
        {0, "0."},
        {-0.0, "-0."},
        {1, "1."},
        {-17, "-17."},
        {0.1, "0.1"},
        {3.5e-2, "0.035"},
        {12.05, "12.05"},
        {999999999.999999, "999999999.999999"},
        {0.001, "0.001"},
        {123456789, "123456789."},
        {99999, "99999."},
        {120000, "120000."},
        {100000, "1.E5"},
        {1e-5, "1.E-5"},
        {-1.25e-7, "-1.25E-7"},
        {1.5e20, "1.5E20"},
        {1e22, "1.E22"},
        {5e-324, "5.E-324"},
        {1.7976931348623157e308, "1.7976931348623157E308"},
        {1e100, "1.E100"},
        {0.1 + 0.2, "0.30000000000000004"},
        {1.0 / 3, "0.3333333333333333"},
        {kInfinity, "inf"},
        {-kInfinity, "-1.7976931348623157E308"},
        {std::nan(""), "$"},
    };
    for (const auto& [value, text] : spellings)
        EXPECT_EQ(stepReal(value), text);
}

/// The digits of a number's text, without zeros at either end.
std::string digitsOf(std::string_view text) {
    std::string digits;
    for (const char c : text.substr(0, text.find_first_of("eE")))
        if (c >= '0' && c <= '9' && (c != '0' || !digits.empty()))
            digits.push_back(c);
    return digits.substr(0, digits.find_last_not_of('0') + 1);
}

TEST(FormatReal, ReadsBackAsTheSameDoubleAndIsTheShortestThatDoes) {
    std::mt19937_64 random(31);
    for (int i = 0; i < 90000; ++i) {
        double value = 0;
        switch (i % 3) {
            case 0: value = std::bit_cast<double>(random()); break;
            // The sizes that models have: decimals, and fractions of powers of two.
            case 1:
                value = static_cast<double>(static_cast<std::int64_t>(random()) >> random() % 50) /
                        std::pow(10., static_cast<double>(random() % 9));
                break;
            default:
                value = std::ldexp(static_cast<double>(random() >> 11),
                                   -static_cast<int>(random() % 60));
        }
        if (!std::isfinite(value))
            continue;
        const std::string text = stepReal(value);
        double back = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), back);
        ASSERT_TRUE(error == std::errc() && end == text.data() + text.size()) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(value)) << text;
        ASSERT_NE(text.find('.'), std::string::npos) << text;
        ASSERT_EQ(text.find_first_not_of("0123456789.E-"), std::string::npos) << text;
        char shortest[32];
        const char* const shortestEnd =
            std::to_chars(shortest, shortest + sizeof shortest, value).ptr;
        const std::string_view plain(shortest, static_cast<std::size_t>(shortestEnd - shortest));
        ASSERT_EQ(digitsOf(text), digitsOf(plain));
        ASSERT_EQ(text.find('E') == std::string::npos, plain.find('e') == std::string::npos)
            << text;
    }
}

TEST(ToReal, TakesWholeNumbersOnly) {
    struct Conversion {
        std::u16string_view text;
        std::optional<double> value;
    };
    const Conversion conversions[] = {
        {u"1.5", 1.5},      {u" \t-2. ", -2.0},  {u"+3", 3.0},     {u".5", 0.5},
        {u"1E-3", 0.001},   {u"1e+3", 1000.0},   {u"1e-400", 0.0}, {u"-0.0000001e-330", 0.0},
        {u"abc", {}},       {u"", {}},           {u" ", {}},       {u"1,5", {}},
        {u"1.5 m", {}},     {u"1.5.", {}},       {u"0x10", {}},    {u"inf", {}},
        {u"nan", {}},       {u"1e400", {}},      {u"+-1", {}},     {u"1\u0665", {}},
        {u"-9999e305", {}}, {u"0.0001e400", {}}, {u"1e", {}},
    };
    for (const auto& [text, value] : conversions) {
        AnsweredMessages messages;
        EXPECT_EQ(IFC::toReal(text), value.value_or(0)) << platform::toUtf8(text);
        std::vector<std::string> expected;
        if (!value)
            expected = {"Utils error|Unable to convert std::wstring to double. Returning 0."};
        EXPECT_EQ(messages.entries, expected) << platform::toUtf8(text);
    }
}

TEST(Guid, HasTheIfcForm) {
    platform::GuidBytes ones;
    ones.fill(0xFF);
    EXPECT_EQ(IFC::guidText({}), u"0000000000000000000000");
    EXPECT_EQ(IFC::guidText(ones), u"3$$$$$$$$$$$$$$$$$$$$$");
    // Digits by their values, from paper: 0x40... sets the second highest bit, 0x...41 the digits 1
    // and 1.
    platform::GuidBytes bits = {};
    bits[0] = 0x40;
    bits[15] = 0x41;
    EXPECT_EQ(IFC::guidText(bits), u"1000000000000000000011");
}

TEST(Guid, KeepsAll128Bits) {
    std::mt19937 random(22);
    for (int round = 0; round < 5000; ++round) {
        platform::GuidBytes bytes;
        for (auto& byte : bytes)
            byte = static_cast<std::uint8_t>(random());
        const std::u16string text = IFC::guidText(bytes);
        ASSERT_EQ(text.size(), 22u);
        ASSERT_LE(text[0], u'3');
        ASSERT_EQ(IFC::guidBytes(text), bytes);
    }
}

TEST(Guid, IsNoOtherText) {
    EXPECT_TRUE(IFC::guidBytes(u"2O2Fr$t4X7Zf8NOew3FLOH"));
    for (const std::u16string_view text :
         {u"", u"2O2Fr$t4X7Zf8NOew3FLO", u"2O2Fr$t4X7Zf8NOew3FLOHH", u"4O2Fr$t4X7Zf8NOew3FLOH",
          u"2O2Fr$t4X7Zf8NOew3FL-H", u"2O2Fr$t4X7Zf8NOew3FLO\u00C8"})
        EXPECT_FALSE(IFC::guidBytes(text)) << platform::toUtf8(text);
}

TEST(Guid, IsNewEachTimeOrTheUserIsTold) {
    AnsweredMessages messages;
    EXPECT_NE(IFC::newIfcGuid(), IFC::newIfcGuid());
    EXPECT_TRUE(IFC::guidBytes(IFC::newIfcGuid()));
    EXPECT_TRUE(messages.entries.empty());
    EXPECT_EQ(IFC::newIfcGuid(std::nullopt), u"");
    EXPECT_EQ(messages.entries,
              std::vector<std::string>{"Utils|CreateGUID function returned NULL"});
}

TEST(TimeStamp, FillsEachPartWithZeros) {
    std::tm time = {};
    time.tm_year = 124;
    time.tm_mon = 4;
    time.tm_mday = 3;
    time.tm_hour = 9;
    time.tm_min = 7;
    time.tm_sec = 5;
    EXPECT_EQ(IFC::timeStamp(time), u"2024-05-03T09:07:05");
    EXPECT_EQ(IFC::clockTime(time), u"09:07:05");
    EXPECT_EQ(IFC::logTimeStamp(time), u"2024-05-03    09:07:05");
}

TEST(Paths, AreSplitAndJoined) {
    struct PathCase {
        std::u16string_view path, extension, baseName, log;
    };
    const PathCase cases[] = {
        {u"/a/Model.IFC", u".ifc", u"Model", u"/a/Model_LOG"},
        {u"/a/model.ifcZIP", u".ifczip", u"model", u"/a/model_LOG"},
        {u"my.house.v2.ifc", u".ifc", u"my.house.v2", u"my.house.v2_LOG"},
        {u"/a/project.AHX|sub/Model.ifc", u".ahx", u"Model", u"/a/project_LOG"},
        {u"/a/project.ahx|Model.ifc", u".ahx", u"Model", u"/a/project_LOG"},
        {u"ahx|Model.ifc", u"ahx", u"Model", u"ahx_LOG"},
        {u"/a.b/model", u".b/model", u"model", u"/a.b/model_LOG"},
        {u"model", u"", u"model", u"model_LOG"},
        {u"", u"", u"", u"_LOG"},
        {u"/a/\u00C4.\u00C4B", u".\u00C4b", u"\u00C4", u"/a/\u00C4_LOG"},
    };
    for (const auto& [path, extension, baseName, log] : cases) {
        SCOPED_TRACE(platform::toUtf8(path));
        EXPECT_EQ(FileStream::extensionOf(path), extension);
        EXPECT_EQ(FileStream::baseNameOf(path), baseName);
        EXPECT_EQ(FileStream::withExtension(path, u"_LOG"), log);
    }
}

}  // namespace
