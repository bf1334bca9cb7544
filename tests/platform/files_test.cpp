#include "platform/files.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "platform/folders.h"
#include "platform/same_file.h"
#include "platform/whole_file.h"
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

TEST(RenameOver, ReplacesAFileThatSomebodyReadsForAMoment) {
    const TempFolder folder;
    const std::u16string target = folder.write(u"model.ifc", "old");
    const std::u16string replacement = folder.write(u"new", "new");
    platform::FileHandle reader(platform::openFile(target, "rb"));
    ASSERT_TRUE(reader);
    int last = 0;
    std::thread reading([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        for (int byte = 0; (byte = std::fgetc(reader.get())) != EOF;)
            last = byte;
        reader.reset();
    });
    EXPECT_TRUE(platform::renameOver(replacement, target));
    reading.join();
    EXPECT_EQ(last, 'd');  // whoever began with the old content ends with it
    EXPECT_EQ(folder.read(u"model.ifc"), "new");
}

TEST(OpenedFiles, AreReadWrittenAndContinued) {
    const TempFolder folder;
    const std::u16string path = folder.write(u"file", "12345");
    const auto write = [&](const char* mode, const char* text) {
        const platform::FileHandle file(platform::openFile(path, mode));
        ASSERT_TRUE(file) << mode;
        std::fputs(text, file.get());
    };
    write("r+b", "a\n");
    EXPECT_EQ(folder.read(u"file"), "a\n345");
    write("ab", "b\n");
    EXPECT_EQ(folder.read(u"file"), "a\n345b\n");
    write("wb", "c\n");
    EXPECT_EQ(folder.read(u"file"), "c\n");
    const platform::FileHandle both(platform::openFile(path, "w+b"));
    std::fputs("d", both.get());
    std::rewind(both.get());
    EXPECT_EQ(std::fgetc(both.get()), 'd');
    EXPECT_FALSE(platform::openFile(folder / u"missing", "r+b"));
    EXPECT_EQ(folder.count(), 1);
}

TEST(Files, SayWhyTheyCannotBeHad) {
    const TempFolder folder;
    platform::createFolders(folder / u"folder");
    const std::u16string missing = folder / u"missing/file";
    EXPECT_FALSE(platform::readWholeFile(missing));
    EXPECT_EQ(errno, ENOENT);
    errno = 0;
    EXPECT_FALSE(platform::writeWholeFile(missing, "x"));
    EXPECT_EQ(errno, ENOENT);
    errno = 0;
    EXPECT_FALSE(platform::writeWholeFile(folder / u"folder", "x"));
    EXPECT_TRUE(errno == EISDIR || errno == EACCES) << errno;
    EXPECT_EQ(folder.count(), 1);  // nothing half written
}

TEST(WriteProtection, IsSeenAndEnds) {
    const TempFolder folder;
    const std::u16string path = folder.write(u"model.ifc", "old");
    EXPECT_FALSE(platform::isWriteProtected(path));
    EXPECT_FALSE(platform::isWriteProtected(folder / u"missing"));
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    EXPECT_TRUE(platform::isWriteProtected(path));
    EXPECT_EQ(folder.read(u"model.ifc"), "old");
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    EXPECT_FALSE(platform::isWriteProtected(path));
}

TEST(LongPaths, AreAsGoodAsShortOnes) {
    const TempFolder folder(longFolderName());
    ASSERT_GT((folder / u"").size(), 300u);
    const std::u16string path = folder.write(u"model.ifc", "old");
    EXPECT_TRUE(platform::fileExists(path));
    EXPECT_EQ(platform::fileSize(path), 3u);
    EXPECT_TRUE(platform::writeWholeFile(path, "new"));
    EXPECT_EQ(folder.read(u"model.ifc"), "new");
    EXPECT_FALSE(platform::isWriteProtected(path));

    EXPECT_TRUE(platform::isSameFile(path, folder / u"other/../model.ifc"));
    EXPECT_TRUE(platform::isSameFile(folder / u"new.ifc", folder / u"./new.ifc"));
    EXPECT_FALSE(platform::isSameFile(path, folder / u"new.ifc"));

    EXPECT_TRUE(platform::createFolders(folder / u"a/b"));
    EXPECT_TRUE(platform::createFolders(folder / u"a/b"));
    EXPECT_FALSE(platform::createFolders(folder / u"model.ifc/b"));
    EXPECT_FALSE(platform::createFolders(path));
    folder.write(u"a/b/file", "x");
    EXPECT_TRUE(platform::removeFolder(folder / u"a"));
    EXPECT_FALSE(platform::fileExists(folder / u"a"));
    EXPECT_TRUE(platform::removeFile(path));
    EXPECT_FALSE(platform::fileExists(path));
}

TEST(RemoveFolder, LeavesWhatLinksLeadTo) {
    const TempFolder folder;
    const std::u16string kept = folder.write(u"kept", "x");
    ASSERT_TRUE(platform::createFolders(folder / u"a/b"));
    std::error_code noLinks;
    std::filesystem::create_hard_link(kept, folder / u"a/file", noLinks);
    std::filesystem::create_directory_symlink(folder / u"", folder / u"a/b/folder", noLinks);
    EXPECT_TRUE(platform::removeFolder(folder / u"a"));
    EXPECT_EQ(folder.read(u"kept"), "x");
    EXPECT_EQ(folder.count(), 1);
    EXPECT_TRUE(platform::removeFolder(folder / u"a"));  // gone is gone
}

}  // namespace
