#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "edits/command.h"
#include "edits/command_history.h"
#include "edits/edit_log.h"
#include "edits/edit_many.h"
#include "tests/edits/fake_host.h"
#include "tests/support/reports.h"

namespace {

using namespace IFC;
using Texts = std::vector<std::string>;

IfcProperty property(std::u16string name, std::u16string value) {
    IfcProperty made;
    made.initialName = made.name = std::move(name);
    made.value = std::move(value);
    return made;
}

IfcProperty renamed(std::u16string from, std::u16string to) {
    IfcProperty made = property(std::move(to), u"");
    made.initialName = std::move(from);
    return made;
}

class Commands : public testing::Test {
protected:
    EditTarget target(std::u16string setGuid = u"g", std::u16string setName = u"Pset") {
        EditTarget made;
        made.fileName = u"/a/house.ifc";
        made.objectNumber = 12;
        made.objectId = 7;
        made.objectGuid = u"o";
        made.setName = std::move(setName);
        made.setGuid = std::move(setGuid);
        return made;
    }
    template <class Made, class... Arguments>
    std::unique_ptr<Command> make(Arguments... arguments) {
        return std::make_unique<Made>(session_, arguments...);
    }
    IfcPropertySet newSet() {
        IfcPropertySet set(u"n", u"New");
        set.properties.emplace(u"A", property(u"A", u"1"));
        return set;
    }

