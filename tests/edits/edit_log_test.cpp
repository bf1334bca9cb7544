#include "edits/edit_log.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/support/reports.h"

namespace {

using namespace IFC;
using Texts = std::vector<std::string>;

/// A well-formed log with one set; `attributes` and `children` go into it.
std::string logWithSet(const std::string& attributes, const std::string& children = "") {
    return "<File FileName=\"house.ifc\" IsCached=\"false\">\n<IfcPropertySet " + attributes +
           ">\n" + children + "</IfcPropertySet>\n</File>\n";
}

constexpr const char* kGoodSet = R"(Name="S" GUID="g" ObjectGUID="o" IfcId="1" Type="New")";

std::string propertyXml(const std::string& name, const std::string& value,
                        const std::string& attributes = R"(State="1" IsValueBool="0")") {
    return "<IfcProperty " + attributes + "><InitialName/><Name>" + name + "</Name><Value>" +
           value + "</Value></IfcProperty>\n";
}

const IfcPropertySet& onlyNewSet(const PendingEdits& edits) {
    return *edits.find(u"house.ifc")->objects.at(1).newSets.at(0);
}

TEST(EditLog, HoldsOneFragmentPerFile) {
    PendingEdits edits;
    edits.open(u"a.IFC");
    FileEdits& away = edits.open(u"D:\\old\\Away.ifc");
    away.loggedAsCached = true;
    ObjectEdits& wall = away.objects[12];
    wall.objectGuid = u"o";
    wall.deletedSets.push_back(std::make_shared<IfcPropertySet>(u"1", u"Del"));
    wall.newSets.push_back(std::make_shared<IfcPropertySet>(u"2", u"New"));
    wall.editedSets.push_back(std::make_shared<IfcPropertySet>(u"3", u"Ed"));
    const LoadedFile loaded[] = {{u"/z/Z.ifc", true}, {u"/a/A.ifc", false}};
    const std::string text = editLogText(edits, loaded);
    EXPECT_EQ(text,
              R"(<File FileName="Z.ifc" IsCached="true"/>
<File FileName="A.ifc" IsCached="false"/>
<File FileName="Away.ifc" IsCached="true">
    <IfcPropertySet Name="New" GUID="2" ObjectGUID="o" IfcId="12" Type="New"/>
    <IfcPropertySet Name="Ed" GUID="3" ObjectGUID="o" IfcId="12" Type="Edited"/>
    <IfcPropertySet Name="Del" GUID="1" ObjectGUID="o" IfcId="12" Type="Deleted"/>
</File>
)");
    ErrorLog errors;
    PendingEdits back;
    ASSERT_TRUE(readEditLog(text, back, errors.callback()));
    EXPECT_EQ(errors.entries, Texts());
    EXPECT_EQ(back.files().size(), 3u);
    EXPECT_EQ(*back.find(u"away.ifc"), away);
}

TEST(EditLog, KeepsTwoFilesOfOneNameApart) {
    const std::string text = R"(<File FileName="/a/h.ifc" IsCached="true"/>
<File FileName="/b/h.ifc" IsCached="false"/>
)";
    PendingEdits edits;
    ASSERT_TRUE(readEditLog(text, edits, {}));
    EXPECT_EQ(edits.find(u"h.ifc"), nullptr);
    EXPECT_TRUE(edits.find(u"\\a\\H.ifc")->loggedAsCached);
    EXPECT_EQ(editLogText(edits), text);
}

TEST(EditLog, TakesTextsAsXmlMeansThem) {
    PendingEdits edits;
    const std::string log = logWithSet(
        R"(Name="&lt;S&#x3e;" GUID='g' ObjectGUID="" IfcId=" +1" Type="New")",
        propertyXml("A", "a<!-- no -->b<![CDATA[<&]]>") + propertyXml("B", "&#32;&#13;\n ") +
            propertyXml("C", "", R"(State="3" IsValueBool="1")"));
    ASSERT_TRUE(readEditLog("\xEF\xBB\xBF" + log + '\0', edits, {}));
    const IfcPropertySet& set = onlyNewSet(edits);
    EXPECT_EQ(set.name, u"<S>");
    EXPECT_EQ(set.properties.at(u"A").value, u"ab<&");
    EXPECT_EQ(set.properties.at(u"B").value, u" \r\n ");
    EXPECT_EQ(set.properties.at(u"C").valueType, kTruthValue);
    EXPECT_EQ(set.properties.at(u"C").state, kPropertyDeleted);
    EXPECT_EQ(set.properties.at(u"C").unit, u"");
}

struct ProblemCase {
    std::string log;
    std::string report;  // empty: none
    std::size_t sets;    // read all the same
};

