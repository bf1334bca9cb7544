#pragma once

#include <optional>
#include <string>
#include <vector>

/// An EXPRESS schema as it is written, names not yet looked up. Names keep their spelling.
namespace schema_generator {

/// A name where it is used.
struct NameUse {
    std::string name;
    int line = 1;
};

enum class AggregateKind { Array, Bag, List, Set };

/// One "LIST [1:?] OF UNIQUE" in front of an element type.
struct AggregateLayer {
    AggregateKind kind = AggregateKind::List;
    int lower = 0;
    std::optional<int> upper = std::nullopt;  ///< empty for "?"
    bool unique = false;                      ///< elements differ from each other
    bool optionalElements = false;            ///< ARRAY OF OPTIONAL
};

enum class BaseType { Binary, Boolean, Integer, Logical, Named, Number, Real, Text };

/// What an attribute or a defined type holds: `layers` around one element, the outermost first.
struct TypeSyntax {
    std::vector<AggregateLayer> layers;
    BaseType base = BaseType::Named;
    NameUse name;              ///< for BaseType::Named
    std::optional<int> width;  ///< STRING(n), BINARY(n)
    bool fixedWidth = false;
};

struct DefinedTypeSyntax {
    NameUse name;
    TypeSyntax type;
};

struct SelectSyntax {
    NameUse name;
    std::vector<NameUse> members;
};

struct EnumerationSyntax {
    NameUse name;
    std::vector<NameUse> values;
};

struct AttributeSyntax {
    NameUse name;
    bool optional = false;
    TypeSyntax type;
};

/// "SELF\Owner.attribute" in a subtype: the attribute keeps its place in the record and its home in
/// `owner`.
struct RedeclarationSyntax {
    NameUse owner;
    NameUse attribute;
    bool derived =
        false;  ///< in DERIVE: computed, not stored. Otherwise only narrowed to another type.
};

struct EntitySyntax {
    NameUse name;
    bool isAbstract = false;
    std::optional<NameUse> supertype;
    std::vector<NameUse> namedSubtypes;  ///< in the SUPERTYPE OF expression
    std::vector<AttributeSyntax> attributes;
    std::vector<NameUse> derivedAttributes;  ///< new ones, not redeclared
    std::vector<RedeclarationSyntax> redeclarations;
};

/// The declarations of each kind in the order of the text.
struct SchemaSyntax {
    NameUse name;
    std::vector<DefinedTypeSyntax> definedTypes;
    std::vector<SelectSyntax> selects;
    std::vector<EnumerationSyntax> enumerations;
    std::vector<EntitySyntax> entities;
};

}  // namespace schema_generator
