#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/main_module.h"
#include "platform/shell_open.h"
#include "tests/support/temp_folder.h"

namespace {

TEST(MainModule, IsThisProgram) {
    const std::u16string path = platform::mainModulePath();
    EXPECT_NE(path.find(u"platform_test"), std::u16string::npos);
    EXPECT_TRUE(platform::fileExists(path));
    EXPECT_EQ(platform::ownModulePath(), path);
}

TEST(MainModule, HasNotTheFunctionsOfItsLibraries) {
    EXPECT_EQ(platform::mainModuleSymbol("select"), nullptr);
    EXPECT_EQ(platform::mainModuleSymbol("no_such_function"), nullptr);
}

TEST(OpenWithDefaultProgram, AsksTheHandlerInChargeForFilesThatThereAre) {
    const TempFolder folder;
    const std::u16string path = folder.write(u"log.txt", "text");
    std::u16string opened;
    const auto before = platform::setOpenFileHandler([&](std::u16string_view file) {
        opened = file;
        return true;
    });
    EXPECT_TRUE(platform::openWithDefaultProgram(path));
    EXPECT_EQ(opened, path);
    EXPECT_FALSE(platform::openWithDefaultProgram(folder / u"missing.txt"));
    EXPECT_FALSE(platform::openWithDefaultProgram(u""));
    platform::setOpenFileHandler(before);
}

}  // namespace
