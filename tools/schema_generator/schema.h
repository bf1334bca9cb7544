#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/schema_generator/diagnostics.h"
#include "tools/schema_generator/syntax.h"

/// One release with every name looked up: what the emitters work on. The pointers lead to
/// declarations of the same Schema and live as long as it does, moved or not. All lists are in the
/// order of the schema's text.
namespace schema_generator {

struct EntityType;
struct EnumerationType;
struct SelectType;

enum class ElementKind {
    Binary,
    Entity,
    Enumeration,
    Integer,
    Logical,
    Number,
    Real,
    Select,
    Text
};

/// How a value is held: aggregate layers, those of named types included, around one kind of
/// element.
struct Representation {
    std::vector<AggregateLayer> layers;  ///< outermost first
    ElementKind element = ElementKind::Text;
    const EntityType* entity = nullptr;            ///< for ElementKind::Entity
    const EnumerationType* enumeration = nullptr;  ///< for ElementKind::Enumeration
    const SelectType* select = nullptr;            ///< for ElementKind::Select
};

/// A select as a base of a class. Virtual when some class reaches the select in several ways, which
/// must then meet in one part: a cast to a base that is there twice finds nothing.
struct SelectBase {
    const SelectType* select = nullptr;
    bool isVirtual = false;
};

struct SelectType {
    std::string name;
    int line = 1;
    std::vector<std::string> members;  ///< as declared
    std::vector<SelectBase> bases;     ///< the selects that list this one
};

struct EnumerationType {
    std::string name;
    int line = 1;
    std::vector<std::string> values;  ///< upper case
    std::vector<SelectBase> bases;    ///< the selects that list it

    /// As a member of a select it is written with its name, IFCNULLSTYLE(.NULL.), and so needs a
    /// class.
    bool isValueClass() const { return !bases.empty(); }
};

struct DefinedType {
    std::string name;
    int line = 1;
    std::string underlying;  ///< the named type behind it, or empty
    std::optional<int> width;
    bool fixedWidth = false;
    Representation value;
    std::vector<SelectBase> bases;
};

struct Attribute {
    std::string name;
    bool optional = false;
    Representation value;
};

/// An inherited attribute that has no stored value in a subtype.
struct DerivedAttribute {
    std::size_t index = 0;  ///< place in the record, the root supertype's first attribute being 0
    std::string name;
};

struct EntityType {
    std::string name;
    int line = 1;
    bool isAbstract = false;
    const EntityType* supertype = nullptr;
    std::vector<Attribute> attributes;  ///< its own, stored ones
    std::vector<DerivedAttribute> derived;
    std::vector<SelectBase> bases;

    /// The nearest declaration of a stored attribute in this entity and its supertypes.
    struct Found {
        const EntityType* owner = nullptr;
        const Attribute* attribute = nullptr;
    };
    std::optional<Found> find(std::string_view attribute) const;
};

struct Schema {
    std::string name;
    std::vector<std::unique_ptr<DefinedType>> definedTypes;
    std::vector<std::unique_ptr<SelectType>> selects;
    std::vector<std::unique_ptr<EnumerationType>> enumerations;
    std::vector<std::unique_ptr<EntityType>> entities;

    const EntityType* findEntity(std::string_view name) const;
};

/// `schema` is empty when there is a diagnostic.
struct ParsedSchema {
    std::optional<Schema> schema;
    std::vector<Diagnostic> diagnostics;
};

/// Reads the EXPRESS text of one release. `fileName` is for the diagnostics only. Whatever the text
/// holds, the call ends after a time in proportion to it and throws nothing but std::bad_alloc.
ParsedSchema parseSchema(std::string_view text, std::string_view fileName);

}  // namespace schema_generator
