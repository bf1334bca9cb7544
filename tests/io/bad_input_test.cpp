// Damaged files, found and made: reading ends, says what is wrong, and what was read can be
// written.

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>

#include "platform/text.h"
#include "tests/support/shared_models.h"
#include "tests/support/step_model.h"

namespace {

/// Damaged files in which nothing is missed: what is wrong in them stands where the reader does not
/// look, or is text of any bytes inside a string.
const std::set<std::string> kNothingToReport = {
    "invalid/double_semicolon.ifc",       "invalid/header_extra_entity.ifc",
    "invalid/header_too_many_fields.ifc", "invalid/truncated_signature.ifc",
    "invalid/utf_encoding.ifc",           "invalid/vectorworks_sjis.ifc",
};

class BadInput : public testing::TestWithParam<std::string> {};

TEST_P(BadInput, IsReportedAndReadOver) {
    if (GetParam().empty())
        GTEST_SKIP() << "no sample models in " << sharedFolder();
    int reports = 0;
    IFC::ModelParser parser([&](const char*, const char16_t*, int) { ++reports; }, {});
    const bool loaded = parser.load((sharedFolder() / "models" / GetParam()).u16string());
    EXPECT_EQ(reports == 0, kNothingToReport.contains(GetParam()));
    if (!loaded)
        return;
    const std::string written = stepOf(*parser.model());
    ReadModel again(written);
    ASSERT_TRUE(again.loaded());
    EXPECT_TRUE(stepOf(again.model()) == written);
}

INSTANTIATE_TEST_SUITE_P(SharedModels, BadInput, testing::ValuesIn(sharedModels(true)),
                         [](const auto& model) { return testNameOf(model.param); });

/// A text with some of its bytes replaced, taken out, or put in again elsewhere.
std::string damaged(std::string text, std::mt19937& random) {
    constexpr std::string_view kBytes = "#=(),;'\"$*./\\_-+19EAX \n\xFF\x80";
    for (auto changes = 1 + random() % 5; changes > 0; --changes) {
        const std::size_t at = random() % text.size();
        switch (random() % 3) {
            case 0: text[at] = kBytes[random() % kBytes.size()]; break;
            case 1: text.erase(at, 1 + random() % 8); break;
            default: text.insert(random() % text.size(), text.substr(at, random() % 40)); break;
        }
    }
    return text;
}

TEST(BadInput, ReadsBackTheSameAfterAnyDamage) {
    const std::string whole = stepFile(
        "#1=IFCPERSON($,'It''s',$,('a','\\X2\\00E4\\X0\\'),$,$,(#3),$);\n"
        "#2=IFCPROPERTYSINGLEVALUE('p',$,IFCLENGTHMEASURE(1.5E2),#4);\n"
        "#3=IFCACTORROLE(.USERDEFINED.,'r',$);\n"
        "#4=IFCSIUNIT(*,.LENGTHUNIT.,.MILLI.,.METRE.);\n"
        "#5=IFCINDEXEDPOLYCURVE(#6,(IFCLINEINDEX((1,2)),IFCARCINDEX((2,3,4))),.F.);\n"
        "#6=IFCCARTESIANPOINTLIST3D(((0.,0.,0.),(1.,2.,3.)));\n"
        "#7=IFCTRIMMEDCURVE(#9,(#8,IFCPARAMETERVALUE(0.)),(IFCPARAMETERVALUE(1.)),.T.,.CARTESIAN.);"
        "\n"
        "#8=IFCCARTESIANPOINT((0.,0.));\n");
    std::mt19937 random(1);
    for (int round = 0; round < 300; ++round) {
        const std::string step = damaged(whole, random);
        ReadModel read(step);
        if (!read.loaded()) {
            EXPECT_NE(read.reports(), "") << step;
            continue;
        }
        const std::string written = stepOf(read.model());
        ReadModel again(written);
        ASSERT_TRUE(again.loaded()) << step;
        ASSERT_EQ(stepOf(again.model()), written) << step;
    }
}

}  // namespace
