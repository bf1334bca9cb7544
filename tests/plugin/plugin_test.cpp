#include "plugin/plugin.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/files.h"
#include "platform/text.h"
#include "tests/plugin/fake_host.h"
#include "tests/support/reports.h"
#include "tests/support/temp_folder.h"

namespace {

using Lines = std::vector<std::string>;

HostProperty row(const char16_t* setEntity, const char16_t* name, const char16_t* value,
                 std::int32_t kind = kHostSingleValue, std::int32_t valueType = kHostText) {
    HostProperty property{};
    property.setName = u"Pset_A";
    property.setGuid = u"1aP0vaNNWm5LC0gJaDf$li";
    property.setEntityName = setEntity;
    property.name = property.initialName = name;
    property.value = value;
    property.entityName = u"IfcLabel";
    property.quantityType = kind == kHostQuantity ? u"IfcQuantityLength" : u"";
    property.kind = kind;
    property.valueType = valueType;
    return property;
}

/// A plug-in that a host has loaded, with a wall selected that has one set of each kind of row.
class PluginTest : public testing::Test {
protected:
    PluginTest() {
        host.rows = {row(u"IfcPropertySet", u"Width", u"2", kHostSingleValue, kHostReal),
                     row(u"IfcPropertySet", u"Finish", u"plain"),
                     row(u"IfcPropertySet", u"Color", u"RED", kHostOtherProperty)};
    }

    void load() {
        plugin = std::make_unique<Plugin>(host.api, nullptr, folder / u"quillet.dll");
        plugin->load(FakeHost::kHandle, 0, 0);
        host.messages.clear();
    }
    void click(HostButtonId button) {
        host.clicked = button;
        host.clickedCallback();
    }
    void ask(HostChangeAction action, const char16_t* property, const char16_t* set = u"Pset_A") {
        const HostChangeRequest request{action, 0, set, nullptr, property};
        plugin->changeRequested(request, 0);
    }

