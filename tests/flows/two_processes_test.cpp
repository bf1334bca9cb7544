// Two programs have one project open, and save and export it at the same time.

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>
#include <thread>

#include "platform/files.h"
#include "platform/text.h"
#include "tests/flows/flow_host.h"

namespace {

constexpr int kRounds = 15;

std::string inQuotes(const std::u16string& path) { return "\"" + platform::toUtf8(path) + "\""; }

/// A user who again and again changes the wall's colour, saves and exports.
std::string scriptOf(const TempFolder& folder, const std::string& user) {
    // In a script "\" stands before what is meant literally.
    const auto quoted = [&](std::u16string_view name) {
        std::string text = inQuotes(folder / name);
        for (std::size_t at = 0; (at = text.find('\\', at)) != text.npos; at += 2)
            text.insert(at, 1, '\\');
        return text;
    };
    const std::u16string plugin = u"plugins/quillet/" + platform::fromUtf8(QUILLET_PLUGIN_FILE);
    std::string script = "load " + quoted(plugin) + "\n";
    for (int round = 1; round <= kRounds; ++round)
        script += "open " + quoted(u"shared.ahx") +
                  "\n"
                  "select \"South wall\"\n"
                  "answer window property value=" +
                  user + std::to_string(round) +
                  "\n"
                  "request edit Finish Colour\n"
                  "save " +
                  quoted(u"shared.ahx") +
                  "\n"
                  "answer message yes\n"  // the file is to be replaced
                  "answer save " +
                  quoted(u"shared_edited.ifc") +
                  "\n"
                  "click Export\n"
                  "close\n";
    return script;
}

/// Runs the stand-in host in a process of its own; what it says goes to `output`. @return its exit
/// status.
int run(const std::u16string& script, const std::u16string& output) {
    std::string command =
        "\"" QUILLET_STANDIN_PROGRAM "\" " + inQuotes(script) + " >" + inQuotes(output) + " 2>&1";
    if (platform::pathSeparator() == u'\\')
        command = "\"" + command + "\"";  // this system's shell takes off the outermost quotes
    return std::system(command.c_str());
}

TEST(TwoProcesses, LeaveOneWholeProjectAndOneWholeExport) {
    FlowHost flow;
    ASSERT_TRUE(flow.start({platform::fromUtf8(QUILLET_SOURCE_DIR "/samples/sample_house.ifc")}));
    ASSERT_TRUE(flow.host().save(flow.folder() / u"shared.ahx")) << flow.host().error();
    ASSERT_TRUE(flow.exportTo(flow.folder() / u"shared_edited.ifc"));
    flow.host().close();

    const TempFolder logs;
    const auto runUser = [&](const std::u16string& user) {
        const std::u16string script =
            logs.write(user + u".txt", scriptOf(flow.folder(), platform::toUtf8(user)));
        EXPECT_EQ(run(script, logs / (user + u".log")), 0) << logs.read(user + u".log");
    };
    std::thread other([&] { runUser(u"second"); });
    runUser(u"first");
    other.join();

    const std::set<std::u16string> possible = {
        u"first" + platform::fromUtf8(std::to_string(kRounds)),
        u"second" + platform::fromUtf8(std::to_string(kRounds))};
    for (const char16_t* const name : {u"shared.ahx", u"shared_edited.ifc"}) {
        ASSERT_TRUE(flow.reopen({flow.folder() / name})) << flow.host().error();
        const standin::Object* wall = nullptr;
        for (const standin::Object* const object : flow.editableObjects())
            if (object->name == u"South wall")
                wall = object;
        ASSERT_TRUE(wall);
        const standin::DisplayedSet* const set = wall->display.findSet({}, u"Finish");
        ASSERT_TRUE(set);
        std::u16string colour;
        for (const standin::Row& row : set->rows)
            if (row.name == u"Colour")
                colour = row.value;
        EXPECT_TRUE(possible.contains(colour)) << platform::toUtf8(colour);
        flow.host().close();
    }
    EXPECT_EQ(flow.complaints(), "");
    // The programs, the model with its log, the project, the export: no half-written file.
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(std::filesystem::path(flow.folder() / u"")))
        EXPECT_EQ(entry.path().u16string().find(u".part"), std::u16string::npos) << entry.path();
}

}  // namespace
