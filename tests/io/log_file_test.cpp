#include "ifc/io/log_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

#include "tests/support/reports.h"
#include "tests/support/temp_folder.h"

namespace {

/// The log's lines behind the first, which must be the date and time.
std::string linesOf(const TempFolder& folder) {
    const std::string text = folder.read(u"model_IFC_LOG.txt");
    const std::size_t second = text.find('\n') + 1;
    EXPECT_TRUE(std::regex_match(text.substr(0, second),
                                 std::regex(R"(\d{4}-\d\d-\d\d    \d\d:\d\d:\d\d\n)")))
        << text.substr(0, second);
    return text.substr(second);
}

TEST(LogFile, TellsWhichInstanceWasReadWhenSomethingHappened) {
    const TempFolder folder;
    LogFile log;
    ASSERT_TRUE(log.open(folder / u"model.ifc"));
    EXPECT_EQ(log.path(), folder / u"model_IFC_LOG.txt");
    log.write(u"Parsing file...", true);
    log.write(u"Reading first part of file...", true);
    for (int n = 1; n <= 100000; ++n) {
        log.readingEntity(n);
        if (n == 777)
            log.write(u"W\u00E4nde fehlen");
    }
    log.endBlock();
    log.write(u"Reading second part of file...", true);
    log.readingEntity(5);
    log.done();
    log.endBlock();
    log.endBlock();
    log.endBlock();
    log.write(u"end");
    log.close();
    EXPECT_EQ(linesOf(folder),
              "Parsing file...\n"
              "\tReading first part of file...\n"
              "\t\tReading entity: #777\n"
              "\t\tW\xC3\xA4nde fehlen\n"
              "\t\tReading entity: #100000\n"
              "\tReading second part of file...\n"
              "\t\tDone.\n"
              "end\n");
}

TEST(LogFile, ShowsTheInstanceBeingReadWhenItWasClosed) {
    const TempFolder folder;
    {
        LogFile log;
        log.open(folder / u"model.ifc");
        log.readingEntity(3);
    }
    EXPECT_EQ(linesOf(folder), "Reading entity: #3\n");
}

TEST(LogFile, LiesBesideTheArchiveOfAProjectFile) {
    const TempFolder folder;
    LogFile log;
    EXPECT_TRUE(log.open(folder / u"project.ahx|folder/Model.ifc"));
    EXPECT_EQ(log.path(), folder / u"project_IFC_LOG.txt");
}

TEST(LogFile, SaysThatItIsClosed) {
    AnsweredMessages messages;
    LogFile log;
    log.write(u"text");
    log.endBlock();
    log.readingEntity(1);
    log.done();
    log.close();
    EXPECT_EQ(messages.entries, std::vector<std::string>(4, "IFC lib|LogFile is closed."));
}

TEST(LogFile, SaysOnceThatTheDiskIsFull) {
    if (!platform::fileExists(u"/dev/full"))
        GTEST_SKIP() << "no such device";
    const TempFolder folder;
    std::filesystem::create_symlink("/dev/full", folder / u"model_IFC_LOG.txt");
    AnsweredMessages messages;
    LogFile log;
    ASSERT_TRUE(log.open(folder / u"model.ifc"));
    for (std::size_t written = 0; written <= LogFile::kCapacityBytes; written += 1 << 20)
        log.write(std::u16string(1 << 20, u'x'));
    log.write(u"swallowed");
    EXPECT_FALSE(log.isOpen());
    log.readingEntity(1);
    log.done();
    log.close();
    EXPECT_EQ(messages.entries, std::vector<std::string>{"Logfile error|Could not write to file"});
}

TEST(LogFile, SaysOnceThatItCannotBeCreated) {
    const TempFolder folder;
    AnsweredMessages messages;
    LogFile log;
    EXPECT_FALSE(log.open(folder / u"missing/model.ifc"));
    EXPECT_FALSE(log.isOpen());
    EXPECT_EQ(messages.entries,
              std::vector{"Log file error|Could not create log file: " +
                          platform::toUtf8(folder / u"missing/model_IFC_LOG.txt")});
}

}  // namespace
