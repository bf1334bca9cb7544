#include <gtest/gtest.h>

#include <set>

#include "platform/main_module.h"
#include "platform/whole_file.h"
#include "tests/standin/playground.h"

namespace {

using Events = std::vector<std::string>;

TEST(PluginLibrary, IsLoadedAHundredTimes) {
    Playground playground;
    standin::Host& host = playground.host();
    HostHandle last = 0;
    for (int round = 0; round < 100; ++round) {
        ASSERT_TRUE(host.loadPlugin(playground.pluginPath())) << host.error();
        const platform::DynamicLibrary library(playground.pluginPath());
        Recorder& plugin =
            *reinterpret_cast<Recorder* (*)()>(library.symbol("recorder_of_the_tests"))();
        ASSERT_EQ(plugin.events, Events()) << "the library was not released";
        ASSERT_NE(plugin.handle, last);
        last = plugin.handle;
        host.unloadPlugin();
        ASSERT_EQ(plugin.events, Events{"unload"});
    }
    EXPECT_EQ(host.pluginInfo().name, u"Recorder");
}

TEST(PluginLibrary, IsRefusedWhenItIsNone) {
    Playground playground;
    EXPECT_FALSE(playground.host().loadPlugin());
    EXPECT_FALSE(playground.host().error().empty());
    EXPECT_FALSE(playground.host().loadPlugin(playground.folder().write(u"a.so", "no library")));
    EXPECT_FALSE(playground.host().isPluginLoaded());
    EXPECT_FALSE(playground.host().requestChange(kHostAskEditProperty, u"", u"", u""));
}

TEST(Lacking, EachFunctionIsGoneForThePluginAndComesBack) {
#define CHECK_LACKING(name, result, arguments)                          \
    {                                                                   \
        standin::Faults faults;                                         \
        void* const before = platform::mainModuleSymbol(#name);         \
        EXPECT_TRUE(before) << #name;                                   \
        ASSERT_TRUE(faults.lack(#name)) << #name;                       \
        EXPECT_EQ(platform::mainModuleSymbol(#name), nullptr) << #name; \
        faults.clear();                                                 \
        EXPECT_EQ(platform::mainModuleSymbol(#name), before) << #name;  \
    }
    QUILLET_HOST_FUNCTIONS(CHECK_LACKING)
#undef CHECK_LACKING
    EXPECT_FALSE(standin::Faults().lack("no_such_function"));
}

TEST(Lacking, LeavesTheOthersWhereTheyAre) {
    standin::Faults faults;
    faults.lack("select");
    faults.lack("get_text");
#define CHECK_KEPT(name, result, arguments)                                                 \
    EXPECT_EQ(platform::mainModuleSymbol(#name) != nullptr,                                 \
              std::string_view(#name) != "select" && std::string_view(#name) != "get_text") \
        << #name;
    QUILLET_HOST_FUNCTIONS(CHECK_KEPT)
#undef CHECK_KEPT
}

TEST(Lacking, ThePluginFindsNullAndTheHostGoesOn) {
    Playground playground;
    ASSERT_TRUE(playground.host().faults().lack("on_save_ahx"));
    ASSERT_TRUE(playground.host().faults().lack("get_text"));
    Recorder& plugin = playground.plugin();
    EXPECT_FALSE(plugin.host.get_text);
    ASSERT_TRUE(playground.host().open({playground.house()}));
    ASSERT_TRUE(playground.host().save(playground.folder() / u"a.ahx"));
    EXPECT_EQ(plugin.events, (Events{"load", "loaded", "save"}));
}

TEST(Faults, CountsAndIdsAreFalse) {
    Playground playground;
    Recorder& plugin = playground.plugin();
    standin::Host& host = playground.host();
    ASSERT_TRUE(host.open({playground.house()}));
    host.select({playground.southWall().id});
    using standin::Fault;
    const std::pair<Fault, int> cases[] = {
        {Fault::Nothing, 0}, {Fault::Negative, -1}, {Fault::Wrong, 9}};
    for (const auto& [fault, count] : cases) {
        host.faults().set("get_selected", fault);
        EXPECT_EQ(plugin.host.get_selected(plugin.handle, nullptr, 0), count);
    }
    host.faults().set("get_project", Fault::Wrong);
    EXPECT_FALSE(host.objects().find(plugin.host.get_project(plugin.handle)));
    host.faults().set("get_language", Fault::Nothing);
    EXPECT_EQ(plugin.host.get_language(plugin.handle), nullptr);
    host.faults().clear();
    EXPECT_EQ(plugin.host.get_selected(plugin.handle, nullptr, 0), 1);
    EXPECT_TRUE(host.violations().empty());
    EXPECT_EQ(plugin.host.get_selected(plugin.handle + 1, nullptr, 0), 0);
    HostObjectInfo info{};
    EXPECT_FALSE(plugin.host.get_object_info(plugin.handle, 12345, &info));
    EXPECT_EQ(host.violations().size(), 2U);
}

TEST(Loans, EndWithTheNextCall) {
    if (!standin::LoanedTexts::keepsExpired())
        GTEST_SKIP() << "the sanitizer watches instead";
    Playground playground;
    Recorder& plugin = playground.plugin();
    ASSERT_TRUE(playground.host().open({playground.house()}));
    HostObjectInfo info{};
    ASSERT_TRUE(plugin.host.get_object_info(plugin.handle, playground.southWall().id, &info));
    EXPECT_EQ(std::u16string(info.name), u"South wall");
    plugin.host.invalidate(plugin.handle);
    // Kept for a while, so this is still memory of ours.
    EXPECT_EQ(info.name[0], char16_t{0xDDDD});
    EXPECT_EQ(static_cast<unsigned char>(info.guid[0]), standin::LoanedTexts::kPoison);
}

TEST(Objects, AreFoundFromTheirFileWhoeverTheirParentsAre) {
    // By number: 1 stands alone, 2 is part of 1, 3 and 4 are parts of each other and 5 of them, 6
    // is part of itself, 7 of nothing that there is.
    const std::pair<int, int> parents[] = {{1, 0}, {2, 1}, {3, 4}, {4, 3}, {5, 4}, {6, 6}, {7, 99}};
    standin::LoadedFile file;
    for (const auto& [number, parent] : parents) {
        auto object = std::make_unique<standin::Object>();
        object->instanceNumber = number;
        object->parentId = static_cast<HostObjectId>(parent);
        file.objects.push_back(std::move(object));
    }
    standin::Objects objects;
    objects.add(std::move(file));
    std::set<HostObjectId> found;
    std::vector<HostObjectId> waiting = objects.children(objects.files()[0].id);
    while (!waiting.empty()) {
        const HostObjectId id = waiting.back();
        waiting.pop_back();
        EXPECT_TRUE(found.insert(id).second) << "a second time";
        for (const HostObjectId child : objects.children(id))
            waiting.push_back(child);
    }
    EXPECT_EQ(found.size(), std::size(parents));
    EXPECT_EQ(objects.children(objects.all()[0]), std::vector{objects.all()[1]});
    EXPECT_EQ(objects.children(standin::Objects::kAllObjects).size(), 1U);
}

TEST(UndoList, ANewEntryCutsWhatCouldBeRedone) {
    Playground playground;
    Recorder& plugin = playground.plugin();
    standin::Host& host = playground.host();
    EXPECT_FALSE(host.undo());
    for (const char16_t* text : {u"a", u"b", u"c"})
        plugin.host.register_undo_action(plugin.handle, text);
    EXPECT_FALSE(host.redo());
    EXPECT_TRUE(host.undo());
    EXPECT_TRUE(host.undo());
    EXPECT_TRUE(host.redo());
    plugin.host.register_undo_action(plugin.handle, u"d");
    EXPECT_FALSE(host.redo());
    EXPECT_EQ(host.undoList().texts(), (std::vector<std::u16string>{u"a", u"b", u"d"}));
    host.forgetUndo();
    EXPECT_FALSE(host.undo());
    EXPECT_EQ(plugin.events, (Events{"undo 0", "undo 0", "undo 1", "undo 2"}));
}

TEST(Dialogs, AnswersGoToTheQuestionsTheyFit) {
    using standin::Dialogs;
    Dialogs dialogs;
    dialogs.answerMessage(Dialogs::kYes);
    EXPECT_EQ(dialogs.messageBox(u"Quillet", u"done", 64), Dialogs::kOk);
    EXPECT_EQ(dialogs.messageBox(u"Quillet", u"again?", 52), Dialogs::kYes);
    EXPECT_EQ(dialogs.unexpectedQuestions(), 0U);
    EXPECT_EQ(dialogs.messageBox(u"Quillet", u"again?", 52), Dialogs::kNo);
    EXPECT_EQ(dialogs.messageBox(u"Quillet", u"again?", 3), Dialogs::kCancel);
    EXPECT_FALSE(dialogs.saveDialog(false));
    EXPECT_EQ(dialogs.window("property", {}), std::nullopt);
    EXPECT_EQ(dialogs.unexpectedQuestions(), 4U);
    dialogs.answerMessage(Dialogs::kOk);  // no button of a yes-no question
    EXPECT_EQ(dialogs.messageBox(u"Quillet", u"again?", 4), Dialogs::kNo);
    EXPECT_EQ(dialogs.unusedAnswers(), 1U);
    EXPECT_EQ(dialogs.messages()[0], "Quillet|done");
}

TEST(Dialogs, WindowsAreAnsweredThroughTheHost) {
    Playground playground;
    Recorder& plugin = playground.plugin();
    playground.host().dialogs().answerWindow("property",
                                             standin::WindowFields{{"name", u"Gr\u00FC\u00DFe"}});
    const HostWindowField shown[] = {{"title", u"Add"}, {nullptr, nullptr}};
    const HostWindowField* const answer =
        plugin.host.answer_window(plugin.handle, "property", shown);
    ASSERT_TRUE(answer);
    EXPECT_STREQ(answer[0].key, "name");
    EXPECT_EQ(std::u16string(answer[0].value), u"Gr\u00FC\u00DFe");
    EXPECT_EQ(answer[1].key, nullptr);
    EXPECT_EQ(plugin.host.answer_window(plugin.handle, "property", shown), nullptr);
    EXPECT_EQ(playground.host().dialogs().shown()[0].fields,
              (standin::WindowFields{{"title", u"Add"}}));
}

TEST(Texts, AreFoundBesideThePluginAndByPath) {
    Playground playground;
    Recorder& plugin = playground.plugin();
    const auto load = [&](const std::u16string& name) {
        return plugin.host.load_texts(plugin.handle, name.c_str());
    };
    const auto text = [&](const char* key) {
        const char16_t* const found = plugin.host.get_text(plugin.handle, key);
        return found ? std::u16string(found) : u"(null)";
    };
    EXPECT_FALSE(load(u"lang.de"));
    platform::writeWholeFile(
        standin::joined(standin::folderOf(playground.pluginPath()), u"lang.de"),
        "\xEF\xBB\xBFyes=Ja\r\n# no=Nein\n\nsum=1+1=2\nlines=a\\nb \\\\ c\\d\nlast=ü");
    ASSERT_TRUE(load(u"lang.de"));
    EXPECT_EQ(text("yes"), u"Ja");
    EXPECT_EQ(text("no"), u"(null)");
    EXPECT_EQ(text("# no"), u"(null)");
    EXPECT_EQ(text("sum"), u"1+1=2");
    EXPECT_EQ(text("lines"), u"a\nb \\ c\\d");
    EXPECT_EQ(text("last"), u"\u00FC");
    ASSERT_TRUE(load(playground.folder().write(u"Texte.en", "yes=Yes")));
    EXPECT_EQ(text("yes"), u"Yes");
    EXPECT_EQ(text("last"), u"\u00FC");
    EXPECT_EQ(std::u16string(plugin.host.get_language(plugin.handle)), u"en");
}

TEST(RibbonItems, OnlyEnabledOnesAreClicked) {
    Playground playground;
    Recorder& plugin = playground.plugin();
    standin::Host& host = playground.host();
    static Recorder* clickedIn = nullptr;
    static HostButtonId clicked = 0;
    clickedIn = &plugin;
    const HostEventCallback onClick = [] {
        clicked = clickedIn->host.clicked_button(clickedIn->handle);
    };
    const auto& functions = plugin.host;
    const HostButtonId group = functions.create_group(plugin.handle, u"Group");
    const HostButtonId button =
        functions.create_small_button(plugin.handle, group, u"Export", u"", onClick);
    EXPECT_EQ(functions.create_small_button(plugin.handle, 999, u"Lost", u"", onClick), 0);
    EXPECT_TRUE(host.click(u"Export"));
    EXPECT_EQ(clicked, button);
    functions.enable_button(plugin.handle, button, false);
    EXPECT_FALSE(host.click(u"Export"));
    EXPECT_FALSE(host.click(u"Group"));
    plugin.react = [&](const std::string& event) {
        if (event == "menu")
            functions.add_context_button(plugin.handle, button);
    };
    for (int round = 0; round < 2; ++round)  // the menu is built anew each time
        EXPECT_EQ(host.openContextMenu(), std::vector<HostButtonId>{button});
    EXPECT_TRUE(host.violations().empty());
    functions.set_button_down(plugin.handle, 7, true);
    EXPECT_EQ(host.violations().size(), 1U);
}

}  // namespace
