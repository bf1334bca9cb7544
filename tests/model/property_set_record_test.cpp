#include "ifc/model/property_set_record.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/reports.h"

namespace {

using Texts = std::vector<std::string>;

constexpr std::u16string_view kGuid = u"0uNK6qhSj5RvPSUfVkbX1t";

IfcProperty property(std::u16string name, std::u16string value, std::int32_t state) {
    IfcProperty made;
    made.initialName = made.name = std::move(name);
    made.value = std::move(value);
    made.state = state;
    return made;
}

/// A rename, everything else left as it is.
IfcProperty rename(std::u16string initialName, std::u16string name) {
    IfcProperty made;
    made.initialName = std::move(initialName);
    made.name = std::move(name);
    return made;
}

IfcPropertySet setOf(std::initializer_list<IfcProperty> properties) {
    IfcPropertySet set(kGuid, u"Pset_A");
    for (const IfcProperty& each : properties)
        set.properties[each.name] = each;
    return set;
}

TEST(PropertySetRecord, NeedsAnIdentifier) {
    try {
        IfcPropertySet(u"", u"Pset_A");
        FAIL();
    } catch (const std::runtime_error& fault) {
        EXPECT_STREQ(fault.what(), "SetIdentifier can not be empty in IfcPropertySet constructor.");
    }
}

struct AddCase {
    const char* what;
    int policy;
    std::optional<bool> remembered;
    platform::MessageAnswer answer;
    std::size_t questions;
    bool replaced;
    std::optional<bool> rememberedAfter;
};

const AddCase kAddCases[] = {
    {"no", 4, {}, platform::MessageAnswer::No, 1, false, false},
    {"yes", 4, {}, platform::MessageAnswer::Yes, 1, true, true},
    {"other policy asks too", 2, {}, platform::MessageAnswer::No, 1, false, false},
    {"no, remembered", 4, false, platform::MessageAnswer::Yes, 0, false, false},
    {"yes, remembered", 4, true, platform::MessageAnswer::No, 0, true, true},
    {"policy replaces", 3, {}, platform::MessageAnswer::No, 0, true, true},
    {"policy goes before an answer", 3, false, platform::MessageAnswer::No, 0, true, true},
};

TEST(AddProperty, AsksOnceBeforeItReplaces) {
    for (const AddCase& each : kAddCases) {
        AnsweredMessages boxes(each.answer);
        IfcPropertySet set = setOf({property(u"A", u"old", kPropertyAdded)});
        AddPropertyOperation operation{each.policy, u"Replace?", each.remembered};
        EXPECT_EQ(set.AddProperty(property(u"A", u"new", kPropertyAdded), operation), each.replaced)
            << each.what;
        EXPECT_EQ(set.properties.at(u"A").value, each.replaced ? u"new" : u"old") << each.what;
        EXPECT_EQ(set.state == 0, !each.replaced) << each.what;
        EXPECT_EQ(boxes.entries, Texts(each.questions, "Quillet|Replace?")) << each.what;
        EXPECT_EQ(operation.replaceAnswer, each.rememberedAfter) << each.what;
    }
}

TEST(AddProperty, OverOneOfTheFileIsAnEditOfIt) {
    AddPropertyOperation replace{.addingPolicy = 3, .question = {}, .replaceAnswer = {}};
    for (const std::int32_t state : {kPropertyUnchanged, kPropertyEdited}) {
        IfcPropertySet set = setOf({rename(u"InFile", u"A")});
        set.properties.at(u"A").state = state;
        ASSERT_TRUE(set.AddProperty(property(u"A", u"new", kPropertyAdded), replace));
        EXPECT_EQ(set.properties.at(u"A").state, kPropertyEdited);
        EXPECT_EQ(set.properties.at(u"A").initialName, u"InFile");
    }
}

TEST(AddProperty, UnderTheNameOfADeletedOneStandsBesideTheMark) {
    AnsweredMessages boxes(platform::MessageAnswer::No);
    IfcPropertySet set = setOf({rename(u"InFile", u"A"), property(u"B", u"", kPropertyEdited)});
    ASSERT_TRUE(set.DeleteProperty(u"A"));
    AddPropertyOperation operation;
    ASSERT_TRUE(set.AddProperty(property(u"A", u"new", kPropertyAdded), operation));
    EXPECT_EQ(set.properties.at(u"A").state, kPropertyAdded);
    ASSERT_TRUE(set.DeleteProperty(u"A"));
    EXPECT_NE(set.EditProperty(rename(u"B", u"A")), nullptr);
    ASSERT_EQ(set.properties.size(), 2u);
    EXPECT_EQ(set.properties.at(u"A").state, kPropertyEdited);
    const IfcProperty& mark = set.properties.rbegin()->second;
    EXPECT_EQ(mark.state, kPropertyDeleted);
    EXPECT_EQ(mark.initialName, u"InFile");
    EXPECT_EQ(boxes.entries, Texts());
}

TEST(EditProperty, KeepsTheStateAndWhatIsLeftEmpty) {
    for (const std::int32_t state : {0, 1, 2, 3}) {
        IfcProperty old = property(u"A", u".T.", state);
        old.valueType = kTruthValue;
        old.entityName = u"IfcBoolean";
        old.quantityType = u"IfcQuantityWeight";
        old.prefix = u"KILO";
        old.unit = u"GRAM";
        IfcPropertySet set = setOf({old});

        IfcProperty expected = old;
        expected.name = u"B";
        if (state == kPropertyAdded)
            expected.initialName = u"B";  // the file knows no other
        ASSERT_TRUE(set.EditProperty(rename(u"A", u"B")));
        EXPECT_EQ(set.state, 2);
        EXPECT_EQ(set.properties.size(), 1u);
        EXPECT_EQ(set.properties.at(u"B"), expected);

        IfcProperty inGrams = rename(u"B", u"B");
        inGrams.unit = u"GRAM";
        ASSERT_TRUE(set.EditProperty(inGrams));
        EXPECT_EQ(set.properties.at(u"B").prefix, u"") << "kilo would falsify the new unit";
    }
}

struct PredecessorCase {
    const char* what;
    IfcProperty edit;
    std::u16string edited;  // name afterwards; empty: refused
    const char* message;
};

TEST(EditProperty, FindsWhatItReplacesByPresentOrInitialName) {
    const PredecessorCase cases[] = {
        {"by name", property(u"Kept", u"v", 0), u"Kept", nullptr},
        {"renamed before, by present name", property(u"Now", u"v", 0), u"Now", nullptr},
        {"renamed again", rename(u"Before", u"Later"), u"Later", nullptr},
        {"renamed back", rename(u"Before", u"Before"), u"Before", nullptr},
        {"renamed again, from its present name", rename(u"Now", u"Later"), u"Later", nullptr},
        {"to a name that is taken", rename(u"Before", u"Kept"), u"",
         "Quillet|IfcPropertySet::EditProperty: Property: Kept already exists in properties"},
        {"unknown", property(u"None", u"v", 0), u"",
         "Quillet|IfcPropertySet::EditProperty: IfcProperty not exists in properties"},
    };
    for (const PredecessorCase& each : cases) {
        AnsweredMessages boxes;
        IfcPropertySet set = setOf({property(u"Kept", u"1", 0), rename(u"Before", u"Now")});
        const auto before = set.properties;
        const IfcProperty* edited = set.EditProperty(each.edit);
        EXPECT_EQ(edited ? edited->name : u"", each.edited) << each.what;
        EXPECT_EQ(boxes.entries, each.message ? Texts{each.message} : Texts{}) << each.what;
        EXPECT_EQ(set.properties.size(), 2u) << each.what;
        if (edited) {
            EXPECT_EQ(edited->initialName, edited->name == u"Kept" ? u"Kept" : u"Before")
                << each.what;
        } else {
            EXPECT_EQ(set.properties, before) << each.what;
        }
    }
}

TEST(DeleteProperty, MarksWhatTheFileHasAndRemovesWhatWasAdded) {
    AnsweredMessages boxes;
    IfcPropertySet set =
        setOf({property(u"Added", u"", 1), property(u"Edited", u"", 2), property(u"Same", u"", 0)});
    EXPECT_TRUE(set.DeleteProperty(u"Added"));
    EXPECT_EQ(set.state, 5);
    EXPECT_FALSE(set.properties.contains(u"Added"));
    for (const char16_t* name : {u"Edited", u"Same"}) {
        EXPECT_TRUE(set.DeleteProperty(name));
        EXPECT_EQ(set.properties.at(name).state, 3);
    }
    EXPECT_TRUE(boxes.entries.empty());
    EXPECT_FALSE(set.DeleteProperty(u"Added"));
    EXPECT_EQ(set.state, 0);
    EXPECT_EQ(boxes.entries,
              Texts{"Quillet|IfcPropertySet::DeleteProperty: Property: Added not exists in "
                    "properties"});
}

}  // namespace
