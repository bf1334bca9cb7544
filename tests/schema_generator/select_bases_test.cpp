#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "tests/schema_generator/schema_text.h"

namespace schema_generator {
namespace {

std::string describe(const std::vector<SelectBase>& bases) {
    std::string result;
    for (const SelectBase& base : bases)
        result += (result.empty() ? "" : ", ") + std::string(base.isVirtual ? "virtual " : "") +
                  base.select->name;
    return result;
}

/// "IfcA: IfcS, virtual IfcT" of every declaration that has selects as bases, in the order of
/// kinds.
std::vector<std::string> basesIn(const Schema& schema) {
    std::vector<std::string> result;
    const auto add = [&](const auto& types) {
        for (const auto& type : types) {
            if (!type->bases.empty())
                result.push_back(type->name + ": " + describe(type->bases));
        }
    };
    add(schema.selects);
    add(schema.definedTypes);
    add(schema.enumerations);
    add(schema.entities);
    return result;
}

struct BasesCase {
    std::string_view declarations;
    std::vector<std::string> bases;
};

TEST(SelectBases, AreReachedInOneWayOnly) {
    static const BasesCase kCases[] = {
        {"TYPE IfcS = SELECT (IfcV, IfcN, IfcE); END_TYPE;\nTYPE IfcV = REAL; END_TYPE;\n"
         "TYPE IfcN = ENUMERATION OF (A); END_TYPE;\nENTITY IfcE; END_ENTITY;",
         {"IfcV: IfcS", "IfcN: IfcS", "IfcE: IfcS"}},
        // Listed again by an outer select.
        {"TYPE IfcOut = SELECT (IfcIn, IfcV); END_TYPE;\nTYPE IfcIn = SELECT (IfcV); END_TYPE;\n"
         "TYPE IfcV = REAL; END_TYPE;",
         {"IfcIn: IfcOut", "IfcV: IfcIn"}},
        // Listed again for a subtype, the nearest of which stands behind the subtype in the text.
        {"TYPE IfcS = SELECT (IfcE, IfcRoot); END_TYPE;\nENTITY IfcE SUBTYPE OF (IfcMid); "
         "END_ENTITY;\n"
         "ENTITY IfcMid SUBTYPE OF (IfcRoot); END_ENTITY;\nENTITY IfcRoot; END_ENTITY;",
         {"IfcRoot: IfcS"}},
        // Two inner selects lead to one outer select.
        {"TYPE IfcOut = SELECT (IfcL, IfcR); END_TYPE;\nTYPE IfcL = SELECT (IfcV); END_TYPE;\n"
         "TYPE IfcR = SELECT (IfcV); END_TYPE;\nTYPE IfcV = REAL; END_TYPE;",
         {"IfcL: virtual IfcOut", "IfcR: virtual IfcOut", "IfcV: IfcL, IfcR"}},
        // The supertype reaches it directly, the subtype through another select.
        {"TYPE IfcOut = SELECT (IfcIn, IfcRoot); END_TYPE;\nTYPE IfcIn = SELECT (IfcE); END_TYPE;\n"
         "ENTITY IfcRoot; END_ENTITY;\nENTITY IfcE SUBTYPE OF (IfcRoot); END_ENTITY;",
         {"IfcIn: virtual IfcOut", "IfcRoot: virtual IfcOut", "IfcE: IfcIn"}},
        // Only the select in which the ways meet becomes virtual, not what lies beyond it.
        {"TYPE IfcFar = SELECT (IfcOut); END_TYPE;\nTYPE IfcOut = SELECT (IfcL, IfcR); END_TYPE;\n"
         "TYPE IfcL = SELECT (IfcV); END_TYPE;\nTYPE IfcR = SELECT (IfcV); END_TYPE;\n"
         "TYPE IfcV = REAL; END_TYPE;",
         {"IfcOut: IfcFar", "IfcL: virtual IfcOut", "IfcR: virtual IfcOut", "IfcV: IfcL, IfcR"}},
    };
    for (const auto& [declarations, bases] : kCases)
        EXPECT_EQ(basesIn(schemaOf(declarations)), bases) << declarations;
}

/// Counts the parts of each select in an object by walking every path, virtual bases once.
class PartCount {
public:
    void add(const std::vector<SelectBase>& bases) {
        for (const SelectBase& base : bases) {
            if (base.isVirtual && !shared_.insert(base.select).second)
                continue;
            ++count[base.select];
            add(base.select->bases);
        }
    }
    std::map<const SelectType*, int> count;

private:
    std::set<const SelectType*> shared_;
};

TEST(SelectBases, GiveEveryMemberOfThePublishedSchemasOnePartOfEachSelect) {
    for (const std::string_view release : kReleases) {
        std::string text;
        if (!readFile(publishedSchema(release), text))
            GTEST_SKIP() << "no schemas in " << publishedSchema(release).parent_path();
        const ParsedSchema parsed = parseSchema(text, release);
        ASSERT_TRUE(parsed.schema) << release;
        std::map<std::string, std::map<const SelectType*, int>> parts;
        const auto addAll = [&](const auto& types) {
            for (const auto& type : types) {
                PartCount counted;
                counted.add(type->bases);
                parts[type->name] = counted.count;
            }
        };
        addAll(parsed.schema->selects);
        addAll(parsed.schema->definedTypes);
        addAll(parsed.schema->enumerations);
        for (const auto& entity : parsed.schema->entities) {
            PartCount counted;
            for (const EntityType* type = entity.get(); type; type = type->supertype)
                counted.add(type->bases);
            parts[entity->name] = counted.count;
        }
        for (const auto& [name, counts] : parts) {
            for (const auto& [select, count] : counts)
                EXPECT_EQ(count, 1) << release << ": " << name << " as " << select->name;
        }
        for (const auto& select : parsed.schema->selects) {
            for (const std::string& member : select->members)
                EXPECT_TRUE(parts[member].contains(select.get()))
                    << release << ": " << member << " is no " << select->name;
        }
    }
}

}  // namespace
}  // namespace schema_generator
