#include "plugin/settings.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/files.h"
#include "plugin/plugin_paths.h"
#include "tests/support/reports.h"
#include "tests/support/temp_folder.h"

namespace {

TEST(Options, AreReadLineByLineAndOnlyByTheExactWords) {
    const struct {
        std::string bytes;
        bool first, second;
    } kCases[] = {{"true\nfalse\n", true, false},
                  {"false\ntrue\n", false, true},
                  {"false\r\nfalse\r\n", false, false},
                  {"false\nfalse", false, false},
                  {"", true, true},
                  {"\nfalse", true, false},
                  {"FALSE\nfalse\n", true, false},
                  {"false \n false\n", true, true},
                  {"falsefalsefalse\nfalse\n", true, false},
                  {std::string(100'000, 'f') + "\nfalse\n", true, false},
                  {std::string("false\0\nfalse\n", 13), true, false}};
    const TempFolder folder;
    for (const auto& [bytes, first, second] : kCases) {
        PluginOptions options;
        readOptions(folder.write(u"config.txt", bytes), options);
        EXPECT_EQ(options.ignoreEnumerationErrors, first) << bytes.substr(0, 20);
        EXPECT_EQ(options.eraseWhiteSigns, second) << bytes.substr(0, 20);
    }
    PluginOptions off{.ignoreEnumerationErrors = false, .eraseWhiteSigns = false};
    readOptions(folder.write(u"config.txt", "yes\ntrue\n"), off);
    EXPECT_FALSE(off.ignoreEnumerationErrors);
    EXPECT_TRUE(off.eraseWhiteSigns);
}

TEST(Options, StayAsTheyAreWithoutAFile) {
    const AnsweredMessages messages;
    const TempFolder folder;
    PluginOptions options;
    readOptions(folder / u"config.txt", options);
    EXPECT_EQ(options, PluginOptions());
    EXPECT_TRUE(messages.entries.empty());
}

TEST(Options, AreWrittenAsTwoLinesInPlaceOfTheOldFile) {
    const TempFolder folder;
    const auto path = folder.write(u"config.txt", "some\nother\nlines\n");
    writeOptions(path, {.ignoreEnumerationErrors = true, .eraseWhiteSigns = false});
    EXPECT_EQ(folder.read(u"config.txt"), "true\nfalse\n");
    EXPECT_EQ(folder.count(), 1);
}

TEST(Options, ThatCannotBeWrittenAreToldToTheUser) {
    const AnsweredMessages messages;
    const TempFolder folder;
    const std::u16string path = folder / u"missing/config.txt";
    writeOptions(path, {});
    ASSERT_EQ(messages.entries.size(), 1u);
    const std::string expected =
        "Error!|Unable to write config file: \"" + platform::toUtf8(path) + "\"\nError message: ";
    EXPECT_EQ(messages.entries[0].substr(0, expected.size()), expected);
    EXPECT_GT(messages.entries[0].size(), expected.size());
}

TEST(HostOptions, AreOffWhenTheConfigurationNamesThemAnywhere) {
    const std::string filler(0x4000, 'x');
    const struct {
        std::string bytes;
        bool on;
    } kCases[] = {{"", true},
                  {"use_geometry\n_cache\n", true},
                  {"Use_Geometry_Cache\n", true},
                  {"use_geometry_cache", false},
                  {"a = 1\n# do not use_geometry_cache = true\nb\n", false},
                  {filler + "use_geometry_cache", false},
                  {filler.substr(9) + "use_geometry_cache" + filler, false},
                  {filler + filler + "use_geometry_cach", true}};
    const TempFolder folder;
    ErrorLog log;
    for (const auto& [bytes, on] : kCases)
        EXPECT_EQ(readHostOption(HostOption::UseGeometryCache, folder.write(u"main.cfg", bytes),
                                 log.callback()),
                  on)
            << bytes.substr(0, 40);
    EXPECT_TRUE(log.entries.empty());
}

TEST(HostOptions, AreOffAndReportedWithoutAConfiguration) {
    const TempFolder folder;
    ErrorLog log;
    const std::u16string path = folder / u"main.cfg";
    EXPECT_FALSE(readHostOption(HostOption::UseGeometryCache, path, log.callback()));
    EXPECT_EQ(log.entries, std::vector<std::string>{"|Unable to open AH config file in: " +
                                                    platform::toUtf8(path)});
}

TEST(HostOptions, HaveNamesOnlyForKnownNumbers) {
    ErrorLog log;
    EXPECT_EQ(hostOptionName(HostOption::UseGeometryCache, log.callback()), "use_geometry_cache");
    EXPECT_TRUE(log.entries.empty());
    EXPECT_EQ(hostOptionName(static_cast<HostOption>(1), log.callback()), "Unknown");
    EXPECT_EQ(log.entries, std::vector<std::string>{"|Unknown AH option"});
}

TEST(PluginPaths, FollowFromTheModules) {
    const auto system = [](std::u16string path) {
        for (char16_t& unit : path)
            if (unit == u'/')
                unit = platform::pathSeparator();
        return path;
    };
    EXPECT_EQ(paths::dataFolderOfHost(system(u"/host/viewer.exe")),
              system(u"/host/plugins/quillet/quillet_data/"));
    EXPECT_EQ(paths::defaultDataFolder(system(u"/Arvenhold/plugins/reader_x64.dll")),
              system(u"/Arvenhold/plugins/reader_data/"));
    EXPECT_EQ(paths::defaultDataFolder(system(u"/build/reader_x64.dll")), system(u"/build/"));
    const struct {
        std::u16string pluginFolder, expected;
    } kCases[] = {{u"/host/plugins/quillet", u"/host/main.cfg"},
                  {u"/plugins/a/plugins/quillet", u"/plugins/a/main.cfg"},
                  {u"/host/myplugins/plugins", u"/host/myplugins/main.cfg"},
                  {u"/host/myplugins/quillet", u"/program/main.cfg"}};
    for (const auto& [pluginFolder, expected] : kCases)
        EXPECT_EQ(paths::hostConfigPath(system(pluginFolder), system(u"/program/viewer")),
                  system(expected));
}

}  // namespace
