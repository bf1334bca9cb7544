#include "tools/schema_generator/schema.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <variant>

#include "tools/schema_generator/names.h"
#include "tools/schema_generator/parser.h"
#include "tools/schema_generator/select_bases.h"

namespace schema_generator {

namespace {

/// Bounds on what refers to what; real schemas stay far below them.
constexpr std::size_t kMaximumSupertypes = 64;
constexpr std::size_t kMaximumAttributes = 256;
/// What the classes can hold (ifc/model/values.h).
constexpr std::size_t kMaximumLayers = 2;
/// Places that ClassInfo::derived can mark.
constexpr std::size_t kMarkableAttributes = 64;

std::string quoted(std::string_view name) { return "\"" + std::string(name) + "\""; }

class Resolver {
public:
    Resolver(const SchemaSyntax& syntax, DiagnosticList& diagnostics)
        : syntax_(syntax), diagnostics_(diagnostics) {}

    Schema resolve();

private:
    using Declared = std::variant<DefinedType*, SelectType*, EnumerationType*, EntityType*>;

    void complain(const NameUse& where, std::string message) {
        diagnostics_.add(where.line, std::move(message));
    }

    template <class Type>
    void declareAll(std::vector<std::unique_ptr<Type>>& types, const NameUse& name);
    void declareNames();
    template <class Type>
    Type* find(std::string_view name) const;

    void fillEnumeration(EnumerationType& type, const EnumerationSyntax& syntax);
    void fillSelect(SelectType& type, const SelectSyntax& syntax);
    void fillDefinedTypes();
    void inheritSelects();
    void fillSupertypes();
    void fillAttributes(EntityType& entity, const EntitySyntax& syntax);
    void fillRedeclarations(EntityType& entity, const EntitySyntax& syntax);
    bool represent(const TypeSyntax& type, Representation& result);
    void checkHoldable(const NameUse& where, const Representation& value);
    bool computesAnywhere(const EntityType& entity, const std::string& attribute) const;

