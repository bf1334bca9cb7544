#include "ifc/io/input_stream.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <random>

#include "ifc/io/input_file_stream.h"
#include "ifc/io/input_zip_stream.h"
#include "tests/support/reports.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zip_archive.h"

namespace {

using FileStream::InputFileStream;
using FileStream::InputStream;
using FileStream::InputZipFileStream;

constexpr std::size_t kBufferSizes[] = {1, 2, 3, 7, 4096};

/// The same bytes as a plain file and as an archive.
class Sources {
public:
    explicit Sources(const std::string& bytes) {
        folder_.write(u"model.ifc", bytes);
        writeZip(folder_ / u"model.ifcZIP", {{"model.ifc", bytes}});
    }
    std::unique_ptr<InputStream> open(bool zipped, std::size_t bufferBytes) {
        if (zipped)
            return std::make_unique<InputZipFileStream>(folder_ / u"model.ifcZIP",
                                                        errors_.callback(), bufferBytes);
        return std::make_unique<InputFileStream>(folder_ / u"model.ifc", errors_.callback(),
                                                 bufferBytes);
    }
    const std::vector<std::string>& errors() const { return errors_.entries; }

private:
    TempFolder folder_;
    ErrorLog errors_;
};

/// Calls `check(stream, hint)` with both kinds of stream and each buffer size.
template <class Check>
void onEachStream(const std::string& bytes, Check check) {
    Sources sources(bytes);
    for (const bool zipped : {false, true}) {
        for (const std::size_t bufferBytes : kBufferSizes) {
            const auto stream = sources.open(zipped, bufferBytes);
            SCOPED_TRACE((zipped ? "zip, buffer " : "plain, buffer ") +
                         std::to_string(bufferBytes));
            check(*stream);
            EXPECT_FALSE(stream->readFailed());
        }
    }
    EXPECT_EQ(sources.errors(), std::vector<std::string>{});
}

int signExtended(char byte) { return static_cast<signed char>(byte); }

TEST(InputStream, GivesTheSameBytesInWhateverWayTheyAreAskedFor) {
    std::mt19937 random(4711);
    std::string bytes;
    for (int i = 0; i < 900; ++i)
        bytes.push_back(i % 5 == 0 ? ';' : static_cast<char>(random()));
    onEachStream(bytes, [&](InputStream& stream) {
        std::size_t next = 0;
        std::size_t statement = 0;
        while (next < bytes.size()) {
            ASSERT_EQ(stream.tell(), static_cast<std::int64_t>(next));
            ASSERT_FALSE(stream.isEof());
            switch (random() % 5) {
                case 0: ASSERT_EQ(stream.peek(), signExtended(bytes[next])); break;
                case 1: ASSERT_EQ(stream.get(), signExtended(bytes[next++])); break;
                case 2: {
                    char out[11];
                    const std::size_t count = random() % 12;
                    ASSERT_EQ(stream.read(out, count), count);
                    std::string expected = bytes.substr(next, count);
                    next += expected.size();
                    expected.resize(count, '\xFF');
                    ASSERT_EQ(std::string(out, count), expected);
                    break;
                }
                case 3: {
                    ASSERT_TRUE(stream.refill());
                    const auto window =
                        static_cast<std::size_t>(stream.windowEnd() - stream.windowBegin());
                    const std::size_t taken = random() % (window + 1);
                    ASSERT_EQ(std::string(stream.windowBegin(), taken), bytes.substr(next, taken));
                    stream.advanceTo(stream.windowBegin() + taken);
                    next += taken;
                    break;
                }
                default:
                    if (stream.statementEnded() && random() % 2) {
                        stream.clearStatement();
                        statement = next;
                    }
            }
            ASSERT_EQ(stream.statementEnded(), next > 0 && bytes[next - 1] == ';');
            ASSERT_EQ(stream.statementText(), bytes.substr(statement, next - statement));
            ASSERT_EQ(stream.statementLength(), next - statement);
        }
        EXPECT_EQ(stream.peek(), -1);
        EXPECT_EQ(stream.get(), -1);
        EXPECT_FALSE(stream.refill());
        EXPECT_TRUE(stream.isEof());
        EXPECT_EQ(stream.tell(), static_cast<std::int64_t>(bytes.size()));
        EXPECT_EQ(stream.size(), bytes.size());
        EXPECT_EQ(stream.statementText(), bytes.substr(statement));
    });
}

TEST(InputStream, EndsForByteWiseReadersAtByte0xFF) {
    onEachStream("a\xFF;", [](InputStream& stream) {
        EXPECT_EQ(stream.get(), 'a');
        EXPECT_EQ(stream.peek(), -1);
        EXPECT_EQ(stream.get(), -1);
        EXPECT_EQ(stream.get(), ';');
    });
}

TEST(InputStream, KnowsItsEndOnceABlockCameBackShort) {
    Sources sources("abc");
    for (const bool zipped : {false, true}) {
        for (const auto& [bufferBytes, isShort] :
             {std::pair{1u, false}, {2u, true}, {3u, false}, {7u, true}}) {
            const auto stream = sources.open(zipped, bufferBytes);
            char bytes[3];
            stream->read(bytes, 3);
            EXPECT_EQ(stream->isEof(), isShort) << "buffer " << bufferBytes;
            EXPECT_EQ(stream->get(), -1);
            EXPECT_TRUE(stream->isEof());
        }
    }
}

TEST(InputStream, HasNothingToGiveWhenClosed) {
    Sources sources("abc;def");
    for (const bool zipped : {false, true}) {
        const auto stream = sources.open(zipped, 4);
        stream->get();
        stream->close();
        char byte = 'x';
        EXPECT_FALSE(stream->isOpen());
        EXPECT_EQ(stream->get(), 0);
        EXPECT_EQ(stream->peek(), zipped ? 0 : -1);
        EXPECT_EQ(stream->read(&byte, 1), zipped ? 0u : 1u);
        EXPECT_EQ(byte, zipped ? 'x' : '\0');
        EXPECT_EQ(stream->tell(), -1);
        EXPECT_EQ(stream->windowBegin(), stream->windowEnd());
        EXPECT_FALSE(stream->refill());
        EXPECT_EQ(stream->statementText(), "a");
        stream->close();
    }
}

TEST(InputStream, ForgetsTheEndOfAStatementThatNeverEnds) {
    constexpr std::size_t kLimit = InputStream::kMaxStatementBytes;
    constexpr std::size_t kBufferBytes = 1 << 20;
    const TempFolder folder;
    const std::u16string path = folder.write(u"endless.ifc", "#");
    std::filesystem::resize_file(path, kLimit + 3 * kBufferBytes);  // zeros, with few disks a hole
    InputFileStream stream(path, {}, kBufferBytes);
    while (stream.refill())
        stream.advanceTo(stream.windowEnd());
    EXPECT_TRUE(stream.statementTruncated());
    EXPECT_EQ(stream.statementLength(), kLimit);
    EXPECT_EQ(stream.statementText().size(), kLimit);
    EXPECT_EQ(stream.tell(), static_cast<std::int64_t>(kLimit + 3 * kBufferBytes));
    stream.clearStatement();
    EXPECT_FALSE(stream.statementTruncated());
    EXPECT_EQ(stream.statementText(), "");
}

TEST(InputFileStream, IsClosedAndSilentWithoutAFile) {
    ErrorLog errors;
    const TempFolder folder;
    InputFileStream stream(folder / u"Missing.IFC", errors.callback(), 16);
    EXPECT_FALSE(stream.isOpen());
    EXPECT_EQ(stream.get(), 0);
    EXPECT_EQ(stream.size(), 0u);
    EXPECT_EQ(stream.nextEntry(), -1);
    EXPECT_EQ(stream.extension(), u".ifc");
    EXPECT_TRUE(errors.entries.empty());
}

TEST(InputFileStream, ReportsADiskFaultOnce) {
    // Linux: a folder can be opened, but not read. A process's memory is a file with a hole at its
    // begin.
    for (const std::u16string path : {u"/proc/self/mem", u"/proc"}) {
        ErrorLog errors;
        InputFileStream stream(path, errors.callback(), 16);
        if (!stream.isOpen())
            GTEST_SKIP() << "no file here that can be opened and not read";
        EXPECT_EQ(stream.peek(), -1);
        EXPECT_EQ(stream.get(), -1);
        EXPECT_EQ(stream.get(), -1);
        EXPECT_TRUE(stream.readFailed());
        EXPECT_EQ(errors.entries, std::vector{"|Could not read file: " + platform::toUtf8(path)});
    }
}

}  // namespace
