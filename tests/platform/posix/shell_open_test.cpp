#include "platform/shell_open.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include "platform/text.h"
#include "tests/support/temp_folder.h"

namespace {

/// PATH is `folder` alone while it lives.
class OnlyPath {
public:
    explicit OnlyPath(const std::string& folder) : before_(std::getenv("PATH")) {
        ::setenv("PATH", folder.c_str(), 1);
    }
    ~OnlyPath() { ::setenv("PATH", before_.c_str(), 1); }
    OnlyPath(const OnlyPath&) = delete;
    OnlyPath& operator=(const OnlyPath&) = delete;

private:
    std::string before_;
};

TEST(SystemProgram, IsStartedWithTheFileAsItsOneArgument) {
    const TempFolder folder;
    const std::u16string script =
        folder.write(u"xdg-open",
                     "#!/bin/sh\nprintf '%s|%s' \"$#\" \"$1\" > \"${0%/*}/arguments.part\"\n"
                     "/bin/mv \"${0%/*}/arguments.part\" \"${0%/*}/arguments\"\n");
    std::filesystem::permissions(std::filesystem::path(script), std::filesystem::perms::owner_all);
    const std::u16string file = folder.write(u"a $(b) 'c'.ifc", "");
    const OnlyPath path(platform::toPathBytes(folder / u""));
    ASSERT_TRUE(platform::openWithSystemProgram(file));
    while (!std::filesystem::exists(std::filesystem::path(folder / u"arguments")))
        std::this_thread::yield();
    EXPECT_EQ(folder.read(u"arguments"), "1|" + platform::toPathBytes(file));
}

TEST(SystemProgram, IsMissed) {
    const TempFolder folder;
    const OnlyPath path(platform::toPathBytes(folder / u""));
    EXPECT_FALSE(platform::openWithSystemProgram(folder.write(u"a.ifc", "")));
}

}  // namespace
