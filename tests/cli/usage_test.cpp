#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>

#include "tests/cli/command_line.h"
#include "tests/support/step_model.h"

namespace {

struct UsageCase {
    std::string_view words;
    std::string_view problem;
    std::string_view seeHelpOf;  // the command, with a blank behind it
};
constexpr UsageCase kWrongUsage[] = {
    {"frob", "there is no such command: frob", ""},
    {"--json", "there is no such command: --json", ""},
    {"info", "too few files are given, needed are: MODEL", "info "},
    {"info @a.ifc b", "this is one operand too many: b", "info "},
    {"info -- --json x", "this is one operand too many: x", "info "},
    {"info @a.ifc --frob", "there is no such option here: --frob", "info "},
    {"info @a.ifc -j", "there is no such option here: -j", "info "},
    {"info @a.ifc --json=1", "the option takes no value: --json", "info "},
    {"info @a.ifc --json --json", "the option is given twice: --json", "info "},
    {"copy @a.ifc", "too few files are given, needed are: MODEL OUTPUT", "copy "},
    {"apply @a.ifc @b.xml @c.ifc --entry", "the option needs a value: --entry", "apply "},
    {"set @a.ifc @b.ifc --pset S --property P --value 1",
     "needed and not given: --object or --type", "set "},
    {"set @a.ifc @b.ifc --object 1 --type IfcWall --pset S --property P --value 1",
     "--object can not be given together with --type", "set "},
    {"set @a.ifc @b.ifc --object 1 --property P --value 1", "needed and not given: --pset", "set "},
    {"set @a.ifc @b.ifc --object 1 --pset S --value 1", "needed and not given: --property", "set "},
    {"set @a.ifc @b.ifc --object 1 --pset S --property P",
     "needed and not given: --value or --unit", "set "},
    {"set @a.ifc @b.ifc --object 1 --pset S --property P --value ''",
     "a value can not be set to nothing; delete the property, or give it a blank", "set "},
    {"set @a.ifc @b.ifc --object 1 --pset S --property P --unit METER",
     "there is no such SI unit or prefix: METER", "set "},
    {"set @a.ifc @b.ifc --object 1 --pset S --property P --value 1 --prefix KILO",
     "--prefix can not be given without --unit", "set "},
    {"set @a.ifc @b.ifc --object 1 --pset S --property P --value 1 --unit METRE --prefix BIG",
     "there is no such SI unit or prefix: BIG", "set "},
    {"add @a.ifc @b.ifc --object 1 --pset S --property P", "needed and not given: --value", "add "},
    {"add @a.ifc @b.ifc --object 1 --pset S --property P --value 1 --quantity IfcQuantityArea "
     "--value-type IfcReal",
     "--quantity can not be given together with --value-type", "add "},
    {"rename @a.ifc @b.ifc --object 1 --pset S", "needed and not given: --to", "rename "},
    {"rename @a.ifc @b.ifc --object 1 --pset S --to ''", "a name can not be empty: --to",
     "rename "},
    {"delete @a.ifc @b.ifc --object 1 --pset S --value 1", "there is no such option here: --value",
     "delete "},
};

TEST(WrongUsage, IsExplainedAndDoesNothing) {
    for (const UsageCase& entry : kWrongUsage) {
        SCOPED_TRACE(entry.words);
        const CommandLine line;
        line.folder.write(u"a.ifc", smallModel());
        const Outcome outcome = line.run(entry.words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "quillet-cli: " + std::string(entry.problem) + "\nTry quillet-cli " +
                                   std::string(entry.seeHelpOf) + "--help\n");
        EXPECT_TRUE(line.holdsOnly(1));
    }
}

struct FileCase {
    std::string_view words;
    std::string_view err;
};
constexpr FileCase kFileProblems[] = {
    {"info @none.ifc", "@none.ifc: The file could not be opened. File path: @none.ifc\n"},
    {"psets @a.txt",
     "@a.txt: This is no extension of an IFC file (.ifc, .ifczip, .ahx|entry): @a.txt\n"},
    {"info @unknown.ifc", "@unknown.ifc: The schema is none of those that can be read: IFC9\n"},
    {"copy @a.ifc @b.txt",
     "This is no extension of an IFC file (.ifc, .ifczip, .ahx|entry): @b.txt\n"},
    {"copy @a.ifc @none/b.ifc",
     "@none/b.ifc: The file could not be written. File path: @none/b.ifc\n"
     "@none/b.ifc: The folder does not exist.\n"},
    {"copy @a.ifc @a.ifc",
     "@a.ifc: This file is read by the command; --force allows to replace it.\n"},
    {"copy @a.ifc @./a.ifc",
     "@./a.ifc: This file is read by the command; --force allows to replace it.\n"},
    {"apply @a.ifc @none.xml @b.ifc", "@none.xml: The file could not be read.\n"},
    {"apply @a.ifc @edits.ifc @edits.ifc",
     "@edits.ifc: This file is read by the command; --force allows to replace it.\n"},
    {"set @a.ifc @./a.ifc --object 1 --pset Common --property Lead --value 1",
     "@./a.ifc: This file is read by the command; --force allows to replace it.\n"},
};

TEST(FileProblems, AreReportedAndLeaveAllFilesAsTheyWere) {
    for (const FileCase& entry : kFileProblems) {
        SCOPED_TRACE(entry.words);
        const CommandLine line;
        line.folder.write(u"a.ifc", smallModel());
        line.folder.write(u"a.txt", smallModel());
        line.folder.write(u"unknown.ifc", stepFile("", "IFC9"));
        line.folder.write(u"edits.ifc", "<File FileName=\"a.ifc\"/>");
        const Outcome outcome = line.run(entry.words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        // Each system has its own words for a reason, in brackets.
        const std::string err = std::regex_replace(outcome.err, std::regex(" \\(.*\\)\n"), "\n");
        const auto count = std::count(entry.err.begin(), entry.err.end(), '\n');
        EXPECT_EQ(err, std::string(entry.err) + "quillet-cli: not done, " + std::to_string(count) +
                           (count == 1 ? " report\n" : " reports\n"));
        EXPECT_TRUE(line.holdsOnly(4));
        EXPECT_EQ(line.folder.read(u"a.ifc"), smallModel());
    }
}

TEST(FileProblems, IncludeAnOutputThatIsTheModelUnderAnotherName) {
    const CommandLine line;
    const std::u16string model = line.folder.write(u"a.ifc", smallModel());
    std::filesystem::create_hard_link(model, line.folder / u"link.ifc");
    EXPECT_EQ(line.run("copy @a.ifc @link.ifc").status, 2);
    EXPECT_EQ(line.run("copy @a.ifc @link.ifc --force").status, 0);
    EXPECT_EQ(line.folder.read(u"a.ifc"), smallModel());
}

TEST(Force, ReplacesTheModelByTheNewOne) {
    const CommandLine line;
    line.folder.write(u"a.ifc", smallModel());
    EXPECT_EQ(line.run("delete @a.ifc @a.ifc --force --object 1 --pset Sizes").status, 0);
    EXPECT_TRUE(line.holdsOnly(1));
    const std::string sets = line.sets("@a.ifc");
    EXPECT_EQ(sets.find("Sizes"), std::string::npos) << sets;
    EXPECT_NE(sets.find("Common"), std::string::npos) << sets;
}

TEST(Interrupt, StopsReadingAndWritingAndLeavesNothing) {
    const CommandLine line;
    std::string data;
    for (int number = 1; number <= 2000; ++number)
        data += "#" + std::to_string(number) + "=IFCCARTESIANPOINT((0.,0.,0.));\n";
    line.folder.write(u"a.ifc", stepFile(data));
    line.folder.write(u"b.ifc", "kept");
    int asked = 0;
    EXPECT_EQ(line.run("copy @a.ifc @b.ifc", [&] { return ++asked < 0; }).status, 0);
    ASSERT_GT(asked, 100);  // in each of reading and writing
    line.folder.write(u"b.ifc", "kept");
    for (const int last : {1, asked / 4, asked - 1}) {
        int count = 0;
        const Outcome outcome = line.run("copy @a.ifc @b.ifc", [&] { return ++count >= last; });
        EXPECT_LE(count, last + 2);  // it goes on no further
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, "quillet-cli: cancelled, nothing was written\n");
        EXPECT_EQ(line.folder.read(u"b.ifc"), "kept");
        EXPECT_TRUE(line.holdsOnly(2));
    }
}

TEST(Log, IsWrittenOnDemandOnly) {
    const CommandLine line;
    line.folder.write(u"a.ifc", stepFile("#1=IFCFOO();\n"));
    EXPECT_EQ(line.run("info @a.ifc").status, 1);
    EXPECT_TRUE(line.holdsOnly(1));
    EXPECT_EQ(line.run("info @a.ifc --log").status, 1);
    EXPECT_NE(line.folder.read(u"a_IFC_LOG.txt").find("Entity named: IFCFOO not found\n"),
              std::string::npos);
}

TEST(Help, ShowsUsageOptionsAndAnExampleOfEachCommand) {
    const CommandLine line;
    const Outcome general = line.run("--help");
    EXPECT_EQ(general.status, 0);
    EXPECT_EQ(general.err, "");
    const Outcome nothing = line.run("");
    EXPECT_EQ(nothing.status, 2);
    EXPECT_EQ(nothing.err, general.out);
    for (const std::string name :
         {"info", "psets", "apply", "copy", "set", "add", "rename", "delete"}) {
        SCOPED_TRACE(name);
        EXPECT_NE(general.out.find("\n  " + name + " "), std::string::npos);
        const Outcome help = line.run(name + " --help");
        EXPECT_EQ(help.status, 0);
        EXPECT_TRUE(help.out.starts_with("usage: quillet-cli " + name + " MODEL"));
        EXPECT_NE(help.out.find("\n  --help "), std::string::npos);
        EXPECT_NE(help.out.find("\nExample:\n  quillet-cli " + name + " house.ifc"),
                  std::string::npos);
        for (std::size_t begin = 0; begin < help.out.size();) {
            const std::size_t end = help.out.find('\n', begin);
            EXPECT_LE(end - begin, 100U);
            begin = end + 1;
        }
    }
}

}  // namespace