TEST(EditLog, ReportsProblemsAndGoesOn) {
    const std::string good = "</File>" + logWithSet(kGoodSet);
    const auto withBadSet = [&](const std::string& attributes) {
        return "<File FileName=\"house.ifc\">\n<IfcPropertySet " + attributes + "/>" + good;
    };
    const std::string notNumber = "invalid stoi argument (Data.xml, line 2)";
    const std::string tooBig = "stoi argument out of range (Data.xml, line 2)";
    const ProblemCase cases[] = {
        {withBadSet(R"(Name="S" GUID="h" IfcId="x" Type="New")"), notNumber, 1},
        {withBadSet(R"(Name="S" GUID="h" IfcId="12 " Type="New")"), notNumber, 1},
        {withBadSet(R"(Name="S" GUID="h" IfcId="+-1" Type="New")"), notNumber, 1},
        {withBadSet(R"(Name="S" GUID="h" Type="New")"), notNumber, 1},
        {withBadSet(R"(Name="S" GUID="h" IfcId="2147483648" Type="New")"), tooBig, 1},
        {withBadSet(R"(GUID="h" IfcId="1" Type="New")"),
         "Missing attribute: Name (Data.xml, line 2)", 1},
        {withBadSet(R"(Name="S" GUID="" IfcId="1" Type="New")"),
         "SetIdentifier can not be empty in IfcPropertySet constructor. (Data.xml, line 2)", 1},
        {withBadSet(R"(Name="S" GUID="h" ObjectGUID="o" IfcId="1" Type="Old")"),
         "Unknown type of set: S (Data.xml, line 2)", 1},
        {withBadSet(R"(Name="S" GUID="g" ObjectGUID="o" IfcId="1" Type="New")"),
         "Guid duplication of set: S (Data.xml, line 3)", 2},
        {logWithSet(kGoodSet, propertyXml("A", "1") + propertyXml("A", "2")),
         "Property duplication: A of set: S (Data.xml, line 4)", 1},
        {logWithSet(kGoodSet, propertyXml("A", "1", R"(State="4")")),
         "Unknown state of property: A (Data.xml, line 3)", 1},
        {logWithSet(kGoodSet, propertyXml("A", "1", R"(State="1" IsValueBool="no")")),
         "IsValueBool is neither 0 nor 1 of property: A (Data.xml, line 3)", 1},
        {logWithSet(kGoodSet, "<IfcProperty State='1'/>"),
         "Property without a name in set: S (Data.xml, line 3)", 1},
        {logWithSet(kGoodSet, "<Later/><Later/>"),
         "Not understood and not kept: Later (Data.xml, line 3)", 1},
        {logWithSet(kGoodSet + std::string(" Colour='red'")),
         "Not understood and not kept: Colour (Data.xml, line 2)", 1},
        {logWithSet(kGoodSet, propertyXml("A", "\xFF")),
         "Text that is not UTF-8; what cannot be read is replaced: Value (Data.xml, line 3)", 1},
        {"<File/>" + logWithSet(kGoodSet), "File element without a FileName (Data.xml, line 1)", 1},
        {withBadSet(R"(Name="S" GUID="h" ObjectGUID="p" IfcId="1" Type="New")"),
         "The object's GUID differs from an earlier one of the same IfcId; the earlier one is "
         "kept. Set: S (Data.xml, line 3)",
         2},
        {logWithSet(kGoodSet, propertyXml("A", "1</Value><Value>2")),
         "Not understood and not kept: Value (Data.xml, line 3)", 1},
        {"<!-- by -> hand > </File> -->\n" + logWithSet(kGoodSet), "", 1},
    };
    for (const ProblemCase& each : cases) {
        ErrorLog errors;
        PendingEdits edits;
        ASSERT_TRUE(readEditLog(each.log, edits, errors.callback())) << each.log;
        EXPECT_EQ(errors.entries, each.report.empty() ? Texts{} : Texts{"|" + each.report})
            << each.log;
        EXPECT_EQ(edits.find(u"house.ifc")->objects.at(1).newSets.size(), each.sets) << each.log;
    }
}

TEST(EditLog, KeepsTheLastOfTwoPropertiesOfOneName) {
    PendingEdits edits;
    ASSERT_TRUE(readEditLog(logWithSet(kGoodSet, propertyXml("A", "1") + propertyXml("A", "2")),
                            edits, {}));
    EXPECT_EQ(onlyNewSet(edits).properties.at(u"A").value, u"2");
}

