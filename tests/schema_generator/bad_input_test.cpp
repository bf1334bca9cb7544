#include <gtest/gtest.h>

#include <random>
#include <string>

#include "tests/schema_generator/schema_text.h"

namespace schema_generator {
namespace {

using Complaints = std::vector<std::string>;

struct BadCase {
    std::string_view declarations;  // the first line is line 2 of the schema
    Complaints complaints;
};

TEST(BadInput, IsNamedByFileAndLine) {
    static const BadCase kCases[] = {
        {"ENTITY IfcA; END_ENTITY",
         {"test.exp:3: expected \";\", found \"END_SCHEMA\"",
          "test.exp:4: expected a declaration or \"END_SCHEMA\", found the end"}},
        {"SUBTYPE_CONSTRAINT x;",
         {"test.exp:2: expected a declaration, found \"SUBTYPE_CONSTRAINT\""}},
        {"ENTITY IfcA;\nX REAL;\nEND_ENTITY;", {"test.exp:3: expected \":\", found \"REAL\""}},
        {"ENTITY IfcA; X : LIST [1:n] OF REAL; END_ENTITY;",
         {"test.exp:2: expected a whole number, found \"n\""}},
        {"ENTITY IfcA; X : LIST [1:99999999999] OF REAL; END_ENTITY;",
         {"test.exp:2: expected a whole number, found \"99999999999\""}},
        {"ENTITY IfcA; X : IfcNone; END_ENTITY;", {"test.exp:2: unknown type \"IfcNone\""}},
        {"ENTITY IfcA; X : GENERIC; END_ENTITY;", {"test.exp:2: unknown type \"GENERIC\""}},
        {"ENTITY IfcA; X, x : REAL; END_ENTITY;", {"test.exp:2: \"x\" is declared twice"}},
        {"ENTITY IfcA;\nEND_ENTITY;\nTYPE IfcA = REAL; END_TYPE;",
         {"test.exp:2: \"IfcA\" is declared twice"}},
        {"ENTITY Wall; END_ENTITY;",
         {"test.exp:2: declared name \"Wall\" does not begin with \"Ifc\""}},
        {"ENTITY IfcA SUBTYPE OF (IfcB, IfcC); END_ENTITY;",
         {"test.exp:2: more than one supertype is not supported"}},
        {"ENTITY IfcA SUBTYPE OF (IfcB); END_ENTITY;", {"test.exp:2: unknown entity \"IfcB\""}},
        {"ENTITY IfcA SUPERTYPE OF (ONEOF (IfcB)); END_ENTITY;",
         {"test.exp:2: unknown entity \"IfcB\""}},
        {"ENTITY IfcA SUBTYPE OF (IfcB); END_ENTITY;\nENTITY IfcB SUBTYPE OF (IfcA); END_ENTITY;",
         {"test.exp:2: \"IfcA\" has itself among its supertypes, or too many of them",
          "test.exp:3: \"IfcB\" has itself among its supertypes, or too many of them"}},
        {"TYPE IfcA = IfcB; END_TYPE;\nTYPE IfcB = LIST OF IfcA; END_TYPE;",
         {"test.exp:3: \"IfcA\" is declared by itself"}},
        {"TYPE IfcA = SELECT (IfcB); END_TYPE;\nTYPE IfcB = SELECT (IfcA); END_TYPE;",
         {"test.exp:2: SELECT \"IfcA\" leads back to itself",
          "test.exp:3: SELECT \"IfcB\" leads back to itself"}},
        {"TYPE IfcA = SELECT (IfcB,\nIfcC); END_TYPE; TYPE IfcB = REAL; END_TYPE;",
         {"test.exp:3: unknown type \"IfcC\" in SELECT IfcA"}},
        {"TYPE IfcA = SELECT (IfcB, IfcB); END_TYPE; TYPE IfcB = REAL; END_TYPE;",
         {"test.exp:2: \"IfcB\" is listed twice in IfcA"}},
        {"TYPE IfcA = ENUMERATION OF (X,\nY, x); END_TYPE;",
         {"test.exp:3: \"x\" is listed twice in IfcA"}},
        {"TYPE IfcA = ENUMERATION OF (); END_TYPE;",
         {"test.exp:2: expected a value of the enumeration, found \")\""}},
        {"TYPE IfcA = ENUMERATION OF (X); END_TYPE;\nTYPE IfcB = IfcA; END_TYPE;",
         {"test.exp:3: a type that only renames \"IfcA\" is not supported"}},
        {"ENTITY IfcA; END_ENTITY;\nENTITY IfcB; DERIVE SELF\\IfcA.X : REAL := 1.; END_ENTITY;",
         {"test.exp:3: \"IfcA\" is no supertype of IfcB"}},
        {"ENTITY IfcA; END_ENTITY;\n"
         "ENTITY IfcB SUBTYPE OF (IfcA); DERIVE SELF\\IfcA.X : REAL := 1.; END_ENTITY;",
         {"test.exp:3: no attribute \"X\" in IfcA or its supertypes"}},
        {"ENTITY IfcA; DERIVE X : REAL; END_ENTITY;", {"test.exp:2: expected \":=\", found \";\""}},
        {"ENTITY IfcA; X : ARRAY [0:1] OF OPTIONAL REAL; END_ENTITY;",
         {"test.exp:2: aggregates with optional elements are not supported"}},
        {"ENTITY IfcA; X : LIST OF LIST OF BINARY; END_ENTITY;",
         {"test.exp:2: aggregates are nested too deeply for \"X\""}},
        {"TYPE IfcL = LIST OF LIST OF REAL; END_TYPE; ENTITY IfcA; X : SET OF IfcL; END_ENTITY;",
         {"test.exp:2: aggregates are nested too deeply for \"X\""}},
        {"FUNCTION IfcF : REAL;\nRETURN (1.);",
         {"test.exp:2: FUNCTION is not closed by END_FUNCTION"}},
        {"ENTITY IfcA; WHERE X = 'open;\nEND_ENTITY;",
         {"test.exp:2: string is not closed on its line",
          "test.exp:5: expected \";\", found the end",
          "test.exp:5: expected a declaration or \"END_SCHEMA\", found the end"}},
        {"(* open (* twice *)\nENTITY IfcA; END_ENTITY;",
         {"test.exp:2: remark is not closed",
          "test.exp:5: expected a declaration or \"END_SCHEMA\", found the end"}},
        {"ENTITY IfcA; X\x01 : R\xC3\xA4L; END_ENTITY;",
         {"test.exp:2: unexpected character code 1", "test.exp:2: unexpected character code 195",
          "test.exp:2: unexpected character code 164", "test.exp:2: expected \";\", found \"L\""}},
        {"END_SCHEMA;",
         {"test.exp:3: expected nothing more after \"END_SCHEMA\", found \"END_SCHEMA\""}},
        // Goes on behind a faulty declaration.
        {"ENTITY IfcA; X; END_ENTITY;\nENTITY IfcB; END_ENTITY;\nTYPE IfcC REAL; END_TYPE;",
         {"test.exp:2: expected \":\", found \";\"", "test.exp:4: expected \"=\", found \"REAL\""}},
    };
    for (const auto& [declarations, complaints] : kCases)
        EXPECT_EQ(complaintsAbout(schemaWith(declarations)), complaints) << declarations;
}

TEST(BadInput, AsAWholeIsNamedToo) {
    EXPECT_EQ(complaintsAbout(""), Complaints{"test.exp:1: expected \"SCHEMA\", found the end"});
    EXPECT_EQ(complaintsAbout("<html>"),
              Complaints{"test.exp:1: expected \"SCHEMA\", found \"<\""});
    EXPECT_EQ(complaintsAbout("SCHEMA ;"),
              Complaints{"test.exp:1: expected the schema's name, found \";\""});
}

TEST(BadInput, LeavesOutWhatTheViewsNeed) {
    const Schema schema =
        schemaOf("ENTITY IfcA; END_ENTITY;\nENTITY IfcUnitAssignment; END_ENTITY;");
    DiagnosticList diagnostics("test.exp");
    EXPECT_TRUE(generate(schema, "test.exp", diagnostics).empty());
    ASSERT_EQ(diagnostics.items().size(), 1U);
    EXPECT_EQ(toText(diagnostics.items()[0]),
              "test.exp:3: attribute \"Units\" is missing for IfcUnitAssignment.units of "
              "IFC::VirtualIfcUnitAssignment");
}

/// Either a schema or complaints about it, never both or neither.
void checkEndsCleanly(const std::string& text) {
    const ParsedSchema parsed = parseSchema(text, "test.exp");
    ASSERT_NE(parsed.schema.has_value(), !parsed.diagnostics.empty());
    ASSERT_LE(parsed.diagnostics.size(), DiagnosticList::kLimit);
}

const std::string kSample = schemaWith(
    "(* remark (* inner *) *) CONSTANT c : REAL := 1.; END_CONSTANT;\n"
    "TYPE IfcLabel = STRING(255) FIXED; WHERE W : SELF <> 'it''s'; END_TYPE;\n"
    "TYPE IfcTint = ENUMERATION OF (RED, NULL); END_TYPE; -- tail\n"
    "TYPE IfcInner = SELECT (IfcLabel, IfcTint); END_TYPE;\n"
    "TYPE IfcOuter = SELECT (IfcInner, IfcB); END_TYPE;\n"
    "ENTITY IfcA ABSTRACT SUPERTYPE OF (ONEOF (IfcB)); X, Y : OPTIONAL LIST [1:?] OF UNIQUE "
    "IfcOuter;\n"
    "END_ENTITY;\n"
    "ENTITY IfcB SUBTYPE OF (IfcA); Z : IfcTint; DERIVE SELF\\IfcA.X : LIST OF IfcOuter := [];\n"
    "INVERSE I : SET OF IfcA FOR X; UNIQUE U : Z; WHERE W : TRUE; END_ENTITY;\n"
    "FUNCTION f : REAL; RETURN (1.E-3); END_FUNCTION;");

TEST(HostileInput, CutAnywhereEndsCleanly) {
    ASSERT_TRUE(parseSchema(kSample, "test.exp").schema);
    for (std::size_t length = 0; length < kSample.size(); ++length)
        checkEndsCleanly(kSample.substr(0, length));
}

TEST(HostileInput, ChangedAtRandomEndsCleanly) {
    std::mt19937 random(20240517);
    for (int round = 0; round < 4000; ++round) {
        std::string text = kSample;
        for (int change = 0; change < 4; ++change) {
            const std::size_t from = random() % text.size();
            const std::size_t to = random() % text.size();
            const std::size_t length = random() % 24;
            switch (random() % 3) {
                case 0: text[from] = static_cast<char>(random()); break;
                case 1: text.insert(to, text.substr(from, length)); break;
                default: text.erase(from, length); break;
            }
        }
        checkEndsCleanly(text);
    }
}

std::string repeated(std::string_view text, std::size_t times) {
    std::string result;
    for (std::size_t i = 0; i < times; ++i)
        result += text;
    return result;
}

TEST(HostileInput, NestedOrLongBeyondReasonIsRefused) {
    std::string supertypes = "ENTITY IfcE0; END_ENTITY;";
    std::string selects = "TYPE IfcS0 = REAL; END_TYPE;";
    for (int i = 1; i < 3000; ++i) {
        supertypes += "ENTITY IfcE" + std::to_string(i) + " SUBTYPE OF (IfcE" +
                      std::to_string(i - 1) + "); END_ENTITY;\n";
        selects += "TYPE IfcS" + std::to_string(i) + " = SELECT (IfcS" + std::to_string(i - 1) +
                   "); END_TYPE;\n";
    }
    const std::string cases[] = {
        schemaWith(repeated("(*", 200000)),
        schemaWith("ENTITY IfcA SUPERTYPE OF " + repeated("(", 200000)),
        schemaWith("ENTITY IfcA; X : " + repeated("LIST OF ", 100000) + "REAL; END_ENTITY;"),
        schemaWith("ENTITY Ifc" + repeated("x", 200000) + "; END_ENTITY;"),
        schemaWith("ENTITY IfcA; " + repeated("a", 100) + repeated(", X", 100000) +
                   " : REAL; END_ENTITY;"),
        schemaWith(repeated("FUNCTION ", 100000)),
        schemaWith(supertypes),
        schemaWith(selects),
        repeated("\x80", 200000),
        std::string(200000, '\0'),
    };
    for (const std::string& text : cases) {
        checkEndsCleanly(text);
        EXPECT_FALSE(complaintsAbout(text).empty()) << text.substr(0, 60);
    }
}

}  // namespace
}  // namespace schema_generator
