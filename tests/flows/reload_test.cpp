// The plug-in's library comes and goes in one process.

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/text.h"
#include "tests/flows/flow_host.h"

namespace {

const std::u16string kSample = platform::fromUtf8(QUILLET_SOURCE_DIR "/samples/sample_house.ifc");

TEST(Reload, AHundredTimesWithAnEditEachTime) {
    FlowHost flow;
    for (int round = 0; round < 100; ++round) {
        ASSERT_TRUE(flow.start({kSample})) << round;
        EXPECT_EQ(flow.host().pluginVersion().major, 5);
        EXPECT_EQ(flow.host().pluginVersion().minor, 48);
        const standin::Object* const object = flow.editableObjects().back();
        ASSERT_TRUE(flow.addSet(*object, u"Set")) << round << flow.complaints();
        flow.host().close();
        flow.host().unloadPlugin();
        ASSERT_FALSE(flow.host().isPluginLoaded());
    }
    EXPECT_EQ(flow.complaints(), "");
}

TEST(Reload, KeepsTheOptionsOfTheRibbon) {
    FlowHost flow;
    ASSERT_TRUE(flow.start({kSample}));
    ASSERT_TRUE(flow.click(FlowHost::Item::EraseWhiteSigns));
    flow.host().close();
    flow.host().unloadPlugin();
    EXPECT_EQ(flow.folder().read(u"plugins/quillet/config.txt"), "true\nfalse\n");
    ASSERT_TRUE(flow.start({kSample}));
    std::vector<bool> down;
    for (const standin::RibbonItem& item : flow.host().ribbon().items())
        if (item.kind == standin::RibbonItem::Kind::CheckBox)
            down.push_back(item.isDown);
    EXPECT_EQ(down, (std::vector<bool>{true, false}));
}

}  // namespace