    const SchemaSyntax& syntax_;
    DiagnosticList& diagnostics_;
    Schema schema_;
    std::unordered_map<std::string, Declared> declared_;  // by upper-case name
    std::unordered_map<const EntityType*, std::unordered_set<std::string>> computed_;  // DERIVE
};

/// A name that is declared twice keeps its first meaning; every syntax declaration gets its place
/// in `types` either way, so that both lists run in step.
template <class Type>
void Resolver::declareAll(std::vector<std::unique_ptr<Type>>& types, const NameUse& name) {
    types.push_back(std::make_unique<Type>());
    types.back()->name = name.name;
    types.back()->line = name.line;
    if (!isDeclarable(name.name))
        complain(name, "declared name " + quoted(name.name) + " does not begin with \"Ifc\"");
    if (!declared_.emplace(upperCased(name.name), types.back().get()).second)
        complain(name, quoted(name.name) + " is declared twice");
}

void Resolver::declareNames() {
    for (const DefinedTypeSyntax& type : syntax_.definedTypes)
        declareAll(schema_.definedTypes, type.name);
    for (const SelectSyntax& select : syntax_.selects)
        declareAll(schema_.selects, select.name);
    for (const EnumerationSyntax& enumeration : syntax_.enumerations)
        declareAll(schema_.enumerations, enumeration.name);
    for (const EntitySyntax& entity : syntax_.entities)
        declareAll(schema_.entities, entity.name);
}

template <class Type>
Type* Resolver::find(std::string_view name) const {
    const auto found = declared_.find(upperCased(name));
    if (found == declared_.end())
        return nullptr;
    Type* const* type = std::get_if<Type*>(&found->second);
    return type ? *type : nullptr;
}

void Resolver::fillEnumeration(EnumerationType& type, const EnumerationSyntax& syntax) {
    std::unordered_set<std::string> seen;
    for (const NameUse& value : syntax.values) {
        type.values.push_back(upperCased(value.name));
        if (!seen.insert(type.values.back()).second)
            complain(value, quoted(value.name) + " is listed twice in " + type.name);
    }
}

/// Enters the select as a base of its members; which of these bases a class needs is decided when
/// all are known.
void Resolver::fillSelect(SelectType& type, const SelectSyntax& syntax) {
    const auto addBase = [&type](auto* member) { member->bases.push_back({.select = &type}); };
    std::unordered_set<std::string> seen;
    for (const NameUse& member : syntax.members) {
        const auto found = declared_.find(upperCased(member.name));
        if (found == declared_.end()) {
            complain(member, "unknown type " + quoted(member.name) + " in SELECT " + type.name);
        } else if (!seen.insert(found->first).second) {
            complain(member, quoted(member.name) + " is listed twice in " + type.name);
        } else {
            std::visit(addBase, found->second);
            type.members.push_back(
                std::visit([](const auto* declared) { return declared->name; }, found->second));
        }
    }
}

/// Resolves each chain of types that are declared by one another from its far end.
void Resolver::fillDefinedTypes() {
    enum class State { Untouched, Waiting, Done };
    std::unordered_map<const DefinedType*, State> states;
    std::unordered_map<const DefinedType*, const DefinedTypeSyntax*> syntaxes;
    for (std::size_t i = 0; i < schema_.definedTypes.size(); ++i)
        syntaxes[schema_.definedTypes[i].get()] = &syntax_.definedTypes[i];

    for (const auto& first : schema_.definedTypes) {
        std::vector<DefinedType*> chain{first.get()};
        while (states[chain.back()] == State::Untouched) {
            states[chain.back()] = State::Waiting;
            const TypeSyntax& type = syntaxes[chain.back()]->type;
            DefinedType* next =
                type.base == BaseType::Named ? find<DefinedType>(type.name.name) : nullptr;
            if (!next)
                break;
            if (states[next] == State::Waiting) {
                complain(type.name, quoted(type.name.name) + " is declared by itself");
                break;
            }
            chain.push_back(next);
        }
        for (; !chain.empty(); chain.pop_back()) {
            DefinedType& type = *chain.back();
            if (states[&type] == State::Done)
                continue;
            states[&type] = State::Done;
            const DefinedTypeSyntax& syntax = *syntaxes[&type];
            type.width = syntax.type.width;
            type.fixedWidth = syntax.type.fixedWidth;
            if (syntax.type.base == BaseType::Named && syntax.type.layers.empty())
                type.underlying = syntax.type.name.name;
            const bool known = represent(syntax.type, type.value);
            checkHoldable(syntax.name, type.value);
            if (known && type.value.layers.empty() &&
                (type.value.entity || type.value.enumeration || type.value.select)) {
                complain(syntax.name, "a type that only renames " + quoted(type.underlying) +
                                          " is not supported");
            }
        }
    }
}

/// A value of a type that is declared by another one is a value of that one too (ISO 10303-11,
/// defined data type), so it may stand in every select that lists it: IfcNonNegativeLengthMeasure
/// wherever IfcLengthMeasure does.
void Resolver::inheritSelects() {
    std::unordered_map<const DefinedType*, std::vector<SelectBase>> listed;
    for (const auto& type : schema_.definedTypes)
        listed[type.get()] = type->bases;
    for (const auto& type : schema_.definedTypes) {
        for (const auto* wider = find<DefinedType>(type->underlying); wider;
             wider = find<DefinedType>(wider->underlying)) {
            for (const SelectBase& base : listed[wider]) {
                const bool known =
                    std::any_of(type->bases.begin(), type->bases.end(),
                                [&](const SelectBase& own) { return own.select == base.select; });
                if (!known)
                    type->bases.push_back(base);
            }
        }
    }
}

bool Resolver::represent(const TypeSyntax& type, Representation& result) {
    result.layers = type.layers;
    switch (type.base) {
        case BaseType::Binary: result.element = ElementKind::Binary; return true;
        case BaseType::Boolean:
        case BaseType::Logical: result.element = ElementKind::Logical; return true;
        case BaseType::Integer: result.element = ElementKind::Integer; return true;
        case BaseType::Number: result.element = ElementKind::Number; return true;
        case BaseType::Real: result.element = ElementKind::Real; return true;
        case BaseType::Text: result.element = ElementKind::Text; return true;
        case BaseType::Named: break;
    }
    const std::string& name = type.name.name;
    if (const auto* entity = find<EntityType>(name)) {
        result.element = ElementKind::Entity;
        result.entity = entity;
    } else if (const auto* select = find<SelectType>(name)) {
        result.element = ElementKind::Select;
        result.select = select;
    } else if (const auto* enumeration = find<EnumerationType>(name)) {
        result.element = ElementKind::Enumeration;
        result.enumeration = enumeration;
    } else if (const auto* defined = find<DefinedType>(name)) {
        std::vector<AggregateLayer> layers = type.layers;
        layers.insert(layers.end(), defined->value.layers.begin(), defined->value.layers.end());
        result = defined->value;
        result.layers = std::move(layers);
    } else {
        complain(type.name, "unknown type " + quoted(name));
        return false;
    }
    return true;
}

/// Complains about what no class member can hold.
void Resolver::checkHoldable(const NameUse& where, const Representation& value) {
    static constexpr ElementKind kSingleLayerOnly[] = {
        ElementKind::Binary, ElementKind::Enumeration, ElementKind::Logical};
    for (const AggregateLayer& layer : value.layers) {
        if (layer.optionalElements)
            complain(where, "aggregates with optional elements are not supported");
    }
    const bool singleLayerOnly = std::find(std::begin(kSingleLayerOnly), std::end(kSingleLayerOnly),
                                           value.element) != std::end(kSingleLayerOnly);
    if (value.layers.size() > (singleLayerOnly ? 1 : kMaximumLayers))
        complain(where, "aggregates are nested too deeply for " + quoted(where.name));
}

void Resolver::fillSupertypes() {
    for (std::size_t i = 0; i < schema_.entities.size(); ++i) {
        const EntitySyntax& syntax = syntax_.entities[i];
        schema_.entities[i]->isAbstract = syntax.isAbstract;
        if (syntax.supertype) {
            schema_.entities[i]->supertype = find<EntityType>(syntax.supertype->name);
            if (!schema_.entities[i]->supertype)
                complain(*syntax.supertype, "unknown entity " + quoted(syntax.supertype->name));
        }
        for (const NameUse& subtype : syntax.namedSubtypes) {
            if (!find<EntityType>(subtype.name))
                complain(subtype, "unknown entity " + quoted(subtype.name));
        }
    }
    for (std::size_t i = 0; i < schema_.entities.size(); ++i) {
        std::size_t depth = 0;
        const EntityType* entity = schema_.entities[i].get();
        while (entity && depth <= kMaximumSupertypes) {
            entity = entity->supertype;
            ++depth;
        }
        if (entity) {
            complain(syntax_.entities[i].name,
                     quoted(syntax_.entities[i].name.name) +
                         " has itself among its supertypes, or too many of them");
        }
    }
}

void Resolver::fillAttributes(EntityType& entity, const EntitySyntax& syntax) {
    if (syntax.attributes.size() > kMaximumAttributes)
        return complain(syntax.name, "too many attributes in " + quoted(entity.name));
    std::unordered_set<std::string> seen;
    for (const AttributeSyntax& attribute : syntax.attributes) {
        if (!seen.insert(upperCased(attribute.name.name)).second)
            complain(attribute.name, quoted(attribute.name.name) + " is declared twice");
        Attribute& added = entity.attributes.emplace_back();
        added.name = attribute.name.name;
        added.optional = attribute.optional;
        if (represent(attribute.type, added.value))
            checkHoldable(attribute.name, added.value);
    }
    for (const NameUse& computed : syntax.derivedAttributes) {
        if (!computed_[&entity].insert(upperCased(computed.name)).second)
            complain(computed, quoted(computed.name) + " is declared twice");
    }
}

/// Whether the entity or a supertype declares a computed attribute of that name.
bool Resolver::computesAnywhere(const EntityType& entity, const std::string& attribute) const {
    const std::string key = upperCased(attribute);
    for (const EntityType* declaring = &entity; declaring; declaring = declaring->supertype) {
        const auto names = computed_.find(declaring);
        if (names != computed_.end() && names->second.contains(key))
            return true;
    }
    return false;
}

/// Needs the attributes of all entities.
void Resolver::fillRedeclarations(EntityType& entity, const EntitySyntax& syntax) {
    for (const RedeclarationSyntax& redeclaration : syntax.redeclarations) {
        const std::string& attribute = redeclaration.attribute.name;
        const EntityType* named = find<EntityType>(redeclaration.owner.name);
        const EntityType* ancestor = entity.supertype;
        while (ancestor && ancestor != named)
            ancestor = ancestor->supertype;
        if (!ancestor) {
            complain(redeclaration.owner,
                     quoted(redeclaration.owner.name) + " is no supertype of " + entity.name);
            continue;
        }
        const std::optional<EntityType::Found> found = ancestor->find(attribute);
        if (!found) {
            if (!redeclaration.derived || !computesAnywhere(*ancestor, attribute))
                complain(redeclaration.attribute, "no attribute " + quoted(attribute) + " in " +
                                                      ancestor->name + " or its supertypes");
            continue;
        }
        if (!redeclaration.derived)
            continue;
        auto index = static_cast<std::size_t>(found->attribute - found->owner->attributes.data());
        for (const EntityType* above = found->owner->supertype; above; above = above->supertype)
            index += above->attributes.size();
        if (index >= kMarkableAttributes)
            complain(redeclaration.attribute, "too many attributes before " + quoted(attribute));
        entity.derived.push_back({index, found->attribute->name});
    }
}

Schema Resolver::resolve() {
    schema_.name = syntax_.name.name;
    declareNames();
    for (std::size_t i = 0; i < schema_.enumerations.size(); ++i)
        fillEnumeration(*schema_.enumerations[i], syntax_.enumerations[i]);
    for (std::size_t i = 0; i < schema_.selects.size(); ++i)
        fillSelect(*schema_.selects[i], syntax_.selects[i]);
    fillDefinedTypes();
    fillSupertypes();
    if (!diagnostics_.empty())
        return std::move(schema_);  // what follows walks along supertypes and selects
    for (std::size_t i = 0; i < schema_.entities.size(); ++i)
        fillAttributes(*schema_.entities[i], syntax_.entities[i]);
    for (std::size_t i = 0; i < schema_.entities.size(); ++i)
        fillRedeclarations(*schema_.entities[i], syntax_.entities[i]);
    inheritSelects();
    settleSelectBases(schema_, diagnostics_);
    return std::move(schema_);
}

}  // namespace

std::optional<EntityType::Found> EntityType::find(std::string_view attribute) const {
    for (const EntityType* owner = this; owner; owner = owner->supertype) {
        for (const Attribute& candidate : owner->attributes) {
            if (equalNames(candidate.name, attribute))
                return Found{owner, &candidate};
        }
    }
    return std::nullopt;
}

const EntityType* Schema::findEntity(std::string_view entityName) const {
    for (const auto& entity : entities) {
        if (equalNames(entity->name, entityName))
            return entity.get();
    }
    return nullptr;
}

ParsedSchema parseSchema(std::string_view text, std::string_view fileName) {
    DiagnosticList diagnostics(fileName);
    const SchemaSyntax syntax = parseSyntax(text, diagnostics);
    ParsedSchema result;
    if (diagnostics.empty())
        result.schema = Resolver(syntax, diagnostics).resolve();
    if (!diagnostics.empty())
        result.schema.reset();
    result.diagnostics = diagnostics.items();
    return result;
}

}  // namespace schema_generator