    FakeHost host;
    const TempFolder folder;  // for its files
    std::unique_ptr<Plugin> plugin;
};

TEST_F(PluginTest, BuildsItsRibbonInOrder) {
    load();
    const Lines expected = {"create_group(<group.quillet>)=1",
                            "create_sub_button(1 <btn_edit> <btn_edit.hint>)=2",
                            "set_button_image 2 edit.ico",
                            "set_button_small_image 2 edit.ico",
                            "enable_button 2 on",
                            "create_small_button(0 <add_property_set> <add_property_set>)=3",
                            "add_button 2 3",
                            "set_button_image 3 add-property-to-many-objects-32.png",
                            "set_button_small_image 3 add-property-to-many-objects-16.png",
                            "enable_button 3 on",
                            "create_small_button(0 <edit_many> -)=4",
                            "add_button 2 4",
                            "set_button_image 4 add-property-to-many-objects-32.png",
                            "set_button_small_image 4 add-property-to-many-objects-16.png",
                            "enable_button 4 on",
                            "create_small_button(1 <btn_export> <btn_export.hint>)=5",
                            "set_button_image 5 save_active.png",
                            "set_button_small_image 5 save_active_small.png",
                            "enable_button 5 off",
                            "create_small_button(1 <open_recent_created_file_button_name> "
                            "<open_recent_created_file_button_description>)=6",
                            "set_button_image 6 open.png",
                            "set_button_small_image 6 open_small.png",
                            "enable_button 6 on",
                            "create_sub_button(1 <options> -)=7",
                            "set_button_image 7 options.ico",
                            "create_checkbox(0 <option_ignore_enume_errors> -)=8",
                            "add_button 7 8",
                            "set_button_down 8 on",
                            "create_checkbox(0 <option_erase_white_signs> -)=9",
                            "add_button 7 9",
                            "set_button_down 9 on"};
    EXPECT_EQ(host.ribbon, expected);
    EXPECT_EQ(host.loadedFiles, Lines{"lang.de"});
    host.ribbon.clear();
    host.contextMenuCallback();
    click(8);
    click(9);
    click(8);
    const Lines afterwards = {"add_context_button 3", "add_context_button 4",
                              "set_button_down 8 off", "set_button_down 9 off",
                              "set_button_down 8 on"};
    EXPECT_EQ(host.ribbon, afterwards);
}

TEST_F(PluginTest, RegistersForEventsInOrderAndSaysWhatItIs) {
    load();
    Lines expected;
#define QUILLET_NAME(name, result, arguments) expected.push_back(#name);
    QUILLET_HOST_EVENT_FUNCTIONS(QUILLET_NAME)
#undef QUILLET_NAME
    EXPECT_EQ(host.registered, expected);
    HostApiVersion version{};
    plugin->reportApiVersion(0, &version);
    EXPECT_EQ(version.major, 5);
    EXPECT_EQ(version.minor, 48);
    HostPluginInfo info{};
    plugin->fillPluginInfo(info);
    EXPECT_STREQ(platform::toUtf8(info.name).c_str(), "Quillet plugin");
    EXPECT_EQ(info.unused, nullptr);
    EXPECT_TRUE(std::u16string(info.dataFolder).ends_with(platform::pathSeparator()));
}

TEST_F(PluginTest, FallsBackToEnglishAndWarnsWithoutAnyLanguage) {
    host.missingFiles = {"lang.de", "lang.en"};
    plugin = std::make_unique<Plugin>(host.api);
    plugin->load(FakeHost::kHandle, 0, 0);
    EXPECT_EQ(host.loadedFiles, (Lines{"lang.de", "lang.en"}));
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_TRUE(host.messages[0].ends_with("|48"));
}

TEST_F(PluginTest, RunsWithAnyOneFunctionMissingAndWithNone) {
    const AnsweredMessages messages;
    host.answer(std::nullopt);
    const auto run = [this] {
        if (!host.api.answer_window)
            host.selected.clear();  // nobody would close a window of ours
        load();
        for (HostButtonId button = 0; button < 12; ++button)
            plugin->buttonClicked(button);
        plugin->contextMenuOpening();
        plugin->modelLoadedV2(0, 0, 0);
        for (const auto action : {kHostAskEditProperty, kHostAskDeleteProperty, kHostAskAddProperty,
                                  kHostAskDeleteSet, kHostAskRenameSet})
            ask(action, u"Width");
        for (const auto action : {kHostUndo, kHostRedo, kHostForget})
            plugin->undoRedoRequested(action);
        plugin->projectSavingV2(0, 0);
        plugin.reset();
    };
    const HostApi whole = host.api;
#define QUILLET_TAKE_AWAY(name, result, arguments) \
    host.api = whole;                              \
    host.selected = {FakeHost::kWall};             \
    host.api.name = nullptr;                       \
    run();
    QUILLET_HOST_FUNCTIONS(QUILLET_TAKE_AWAY)
#undef QUILLET_TAKE_AWAY
    host.api = HostApi();
    run();
}

TEST_F(PluginTest, RefusesWhatCannotBeChangedAndSaysWhy) {
    const auto predefined = row(u"IfcDoorLiningProperties", u"Width", u"2");
    auto withoutGuid = row(u"IfcPropertySet", u"Width", u"2");
    withoutGuid.setGuid = u"";
    const struct {
        HostChangeAction action;
        const char16_t *property, *set;
        std::vector<HostProperty> rows;  // empty: those of the fixture
        const char* message;
    } kCases[] = {
        {kHostAskAddProperty, nullptr, u"Pset_A", {}, "<UnableToAddProperty>"},
        {kHostAskAddProperty, u"", u"Pset_A", {}, "<UnableToAddProperty>"},
        {kHostAskEditProperty, u"Height", u"Pset_A", {}, "<UnableToEditProperty>\nHeight"},
        {kHostAskEditProperty, u"Width", u"Pset_B", {}, "<UnableToEditProperty>\nPset_B"},
        {kHostAskEditProperty, u"Color", u"Pset_A", {}, "<property_not_editable>\nColor"},
        {kHostAskDeleteProperty, u"Color", u"Pset_A", {}, "<property_not_editable>\nColor"},
        {kHostAskEditProperty,
         u"Width",
         u"Pset_A",
         {predefined},
         "<set_not_editable>\nIfcDoorLiningProperties"},
        {kHostAskDeleteSet,
         nullptr,
         u"Pset_A",
         {predefined},
         "<set_not_editable>\nIfcDoorLiningProperties"},
        {kHostAskDeleteSet,
         nullptr,
         u"Pset_A",
         {withoutGuid},
         "Property set GUID is not specified"},
        {kHostAskRenameSet,
         nullptr,
         u"Pset_A",
         {withoutGuid},
         "Property set GUID is not specified"},
        {kHostAskRenameSet, nullptr, u"Pset_B", {}, "<UnableToEditPropertySet>\nPset_B"}};
    const std::vector<HostProperty> usual = host.rows;
    host.answer(WindowFields{});
    load();
    for (const auto& [action, property, set, rows, message] : kCases) {
        host.rows = rows.empty() ? usual : rows;
        host.messages.clear();
        ask(action, property, set);
        EXPECT_EQ(host.messages, Lines{"Quillet Error|" + std::string(message) + "|16"});
    }
    host.rows = usual;
    host.messages.clear();
    host.entityName = u"IfcWallType";
    ask(kHostAskEditProperty, u"Width");
    host.entityName = u"IfcWall";
    host.instanceNumber = 0;
    ask(kHostAskEditProperty, u"Width");
    EXPECT_EQ(host.messages, (Lines{"Quillet Error|<type_object_not_editable>\nIfcWallType|16",
                                    "Quillet Error|<object_not_in_file>\nSouth wall|16"}));
    EXPECT_TRUE(host.windows.empty());
    EXPECT_TRUE(host.changes.empty());
    EXPECT_TRUE(host.undoList.empty());
}

TEST_F(PluginTest, NeedsTheRightSelection) {
    host.answer(std::nullopt);
    load();
    const std::vector<HostObjectId> none, two = {FakeHost::kWall, FakeHost::kWall + 1};
    for (const auto& selection : {none, two}) {
        host.selected = selection;
        ask(kHostAskEditProperty, u"Width");
        click(3);
        click(4);
    }
    const std::string one = "Quillet|<select_one_object>|64";
    const std::string missing = "Quillet|<no_object_selected_message>|64";
    EXPECT_EQ(host.messages, (Lines{one, missing, missing, one, one}));
    EXPECT_EQ(host.windows.size(), 1u) << "only many objects are edited together";
}

TEST_F(PluginTest, ChecksWhatWasEnteredBeforeItChangesAnything) {
    const struct {
        HostChangeAction action;
        WindowFields fields;
        const char* message;
    } kCases[] = {{kHostAskEditProperty, {{"value", u"wide"}}, "<value_is_no_number>\nWidth"},
                  {kHostAskEditProperty, {{"value", u""}}, "<value_is_no_number>\nWidth"},
                  {kHostAskEditProperty, {{"name", u" "}}, "<property_name_missing>"},
                  {kHostAskEditProperty, {{"name", u"Finish"}}, "<property_name_taken>\nFinish"},
                  {kHostAskEditProperty, {{"unit", u"FOOT"}}, "<unknown_unit>\nWidth"},
                  {kHostAskAddProperty, {{"name", u"Color"}}, "<property_not_editable>\nColor"},
                  {kHostAskAddProperty,
                   {{"name", u"Height"}, {"value", u"x"}, {"value-type", u"real"}},
                   "<value_is_no_number>\nHeight"},
                  {kHostAskRenameSet, {{"set", u"\t"}}, "<set_name_missing>"},
                  {kHostAskEditProperty,
                   {{"valu", u"2"}},
                   "The answer to this window is not understood: valu=2"}};
    host.answer(std::nullopt);
    load();
    ask(kHostAskEditProperty, u"Width");
    EXPECT_TRUE(host.messages.empty());  // cancelled
    for (const auto& [action, fields, message] : kCases) {
        host.answer(fields);
        host.messages.clear();
        ask(action, u"Width");
        EXPECT_EQ(host.messages, Lines{"Quillet Error|" + std::string(message) + "|16"});
    }
    EXPECT_TRUE(host.changes.empty());
}

TEST_F(PluginTest, MakesRecordsAndTakesBackWhatWasEntered) {
    host.answer(WindowFields{{"value", u" 3.5 "}});
    host.answer(WindowFields{{"name", u"Height"}, {"value", u"tall"}});
    host.answer(WindowFields{{"set", u" Pset_B "}});
    host.answer(WindowFields{{"set", u"Pset_C"}});
    load();
    ask(kHostAskEditProperty, u"Width");
    ask(kHostAskAddProperty, u"Width");
    ask(kHostAskRenameSet, nullptr);
    ask(kHostAskDeleteProperty, u"Finish");
    ask(kHostAskDeleteSet, nullptr);
    click(3);
    EXPECT_TRUE(host.messages.empty()) << host.messages[0];
    EXPECT_EQ(host.undoList, (Lines{"Edit property: Width", "AddValueRow: Height",
                                    "Edit set name: Pset_A", "Delete property: Finish",
                                    "Delete property set: Pset_A", "Add property set: Pset_C"}));
    EXPECT_GE(host.savesNeeded, 6);
    const Lines made = {"4 Pset_A.Width = Width 3.5",
                        "0 Pset_A.Height = Height tall",
                        "4 Pset_A -> Pset_B",
                        "3 Pset_A.Finish = Finish plain",
                        "3 Pset_A",
                        "1 Pset_C"};
    EXPECT_EQ(host.changes, made);
    host.changes.clear();
    for (int i = 0; i < 7; ++i)
        plugin->undoRedoRequested(kHostUndo);
    const Lines takenBack = {"3 Pset_C",
                             "1 Pset_A",
                             "2 Pset_A.Finish = Finish plain",
                             "4 Pset_B -> Pset_A",
                             "3 Pset_A.Height = Height tall",
                             "4 Pset_A.Width = Width 2"};
    EXPECT_EQ(host.changes, takenBack);
}

TEST_F(PluginTest, AsksBeforeAPropertyOfTheNameIsReplaced) {
    for (const char16_t* const button : {u"no", u"yes"}) {
        host.answer(WindowFields{{"name", u"Finish"}, {"value", u"rough"}});
        host.answer(WindowFields{{"button", button}});
    }
    load();
    ask(kHostAskAddProperty, u"Width");
    EXPECT_TRUE(host.changes.empty());
    ask(kHostAskAddProperty, u"Width");
    EXPECT_EQ(host.changes, Lines{"4 Pset_A.Finish = Finish rough"});
    ASSERT_EQ(host.windows.size(), 4u);
    EXPECT_EQ(host.windows[1],
              "message caption=Quillet text=<property_already_exists_update> buttons=yes-no");
}

TEST_F(PluginTest, SaysWhichContainerIsEdited) {
    host.answer(std::nullopt);
    host.entityName = u"IfcBuildingStorey";
    load();
    ask(kHostAskEditProperty, u"Width");
    EXPECT_EQ(host.windows,
              Lines{"property mode=edit-property title=<propertyWindowName> - IfcBuildingStorey "
                    "South wall set=Pset_A name=Width value=2 quantity-type= prefix= unit="});
}

TEST_F(PluginTest, LeavesNoHandlerBehind) {
    AnsweredMessages mine;
    host.answer(std::nullopt);
    load();
    platform::showMessageBox(u"first", u"caption");
    plugin.reset();
    EXPECT_EQ(cpp::PluginBase::current(), nullptr);
    platform::showMessageBox(u"second", u"caption");
    EXPECT_EQ(host.windows, Lines{"message caption=caption text=first buttons=ok"});
    EXPECT_EQ(mine.entries, Lines{"caption|second"});
}

TEST_F(PluginTest, TellsWhatAHandlerThrew) {
    AnsweredMessages messages;
    load();
    cpp::atHostBoundary(
        [](cpp::PluginBase&) { throw std::runtime_error("invalid stoi argument"); });
    cpp::atHostBoundary([](cpp::PluginBase&) { throw std::bad_alloc(); });
    EXPECT_EQ(cpp::atHostBoundary(5, [](cpp::PluginBase&) -> int { throw 1; }), 5);
    ASSERT_EQ(messages.entries.size(), 3u);
    EXPECT_EQ(messages.entries[0], "Quillet Error|invalid stoi argument");
    EXPECT_EQ(messages.entries[1],
              "Quillet Error|Not enough memory space. Try to run 64-bit Arvenhold");
}

}  // namespace
