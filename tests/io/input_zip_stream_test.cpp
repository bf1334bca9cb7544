#include "ifc/io/input_zip_stream.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "tests/support/reports.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zip_archive.h"

namespace {

using FileStream::InputStream;
using FileStream::InputZipFileStream;

/// Everything that byte-wise reading gives.
std::string contentOf(InputStream& stream) {
    std::string bytes;
    for (int byte = stream.get(); byte != -1; byte = stream.get())
        bytes.push_back(static_cast<char>(byte));
    return bytes;
}

TEST(InputZipFileStream, FindsTheEntryOfAProjectFileByItsExactName) {
    const TempFolder folder;
    writeZip(
        folder / u"Haus\u00E4.ahx",
        {{"Data.xml", "<x/>"}, {"folder/Model.ifc", "right"}, {"W\xC3\xA4nde.ifc", "walls", true}});
    struct Lookup {
        std::u16string_view path;
        std::string_view content;  // empty: not found
    };
    const Lookup lookups[] = {
        {u"Haus\u00E4.ahx|folder/Model.ifc", "right"},
        {u"Haus\u00E4.ahx|W\u00E4nde.ifc", "walls"},
        {u"Haus\u00E4.ahx|folder/model.ifc", ""},
        {u"Haus\u00E4.ahx|Model.ifc", ""},
        {u"Haus\u00E4.ahx|folder/Model.ifc|", ""},
        {u"Haus\u00E4.ahx|", ""},
        {u"Haus\u00E4.ahx", ""},
    };
    for (const auto& [name, content] : lookups) {
        ErrorLog errors;
        const std::u16string path = folder / name;
        InputZipFileStream stream(path, errors.callback(), 4);
        SCOPED_TRACE(platform::toUtf8(path));
        EXPECT_EQ(stream.isOpen(), !content.empty());
        if (stream.isOpen()) {
            EXPECT_EQ(contentOf(stream), content);
            EXPECT_EQ(path, folder / u"Haus\u00E4.ahx|" + stream.entryName());
            EXPECT_TRUE(errors.entries.empty());
        } else {
            EXPECT_EQ(errors.entries,
                      std::vector{"|Could not go to specified file in zip archive. File path: " +
                                  platform::toUtf8(path)});
        }
    }
}

TEST(InputZipFileStream, ReadsTheFirstEntryWhateverItsName) {
    const TempFolder folder;
    writeZip(folder / u"model.ifczip",
             {{"readme.txt", std::string(5000, 'r')}, {"model.ifc", "second"}});
    ErrorLog errors;
    InputZipFileStream stream(folder / u"model.ifczip", errors.callback(), 100);
    EXPECT_EQ(stream.size(), 5000u);
    EXPECT_LT(stream.compressedSize(), 500u);
    EXPECT_EQ(stream.get(), 'r');
    // The rest of an entry may be left out.
    EXPECT_EQ(stream.nextEntry(), 0);
    EXPECT_EQ(stream.tell(), 0);
    EXPECT_EQ(stream.size(), 6u);
    EXPECT_EQ(contentOf(stream), "second");
    EXPECT_EQ(stream.nextEntry(), -100);  // the zip library's end of list
    EXPECT_EQ(stream.get(), -1);
    EXPECT_TRUE(stream.isEof());
    EXPECT_FALSE(stream.readFailed());
    EXPECT_TRUE(errors.entries.empty());
}

// Offsets in the headers that precede an entry's data, and that list it at the archive's end.
constexpr std::size_t kLocalFlags = 6;
constexpr std::size_t kLocalMethod = 8;
constexpr std::size_t kLocalCrc = 14;
constexpr std::size_t kLocalSize = 22;
constexpr std::size_t kLocalData = 30;  // + length of the name
constexpr std::size_t kListFlags = 8;
constexpr std::size_t kListMethod = 10;
constexpr std::size_t kListCrc = 16;
constexpr std::size_t kListSize = 24;

constexpr std::string_view kEmptyArchive("PK\5\6\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 22);

/// An archive under repair, or rather the opposite.
struct Bytes {
    std::string& all;
    std::size_t list = all.find("PK\1\2");
    /// Flips the lowest bit of each of these bytes.
    void flip(std::initializer_list<std::size_t> offsets) {
        for (const std::size_t offset : offsets)
            all[offset] = static_cast<char>(all[offset] ^ 1);
    }
};

struct Damage {
    std::string what;
    std::function<void(Bytes)> done;
    std::string report;  // without the path, if it ends in ": "
    bool opens = true;
    bool stored = false;
};

TEST(InputZipFileStream, ReportsWhatIsWrongWithAnArchive) {
    std::mt19937 random(12);
    std::string content;
    for (int i = 0; i < 40000; ++i)
        content += "#" + std::to_string(random() % 100000) + "=IFCWALL();\n";
    const std::string cannotOpen = "|Could not open zip archive: ";
    const std::string noFirst = "|Could not go to first file in zip archive";
    const std::string cannotOpenEntry = "|Could not open first file in zip archive";
    const std::string cannotRead = "|Could not read from zip archive: ";
    content.resize(content.size() / 2 * 2);  // so that flipping a bit of its size adds one
    const Damage damages[] = {
        {"none", [](Bytes) {}, ""},
        {"empty file", [](Bytes zip) { zip.all.clear(); }, cannotOpen, false},
        {"no archive", [](Bytes zip) { zip.all.assign(5000, ';'); }, cannotOpen, false},
        {"cut", [](Bytes zip) { zip.all.resize(zip.list); }, cannotOpen, false},
        {"no entries", [](Bytes zip) { zip.all = kEmptyArchive; }, cannotOpen, false},
        {"no entries behind a program",
         [](Bytes zip) { zip.all = "MZ" + std::string(kEmptyArchive); }, noFirst, false},
        {"list damaged", [](Bytes zip) { zip.flip({zip.list}); }, noFirst, false},
        {"encrypted",
         [](Bytes zip) {
             zip.flip({kLocalFlags, zip.list + kListFlags});
         },
         cannotOpenEntry, false},
        {"compressed by bzip2",
         [](Bytes zip) { zip.all[kLocalMethod] = zip.all[zip.list + kListMethod] = 12; },
         cannotOpenEntry, false},
        {"headers disagree", [](Bytes zip) { zip.flip({zip.list + kListCrc}); }, cannotOpenEntry,
         false},
        {"CRC wrong",
         [](Bytes zip) {
             zip.flip({kLocalCrc, zip.list + kListCrc});
         },
         cannotRead},
        {"data damaged", [](Bytes zip) { zip.all.replace(4000, 2000, 2000, '\0'); }, cannotRead},
        {"stored data damaged", [](Bytes zip) { zip.flip({kLocalData + 30000}); }, cannotRead, true,
         true},
        {"stored data too short",
         [](Bytes zip) {
             zip.flip({kLocalSize, zip.list + kListSize});
         },
         cannotRead, true, true},
    };
    const TempFolder folder;
    for (const Damage& damage : damages) {
        const std::u16string path = folder / u"model.ifczip";
        writeZip(path, {{"model.ifc", content, damage.stored}});
        std::string archive = folder.read(u"model.ifczip");
        damage.done({archive});
        folder.write(u"model.ifczip", archive);

        ErrorLog errors;
        InputZipFileStream stream(path, errors.callback(), 1000);
        SCOPED_TRACE(damage.what);
        EXPECT_EQ(stream.isOpen(), damage.opens);
        if (stream.isOpen()) {
            while (stream.refill())
                stream.advanceTo(stream.windowEnd());
            EXPECT_EQ(stream.readFailed(), !damage.report.empty());
            EXPECT_TRUE(stream.isEof());
        }
        std::vector<std::string> expected;
        if (!damage.report.empty())
            expected.push_back(damage.report +
                               (damage.report.ends_with(": ") ? platform::toUtf8(path) : ""));
        EXPECT_EQ(errors.entries, expected);
        // Nobody need listen.
        InputZipFileStream silent(path, nullptr, 1000);
        EXPECT_EQ(silent.isOpen(), damage.opens);
    }
}

}  // namespace
