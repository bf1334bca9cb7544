#include "standin/headless/script.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "tests/standin/playground.h"

namespace {

using standin::ScriptStatus;

/// What a script gives: its status, and below it what it printed and reported.
std::string ran(Playground& playground, std::string_view text) {
    std::string shown;
    const auto collect = [&](std::string_view line) { shown += line; };
    standin::Script script(playground.host(), collect, collect);
    const ScriptStatus status = script.run("test", text);
    return std::to_string(static_cast<int>(status)) + "\n" + shown;
}

/// The action that opens the sample.
std::string openHouse(Playground& playground) {
    std::string action = "open \"";
    for (const char byte : platform::toUtf8(playground.house()))
        action.append(byte == '\\' ? 2 : 1, byte);  // of a path on Windows
    return action + "\"\n";
}

TEST(Scripts, ShowAndExpect) {
    Playground playground;
    const std::string open = openHouse(playground);
    EXPECT_EQ(
        ran(playground, open + "select \"West wall\"  # the other one\n"
                               "show display\n"
                               "expect property #65 Finish Colour \"red, 'oxblood'\" unchanged\n"
                               "expect no-set \"West wall\" Finish\n"
                               "expect needs-save no\n"),
        "0\n"
        "#77 IfcWall 'West wall'\n"
        "    Pset_WallCommon (IfcPropertySet)\n"
        "      Reference            = W24 [IfcIdentifier]\n"
        "      LoadBearing          = 1 [IfcBoolean]\n"
        "      IsExternal           = 1 [IfcBoolean]\n"
        "      FireRating           = F 90 [IfcLabel]\n"
        "      ThermalTransmittance = 0.24 [IfcThermalTransmittanceMeasure]\n"
        "    Site log (IfcPropertySet)\n"
        "      Inspected = 2024-05-02 [IfcDate]\n"
        "      Defects   = 0 [IfcInteger]\n"
        "    Qto_WallBaseQuantities (IfcElementQuantity)\n"
        "      Length      = 4000 [IfcQuantityLength]\n"
        "      Height      = 2600 [IfcQuantityLength]\n"
        "      NetSideArea = 10.4 [IfcQuantityArea]\n"
        "      NetVolume   = 2.496 [IfcQuantityVolume]\n"
        "expectations held: 3, failed: 0\n");
    EXPECT_EQ(ran(playground, "expect property #65 Finish Colour blue\nexpect set #65 Finish\n"),
              "1\ntest:1: expected \"Colour\" = \"blue\", found \"Colour\" = \"red, 'oxblood'\"\n"
              "expectations held: 1, failed: 1\n");
}

TEST(Scripts, RequestsReachThePlugin) {
    Playground playground;
    Recorder& plugin = playground.plugin();
    EXPECT_EQ(
        ran(playground, openHouse(playground) + "select #65\nrequest edit Finish Colour\n"
                                                "request add Finish\nrequest rename-set Finish\n"),
        "0\nexpectations held: 0, failed: 0\n");
    EXPECT_EQ(plugin.events,
              (std::vector<std::string>{"load", "loaded", "selection", "request 0 Finish Colour",
                                        "request 2 Finish (null)", "request 4 Finish (null)"}));
    plugin.react = [&](const std::string& event) {
        if (event == "selection")
            plugin.host.write_ahx_v2(plugin.handle, "x", 1);
    };
    EXPECT_EQ(ran(playground, "\nselect #77\n"),
              "1\ntest:2: the plug-in broke a rule: write_ahx_v2 was called without an entry that "
              "was begun\nexpectations held: 0, failed: 1\n");
}

TEST(Scripts, ErrorsNameTheirLine) {
    const std::pair<std::string, std::string> cases[] = {
        {"\n\ndance\n", "test:3: there is no such action: dance"},
        {"open", "test:1: used as: open FILE..."},
        {"open nowhere.ifc", "test:1: nowhere.ifc cannot be read"},
        {"select \"Wall", "test:1: a quote is not closed"},
        {"select #65", "test:1: there is no such object: #65"},
        {"show display", "test:1: select one object first"},
        {"undo", "test:1: there is nothing to undo"},
        {"click Export", "test:1: nothing that can be clicked: Export"},
        {"lack dance", "test:1: the program exports no such function: dance"},
        {"answer message maybe", "test:1: \"maybe\" is none of: ok"},
        {"small-disk much", "test:1: is no number: much"},
        {"request edit Finish Colour", "test:1: no plug-in is loaded"},
    };
    for (const auto& [script, error] : cases) {
        Playground playground;
        EXPECT_EQ(ran(playground, script).substr(0, error.size() + 2), "2\n" + error);
    }
}

TEST(Scripts, HelpNamesEveryActionWithAnExampleThatFits) {
    const std::string help = standin::scriptHelp();
    for (const auto& actions :
         {standin::fileActions(), standin::userActions(), standin::answerActions(),
          standin::showActions(), standin::expectActions()})
        for (const standin::Action& action : actions) {
            EXPECT_NE(help.find("\n  " + std::string(action.name)), std::string::npos);
            const std::size_t words = standin::splitWords(action.example).size() -
                                      standin::splitWords(action.name).size();
            EXPECT_EQ(action.example.find(action.name), 0U);
            EXPECT_TRUE(words >= action.wordsAtLeast && words <= action.wordsAtMost)
                << action.example;
        }
}

}  // namespace