TEST(EditLog, LeavesTheStoreAloneWhenTheTextIsNotXml) {
    const std::string good = logWithSet(kGoodSet);
    std::string deep, wide = good + "<File ";
    for (int i = 0; i < 100000; ++i) {
        deep += "<a>";
        wide += "a" + std::to_string(i) + "='' ";
    }
    const Texts broken = {good.substr(0, good.size() - 5),
                          good + "<File",
                          good + "<File FileName=x/>",
                          good + "</File>" + good,
                          deep,
                          wide + "/>",
                          good + '\0' + good,
                          logWithSet(kGoodSet, propertyXml("A", "a&#0;b")),
                          logWithSet("a='&#x110000;'"),
                          logWithSet(kGoodSet, "&#18446744073709551616;")};
    PendingEdits edits;
    ASSERT_TRUE(readEditLog(good, edits, {}));
    const PendingEdits before = edits;
    for (const std::string& text : broken) {
        ErrorLog errors;
        EXPECT_FALSE(readEditLog(text, edits, errors.callback(), u"my.ahx")) << text.substr(0, 400);
        ASSERT_EQ(errors.entries.size(), 1u);
        EXPECT_EQ(errors.entries[0].find("|on_model_load_v2: Parsing XML in AHX error: "), 0u);
        EXPECT_NE(errors.entries[0].find(" (my.ahx, line "), std::string::npos);
        EXPECT_EQ(edits, before);
    }
    EXPECT_TRUE(readEditLog(" \n", edits, {}));
    EXPECT_EQ(edits, PendingEdits()) << "an empty log is one without edits";
}

/// Stores that a log can hold: not a host object id, of the value type only whether it is a truth
/// value.
class RandomStore {
public:
    explicit RandomStore(unsigned seed) : random_(seed) {}

    PendingEdits make() {
        PendingEdits edits;
        for (unsigned files = below(3); files > 0; --files) {
            FileEdits& file = edits.open(text() + u"/f" + static_cast<char16_t>(random_() | 0x80));
            file.loggedAsCached = below(2) != 0;
            for (unsigned objects = below(3); objects > 0; --objects)
                fill(file.objects[static_cast<std::int32_t>(random_())]);
        }
        return edits;
    }

private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

    std::u16string text() {
        constexpr std::u16string_view kUnits = u"aZ \t\r\n<>&\"'\\X20;|/\u00E4\u4E00\x01\xFFFE";
        std::u16string made;
        for (unsigned count = below(8); count > 0; --count)
            made += below(8) == 0 ? static_cast<char16_t>(random_())
                                  : kUnits[below(static_cast<unsigned>(kUnits.size()))];
        return made;
    }

    void fill(ObjectEdits& object) {
        object.objectGuid = text();
        object.newSets.push_back(std::make_shared<IfcPropertySet>(set()));
        for (auto* sets : {&object.newSets, &object.editedSets, &object.deletedSets})
            for (unsigned count = below(3); count > 0; --count)
                sets->push_back(std::make_shared<IfcPropertySet>(set()));
    }

    IfcPropertySet set() {
        IfcPropertySet made(u"g" + text() + static_cast<char16_t>(u'0' + next_++), text());
        for (unsigned count = below(4); count > 0; --count) {
            const IfcProperty property{
                text(), text(), text(), below(2) ? kTruthValue : kTextValue, text(),
                text(), text(), text(), static_cast<std::int32_t>(below(4))};
            made.properties[property.name] = property;
        }
        return made;
    }

    std::mt19937 random_;
    unsigned next_ = 0;
};

TEST(EditLog, GivesBackEveryStore) {
    for (unsigned seed = 1; seed <= 500; ++seed) {
        const PendingEdits edits = RandomStore(seed).make();
        const std::string text = editLogText(edits);
        ErrorLog errors;
        PendingEdits back;
        ASSERT_TRUE(readEditLog(text, back, errors.callback())) << "seed " << seed << '\n' << text;
        ASSERT_EQ(errors.entries, Texts()) << "seed " << seed << '\n' << text;
        ASSERT_TRUE(back.files() == edits.files()) << "seed " << seed << '\n' << text;
    }
}

TEST(EditLog, SurvivesDamageAnywhere) {
    const std::string log =
        editLogText(RandomStore(4).make()) + logWithSet(kGoodSet, propertyXml("A", "1"));
    std::mt19937 random(1);
    for (int run = 0; run < 4000; ++run) {
        std::string damaged = log.substr(0, run % 2 ? log.size() : random() % log.size());
        for (int count = 0; count < run % 3 && !damaged.empty(); ++count)
            damaged[random() % damaged.size()] = "<>&\"'/=#;![-x\0\xFF"[random() % 15];
        ErrorLog errors;
        const auto once = rewrittenEditLog(damaged, errors.callback());
        EXPECT_TRUE(once || !errors.entries.empty());
        if (once) {
            ASSERT_EQ(rewrittenEditLog(*once, {}), once) << "run " << run;
        }
    }
}

}  // namespace
