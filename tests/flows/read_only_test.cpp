// The plug-in's folder may be one that users cannot write to, as programs' folders are.

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

#include "platform/text.h"
#include "tests/flows/flow_host.h"
#include "tests/support/ordinary_user.h"

namespace {

const std::u16string kSample = platform::fromUtf8(QUILLET_SOURCE_DIR "/samples/sample_house.ifc");

class ReadOnlyPluginFolder : public testing::Test {
protected:
    static constexpr std::filesystem::perms kReadable = std::filesystem::perms::owner_read |
                                                        std::filesystem::perms::group_read |
                                                        std::filesystem::perms::others_read;
    static constexpr std::filesystem::perms kSearchable = std::filesystem::perms::owner_exec |
                                                          std::filesystem::perms::group_exec |
                                                          std::filesystem::perms::others_exec;

    ReadOnlyPluginFolder() {
        std::filesystem::permissions(flow.folder() / u"", std::filesystem::perms::all);
        for (const char16_t* const name : {u"config.txt", u"LastPath.txt"})
            std::filesystem::permissions(
                flow.folder().write(std::u16string(u"plugins/quillet/") + name, "false\nfalse\n"),
                kReadable);
        std::filesystem::permissions(flow.folder() / u"plugins/quillet", kReadable | kSearchable);
    }
    ~ReadOnlyPluginFolder() override {
        std::filesystem::permissions(flow.folder() / u"plugins/quillet",
                                     std::filesystem::perms::all);
    }

    FlowHost flow;
};

TEST_F(ReadOnlyPluginFolder, CostsOnlyWhatWouldBeRememberedThere) {
    const auto filesThere = [this] {
        return std::distance(
            std::filesystem::directory_iterator(flow.folder() / u"plugins/quillet"), {});
    };
    const auto before = filesThere();
    const OrdinaryUser user;
    ASSERT_TRUE(flow.start({kSample}));
    const standin::Object& object = *flow.editableObjects().back();
    ASSERT_TRUE(flow.addSet(object, u"Set")) << flow.complaints();
    for (const auto& [guid, set] : seenSetsOf(object))
        if (set.name == u"Set") {
            ASSERT_TRUE(flow.addProperty(object, guid, {.name = u"Name", .value = u"Kept"}));
        }
    EXPECT_NE(flow.savedLog().find("Kept"), std::string::npos);
    EXPECT_EQ(flow.complaints(), "");

    flow.answerMessage(u"no");  // whether the log is to be shown
    flow.exportTo(flow.folder() / u"exported.ifc");
    EXPECT_NE(flow.folder().read(u"exported.ifc").find("'Kept'"), std::string::npos);
    EXPECT_NE(flow.exportLog().find("could not be remembered in: "), std::string::npos);

    EXPECT_TRUE(flow.click(FlowHost::Item::EraseWhiteSigns));
    flow.host().close();
    flow.host().unloadPlugin();
    const std::string told = flow.complaints();
    EXPECT_NE(told.find("config.txt\"\nError message: Permission denied"), std::string::npos)
        << told;
    for (const char16_t* const name : {u"config.txt", u"LastPath.txt"})
        EXPECT_EQ(flow.folder().read(std::u16string(u"plugins/quillet/") + name), "false\nfalse\n");
    EXPECT_EQ(filesThere(), before);
}

}  // namespace
