#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <string>

#include "ifc/io/writer.h"
#include "tests/support/reports.h"
#include "tests/support/step_model.h"

namespace {

/// While it lives, this process can write no file beyond `bytes`: a full disk for everyone who
/// writes.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : handlerBefore_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handlerBefore_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*handlerBefore_)(int);
    rlimit before_ = {};
};

/// `count` instances of about 1 kB that refer forward, so that they are copied too.
std::string manyPersons(int count) {
    std::string data;
    for (int number = 1; number <= count; ++number)
        data += "#" + std::to_string(number) + "=IFCPERSON($,'" + std::string(1000, 'x') +
                "',$,$,$,$,(#99999999),$);\n";
    return data;
}

TEST(FullDisk, KeepsTheFileThatWasThere) {
    // One model fits the writer's buffer of 10 MiB, the other does not.
    for (const int count : {100, 12'000}) {
        ReadModel read(stepFile(manyPersons(count)));
        ASSERT_TRUE(read.loaded());
        const TempFolder folder;
        for (const std::u16string_view name : {u"out.ifc", u"out.ifczip"}) {
            folder.write(name, "before");
            ErrorLog log;
            {
                const FileSizeLimit full(100);
                IFC::ModelWriter writer(log.callback());
                EXPECT_FALSE(writer.write(read.model(), folder / name));
                EXPECT_EQ(writer.error().trouble, platform::FileTrouble::Other);  // a limit's
            }
            EXPECT_TRUE(log.entries.back().starts_with("file_other_trouble|(")) << count;
            EXPECT_EQ(folder.read(name), "before");
        }
        EXPECT_EQ(folder.count(), 2);
    }
}

TEST(FullDisk, EndsReadingWhenTheCopyCannotBeWritten) {
    const std::string step = stepFile(manyPersons(12'000));
    const TempFolder folder;
    const std::u16string path = folder.write(u"model.ifc", step);
    ErrorLog log;
    IFC::ModelParser parser(log.callback(), {});
    {
        const FileSizeLimit full(100);
        EXPECT_FALSE(parser.load(path));
    }
    EXPECT_EQ(parser.state(), IFC::ModelParser::State::Failed);
    EXPECT_FALSE(log.entries.empty());
    EXPECT_EQ(folder.count(), 1);
}

}  // namespace
