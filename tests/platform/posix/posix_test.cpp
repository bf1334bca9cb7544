#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "platform/files.h"
#include "platform/interrupt.h"
#include "platform/pages.h"
#include "platform/program_arguments.h"
#include "platform/text.h"
#include "tests/support/temp_folder.h"

namespace {

namespace fs = std::filesystem;

fs::perms rights(const std::u16string& path) {
    return fs::status(platform::toPathBytes(path)).permissions();
}

TEST(PosixRename, KeepsTheAccessRightsOfTheFileReplaced) {
    const TempFolder folder;
    const std::u16string target = folder.write(u"model.ifc", "old");
    fs::permissions(target, fs::perms::owner_read | fs::perms::group_write);
    EXPECT_TRUE(platform::renameOver(platform::createFileBeside(target, u".tmp"), target));
    EXPECT_EQ(rights(target), fs::perms::owner_read | fs::perms::group_write);
}

TEST(PosixTemporaryFile, IsReadableForItsUserOnly) {
    const std::u16string path = platform::createTemporaryFile(u"_TEMP.ifc");
    EXPECT_EQ(rights(path), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(platform::removeFile(path));
}

TEST(PosixArguments, FindFilesWhoseNamesAreNotUtf8) {
    const TempFolder folder;
    const std::string bytes = platform::toPathBytes(folder / u"") + "W\xE4nde.ifc";
    const char* const argv[] = {"program", bytes.c_str()};
    const std::u16string path = platform::programArguments(2, argv)[1];
    const platform::FileHandle file(platform::openFile(path, "wb"));
    EXPECT_TRUE(fs::exists(bytes));
}

TEST(PosixPages, OfManyMegabytesStartWhereHugePagesDo) {
    void* const block = platform::allocatePages(platform::kHugePageBytes);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % platform::kHugePageBytes, 0u);
    platform::releasePages(block, platform::kHugePageBytes);
}

TEST(PosixInterrupt, RaisesAFlagAndNothingElse) {
    platform::watchInterrupts();
    EXPECT_FALSE(platform::interrupted());
    std::raise(SIGINT);
    EXPECT_TRUE(platform::interrupted());
    std::signal(SIGINT, SIG_DFL);
}

}  // namespace
