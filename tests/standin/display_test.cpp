#include <gtest/gtest.h>

#include "standin/core/display_table.h"
#include "tests/standin/playground.h"

namespace {

constexpr const char16_t* kFinish = u"Finish";
constexpr const char16_t* kFinishGuid = u"3Y7o4ffsBDOsF6rx_3kcs9";

/// Sends requests for the south wall's sets as a plug-in would.
class Displays : public testing::Test {
protected:
    void SetUp() override {
        playground_.plugin();
        ASSERT_TRUE(playground_.host().open({playground_.house()}));
    }

    HostPropertyRequest request(int action, HostChangeId previous) {
        HostPropertyRequest request{};
        request.action = action;
        request.instanceNumber = 65;
        request.objectId = playground_.southWall().id;
        request.objectGuid = u"3aP0vaNNWm5LC0gJaDf$li";
        request.setName = setName;
        request.setGuid = setGuid;
        request.previousChange = previous;
        return request;
    }
    HostChangeId send(HostPropertyRequest request, const HostProperty* records, int count) {
        request.propertyCount = count;
        return playground_.plugin().host.add_del_or_change_property(playground_.plugin().handle,
                                                                    &request, records);
    }
    HostChangeId sendProperty(int action, const char16_t* name, const char16_t* value, int state,
                              HostChangeId previous = 0, const char16_t* initialName = nullptr) {
        HostProperty record{};
        record.name = name;
        record.initialName = initialName;
        record.value = value;
        record.entityName = u"IfcLabel";
        record.kind = kHostSingleValue;
        record.state = state;
        HostPropertyRequest asked = request(action, previous);
        asked.propertyName = initialName ? initialName : name;
        return send(asked, &record, 1);
    }
    HostChangeId sendSet(int action, HostChangeId previous = 0, const char16_t* newName = nullptr) {
        HostPropertyRequest asked = request(action, previous);
        asked.newSetName = newName;
        return send(asked, nullptr, 0);
    }

    /// The lines of the display below the set of that name.
    std::string rows(const std::string& set = "Finish") {
        const std::string table = standin::displayTable(playground_.southWall());
        const std::size_t at = table.find(" " + set + " (");
        if (at == std::string::npos)
            return "no set";
        std::string lines;
        for (std::size_t line = table.find('\n', at) + 1;
             line < table.size() &&
             table.substr(line, 6).find_last_not_of(" *+-") == std::string::npos;
             line = table.find('\n', line) + 1)
            lines += table.substr(line, table.find('\n', line) + 1 - line);
        return lines;
    }

    const std::vector<std::string>& violations() { return playground_.host().violations(); }

    Playground playground_;
    const char16_t* setName = kFinish;
    const char16_t* setGuid = kFinishGuid;
};

constexpr const char* kFinishAsRead =
    "      Supplier          = Baustoffe M\u00FCller & S\u00F6hne [IfcLabel]\n"
    "      Colour            = red, 'oxblood' [IfcLabel]\n"
    "      Plaster thickness = 15 [IfcPositiveLengthMeasure] MILLI METRE\n"
    "      Note              = \u5916\u58C1: check the joint at the south-west corner. [IfcText]\n";

TEST_F(Displays, ShowsWhatTheFileHolds) {
    EXPECT_EQ(rows(), kFinishAsRead);
    EXPECT_EQ(rows("Pset_WallCommon"),
              "      Reference            = W24 [IfcIdentifier]\n"
              "      LoadBearing          = 1 [IfcBoolean]\n"
              "      IsExternal           = 1 [IfcBoolean]\n"
              "      FireRating           = F 90 [IfcLabel]\n"
              "      ThermalTransmittance = 0.24 [IfcThermalTransmittanceMeasure]\n");
    const standin::Object& wall = playground_.southWall();
    EXPECT_EQ(playground_.host().objects().find(wall.parentId)->name, u"Ground floor");
}

TEST_F(Displays, AddedEditedAndRemovedPropertiesAreShownAndUndone) {
    const HostChangeId added = sendProperty(kHostAddToSet, u"Gloss", u"matt", kHostAdded, 65);
    ASSERT_NE(added, 0U);
    const HostChangeId edited =
        sendProperty(kHostChange, u"Farbe", u"blue", kHostEdited, 0, u"Colour");
    const HostChangeId removed = sendProperty(kHostRemove, u"Supplier", u"", kHostDeleted);
    EXPECT_EQ(rows(),
              "  *   Farbe             = blue [IfcLabel] (Colour)\n"
              "      Plaster thickness = 15 [IfcPositiveLengthMeasure] MILLI METRE\n"
              "      Note              = \u5916\u58C1: check the joint at the south-west corner. "
              "[IfcText]\n"
              "  +   Gloss             = matt [IfcLabel]\n");
    EXPECT_NE(sendProperty(kHostPutProperty, u"Supplier", u"Baustoffe M\u00FCller & S\u00F6hne",
                           kHostUnchanged, removed),
              0U);
    EXPECT_NE(
        sendProperty(kHostChange, u"Colour", u"red, 'oxblood'", kHostUnchanged, edited, u"Farbe"),
        0U);
    EXPECT_NE(sendProperty(kHostRemove, u"Gloss", u"", kHostAdded, added), 0U);
    EXPECT_EQ(rows(), kFinishAsRead);
    EXPECT_EQ(violations(), std::vector<std::string>());
}

TEST_F(Displays, ARemovedSetComesBackWhereItStoodWithItsRows) {
    const std::string before = standin::displayTable(playground_.southWall());
    const HostChangeId renamed = sendSet(kHostChange, 0, u"Coating");
    setName = u"Coating";
    EXPECT_EQ(rows("Coating"), kFinishAsRead);
    const HostChangeId removed = sendSet(kHostRemove, renamed);
    EXPECT_EQ(rows("Coating"), "no set");
    const HostChangeId back = sendSet(kHostPutSet, removed);
    EXPECT_NE(sendSet(kHostChange, back, kFinish), 0U);
    EXPECT_EQ(standin::displayTable(playground_.southWall()), before);
    EXPECT_EQ(violations(), std::vector<std::string>());
}

TEST_F(Displays, WhatIsNotThereCannotBeChanged) {
    EXPECT_EQ(sendProperty(kHostChange, u"Smell", u"none", kHostEdited), 0U);
    EXPECT_EQ(sendProperty(kHostRemove, u"Smell", u"", kHostDeleted), 0U);
    setGuid = u"0000000000000000000000";
    EXPECT_EQ(sendProperty(kHostAddToSet, u"Gloss", u"matt", kHostAdded), 0U);
    EXPECT_EQ(sendSet(kHostRemove), 0U);
    EXPECT_EQ(rows(), kFinishAsRead);
    EXPECT_FALSE(playground_.southWall().display.isChanged());
}

TEST_F(Displays, ForeignChangeIdsBreakARule) {
    const HostChangeId colour = sendProperty(kHostChange, u"Colour", u"blue", kHostEdited);
    EXPECT_TRUE(violations().empty());
    sendProperty(kHostChange, u"Colour", u"green", kHostEdited, colour);
    EXPECT_TRUE(violations().empty());
    sendProperty(kHostChange, u"Note", u"none", kHostEdited, colour);
    ASSERT_EQ(violations().size(), 1U);
    EXPECT_NE(violations()[0].find("never returned for this item"), std::string::npos);
    HostPropertyRequest other = request(kHostRemove, 0);
    other.instanceNumber = 77;
    send(other, nullptr, 0);
    EXPECT_EQ(violations().size(), 2U);
}

}  // namespace
