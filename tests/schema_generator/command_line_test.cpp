#include "tools/schema_generator/command_line.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "tests/schema_generator/schema_text.h"
#include "tests/support/temp_folder.h"

namespace schema_generator {
namespace {

namespace fs = std::filesystem;

struct Outcome {
    int code;
    std::string out;
    std::string errors;
};

Outcome run(const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream errors;
    const int code = runCommandLine(arguments, out, errors);
    return {code, out.str(), errors.str()};
}

std::string contentOf(const fs::path& path) {
    std::string content;
    EXPECT_TRUE(readFile(path, content)) << path;
    return content;
}

TEST(CommandLine, WritesNothingForASchemaThatItDoesNotUnderstand) {
    const TempFolder folder;
    const fs::path target = folder / u"IFC4";
    const std::string schema =
        fs::path(folder.write(u"bad.exp", "SCHEMA IFC4;\nENTITY IfcA\n")).string();
    const Outcome outcome = run({schema, "IFC4", target.string()});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_NE(outcome.errors.find("bad.exp:3: expected \";\", found the end"), std::string::npos)
        << outcome.errors;
    EXPECT_FALSE(fs::exists(target));
}

TEST(CommandLine, WritesNothingForAnotherRelease) {
    const TempFolder folder;
    const fs::path target = folder / u"IFC4";
    const std::string schema =
        fs::path(folder.write(u"a.exp", schemaWith("ENTITY IfcA; END_ENTITY;"))).string();
    EXPECT_EQ(run({schema, "IFC2X3", target.string()}).code, 1);
    EXPECT_EQ(run({"none.exp", "IFC4", target.string()}).errors, "cannot read none.exp\n");
    EXPECT_EQ(run({schema}).code, 2);
    EXPECT_FALSE(fs::exists(target));
}

TEST(CommandLine, LeavesUnchangedFilesAloneAndRemovesItsStaleOnes) {
    const TempFolder folder;
    const fs::path target = folder / u"IFC4";
    const auto generateFrom = [&](std::string_view declarations) {
        const fs::path schema = folder.write(u"a.exp", schemaWith(declarations));
        const Outcome outcome = run({schema.string(), "IFC4", target.string()});
        EXPECT_EQ(outcome.code, 0) << outcome.errors;
    };
    generateFrom("ENTITY IfcA; END_ENTITY; ENTITY IfcZ; END_ENTITY;");
    ASSERT_TRUE(fs::exists(target / "ifc_z.cpp"));
    std::ofstream(target / "notes.cpp") << "// by hand\n";
    const auto before = fs::last_write_time(target / "ifc_a.cpp") - std::chrono::hours(1);
    fs::last_write_time(target / "ifc_a.cpp", before);

    generateFrom("ENTITY IfcA; END_ENTITY; ENTITY IfcY; END_ENTITY;");
    EXPECT_FALSE(fs::exists(target / "ifc_z.cpp"));
    EXPECT_TRUE(fs::exists(target / "ifc_y.cpp"));
    EXPECT_TRUE(fs::exists(target / "notes.cpp"));
    EXPECT_EQ(fs::last_write_time(target / "ifc_a.cpp"), before);
    EXPECT_NE(contentOf(target / "sources.cmake").find("    ifc_y.cpp\n"), std::string::npos);
}

TEST(CommandLine, CountsWhatASchemaDeclares) {
    const TempFolder folder;
    const fs::path schema = folder.write(
        u"a.exp",
        schemaWith("TYPE IfcN = ENUMERATION OF (A); END_TYPE; TYPE IfcV = REAL; END_TYPE;\n"
                   "TYPE IfcM = ENUMERATION OF (B); END_TYPE;\n"
                   "TYPE IfcS = SELECT (IfcN, IfcA); END_TYPE; ENTITY IfcA; END_ENTITY;"));
    // One entity, two value classes (IfcV and IfcN), one select, two enumerations.
    EXPECT_EQ(run({"--counts", schema.string()}).out,
              "release            entities    types  selects    enums    names  classes\n"
              "IFC4                      1        2        1        2        3        4\n");
}

TEST(Regeneration, GivesTheCommittedBytes) {
    const TempFolder folder;
    for (const std::string_view release : kReleases) {
        const fs::path schema = publishedSchema(release);
        if (!fs::exists(schema))
            GTEST_SKIP() << "no schemas in " << schema.parent_path();
        const fs::path fresh = folder / std::u16string(release.begin(), release.end());
        const fs::path committed = fs::path(QUILLET_SOURCE_DIR) / "ifc" / "schemas" / release;
        const Outcome outcome = run({schema.string(), std::string(release), fresh.string()});
        ASSERT_EQ(outcome.code, 0) << outcome.errors;
        std::size_t files = 0;
        for (const fs::directory_entry& entry : fs::directory_iterator(fresh)) {
            ++files;
            EXPECT_TRUE(contentOf(entry.path()) == contentOf(committed / entry.path().filename()))
                << release << ": " << entry.path().filename()
                << " differs; build the target regenerate-schemas";
        }
        EXPECT_EQ(files,
                  static_cast<std::size_t>(std::distance(fs::directory_iterator(committed), {})))
            << release;
    }
}

}  // namespace
}  // namespace schema_generator
