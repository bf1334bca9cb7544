#include "platform/win32/long_path.h"

#include <gtest/gtest.h>

#include "platform/same_file.h"
#include "platform/text.h"
#include "tests/support/temp_folder.h"

namespace {

TEST(UnlimitedPath, HasAPrefixWhenItIsLong) {
    const std::u16string name(100, u'\u4E2D');
    const std::u16string tail = name + u"\\" + name + u"\\" + name + u".ifc";
    const std::u16string slashes = name + u"/./" + name + u"/x/../" + name + u".ifc";
    const std::pair<std::u16string, std::u16string> paths[] = {
        {u"C:\\model.ifc", u"C:\\model.ifc"},
        {u"C:/a/../model.ifc", u"C:/a/../model.ifc"},
        {u"model.ifc", u"model.ifc"},
        {u"", u""},
        {u"\\\\server\\share\\model.ifc", u"\\\\server\\share\\model.ifc"},
        {u"C:\\" + tail, u"\\\\?\\C:\\" + tail},
        {u"C:/" + slashes, u"\\\\?\\C:\\" + tail},
        {u"\\\\server\\share\\" + tail, u"\\\\?\\UNC\\server\\share\\" + tail},
        {u"//server/share/" + slashes, u"\\\\?\\UNC\\server\\share\\" + tail},
        {u"\\\\?\\C:\\" + tail, u"\\\\?\\C:\\" + tail},
        {u"\\\\?\\C:/" + slashes, u"\\\\?\\C:\\" + tail},
        {u"\\\\?\\UNC\\server\\share/" + slashes, u"\\\\?\\UNC\\server\\share\\" + tail},
        // 248 units: a folder of that length could hold no file of the old kind.
        {u"C:\\" + std::u16string(244, u'a'), u"C:\\" + std::u16string(244, u'a')},
        {u"C:\\" + std::u16string(245, u'a'), u"\\\\?\\C:\\" + std::u16string(245, u'a')},
    };
    for (const auto& [path, unlimited] : paths)
        EXPECT_EQ(platform::unlimited(path), unlimited) << platform::toUtf8(path);
}

TEST(UnlimitedPath, StandsForARelativePathInALongFolder) {
    const std::u16string name = std::u16string(300, u'a') + u"/model.ifc";
    const std::u16string path = platform::unlimited(name);
    EXPECT_TRUE(path.starts_with(u"\\\\?\\")) << platform::toUtf8(path);
    EXPECT_EQ(platform::withoutPrefix(path), platform::fullPath(name));
}

TEST(NetworkPath, LeadsToTheSameFiles) {
    const TempFolder folder(longFolderName());
    const std::u16string path = platform::fullPath(folder.write(u"model.ifc", "text"));
    std::u16string network = u"\\\\localhost\\" + path.substr(0, 1) + u"$" + path.substr(2);
    if (!platform::fileExists(network))
        GTEST_SKIP() << "this user has no share " << platform::toUtf8(network);
    EXPECT_TRUE(platform::isSameFile(network, path));
    EXPECT_EQ(platform::readWholeFile(network).value_or("none"), "text");
    EXPECT_TRUE(platform::writeWholeFile(network, "new"));
    EXPECT_EQ(folder.read(u"model.ifc"), "new");
    const std::u16string inside = network.substr(0, network.rfind(u'\\')) + u"/a/b";
    EXPECT_TRUE(platform::createFolders(inside));
    EXPECT_TRUE(platform::fileExists(folder / u"a/b"));
    EXPECT_TRUE(platform::isSameFile(inside + u"\\new", folder / u"A/B/NEW"));
    EXPECT_TRUE(platform::removeFolder(inside));
}

}  // namespace
