#include "ifc/io/output_stream.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <stdexcept>

#include "ifc/io/input_zip_stream.h"
#include "ifc/io/output_file_stream.h"
#include "ifc/io/output_zip_stream.h"
#include "tests/support/reports.h"
#include "tests/support/temp_folder.h"

namespace {

using FileStream::OutpoutFileStream;
using FileStream::OutpoutStream;
using FileStream::OutputZipFileStream;

/// Writes the same random text, in random ways, to a stream and to `expected`, and takes back from
/// both what it may.
void writeAtRandom(OutpoutStream& stream, std::string& expected, std::size_t bytes) {
    std::mt19937 random(99);
    const std::size_t goal = expected.size() + bytes;
    std::size_t takeable = std::min(stream.keepBack(), expected.size());
    while (expected.size() < goal) {
        std::string text(random() % 40, static_cast<char>('a' + random() % 26));
        const std::u16string wide(text.begin(), text.end());
        switch (random() % 8) {
            case 0: stream.append(text); break;
            case 1: stream.write(std::string_view(text)); break;
            case 2: stream.write(text.c_str()); break;
            case 3: stream.write(std::u16string_view(wide)); break;
            case 4: stream.write(wide.c_str()); break;
            case 5:
                std::copy(text.begin(), text.end(), stream.reserve(40));
                stream.commit(text.size());
                break;
            case 6:
                for (const char byte : text)
                    stream.put(byte);
                break;
            default: {
                text.clear();
                const std::size_t back = random() % (takeable + 1);
                takeable -= back;
                const int delta = -static_cast<int>(back);
                EXPECT_EQ(stream.movePointer(delta), delta);
                expected.resize(expected.size() - back);
            }
        }
        expected += text;
        takeable = std::min(stream.keepBack(), takeable + text.size());
    }
}

/// A plain stream's file begins with these bytes.
std::string presetOf(std::size_t keepBack) {
    return keepBack == 0 ? "" : std::string(keepBack - 1, ' ') + "\n";
}

TEST(OutpoutFileStream, WritesAndTakesBackTheSameWithEveryBuffer) {
    const TempFolder folder;
    for (const std::size_t capacity : {1u, 2u, 7u, 64u, 5000u}) {
        for (const std::size_t keepBack : {0u, 1u, 10u, 200u}) {
            SCOPED_TRACE(std::to_string(capacity) + " + " + std::to_string(keepBack));
            ErrorLog errors;
            std::string expected = presetOf(keepBack);
            OutpoutFileStream stream(folder / u"out.ifc", errors.callback(), capacity, keepBack);
            ASSERT_TRUE(stream.isOpen());
            writeAtRandom(stream, expected, 3000);
            stream.close();
            EXPECT_EQ(folder.read(u"out.ifc"), expected);
            // And once more behind it.
            stream.reopen();
            ASSERT_TRUE(stream.isOpen());
            expected += presetOf(keepBack);
            writeAtRandom(stream, expected, 3000);
            stream.close();
            EXPECT_EQ(folder.read(u"out.ifc"), expected);
            EXPECT_EQ(stream.failureCount(), 0);
            EXPECT_TRUE(errors.entries.empty());
        }
    }
}

TEST(OutpoutFileStream, KeepsTheBytesOfAFileThatEndsWithAFlush) {
    const TempFolder folder;
    OutpoutFileStream stream(folder / u"out.ifc", {}, 20, 10);
    stream.write("0123456789ABCDEFGHIJ");
    stream.close();
    EXPECT_EQ(folder.read(u"out.ifc"), "         \n0123456789ABCDEFGHIJ");
}

TEST(OutpoutFileStream, StepsBackOverItsPresetAndNoFurther) {
    const TempFolder folder;
    OutpoutFileStream stream(folder / u"out.ifc", {}, 64, 10);
    EXPECT_EQ(stream.movePointer(-10), -10);
    stream.write("ISO");
    try {
        stream.movePointer(-4);
        FAIL() << "moved";
    } catch (const std::runtime_error& fault) {
        EXPECT_STREQ(fault.what(), "Write to file error. Unable to move pointer below 0.");
    }
    stream.write("-10303-21");
    stream.close();
    EXPECT_EQ(folder.read(u"out.ifc"), "ISO-10303-21");
}

TEST(OutpoutFileStream, WritesNothingWhenThePositionNeverPassedTheBytesKeptBack) {
    const TempFolder folder;
    OutpoutFileStream stream(folder / u"out.ifc", {}, 64, 10);
    stream.movePointer(-10);
    stream.write("0123456789");
    stream.close();
    EXPECT_EQ(folder.read(u"out.ifc"), "");
}

TEST(OutpoutFileStream, WithoutItsPresetWritesHoweverLittle) {
    const TempFolder folder;
    OutpoutFileStream stream(folder / u"out.ifc", {}, 64, 10);
    stream.skipPreset();
    stream.write("ab");
    stream.close();
    stream.write("dropped");
    stream.movePointer(-3);
    stream.put('-');
    EXPECT_EQ(stream.failureCount(), 2);
    stream.reopen();
    stream.skipPreset();
    stream.write("c");
    stream.close();
    EXPECT_EQ(folder.read(u"out.ifc"), "abc");
}

TEST(OutpoutStream, NarrowsToTheLowByteAndStopsAtZero) {
    const TempFolder folder;
    OutpoutFileStream stream(folder / u"out.ifc", {}, 64, 0);
    stream.write(u"a\u01E4\0b");
    stream.write("c\0d");
    stream.write(std::u16string_view(u"e\0f", 3));
    stream.writeRaw("raw ", 4);
    stream.close();
    EXPECT_EQ(folder.read(u"out.ifc"), std::string("raw a\xE4"
                                                   "ce\0f",
                                                   10));
}

TEST(OutpoutFileStream, ReportsAFileThatCannotBeCreated) {
    const TempFolder folder;
    ErrorLog errors;
    const std::u16string path = folder / u"missing/out.ifc";
    OutpoutFileStream stream(path, errors.callback(), 64, 10);
    EXPECT_FALSE(stream.isOpen());
    EXPECT_TRUE(stream.isEof());
    stream.write("dropped");
    stream.write(u"dropped");
    EXPECT_EQ(stream.failureCount(), 2);
    stream.reopen();
    EXPECT_EQ(errors.entries, (std::vector<std::string>{
                                  "could_not_open_file|. File path: " + platform::toUtf8(path),
                                  "|Reopen failed."}));
}

/// A file that takes no byte, as on a full disk; POSIX only.
constexpr std::u16string_view kFullDisk = u"/dev/full";

TEST(FullDisk, ClosesAPlainStreamWhenItsBufferGoesOut) {
    if (!platform::fileExists(kFullDisk))
        GTEST_SKIP() << "no such device";
    ErrorLog errors;
    OutpoutFileStream stream(std::u16string(kFullDisk), errors.callback(), 64, 10);
    stream.append(std::string(63, 'x'));
    EXPECT_THROW(stream.put('x'), std::runtime_error);
    EXPECT_FALSE(stream.isOpen());
    EXPECT_EQ(stream.error().trouble, platform::FileTrouble::DiskFull);
    EXPECT_EQ(stream.failureCount(), 1);
    stream.append(std::string(100, 'x'));
    stream.commit(5);
    stream.movePointer(-5);
    stream.append("x");
    stream.close();
    EXPECT_EQ(stream.failureCount(), 4);
    EXPECT_TRUE(errors.entries.empty());
}

TEST(FullDisk, IsReportedByWhateverWritesLast) {
    if (!platform::fileExists(kFullDisk))
        GTEST_SKIP() << "no such device";
    ErrorLog errors;
    OutpoutFileStream stream(std::u16string(kFullDisk), errors.callback(), 64, 10);
    stream.writeRaw("x", 1);
    EXPECT_TRUE(stream.isOpen());
    stream.append("abc");
    stream.close();
    EXPECT_FALSE(stream.isOpen());
    EXPECT_EQ(stream.failureCount(), 2);
    EXPECT_EQ(errors.entries,
              (std::vector<std::string>{"|Could not write to file", "|Could not write to file"}));

    errors.entries.clear();
    OutputZipFileStream zip(std::u16string(kFullDisk), errors.callback());
    std::mt19937 random(5);
    std::string incompressible(1 << 20, '\0');
    for (char& byte : incompressible)
        byte = static_cast<char>(random());
    zip.writeRaw(incompressible.data(), incompressible.size());
    zip.writeRaw(incompressible.data(), incompressible.size());
    EXPECT_TRUE(zip.isOpen());
    EXPECT_FALSE(zip.isEof());
    zip.close();
    EXPECT_FALSE(zip.isOpen());
    EXPECT_EQ(zip.error().trouble, platform::FileTrouble::DiskFull);
    EXPECT_GE(zip.failureCount(), 2);
    EXPECT_EQ(errors.entries, std::vector<std::string>{"|Could not write to zip file"});

    errors.entries.clear();
    OutputZipFileStream small(std::u16string(kFullDisk), errors.callback());
    small.append("abc");
    small.close();
    EXPECT_EQ(small.failureCount(), 1);
    EXPECT_EQ(errors.entries, std::vector<std::string>{"|Could not write to zip file"});
}

TEST(OutputZipFileStream, HoldsOneFileOfAllThatWasWritten) {
    const TempFolder folder;
    ErrorLog errors;
    const std::u16string path = folder / u"H\u00E4user.v2.ifcZip";
    std::string expected;
    {
        OutputZipFileStream stream(path, errors.callback());
        ASSERT_TRUE(stream.isOpen());
        writeAtRandom(stream, expected, 1000);
        const std::string bulk(OutputZipFileStream::kCapacityBytes, 'b');  // more than the buffer
        stream.append(bulk);
        expected += bulk;
        writeAtRandom(stream, expected, 1000);
        EXPECT_TRUE(stream.isEof());
        EXPECT_EQ(stream.failureCount(), 0);
    }
    FileStream::InputZipFileStream archive(path, errors.callback(), 1 << 20);
    std::string content(static_cast<std::size_t>(archive.size()), '\0');
    archive.read(content.data(), content.size());
    EXPECT_TRUE(content == expected);
    EXPECT_FALSE(archive.refill());
    EXPECT_EQ(archive.nextEntry(), -100);  // the zip library's end of list
    EXPECT_TRUE(errors.entries.empty());
}

TEST(OutputZipFileStream, NamesItsEntryAfterItselfOrAsAskedFor) {
    const TempFolder folder;
    const auto entryOf = [&](std::u16string_view archive, std::u16string_view entry) {
        OutputZipFileStream(folder / archive, {}, entry).write("x");
        platform::renameOver(folder / archive, folder / u"project.ahx");
        return FileStream::InputZipFileStream(
                   folder / u"project.ahx|" +
                       std::u16string(entry.empty() ? u"H\u00E4user.v2.ifc" : entry),
                   {}, 16)
            .isOpen();
    };
    EXPECT_TRUE(entryOf(u"H\u00E4user.v2.ifcZip", u""));
    EXPECT_TRUE(entryOf(u"out.tmp", u"model_edited.ifc"));
}

TEST(OutputZipFileStream, NeverMovesOutOfItsBuffer) {
    const TempFolder folder;
    OutputZipFileStream stream(folder / u"out.ifczip", {});
    stream.write("abc");
    EXPECT_EQ(stream.movePointer(-7), -7);
    stream.write("de");
    stream.close();
    FileStream::InputZipFileStream archive(folder / u"out.ifczip", {}, 16);
    EXPECT_EQ(archive.size(), 2u);
}

TEST(OutputZipFileStream, ReportsAnArchiveThatCannotBeCreated) {
    const TempFolder folder;
    ErrorLog errors;
    OutputZipFileStream stream(folder / u"missing/out.ifczip", errors.callback());
    EXPECT_FALSE(stream.isOpen());
    EXPECT_TRUE(stream.isEof());
    EXPECT_EQ(errors.entries, std::vector<std::string>{"|Could not open or create zip archive"});
}

}  // namespace