    FakeHost host_;
    EditSession session_{host_.calls};
};

struct CommandCase {
    std::string name;
    std::function<std::unique_ptr<Command>()> make;
    std::string displayText;
    // Each direction's calls; the first redo gets change 101, the undo 102, the second redo 103.
    Texts redo;
    Texts undo;
    Texts redoAgain;
};

TEST_F(Commands, TellTheHostAndGoBackToTheSnapshot) {
    const CommandCase cases[] = {
        {"add property",
         [&] { return make<AddPropertyCommand>(target(), property(u"P", u"v")); },
         "AddValueRow: P",
         {"change 0 #12 g/Pset/P [P=v] after 12", "save", "paint"},
         {"change 3 #12 g/Pset/P [P=v] after 101", "paint"},
         {"change 0 #12 g/Pset/P [P=v] after 102", "save", "paint"}},
        {"rename property",
         [&] {
             return make<EditPropertyCommand>(target(), property(u"P", u"v"), renamed(u"P", u"Q"));
         },
         "Edit property: P",
         {"change 4 #12 g/Pset/P [Q=v] after 0", "paint"},
         {"change 4 #12 g/Pset/Q [P=v] after 101", "paint"},
         {"change 4 #12 g/Pset/P [Q=v] after 102", "paint"}},
        {"delete property",
         [&] { return make<DeletePropertyCommand>(target(), property(u"P", u"v")); },
         "Delete property: P",
         {"change 3 #12 g/Pset/P [P=v] after 0", "paint"},
         {"change 2 #12 g/Pset/P [P=v] after 101", "paint"},
         {"change 3 #12 g/Pset/P [P=v] after 102", "paint"}},
        {"add set",
         [&] { return make<AddPropertySetCommand>(target(), newSet()); },
         "Add property set: New",
         {"change 1 #12 n/New [A=1] after 0", "paint"},
         {"change 3 #12 n/New after 101", "paint"},
         {"change 1 #12 n/New [A=1] after 102", "paint"}},
        {"rename set",
         [&] { return make<EditPropertySetCommand>(target(), std::u16string(u"X")); },
         "Edit set name: Pset",
         {"change 4 #12 g/Pset->X after 0", "save", "paint"},
         {"change 4 #12 g/X->Pset after 101", "save", "paint"},
         {"change 4 #12 g/Pset->X after 102", "save", "paint"}},
        {"delete set",
         [&] { return make<DeletePropertySetCommand>(target()); },
         "Delete property set: Pset",
         {"change 3 #12 g/Pset after 0", "paint"},
         {"change 1 #12 g/Pset after 101", "paint"},
         {"change 3 #12 g/Pset after 102", "paint"}},
    };
    for (const CommandCase& each : cases) {
        SCOPED_TRACE(each.name);
        host_.nextChange = 101;
        const std::string before = editLogText(session_.store);
        const auto command = each.make();
        EXPECT_EQ(platform::toUtf8(command->displayText()), each.displayText);
        EXPECT_TRUE(command->redo());
        EXPECT_EQ(host_.takeCalls(), each.redo);
        const std::string after = editLogText(session_.store);
        EXPECT_NE(after, before);
        session_.store.deletePropertySet(target(u"other"));  // whatever happens in between
        command->undo();
        EXPECT_EQ(host_.takeCalls(), each.undo);
        EXPECT_EQ(editLogText(session_.store), before);
        EXPECT_TRUE(command->redo());
        EXPECT_EQ(host_.takeCalls(), each.redoAgain);
        EXPECT_EQ(editLogText(session_.store), after);
        command->undo();
        host_.takeCalls();
    }
}

TEST_F(Commands, AddToAPendingSetWithAnotherCode) {
    make<AddPropertySetCommand>(target(), newSet())->redo();
    host_.takeCalls();
    EXPECT_TRUE(make<AddPropertyCommand>(target(u"n", u"New"), property(u"B", u"2"))->redo());
    EXPECT_EQ(host_.takeCalls()[0], "change 2 #12 n/New/B [B=2] after 12");
    for (const std::int32_t state : {-1, 0, 1, 2, 5})
        EXPECT_EQ(actionForAddedProperty(state), std::nullopt) << state;
    EXPECT_EQ(actionForAddedProperty(3), 0);
    EXPECT_EQ(actionForAddedProperty(4), 2);
}

TEST_F(Commands, UndoneAdditionBringsBackWhatItReplaced) {
    AnsweredMessages boxes(platform::MessageAnswer::Yes);
    make<AddPropertyCommand>(target(), property(u"P", u"old"))->redo();
    const auto second = make<AddPropertyCommand>(target(), property(u"P", u"new"));
    EXPECT_TRUE(second->redo());
    EXPECT_EQ(boxes.entries, Texts({"Quillet|<property_already_exists_update>"}));
    host_.takeCalls();
    second->undo();
    EXPECT_EQ(host_.takeCalls(), Texts({"change 3 #12 g/Pset/P [P=new] after 102",
                                        "change 2 #12 g/Pset/P [P=old] after 103", "paint"}));
    EXPECT_TRUE(second->redo());
    EXPECT_EQ(boxes.entries.size(), 1u) << "asked once, also when it is redone";
}

TEST_F(Commands, ThatCanNotBeDoneLeaveStoreAndHostAlone) {
    AnsweredMessages boxes;
    make<DeletePropertySetCommand>(target())->redo();
    host_.takeCalls();
    const PendingEdits before = session_.store;
    EditTarget noFile = target(u"h");
    noFile.fileName.clear();
    for (const auto& command :
         {make<AddPropertyCommand>(target(), property(u"P", u"v")),
          make<EditPropertyCommand>(target(), property(u"P", u"v"), property(u"P", u"w")),
          make<EditPropertyCommand>(noFile, property(u"P", u"v"), property(u"P", u"w")),
          make<DeletePropertyCommand>(target(), property(u"P", u"v")),
          make<EditPropertySetCommand>(target(), std::u16string(u"X")),
          make<DeletePropertySetCommand>(target())})
        EXPECT_FALSE(command->redo());
    EXPECT_EQ(host_.takeCalls(), Texts());
    EXPECT_EQ(session_.store, before);

    host_.refusesChanges = true;
    EXPECT_FALSE(make<EditPropertyCommand>(target(u"h"), property(u"P", u"v"), property(u"P", u"w"))
                     ->redo());
    EXPECT_EQ(session_.store, before) << "the display would show something else";
}

TEST_F(Commands, HistoryIsCutLimitedAndForgotten) {
    CommandHistory history(host_.calls);
    const auto add = [&](int number) {
        auto command = make<AddPropertyCommand>(
            target(), property(platform::fromUtf8("P" + std::to_string(number)), u"v"));
        EXPECT_TRUE(command->redo());
        const std::u16string text = command->displayText();
        history.record(std::move(command), text);
    };
    const auto count = [&] {
        const FileEdits* file = session_.store.find(u"house.ifc");
        return file ? file->objects.at(12).editedSets[0]->properties.size() : 0;
    };
    history.act(kHostUndo);
    history.act(kHostRedo);
    for (int number = 1; number <= 101; ++number)
        add(number);
    EXPECT_EQ(host_.noted.back(), "undo AddValueRow: P101");
    for (int step = 0; step < 105; ++step)
        history.act(kHostUndo);
    EXPECT_EQ(count(), 1u) << "the oldest can not be undone any more";
    for (int step = 0; step < 105; ++step)
        history.act(kHostRedo);
    EXPECT_EQ(count(), 101u);
    history.act(kHostUndo);
    history.act(kHostUndo);
    add(200);
    history.act(kHostRedo);
    EXPECT_EQ(count(), 100u) << "the undone ones are lost";
    history.act(7);
    history.act(kHostForget);
    history.act(kHostUndo);
    history.act(kHostRedo);
    EXPECT_EQ(count(), 100u);
}

// ---- many objects ----

class ManyObjects : public Commands {
protected:
    ManyObjects() {
        host_.files = {{1, u"/a/house.ifc"}};
        host_.objects = {{11, {1, "oA", 21, {}}}, {12, {1, "oB", 22, {}}}, {13, {2, "oC", 23, {}}}};
        session_.files.refresh(host_.calls, session_.store);
        host_.show(11, u"gA", u"Pset", u"P");
        host_.show(11, u"gA", u"Pset", u"Q");
        host_.show(12, u"gB", u"Other", u"P");
    }
    /// The changes that the host was told of, without new GUIDs and change ids.
    Texts changesOf(const ManyEdits& edits) {
        group_ = applyToMany(session_, {11, 12}, edits);
        return changes();
    }
    Texts changes() {
        Texts found;
        for (const std::string& call : host_.takeCalls())
            if (call.starts_with("change "))
                found.push_back(call.substr(7, 5) + call.substr(call.find('/')));
        for (std::string& call : found)
            call.resize(call.find(" after "));
        return found;
    }
    static ManyEdit edit(ManyEdit::Kind kind, std::u16string set, IfcProperty of = {}) {
        ManyEdit made;
        made.kind = kind;
        made.setName = std::move(set);
        made.property = std::move(of);
        return made;
    }

