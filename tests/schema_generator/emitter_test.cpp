#include <gtest/gtest.h>

#include <string>

#include "tests/schema_generator/schema_text.h"
#include "tools/schema_generator/layout.h"
#include "tools/schema_generator/templates.h"

namespace schema_generator {
namespace {

void expectContains(const std::string& text, std::string_view part) {
    EXPECT_NE(text.find(part), std::string::npos) << "missing:\n" << part << "\nin:\n" << text;
}

constexpr std::string_view kUnits =
    "TYPE IfcUnitEnum = ENUMERATION OF (LENGTHUNIT, MASSUNIT); END_TYPE;\n"
    "TYPE IfcUnit = SELECT (IfcNamedUnit); END_TYPE;\n"
    "ENTITY IfcContextUnit SUBTYPE OF (IfcNamedUnit); Names : LIST [1:?] OF UNIQUE STRING;\n"
    "  Parts : OPTIONAL SET OF IfcUnit; Root : OPTIONAL IfcNamedUnit;\n"
    "DERIVE SELF\\IfcNamedUnit.Size : REAL := 1.; END_ENTITY;\n"
    "ENTITY IfcNamedUnit ABSTRACT SUPERTYPE OF (IfcContextUnit); Size : REAL;\n"
    "  UnitType : IfcUnitEnum; END_ENTITY;";

TEST(EmittedEntity, IsDeclaredWithItsBasesFirst) {
    const std::string classes = emittedFile(schemaOf(kUnits), "classes.h");
    expectContains(classes,
                   R"(/// IfcNamedUnit.
class IfcUnit : public virtual IFC::IfcEntity {};

/// Abstract root with Size and UnitType.
class IfcNamedUnit : public virtual IFC::IfcComplexType, public IFC::IfcUnit, public IfcUnit {
public:
    IfcNamedUnit() noexcept;
    ~IfcNamedUnit() noexcept override;

    const IFC::ClassInfo& classInfo() const override;
    void readAttributes(IFC::AttributeReader& reader) override;
    void writeAttributes(IFC::AttributeWriter& writer) const override;

    std::string_view unitType() const override;

private:
    IFC::Real Size_;
    IFC::Enumeration UnitType_;
};

/// Kind of IfcNamedUnit with Names, Parts and Root; computes Size.
class IfcContextUnit : public virtual IFC::IfcComplexType, public IfcNamedUnit {
public:
    IfcContextUnit() noexcept;
    ~IfcContextUnit() noexcept override;

    const IFC::ClassInfo& classInfo() const override;
    void collectReferences(std::deque<IFC::IfcEntity*>& queue) const override;
    void readAttributes(IFC::AttributeReader& reader) override;
    void writeAttributes(IFC::AttributeWriter& writer) const override;

private:
    IFC::Sequence<IFC::Text> Names_;
    IFC::References<IfcUnit> Parts_;
    IfcNamedUnit* Root_ = nullptr;
};
)");
}

TEST(EmittedEntity, CallsItsSupertypeAndThenEachAttributeInOrder) {
    const std::string bodies = emittedFile(schemaOf(kUnits), "ifc_c.cpp");
    expectContains(bodies,
                   R"(constinit const IFC::ClassInfo kIfcContextUnit =
    IFC::instantiableClass<IfcContextUnit>(u"IfcContextUnit", "IFCCONTEXTUNIT", IFC::derivedAt(0));

IfcContextUnit::IfcContextUnit() noexcept = default;
IfcContextUnit::~IfcContextUnit() noexcept = default;

const IFC::ClassInfo& IfcContextUnit::classInfo() const { return kIfcContextUnit; }

void IfcContextUnit::collectReferences(std::deque<IFC::IfcEntity*>& queue) const {
    IfcNamedUnit::collectReferences(queue);
    IFC::collect(queue, Parts_, kIfcUnit);
    IFC::collect(queue, Root_);
}

void IfcContextUnit::readAttributes(IFC::AttributeReader& reader) {
    IfcNamedUnit::readAttributes(reader);
    reader.texts(Names_, kMandatory);
    reader.selects(Parts_, kOptional, kIfcUnit);
    reader.reference(Root_, kOptional, kIfcNamedUnit);
}

void IfcContextUnit::writeAttributes(IFC::AttributeWriter& writer) const {
    IfcNamedUnit::writeAttributes(writer);
    writer.texts(Names_);
    writer.selects(Parts_, kIfcUnit);
    writer.reference(Root_, kIfcNamedUnit);
}
)");
}

TEST(EmittedEntity, WithoutAttributesOverridesNothing) {
    const std::string classes = emittedFile(schemaOf("ENTITY IfcA; X : REAL; END_ENTITY;\n"
                                                     "ENTITY IfcB SUBTYPE OF (IfcA); END_ENTITY;"),
                                            "classes.h");
    expectContains(classes,
                   "/// Kind of IfcA.\n"
                   "class IfcB : public virtual IFC::IfcComplexType, public IfcA {\n"
                   "public:\n"
                   "    IfcB() noexcept;\n"
                   "    ~IfcB() noexcept override;\n"
                   "\n"
                   "    const IFC::ClassInfo& classInfo() const override;\n"
                   "};\n");
}

struct CallCase {
    std::string_view type;
    std::string_view member;
    std::string_view read;
};

TEST(EmittedAttribute, HasTheMemberAndTheCallOfItsKind) {
    static constexpr CallCase kCases[] = {
        {"STRING", "IFC::Text X_;", "text(X_, kMandatory);"},
        {"OPTIONAL BINARY", "IFC::Binary X_;", "binary(X_, kOptional);"},
        {"NUMBER", "IFC::Real X_;", "real(X_, kMandatory);"},
        {"INTEGER", "IFC::Integer X_;", "integer(X_, kMandatory);"},
        {"LOGICAL", "IFC::Logical X_;", "logical(X_, kMandatory);"},
        {"IfcEnum", "IFC::Enumeration X_;", "enumeration(X_, kMandatory, kIfcEnum);"},
        {"IfcA", "IfcA* X_ = nullptr;", "reference(X_, kMandatory, kIfcA);"},
        {"IfcSelect", "IfcSelect* X_ = nullptr;", "select(X_, kMandatory, kIfcSelect);"},
        {"LIST OF BINARY", "IFC::Sequence<IFC::Binary> X_;", "binaries(X_, kMandatory);"},
        {"LIST OF REAL", "IFC::Sequence<double> X_;", "reals(X_, kMandatory);"},
        {"LIST OF INTEGER", "IFC::Sequence<std::int64_t> X_;", "integers(X_, kMandatory);"},
        {"LIST OF BOOLEAN", "IFC::Sequence<IFC::Logical> X_;", "logicals(X_, kMandatory);"},
        {"SET OF IfcEnum", "IFC::Sequence<IFC::Enumeration> X_;",
         "enumerations(X_, kMandatory, kIfcEnum);"},
        {"SET OF IfcA", "IFC::References<IfcA> X_;", "references(X_, kMandatory, kIfcA);"},
        {"LIST OF LIST OF STRING", "IFC::Sequence<IFC::Sequence<IFC::Text>> X_;",
         "textLists(X_, kMandatory);"},
        {"LIST OF LIST OF REAL", "IFC::Sequence<IFC::Sequence<double>> X_;",
         "realLists(X_, kMandatory);"},
        {"LIST OF LIST OF INTEGER", "IFC::Sequence<IFC::Sequence<std::int64_t>> X_;",
         "integerLists(X_, kMandatory);"},
        {"LIST OF LIST OF IfcA", "IFC::Sequence<IFC::References<IfcA>> X_;",
         "referenceLists(X_, kMandatory, kIfcA);"},
        {"LIST OF LIST OF IfcSelect", "IFC::Sequence<IFC::References<IfcSelect>> X_;",
         "selectLists(X_, kMandatory, kIfcSelect);"},
    };
    for (const auto& [type, member, read] : kCases) {
        const Schema schema = schemaOf(
            "TYPE IfcEnum = ENUMERATION OF (E); END_TYPE;\n"
            "TYPE IfcSelect = SELECT (IfcA); END_TYPE;\n"
            "ENTITY IfcA; X : " +
            std::string(type) + "; END_ENTITY;");
        expectContains(emittedFile(schema, "classes.h"), "    " + std::string(member) + "\n");
        expectContains(emittedFile(schema, "ifc_a.cpp"), " reader." + std::string(read));
    }
}

TEST(EmittedValueClass, OfAnEnumerationStandsBesideIt) {
    const Schema schema = schemaOf(
        "TYPE IfcNullStyle = ENUMERATION OF (NULL); END_TYPE;\n"
        "TYPE IfcStyle = SELECT (IfcNullStyle); END_TYPE;\nENTITY IfcA; END_ENTITY;");
    expectContains(
        emittedFile(schema, "enums.cpp"),
        "constexpr std::string_view kIfcNullStyleEnumerationValues[] = {\n"
        "    \"NULL\",\n"
        "};\n"
        "constinit const IFC::EnumerationInfo kIfcNullStyleEnumeration(\"IfcNullStyle\",\n"
        "                                                              "
        "kIfcNullStyleEnumerationValues);\n");
    const std::string bodies = emittedFile(schema, "ifc_n.cpp");
    expectContains(bodies, "reader.enumeration(value_, kMandatory, kIfcNullStyleEnumeration);");
    expectContains(
        bodies, "return {.enumeration = &value_, .enumerationInfo = &kIfcNullStyleEnumeration};");
    expectContains(emittedFile(schema, "registration.cpp"), "    &kIfcNullStyle,\n");
}

TEST(EmittedValueClass, OfReferencesHandsThemOut) {
    const Schema schema =
        schemaOf("TYPE IfcAs = SET [1:?] OF IfcA; END_TYPE;\nENTITY IfcA; END_ENTITY;");
    const std::string bodies = emittedFile(schema, "ifc_a.cpp");
    expectContains(bodies, "bool IfcAs::holdsReferences() const { return true; }\n");
    expectContains(bodies, "    IFC::collect(queue, value_, kIfcA);\n");
    expectContains(bodies, "    reader.references(value_, kMandatory, kIfcA);\n");
}

TEST(EmittedSelect, IsNotRegisteredAndChecksItsMembers) {
    const Schema schema = schemaOf(
        "TYPE IfcOut = SELECT (IfcIn, IfcA); END_TYPE;\nTYPE IfcIn = SELECT (IfcV); END_TYPE;\n"
        "TYPE IfcV = REAL; END_TYPE;\nENTITY IfcA; END_ENTITY;");
    expectContains(emittedFile(schema, "classes.h"),
                   "/// IfcV.\nclass IfcIn : public IfcOut {};\n");
    expectContains(emittedFile(schema, "ifc_o.cpp"),
                   "constinit const IFC::ClassInfo kIfcOut = IFC::selectClass<IfcOut>(u\"IfcOut\", "
                   "\"IFCOUT\");\nstatic_assert(IFC::kAllConvertTo<IfcOut, IfcA, IfcV>);\n");
    expectContains(emittedFile(schema, "registration.cpp"),
                   "kRegisteredClasses[] = {\n    &kIfcV,\n    &kIfcA,\n};\n");
}

TEST(EmittedView, UsesTheReleasesOwnAttributes) {
    struct Case {
        std::string_view declarations;
        std::string_view body;
    };
    static constexpr Case kCases[] = {
        {"TYPE IfcCurrencyEnum = ENUMERATION OF (EUR, USD); END_TYPE;\n"
         "ENTITY IfcMonetaryUnit; Currency : IfcCurrencyEnum; END_ENTITY;",
         "    static constexpr std::u16string_view kTexts[] = {\n        u\"EUR\", u\"USD\",\n    "
         "};\n"},
        {"ENTITY IfcMonetaryUnit; Currency : STRING; END_ENTITY;",
         "std::u16string_view IfcMonetaryUnit::displayName() const { return Currency_.view(); }\n"},
    };
    for (const auto& [declarations, body] : kCases)
        expectContains(emittedFile(schemaOf(declarations), "ifc_m.cpp"), body);
}

TEST(EmittedView, ReachesAnAttributeOfTheSupertype) {
    const Schema schema = schemaOf(
        "ENTITY IfcRelDefines; Name : STRING; RelatedObjects : SET OF IfcRelDefines; END_ENTITY;\n"
        "ENTITY IfcRelDefinesByProperties SUBTYPE OF (IfcRelDefines);\n"
        "RelatingPropertyDefinition : IfcRelDefines; END_ENTITY;");
    expectContains(emittedFile(schema, "classes.h"),
                   "protected:\n"
                   "    IFC::References<IfcRelDefines> RelatedObjects_;\n"
                   "\n"
                   "private:\n"
                   "    IFC::Text Name_;\n");
    expectContains(
        emittedFile(schema, "ifc_r.cpp"),
        "void IfcRelDefinesByProperties::relatedObjects(std::vector<IFC::IfcEntity*>& out) "
        "const {\n    IFC::append(out, RelatedObjects_, kIfcRelDefines);\n}\n");
}

TEST(Template, WithAPlaceholderThatNobodyFillsAborts) {
    EXPECT_EQ(filled("$a$ and $b$$a$", {{"a", "1"}, {"b", "$"}}), "1 and $1");
    EXPECT_DEATH(filled("class $naem$;", {{"name", "IfcWall"}}), "no value for \"naem\"");
    EXPECT_DEATH(filled("costs 5$", {{"name", "IfcWall"}}), "no value for \"\\$\"");
}

TEST(EmittedLine, IsNeverLongerThanTheHouseAllows) {
    for (const std::string_view release : kReleases) {
        std::string text;
        if (!readFile(publishedSchema(release), text))
            GTEST_SKIP() << "no schemas in " << publishedSchema(release).parent_path();
        const ParsedSchema parsed = parseSchema(text, release);
        ASSERT_TRUE(parsed.schema);
        DiagnosticList diagnostics(release);
        for (const GeneratedFile& file : generate(*parsed.schema, "S.exp", diagnostics)) {
            std::size_t start = 0;
            for (std::size_t end; (end = file.content.find('\n', start)) != std::string::npos;
                 start = end + 1) {
                EXPECT_LE(end - start, kColumnLimit) << file.content.substr(start, end - start);
                EXPECT_NE(file.content[end - 1], ' ') << file.content.substr(start, end - start);
            }
            EXPECT_EQ(start, file.content.size()) << file.name << " ends without a line end";
        }
    }
}

}  // namespace
}  // namespace schema_generator
