#include "platform/files.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace {

TEST(Files, AreFoundByNamesBeyondTheCodePage) {
    const TempFolder folder;
    const std::u16string path = folder / u"\u0416\u00E4\u4E2D\U0001F600.ifc";
    ASSERT_FALSE(platform::fileExists(path));
    {
        const platform::FileHandle file(platform::openFile(path, "wb"));
        ASSERT_TRUE(file);
        std::fputs("a\nb", file.get());
    }
    EXPECT_TRUE(platform::fileExists(path));
    EXPECT_EQ(platform::fileSize(path), 3u);
    EXPECT_TRUE(platform::flushToDisk(path));
    EXPECT_TRUE(platform::removeFile(path));
    EXPECT_FALSE(platform::removeFile(path));
    EXPECT_FALSE(platform::flushToDisk(path));
    EXPECT_EQ(platform::fileSize(path), 0u);
    EXPECT_FALSE(platform::openFile(path, "rb"));
    EXPECT_FALSE(platform::openFile(folder / u"missing/x.ifc", "wb"));
}

TEST(RenameOver, ReplacesTheTargetOrLeavesIt) {
    const TempFolder folder;
    const std::u16string target = folder.write(u"model.ifc", "old");
    EXPECT_FALSE(platform::renameOver(folder / u"missing", target));
    EXPECT_EQ(folder.read(u"model.ifc"), "old");
    EXPECT_TRUE(platform::renameOver(folder.write(u"new", "new"), target));
    EXPECT_EQ(folder.read(u"model.ifc"), "new");
    EXPECT_TRUE(platform::renameOver(target, folder / u"other.ifc"));
    EXPECT_EQ(folder.count(), 1);
}

TEST(CreatedFiles, AreNewAndEmpty) {
    const TempFolder folder;
    const std::u16string target = folder.write(u"m\u00F6del.ifc", "old");
    const std::u16string first = platform::createFileBeside(target, u".tmp");
    const std::u16string second = platform::createFileBeside(target, u".tmp");
    EXPECT_NE(first, second);
    EXPECT_EQ(folder.count(), 3);
    EXPECT_EQ(first.rfind(target, 0), 0u);
    EXPECT_TRUE(first.ends_with(u".tmp"));
    EXPECT_EQ(platform::createFileBeside(folder / u"missing/model.ifc", u".tmp"), u"");

    const std::u16string temporary = platform::createTemporaryFile(u"_TEMP.ifc");
    EXPECT_TRUE(temporary.ends_with(u"_TEMP.ifc"));
    EXPECT_TRUE(platform::removeFile(temporary));
}

}  // namespace