    std::unique_ptr<CommandGroup> group_;
};

TEST_F(ManyObjects, GetANewSetByThePolicy) {
    using Kind = ManyEdit::Kind;
    const std::pair<std::int32_t, Texts> cases[] = {
        {0, {"1 #22/Pset [P=1] [R=2]"}},
        {1, {"3 #21/Pset", "1 #21/Pset [P=1] [R=2]", "1 #22/Pset [P=1] [R=2]"}},
        {2, {"0 #21/Pset/R [R=2]", "1 #22/Pset [P=1] [R=2]"}},
        {3,
         {"3 #21/Pset/P [P=v]", "0 #21/Pset/P [P=1]", "0 #21/Pset/R [R=2]",
          "1 #22/Pset [P=1] [R=2]"}},
    };
    for (const auto& [policy, expected] : cases) {
        SCOPED_TRACE(policy);
        const std::string before = editLogText(session_.store);
        const ManyEdits edits{
            {edit(Kind::AddSet, u"Pset"), edit(Kind::AddProperty, u"Pset", property(u"P", u"1")),
             edit(Kind::AddProperty, u"Pset", property(u"R", u"2"))},
            policy};
        EXPECT_EQ(changesOf(edits), expected);
        group_->undo();
        EXPECT_EQ(editLogText(session_.store), before);
        EXPECT_EQ(changes().size(), expected.size());
    }
}

TEST_F(ManyObjects, AreEditedWhereTheyHaveTheSetAndUndoneBackwards) {
    using Kind = ManyEdit::Kind;
    ManyEdit rename = edit(Kind::RenameSet, u"Pset");
    rename.newSetName = u"X";
    const ManyEdits edits{{edit(Kind::EditProperty, u"Pset", renamed(u"P", u"P2")),
                           edit(Kind::DeleteProperty, u"Pset", property(u"Q", u"")), rename,
                           edit(Kind::AddProperty, u"X", property(u"N", u"1")),
                           edit(Kind::DeleteSet, u"Other")}};
    EXPECT_EQ(changesOf(edits), Texts({"4 #21/Pset/P [P2=v]", "3 #21/Pset/Q [Q=v]", "4 #21/Pset->X",
                                       "0 #21/X/N [N=1]", "3 #22/Other"}));
    const std::string after = editLogText(session_.store);
    group_->undo();
    EXPECT_EQ(session_.store.find(u"house.ifc"), nullptr);
    EXPECT_EQ(changes(), Texts({"1 #22/Other", "3 #21/X/N [N=1]", "4 #21/X->Pset",
                                "2 #21/Pset/Q [Q=v]", "4 #21/Pset/P2 [P=v]"}));
    EXPECT_TRUE(group_->redo());
    EXPECT_EQ(editLogText(session_.store), after);
}

TEST_F(ManyObjects, AreEditedAtTheirPlacesOnly) {
    using Kind = ManyEdit::Kind;
    host_.show(11, u"gA2", u"Pset", u"P");  // a second set of the name
    host_.show(12, u"gB2", u"Pset", u"P");
    const auto at = [](ManyEdit made, std::vector<ManyEditPlace> places) {
        made.places = std::move(places);
        return made;
    };
    const ManyEdits edits{
        {at(edit(Kind::EditProperty, u"Pset", property(u"P", u"1")), {{11, u"gA2"}, {12, u"gB2"}}),
         at(edit(Kind::EditProperty, u"Pset", property(u"P", u"2")), {{11, u"gA"}}),
         at(edit(Kind::AddSet, u"New"), {{12, {}}}),
         edit(Kind::DeleteProperty, u"Pset", property(u"Q", u""))}};
    EXPECT_EQ(changesOf(edits),
              Texts({"4 #21/Pset/P [P=1]", "4 #21/Pset/P [P=2]", "3 #21/Pset/Q [Q=v]",
                     "4 #22/Pset/P [P=1]", "1 #22/New [=]"}));
}

TEST_F(ManyObjects, OfFilesThatAreNotLoadedAreReported) {
    AnsweredMessages boxes;
    EXPECT_EQ(applyToMany(session_, {13}, {{edit(ManyEdit::Kind::AddSet, u"S")}}), nullptr);
    EXPECT_EQ(boxes.entries.size(), 1u);
}

}  // namespace
