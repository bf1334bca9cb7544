#include <gtest/gtest.h>

#include <string>

#include "tests/schema_generator/schema_text.h"

namespace schema_generator {
namespace {

std::string describe(const Representation& value) {
    static constexpr std::string_view kAggregates[] = {"array", "bag", "list", "set"};
    std::string result;
    for (const AggregateLayer& layer : value.layers) {
        result += std::string(kAggregates[static_cast<std::size_t>(layer.kind)]) + "[" +
                  std::to_string(layer.lower) + ":" +
                  (layer.upper ? std::to_string(*layer.upper) : "?") + "]" +
                  (layer.unique ? "unique " : " ");
    }
    switch (value.element) {
        case ElementKind::Binary: return result + "binary";
        case ElementKind::Entity: return result + "entity " + value.entity->name;
        case ElementKind::Enumeration: return result + "enumeration " + value.enumeration->name;
        case ElementKind::Integer: return result + "integer";
        case ElementKind::Logical: return result + "logical";
        case ElementKind::Number: return result + "number";
        case ElementKind::Real: return result + "real";
        case ElementKind::Select: return result + "select " + value.select->name;
        case ElementKind::Text: return result + "text";
    }
    return result;
}

/// "Name? text; Items list[1:?] entity IfcThing; derived 0"
std::string describe(const EntityType& entity) {
    std::string result = entity.isAbstract ? "abstract; " : "";
    for (const Attribute& attribute : entity.attributes)
        result +=
            attribute.name + (attribute.optional ? "? " : " ") + describe(attribute.value) + "; ";
    for (const DerivedAttribute& derived : entity.derived)
        result += "derived " + std::to_string(derived.index) + "; ";
    return result.empty() ? "" : result.substr(0, result.size() - 2);
}

struct AttributeCase {
    std::string_view express;
    std::string_view held;
};

TEST(Attributes, AreHeldByWhatTheirTypesComeDownTo) {
    static constexpr std::string_view kTypes =
        "TYPE IfcLabel = STRING(255); END_TYPE;\n"
        "TYPE IfcAlignment = IfcTitle; END_TYPE;\n"  // declared before what it is made of
        "TYPE IfcTitle = IfcLabel; WHERE WR1 : SELF IN ['a;b', 'it''s']; END_TYPE;\n"
        "TYPE IfcId = STRING(22) FIXED; END_TYPE;\n"
        "TYPE IfcAngle = LIST [3:4] OF INTEGER; WHERE W : ABS(SELF[1]) < 360; END_TYPE;\n"
        "TYPE IfcPair = ARRAY [1:2] OF REAL; END_TYPE;\n"
        "TYPE IfcColour = ENUMERATION OF (RED, NULL, CONST); END_TYPE;\n"
        "TYPE IfcChoice = SELECT (IfcThing, IfcLabel); END_TYPE;\n";
    static constexpr AttributeCase kCases[] = {
        {"A : STRING", "A text"},
        {"A : OPTIONAL IfcLabel", "A? text"},
        {"A : ifcalignment", "A text"},
        {"A : IfcId", "A text"},
        {"A, B : OPTIONAL REAL", "A? real; B? real"},
        {"A : NUMBER; B : INTEGER", "A number; B integer"},
        {"A : BOOLEAN; B : LOGICAL", "A logical; B logical"},
        {"A : BINARY(32)", "A binary"},
        {"A : IfcColour", "A enumeration IfcColour"},
        {"A : IfcChoice", "A select IfcChoice"},
        {"A : IfcThing", "A entity IfcThing"},
        {"A : IfcAngle", "A list[3:4] integer"},
        {"A : SET [1:?] OF IfcThing", "A set[1:?] entity IfcThing"},
        {"A : BAG OF IfcThing", "A bag[0:?] entity IfcThing"},
        {"A : LIST [2:?] OF UNIQUE IfcThing; B : REAL",
         "A list[2:?]unique entity IfcThing; B real"},
        {"A : LIST [1:?] OF LIST [3:3] OF UNIQUE REAL", "A list[1:?] list[3:3]unique real"},
        {"A : LIST [1:?] OF IfcPair", "A list[1:?] array[1:2] real"},
        {"A : OPTIONAL LIST [1:?] OF LIST [1:?] OF IfcChoice",
         "A? list[1:?] list[1:?] select IfcChoice"},
        {"a : real", "a real"},
    };
    for (const auto& [express, held] : kCases) {
        const Schema schema = schemaOf(std::string(kTypes) + "ENTITY IfcThing; " +
                                       std::string(express) + "; END_ENTITY;");
        ASSERT_EQ(schema.entities.size(), 1U) << express;
        EXPECT_EQ(describe(*schema.entities[0]), held) << express;
    }
}

struct EntityCase {
    std::string_view express;
    std::string_view held;
};

TEST(Entities, KeepOnlyWhatIsStored) {
    static constexpr std::string_view kBase =
        "ENTITY IfcBase ABSTRACT SUPERTYPE OF (ONEOF (IfcThing, IfcOther) ANDOR IfcOther);\n"
        "  First, Second : REAL; Third : OPTIONAL IfcBase;\n"
        "DERIVE Sum : REAL := First + Second; END_ENTITY;\n"
        "ENTITY IfcMiddle SUBTYPE OF (IfcBase); Fourth : REAL; END_ENTITY;\n"
        "ENTITY IfcOther SUBTYPE OF (IfcBase); END_ENTITY;\n";
    static constexpr EntityCase kCases[] = {
        {"ENTITY IfcThing; END_ENTITY;", ""},
        {"ENTITY IfcThing ABSTRACT SUPERTYPE; END_ENTITY;", "abstract"},
        {"ENTITY IfcThing SUBTYPE OF (IfcBase); A : REAL; END_ENTITY; END_ENTITY;", "A real"},
        {"ENTITY IfcThing; A : REAL; UNIQUE UR1 : A; UR2 : A, A; END_ENTITY;", "A real"},
        {"ENTITY IfcThing; A : REAL; WHERE A < 5; W2 : {0 <= A < 1.5E-3}; END_ENTITY;", "A real"},
        {"ENTITY IfcThing; A : REAL; INVERSE Back : SET [0:?] OF IfcBase FOR Third;\n"
         "Also : IfcBase FOR Third; UNIQUE UR1 : A; WHERE W : TRUE; END_ENTITY;",
         "A real"},
        {"ENTITY IfcThing; A : REAL; DERIVE B : LIST OF UNIQUE IfcBase := IfcF(A, [1, 2]);\n"
         "C : ARRAY [0:UpperIndex] OF REAL := QUERY(x <* A | x > 0); WHERE W : TRUE; END_ENTITY;",
         "A real"},
        {"ENTITY IfcThing SUBTYPE OF (IfcMiddle); A : REAL;\n"
         "DERIVE SELF\\IfcMiddle.Fourth : REAL := 1.; SELF\\IfcBase.Second : REAL := 2.; "
         "END_ENTITY;",
         "A real; derived 3; derived 1"},
        // Named by a subtype of the entity that declares the attribute.
        {"ENTITY IfcThing SUBTYPE OF (IfcMiddle); DERIVE SELF\\IfcMiddle.Third : IfcBase := ?;\n"
         "END_ENTITY;",
         "derived 2"},
        // Computed above already: nothing is stored.
        {"ENTITY IfcThing SUBTYPE OF (IfcMiddle); DERIVE SELF\\IfcBase.Sum : REAL := 0.;\n"
         "END_ENTITY;",
         ""},
        // Narrowed, but still stored by its owner.
        {"ENTITY IfcThing SUBTYPE OF (IfcBase); SELF\\IfcBase.Third : IfcOther; A : REAL; "
         "END_ENTITY;",
         "A real"},
    };
    for (const auto& [express, held] : kCases) {
        const Schema schema = schemaOf(std::string(kBase) + std::string(express));
        const EntityType* thing = schema.findEntity("ifcTHING");
        ASSERT_TRUE(thing) << express;
        EXPECT_EQ(describe(*thing), held) << express;
    }
}

TEST(Schema, PassesOverWhatDoesNotDescribeData) {
    static constexpr std::string_view kSkipped[] = {
        "(* a (* nested (**) remark *) ENTITY IfcNo; *)",
        "-- ENTITY IfcNo; END_ENTITY;",
        "(* ends with a tail remark -- *)",
        "CONSTANT IfcC : REAL := 1.; END_CONSTANT;",
        "RULE IfcR FOR (IfcThing); WHERE W : TRUE; END_RULE;",
        "FUNCTION IfcF (a : AGGREGATE OF GENERIC : T) : REAL;\n"
        "  LOCAL s : STRING := 'END_FUNCTION;'; END_LOCAL;\n"
        "  FUNCTION IfcInner : REAL; RETURN (1.); END_FUNCTION;\n"
        "  IF a <> ? THEN RETURN (%0101); END_IF;\n"
        "END_FUNCTION;",
        "PROCEDURE IfcP (VAR a : REAL); a := a ** 2; END_PROCEDURE;",
    };
    for (const std::string_view skipped : kSkipped) {
        const Schema schema = schemaOf(std::string(skipped) + "\nENTITY IfcThing; END_ENTITY;");
        EXPECT_EQ(schema.entities.size(), 1U) << skipped;
    }
}

TEST(Schema, IsTheSameWithAnyLineEndsAndAnyCase) {
    static constexpr std::string_view kVariants[] = {
        "SCHEMA IFC4;\n-- remark\nTYPE IfcTint = ENUMERATION OF (RED, GREEN); END_TYPE;\n"
        "ENTITY IfcThing; Tint : OPTIONAL IfcTint; END_ENTITY;\nEND_SCHEMA;\n",
        "SCHEMA IFC4;\r\n-- remark\r\nTYPE IfcTint = ENUMERATION OF (RED,\r\nGREEN); END_TYPE;\r\n"
        "ENTITY IfcThing; Tint : OPTIONAL IfcTint; END_ENTITY;\r\nEND_SCHEMA;",
        "schema IFC4; type IfcTint = enumeration of (red, Green); end_type; "
        "Entity IfcThing; Tint : Optional IFCTINT; End_Entity; end_schema;",
    };
    for (const std::string_view variant : kVariants) {
        const ParsedSchema parsed = parseSchema(variant, "test.exp");
        ASSERT_TRUE(parsed.schema) << variant;
        EXPECT_EQ(parsed.schema->enumerations[0]->values,
                  (std::vector<std::string>{"RED", "GREEN"}));
        EXPECT_EQ(describe(*parsed.schema->entities[0]), "Tint? enumeration IfcTint");
    }
}

}  // namespace
}  // namespace schema_generator
