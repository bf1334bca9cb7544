#include "edits/pending_edits.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "edits/edit_log.h"
#include "tests/support/reports.h"

namespace {

using namespace IFC;

const std::u16string kSetGuid = u"0uNK6qhSj5RvPSUfVkbX1t";

EditTarget target(std::u16string setGuid = kSetGuid, std::u16string setName = u"Pset_A") {
    EditTarget made;
    made.fileName = u"C:\\houses\\House.ifc";
    made.objectNumber = 412;
    made.objectId = 7;
    made.objectGuid = u"2O2Fr$t4X7Zf8NOew3FNr2";
    made.setName = std::move(setName);
    made.setGuid = std::move(setGuid);
    return made;
}

IfcProperty property(std::u16string name, std::u16string value = u"v") {
    IfcProperty made;
    made.initialName = made.name = std::move(name);
    made.value = std::move(value);
    return made;
}

IfcProperty rename(std::u16string initialName, std::u16string name) {
    IfcProperty made = property(std::move(initialName));
    made.name = std::move(name);
    return made;
}

const ObjectEdits& object(const PendingEdits& edits) {
    return edits.find(u"house.ifc")->objects.at(412);
}

TEST(FileNames, AreNormalisedOnEverySystem) {
    const std::pair<std::u16string_view, std::u16string_view> cases[] = {
        {u"model.ifc", u"model.ifc"},
        {u"/home/a b/model.ifc", u"model.ifc"},
        {u"C:\\x/y\\model.ifczip", u"model.ifczip"},
        {u"C:\\archive.ahx|folder/model.ifc", u"model.ifc"},
        {u"archive.ahx|model.ifc", u"model.ifc"},
        {u"folder\\", u"folder\\"},
    };
    for (const auto& [path, name] : cases)
        EXPECT_EQ(normalisedFileName(path), name);
}

TEST(FileNames, OfTwoLoadedFilesCanBeKeptApart) {
    PendingEdits edits;
    edits.open(u"/a/House.ifc").loggedAsCached = true;
    EXPECT_EQ(edits.find(u"/b/hOUSE.IFC"), edits.find(u"House.ifc"));
    edits.keepApart(u"\\a\\House.ifc");
    EXPECT_TRUE(edits.find(u"/A/house.ifc")->loggedAsCached) << "edits went with their file";
    EXPECT_EQ(edits.find(u"/b/House.ifc"), nullptr);
    EXPECT_EQ(edits.find(u"House.ifc"), nullptr);
}

TEST(PendingEdits, ASetOfTheModelHoldsWhatWasTouched) {
    PendingEdits edits;
    AddPropertyOperation operation;
    EXPECT_EQ(edits.addProperty(target(), property(u"New"), operation)->state, 3);
    EXPECT_EQ(edits.editProperty(target(), rename(u"Old", u"Renamed"))->state, 2);
    EXPECT_EQ(edits.editProperty(target(), rename(u"Old", u"Again"))->state, 2);
    EXPECT_EQ(edits.editProperty(target(), property(u"New", u"w"))->state, 2);
    IfcProperty gone;
    gone.name = u"Gone";
    EXPECT_EQ(edits.deleteProperty(target(), gone)->state, 2);

    ASSERT_EQ(object(edits).editedSets.size(), 1u);
    EXPECT_EQ(object(edits).objectId, 7u);
    EXPECT_EQ(edits.currentObjectNumber(), 412);
    const IfcPropertySet& set = *object(edits).editedSets[0];
    ASSERT_EQ(set.properties.size(), 3u);
    EXPECT_EQ(set.properties.at(u"New").state, kPropertyAdded);
    EXPECT_EQ(set.properties.at(u"New").value, u"w");
    EXPECT_EQ(set.properties.at(u"Again").state, kPropertyEdited);
    EXPECT_EQ(set.properties.at(u"Again").initialName, u"Old");
    EXPECT_EQ(set.properties.at(u"Gone").state, kPropertyDeleted);
    EXPECT_EQ(set.properties.at(u"Gone").initialName, u"Gone");

    EXPECT_EQ(edits.deleteProperty(target(), property(u"New"))->state, 5);
    EXPECT_FALSE(set.properties.contains(u"New"));
}

TEST(PendingEdits, AnUnchangedPropertyBecomesEdited) {
    PendingEdits edits;
    const auto set = std::make_shared<IfcPropertySet>(kSetGuid, u"Pset_A");
    set->properties[u"P"] = property(u"P");
    edits.open(u"House.ifc").objects[412].editedSets.push_back(set);
    EXPECT_EQ(edits.editProperty(target(), property(u"P", u"w")), set);
    EXPECT_EQ(set->properties.at(u"P").state, kPropertyEdited);
}

TEST(PendingEdits, ANewSetIsFoundByNameAndLeavesNothingWhenItGoes) {
    PendingEdits edits;
    IfcPropertySet set(kSetGuid, u"Pset_A");
    set.properties[u"P"] = property(u"P");
    EXPECT_EQ(edits.addPropertySet(target(), set)->state, 1);
    EXPECT_EQ(edits.addPropertySet(target(), set), nullptr) << "GUID is taken";
    AddPropertyOperation operation;
    EXPECT_EQ(edits.addProperty(target(u""), property(u"Q"), operation)->state, 4);
    EXPECT_EQ(edits.deleteProperty(target(u""), property(u"P"))->state, 5);
    EXPECT_EQ(edits.editPropertySet(target(u""), u"Pset_B")->name, u"Pset_B");
    EXPECT_EQ(edits.editProperty(target(u""), property(u"Q")), nullptr) << "has another name now";
    EXPECT_EQ(set.properties.size(), 1u) << "the caller's record is not the store's";
    EXPECT_EQ(edits.deletePropertySet(target())->state, 5);
    EXPECT_TRUE(object(edits).newSets.empty());
    EXPECT_TRUE(object(edits).deletedSets.empty());
}

TEST(PendingEdits, ASetMarkedForDeletionTakesNoEdits) {
    PendingEdits edits;
    edits.editProperty(target(), property(u"P"));
    EXPECT_EQ(edits.deletePropertySet(target())->SetIdentifier, kSetGuid);
    EXPECT_TRUE(object(edits).editedSets.empty());
    const PendingEdits before = edits;
    AddPropertyOperation operation;
    EXPECT_EQ(edits.addProperty(target(), property(u"Q"), operation), nullptr);
    EXPECT_EQ(edits.editProperty(target(), property(u"P")), nullptr);
    EXPECT_EQ(edits.deleteProperty(target(), property(u"P")), nullptr);
    EXPECT_EQ(edits.editPropertySet(target(), u"X"), nullptr);
    EXPECT_EQ(edits.deletePropertySet(target()), nullptr);
    EXPECT_EQ(edits.addPropertySet(target(), IfcPropertySet(kSetGuid, u"X")), nullptr);
    EXPECT_EQ(edits, before);
}

TEST(PendingEdits, DoNotGuessAmongSets) {
    PendingEdits edits;
    EXPECT_EQ(edits.editProperty(target(u""), property(u"P")), nullptr) << "not pending, no GUID";
    EXPECT_TRUE(edits.files().empty());
    edits.addPropertySet(target(), IfcPropertySet(u"1", u"Pset_A"));
    edits.addPropertySet(target(), IfcPropertySet(u"2", u"Pset_A"));
    EXPECT_EQ(edits.editPropertySet(target(u""), u"X"), nullptr) << "two sets of one name";
    EXPECT_EQ(edits.editPropertySet(target(u"2"), u"X")->SetIdentifier, u"2");
}

TEST(PendingEdits, SnapshotsBringBackEveryEarlierStore) {
    AnsweredMessages boxes(platform::MessageAnswer::No);
    for (unsigned seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const std::u16string names[] = {u"A", u"B", u"C"};
        const auto name = [&] { return names[random() % 3]; };
        PendingEdits edits;
        std::vector<std::pair<PendingEdits, std::string>> history;  // and what it held when taken
        for (int step = 0; step < 30; ++step) {
            history.emplace_back(edits, editLogText(edits));
            const EditTarget chosen = target(name(), name());
            AddPropertyOperation operation;
            std::shared_ptr<IfcPropertySet> set;
            switch (random() % 6) {
                case 0: set = edits.addProperty(chosen, property(name()), operation); break;
                case 1: set = edits.editProperty(chosen, rename(name(), name())); break;
                case 2: set = edits.deleteProperty(chosen, property(name())); break;
                case 3: set = edits.addPropertySet(chosen, IfcPropertySet(name(), u"n")); break;
                case 4: set = edits.editPropertySet(chosen, name()); break;
                default: set = edits.deletePropertySet(chosen);
            }
            if (set) {
                EXPECT_NE(set->state, 0);
            }
        }
        for (; !history.empty(); history.pop_back()) {
            edits = history.back().first;
            ASSERT_EQ(editLogText(edits), history.back().second);
        }
        EXPECT_EQ(edits, PendingEdits());
    }
}

}  // namespace
