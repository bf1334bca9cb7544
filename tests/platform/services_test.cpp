#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

#include "platform/local_time.h"
#include "platform/message_box.h"
#include "platform/new_guid.h"
#include "platform/pages.h"
#include "platform/physical_memory.h"
#include "platform/program_arguments.h"
#include "platform/terminal.h"
#include "tests/support/reports.h"
#include "tests/support/temp_folder.h"

namespace {

using platform::MessageAnswer;
using platform::MessageButtons;

TEST(MessageBox, IsShownByTheHandlerInCharge) {
    AnsweredMessages outer(MessageAnswer::Yes);
    {
        AnsweredMessages inner(MessageAnswer::No);
        EXPECT_EQ(platform::showMessageBox(u"Sure?", u"Cancel", MessageButtons::YesNo),
                  MessageAnswer::No);
        EXPECT_EQ(inner.entries, std::vector<std::string>{"Cancel|Sure?"});
    }
    EXPECT_EQ(platform::showMessageBox(u"Sure?", u"Cancel", MessageButtons::YesNo),
              MessageAnswer::Yes);
    EXPECT_EQ(outer.entries.size(), 1u);
}

TEST(MessageBox, AgreesToNothingWithoutAUser) {
    EXPECT_EQ(platform::neutralAnswer(MessageButtons::Ok), MessageAnswer::Ok);
    EXPECT_EQ(platform::neutralAnswer(MessageButtons::YesNo), MessageAnswer::No);
    EXPECT_EQ(platform::neutralAnswer(MessageButtons::OkCancel), MessageAnswer::Cancel);
    EXPECT_EQ(platform::neutralAnswer(MessageButtons::YesNoCancel), MessageAnswer::Cancel);
}

TEST(NewGuid, IsRandomOfVersion4) {
    const auto first = platform::newGuid();
    const auto second = platform::newGuid();
    ASSERT_TRUE(first && second);
    EXPECT_NE(*first, *second);
    for (const auto& guid : {*first, *second}) {
        EXPECT_EQ(guid[6] >> 4, 4);
        EXPECT_EQ(guid[8] >> 6, 2);
    }
}

TEST(Pages, AreZeroAndWritableToTheLastByte) {
    for (const std::size_t bytes : {std::size_t{1}, std::size_t{65536}, platform::kHugePageBytes,
                                    3 * platform::kHugePageBytes + 4097}) {
        auto* const block = static_cast<unsigned char*>(platform::allocatePages(bytes));
        ASSERT_TRUE(block);
        platform::adviseHugePages(block, bytes);
        EXPECT_TRUE(
            std::all_of(block, block + bytes, [](unsigned char byte) { return byte == 0; }));
        block[0] = block[bytes - 1] = 1;
        platform::releasePages(block, bytes);
    }
    EXPECT_EQ(platform::allocatePages(SIZE_MAX - platform::kHugePageBytes / 2), nullptr);
    EXPECT_GT(platform::physicalMemoryBytes(), std::uint64_t{64} << 20);
}

TEST(LocalTime, IsWithinADayOfUniversalTime) {
    // 2001-09-09 01:46:40 UTC
    const std::tm time = platform::localTime(1'000'000'000);
    EXPECT_EQ(time.tm_year, 101);
    EXPECT_EQ(time.tm_mon, 8);
    EXPECT_GE(time.tm_mday, 8);
    EXPECT_LE(time.tm_mday, 9);
    EXPECT_EQ(time.tm_sec, 40);
}

TEST(Terminal, IsNoFile) {
    const TempFolder folder;
    const platform::FileHandle file(platform::openFile(folder / u"log.txt", "wb"));
    EXPECT_FALSE(platform::isTerminal(file.get()));
}

TEST(ProgramArguments, BeginWithTheProgram) {
    const char* const argv[] = {"platform_test"};
    const auto arguments = platform::programArguments(1, argv);
    ASSERT_FALSE(arguments.empty());
    EXPECT_NE(arguments[0].find(u"platform_test"), std::u16string::npos);
}

}  // namespace
