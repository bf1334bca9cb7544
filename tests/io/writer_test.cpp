#include "ifc/io/writer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "ifc/io/input_zip_stream.h"
#include "ifc/io/output_file_stream.h"
#include "ifc/model/attribute_writer.h"
#include "tests/support/reports.h"
#include "tests/support/step_model.h"
#include "tests/support/token_text.h"

namespace {

constexpr std::string_view kTwoPersons =
    "#7=IFCPERSON($,'a',$,$,$,$,$,$);\n#3=IFCPERSON($,'b',$,$,$,$,$,$);\n";

/// stepFile(kTwoPersons) as the writer lays it out, without the plain file's first line.
constexpr std::string_view kTwoPersonsWritten =
    "ISO-10303-21;\n"
    "HEADER;\n"
    "FILE_DESCRIPTION (\n"
    "\t\t('ViewDefinition'),\n"
    "\t\t'2;1');\n"
    "FILE_NAME (\n"
    "\t\t'n',\n"
    "\t\t'2024-01-02T03:04:05',\n"
    "\t\t('a'),\n"
    "\t\t('o'),\n"
    "\t\t'p',\n"
    "\t\t's',\n"
    "\t\t'z');\n"
    "FILE_SCHEMA (('IFC4'));\n"
    "ENDSEC;\n"
    "\n"
    "DATA;\n"
    "#7=IFCPERSON($,'a',$,$,$,$,$,$);\n"
    "#3=IFCPERSON($,'b',$,$,$,$,$,$);\n"
    "ENDSEC;\n"
    "END-ISO-10303-21;\n";

constexpr std::string_view kFirstLine = "         \n";  // nine blanks

TEST(ModelWriter, LaysAPlainFileOutLineByLine) {
    ReadModel read(stepFile(kTwoPersons));
    ASSERT_TRUE(read.loaded());
    EXPECT_EQ(stepOf(read.model()), std::string(kFirstLine) + std::string(kTwoPersonsWritten));
}

TEST(ModelWriter, ZipsOneEntryWithoutTheFirstLine) {
    ReadModel read(stepFile(kTwoPersons));
    ASSERT_TRUE(read.loaded());
    const TempFolder folder;
    ErrorLog log;
    ASSERT_TRUE(
        IFC::ModelWriter(log.callback()).write(read.model(), folder / u"out_edited.IFCZIP"));
    // Of the archive the first entry is read, of a project archive the one that is named.
    std::filesystem::copy_file(folder / u"out_edited.IFCZIP", folder / u"out.ahx");
    FileStream::InputZipFileStream stream((folder / u"out.ahx") + u"|out_edited.ifc",
                                          log.callback(), 4096);
    std::string bytes(kTwoPersonsWritten.size() + 1, ' ');
    ASSERT_TRUE(stream.isOpen());
    stream.read(bytes.data(), bytes.size());
    EXPECT_EQ(bytes, std::string(kTwoPersonsWritten) + "\xFF");
    EXPECT_NE(stream.nextEntry(), 0);
    EXPECT_TRUE(log.entries.empty());
}

TEST(ModelWriter, WritesEmptyListsAndConsumesTheHeadersLists) {
    ReadModel read(stepFile(kTwoPersons));
    ASSERT_TRUE(read.loaded());
    HeaderFields& header = read.model().header;
    header.description = {};
    header.author = {};
    header.organization = {u"a", u"It's"};
    const TempFolder folder;
    ASSERT_TRUE(IFC::ModelWriter({}).write(read.model(), folder / u"out.ifc"));
    const std::string step = folder.read(u"out.ifc");
    EXPECT_NE(step.find("FILE_DESCRIPTION (\n\t\t(),\n\t\t'2;1');\n"), std::string::npos);
    EXPECT_NE(step.find("\t\t'2024-01-02T03:04:05',\n\t\t(),\n\t\t('a','It''s'),\n\t\t'p',\n"),
              std::string::npos);
    EXPECT_TRUE(header.organization.empty());
}

TEST(ModelWriter, EscapesStrings) {
    struct {
        std::u16string_view text;
        std::string_view written;
    } constexpr kCases[] = {
        {u"", "'',"},
        {u"It's", "'It''s',"},
        {u"a\\b", "'a\\\\b',"},
        {u" ~", "' ~',"},
        {u"\u00E4", "'\\X2\\00E4\\X0\\',"},
        {u"\u00E4\u03A9", "'\\X2\\00E4\\X0\\\\X2\\03A9\\X0\\',"},
        {u"a\nb\t\x7F", "'a\\X2\\000A\\X0\\b\\X2\\0009\\X0\\\\X2\\007F\\X0\\',"},
        {u"\U0001F600", "'\\X2\\D83D\\X0\\\\X2\\DE00\\X0\\',"},
        {u"\xFFE4", "'\\X2\\FFE4\\X0\\',"},
        {std::u16string_view(u"\0", 1), "'\\X2\\0000\\X0\\',"},
    };
    const TempFolder folder;
    for (const auto& [text, written] : kCases) {
        FileStream::OutpoutFileStream out(folder / u"text", {}, 16, 0);
        IFC::AttributeWriter::appendString(out, text);
        out.close();
        EXPECT_EQ(folder.read(u"text"), written);
    }
}

TEST(ModelWriter, ReadsBackEveryStringThatItWrites) {
    ReadModel read(stepFile("#1=IFCPERSON($,'x',$,$,$,$,$,$);\n"));
    ASSERT_TRUE(read.loaded());
    std::u16string all;
    for (unsigned unit = 0; unit < 0x10000; ++unit)
        all.push_back(static_cast<char16_t>(unit));
    read.model().header.name = all;
    ReadModel again(stepOf(read.model()));
    ASSERT_TRUE(again.loaded());
    EXPECT_TRUE(again.model().header.name == all);
}

TEST(ModelWriter, WritesTheSameWhereverItsBufferIsFlushed) {
    ReadModel read(
        stepFile("#1=IFCPERSON('i','It''s',$,('a','\\X2\\00E4\\X0\\',''),(),$,(#2,#3),$,'more');\n"
                 "#2=IFCACTORROLE(.OWNER.,$,$);\n#3=IFCACTORROLE(.OWNER.,$,$);\n"
                 "#4=IFCCARTESIANPOINTLIST3D(((0.,-1.5,1.E-5),(1.,2.,3.)));\n"
                 "#5=IFCTABLEROW((IFCLABEL('x'),IFCBOOLEAN(.F.),IFCINTEGER(-5)),.T.);\n"
                 "#6=IFCPIXELTEXTURE(.T.,.F.,$,$,$,2,1,3,(\"0FF\",\"1A0\"));\n"));
    ASSERT_TRUE(read.loaded());
    constexpr std::size_t kKeepBack = 10;
    const TempFolder folder;
    const auto attributes = [&](std::size_t capacityBytes) {
        FileStream::OutpoutFileStream out(folder / u"out", {}, capacityBytes, kKeepBack);
        IFC::AttributeWriter writer(out);
        for (const IFC::IfcEntity* entity : read.model().entities()) {
            writer.beginRecord(entity->classInfo().derived, nullptr);
            entity->writeAttributes(writer);
        }
        out.close();
        return folder.read(u"out");
    };
    const std::string expected = attributes(0x10000);
    EXPECT_GT(expected.size(), 200U);
    for (std::size_t capacityBytes = 1; capacityBytes < 80; ++capacityBytes)
        EXPECT_EQ(attributes(capacityBytes), expected) << capacityBytes;
}

TEST(ModelWriter, LeavesOutDeletedEntitiesAndWhatRefersToThem) {
    ReadModel read(
        stepFile("#1=IFCPERSONANDORGANIZATION(#2,#3,(#4,#5));\n"
                 "#2=IFCPERSON($,'p',$,$,$,$,(#4),$);\n"
                 "#3=IFCORGANIZATION($,'o',$,$,$);\n"
                 "#4=IFCACTORROLE(.OWNER.,$,$);\n"
                 "#5=IFCACTORROLE(.ARCHITECT.,$,$);\n"));
    ASSERT_TRUE(read.loaded());
    for (const int number : {3, 4})
        read.model().find(number)->markDeleted();
    IFC::IfcEntity* added = read.model().createEntity("ifcActorRole", {});
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(dataOf(stepOf(read.model())),
              "#1=IFCPERSONANDORGANIZATION(#2,$,(#5));\n"
              "#2=IFCPERSON($,'p',$,$,$,$,(),$);\n"
              "#5=IFCACTORROLE(.ARCHITECT.,$,$);\n"
              "#6=IFCACTORROLE($,$,$);\n");
}

TEST(ModelWriter, ReportsEachPercentOnce) {
    ReadModel read(stepFile(kTwoPersons));
    ASSERT_TRUE(read.loaded());
    const TempFolder folder;
    std::vector<std::pair<int, int>> calls;
    IFC::ModelWriter writer({}, [&](int percent, int remainder) {
        calls.emplace_back(percent, remainder);
        return true;
    });
    ASSERT_TRUE(writer.write(read.model(), folder / u"out.ifc"));
    EXPECT_EQ(calls, (std::vector<std::pair<int, int>>{{50, 0}, {100, 0}}));
}

TEST(ModelWriter, LeavesWhatWasThereWhenItIsStopped) {
    ReadModel read(stepFile(kTwoPersons));
    ASSERT_TRUE(read.loaded());
    const TempFolder folder;
    for (const std::u16string_view name : {u"out.ifc", u"out.ifczip"}) {
        folder.write(name, "before");
        ErrorLog log;
        IFC::ModelWriter writer(log.callback(), [](int, int) { return false; });
        EXPECT_FALSE(writer.write(read.model(), folder / name));
        EXPECT_EQ(folder.read(name), "before");
        EXPECT_TRUE(log.entries.empty());
    }
    EXPECT_EQ(folder.count(), 2);
}

TEST(ModelWriter, ReportsPathsThatItCannotWrite) {
    ReadModel read(stepFile(kTwoPersons));
    ASSERT_TRUE(read.loaded());
    const TempFolder folder;
    folder.write(u"file", "before");
    std::filesystem::create_directory(folder / u"folder.ifc");
    const std::u16string noFolder = folder / u"none/out.ifc";
    const std::u16string notAFolder = folder / u"file/out.ifczip";
    const std::u16string aFolder = folder / u"folder.ifc";
    struct Case {
        std::u16string path;
        std::string report;
        std::string reason;  // the begin of a second report
    };
    const std::string cannotWrite = "could_not_open_file_write|File path: ";
    const Case cases[] = {{folder / u"out.step", "could_not_open_file_extension| ", ""},
                          {noFolder, cannotWrite, "file_folder_missing|("},
                          {notAFolder, cannotWrite, "file_folder_missing|("},
                          {aFolder, cannotWrite, "file_"}};  // each system has its own reason
    for (const Case& entry : cases) {
        ErrorLog log;
        IFC::ModelWriter writer(log.callback());
        EXPECT_FALSE(writer.write(read.model(), entry.path));
        ASSERT_EQ(log.entries.size(), entry.reason.empty() ? 1u : 2u);
        EXPECT_EQ(log.entries[0], entry.report + platform::toUtf8(entry.path));
        if (!entry.reason.empty()) {
            EXPECT_TRUE(log.entries[1].starts_with(entry.reason)) << log.entries[1];
        }
    }
    EXPECT_EQ(folder.count(), 2);
    EXPECT_EQ(folder.read(u"file"), "before");
}

}  // namespace
