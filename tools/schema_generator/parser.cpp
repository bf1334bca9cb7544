#include "tools/schema_generator/parser.h"

#include <charconv>
#include <initializer_list>
#include <string>
#include <system_error>
#include <utility>

#include "tools/schema_generator/lexer.h"
#include "tools/schema_generator/names.h"

namespace schema_generator {

namespace {

/// Deeper nesting of aggregates has no meaning in a schema; the classes hold two levels.
constexpr std::size_t kMaximumLayers = 8;

/// Names are copied where they are used; this bounds the copies.
constexpr std::size_t kMaximumNameLength = 128;

/// Thrown where a declaration stops making sense, after the complaint; caught where reading can go
/// on.
struct NotUnderstood {};

class Parser {
public:
    Parser(std::string_view text, DiagnosticList& diagnostics)
        : lexer_(text, diagnostics), diagnostics_(diagnostics) {
        take();
    }

    SchemaSyntax schema();

private:
    Token take() { return std::exchange(current_, lexer_.next()); }

    bool at(std::string_view keywordOrSymbol) const {
        return (current_.kind == TokenKind::Word || current_.kind == TokenKind::Symbol) &&
               equalNames(current_.text, keywordOrSymbol);
    }
    bool atAny(std::initializer_list<std::string_view> keywords) const {
        for (const std::string_view keyword : keywords) {
            if (at(keyword))
                return true;
        }
        return false;
    }
    bool atEnd() const { return current_.kind == TokenKind::End; }
    bool takeIf(std::string_view keywordOrSymbol) {
        if (!at(keywordOrSymbol))
            return false;
        take();
        return true;
    }

    [[noreturn]] void complain(int line, std::string message) {
        diagnostics_.add(line, std::move(message));
        throw NotUnderstood();
    }
    [[noreturn]] void complainExpected(std::string_view expected);

    void expect(std::string_view keywordOrSymbol) {
        if (!takeIf(keywordOrSymbol))
            complainExpected("\"" + std::string(keywordOrSymbol) + "\"");
    }
    NameUse expectName(std::string_view what);
    int expectNumber();

    void declaration();
    void skipPast(std::string_view keyword);
    void skipBlock(std::string_view keyword);
    void skipStatement();
    void skipStatementsUntil(std::initializer_list<std::string_view> keywords);

    void typeDeclaration();
    void enumeration(NameUse name);
    void select(NameUse name);
    TypeSyntax type();
    AggregateLayer aggregateLayer(AggregateKind kind);
    void width(TypeSyntax& type);

    void entityDeclaration();
    void supertypeExpression(EntitySyntax& entity);
    void attributes(EntitySyntax& entity);
    void derivedAttributes(EntitySyntax& entity);
    RedeclarationSyntax redeclaration(bool derived);

    Lexer lexer_;
    DiagnosticList& diagnostics_;
    Token current_;
    SchemaSyntax schema_;
};

void Parser::complainExpected(std::string_view expected) {
    const std::string found =
        atEnd() ? "the end"
                : "\"" + std::string(current_.text.substr(0, kMaximumNameLength)) + "\"";
    complain(current_.line, "expected " + std::string(expected) + ", found " + found);
}

NameUse Parser::expectName(std::string_view what) {
    if (current_.kind != TokenKind::Word)
        complainExpected(what);
    if (current_.text.size() > kMaximumNameLength)
        complain(current_.line, std::string(what) + " is longer than a name should be");
    const Token token = take();
    return {std::string(token.text), token.line};
}

int Parser::expectNumber() {
    int number = 0;
    const std::string_view digits = current_.text;
    if (current_.kind != TokenKind::Integer ||
        std::from_chars(digits.data(), digits.data() + digits.size(), number).ec != std::errc())
        complainExpected("a whole number");
    take();
    return number;
}

SchemaSyntax Parser::schema() {
    try {
        expect("SCHEMA");
        schema_.name = expectName("the schema's name");
        expect(";");
        while (!at("END_SCHEMA")) {
            if (atEnd())
                complainExpected("a declaration or \"END_SCHEMA\"");
            declaration();
        }
        take();
        expect(";");
        if (!atEnd())
            complainExpected("nothing more after \"END_SCHEMA\"");
    } catch (const NotUnderstood&) {
        // Reported; there is nothing to read on with.
    }
    return std::move(schema_);
}

void Parser::declaration() {
    if (at("TYPE")) {
        try {
            typeDeclaration();
        } catch (const NotUnderstood&) {
            skipPast("END_TYPE");
        }
    } else if (at("ENTITY")) {
        try {
            entityDeclaration();
        } catch (const NotUnderstood&) {
            skipPast("END_ENTITY");
        }
    } else if (atAny({"CONSTANT", "FUNCTION", "PROCEDURE", "RULE"})) {
        skipBlock(current_.text);
    } else {
        complainExpected("a declaration");
    }
}

void Parser::skipPast(std::string_view keyword) {
    while (!atEnd() && !at(keyword))
        take();
    take();
    takeIf(";");
}

/// Functions and procedures may contain others of their kind.
void Parser::skipBlock(std::string_view keyword) {
    const std::string endKeyword = "END_" + std::string(keyword);
    const int line = current_.line;
    std::size_t depth = 0;
    do {
        if (atEnd())
            complain(line, std::string(keyword) + " is not closed by " + endKeyword);
        if (at(keyword))
            ++depth;
        else if (at(endKeyword))
            --depth;
        take();
    } while (depth > 0);
    expect(";");
}

void Parser::skipStatement() {
    while (!atEnd() && !at(";"))
        take();
    expect(";");
}

/// Keywords count at the start of a statement only: "LIST OF UNIQUE X" opens no UNIQUE clause.
void Parser::skipStatementsUntil(std::initializer_list<std::string_view> keywords) {
    while (!atAny(keywords))
        skipStatement();
}

void Parser::typeDeclaration() {
    expect("TYPE");
    NameUse name = expectName("the type's name");
    expect("=");
    if (takeIf("ENUMERATION"))
        enumeration(std::move(name));
    else if (takeIf("SELECT"))
        select(std::move(name));
    else
        schema_.definedTypes.push_back({std::move(name), type()});
    expect(";");
    if (takeIf("WHERE"))
        skipStatementsUntil({"END_TYPE"});
    expect("END_TYPE");
    expect(";");
}

void Parser::enumeration(NameUse name) {
    EnumerationSyntax result{.name = std::move(name), .values = {}};
    expect("OF");
    expect("(");
    do {
        result.values.push_back(expectName("a value of the enumeration"));
    } while (takeIf(","));
    expect(")");
    schema_.enumerations.push_back(std::move(result));
}

void Parser::select(NameUse name) {
    SelectSyntax result{.name = std::move(name), .members = {}};
    expect("(");
    do {
        result.members.push_back(expectName("a member of the SELECT"));
    } while (takeIf(","));
    expect(")");
    schema_.selects.push_back(std::move(result));
}

TypeSyntax Parser::type() {
    struct AggregateWord {
        std::string_view word;
        AggregateKind kind;
    };
    static constexpr AggregateWord kAggregates[] = {{"ARRAY", AggregateKind::Array},
                                                    {"BAG", AggregateKind::Bag},
                                                    {"LIST", AggregateKind::List},
                                                    {"SET", AggregateKind::Set}};
    struct BaseWord {
        std::string_view word;
        BaseType base;
    };
    static constexpr BaseWord kBases[] = {
        {"BINARY", BaseType::Binary},   {"BOOLEAN", BaseType::Boolean},
        {"INTEGER", BaseType::Integer}, {"LOGICAL", BaseType::Logical},
        {"NUMBER", BaseType::Number},   {"REAL", BaseType::Real},
        {"STRING", BaseType::Text}};
    TypeSyntax result;
    for (bool more = true; more;) {
        more = false;
        for (const auto& [word, kind] : kAggregates) {
            if (!takeIf(word))
                continue;
            if (result.layers.size() == kMaximumLayers)
                complain(current_.line, "aggregates are nested too deeply");
            result.layers.push_back(aggregateLayer(kind));
            more = true;
        }
    }
    for (const auto& [word, base] : kBases) {
        if (takeIf(word)) {
            result.base = base;
            width(result);
            return result;
        }
    }
    result.name = expectName("a type");
    return result;
}

/// Stands behind the aggregate's keyword; takes the rest up to the element type.
AggregateLayer Parser::aggregateLayer(AggregateKind kind) {
    AggregateLayer layer{.kind = kind};
    if (takeIf("[")) {
        layer.lower = expectNumber();
        expect(":");
        if (!takeIf("?"))
            layer.upper = expectNumber();
        expect("]");
    }
    expect("OF");
    layer.optionalElements = takeIf("OPTIONAL");
    layer.unique = takeIf("UNIQUE");
    return layer;
}

/// "(22) FIXED" behind STRING or BINARY.
void Parser::width(TypeSyntax& type) {
    if (type.base != BaseType::Text && type.base != BaseType::Binary)
        return;
    if (takeIf("(")) {
        type.width = expectNumber();
        expect(")");
        type.fixedWidth = takeIf("FIXED");
    }
}

void Parser::entityDeclaration() {
    EntitySyntax entity;
    expect("ENTITY");
    entity.name = expectName("the entity's name");
    if (takeIf("ABSTRACT")) {
        entity.isAbstract = true;
        expect("SUPERTYPE");
        if (takeIf("OF"))
            supertypeExpression(entity);
    } else if (takeIf("SUPERTYPE")) {
        expect("OF");
        supertypeExpression(entity);
    }
    if (takeIf("SUBTYPE")) {
        expect("OF");
        expect("(");
        entity.supertype = expectName("the supertype's name");
        if (at(","))
            complain(current_.line, "more than one supertype is not supported");
        expect(")");
    }
    expect(";");
    attributes(entity);
    while (!at("END_ENTITY")) {
        if (takeIf("DERIVE"))
            derivedAttributes(entity);
        else if (takeIf("INVERSE") || takeIf("UNIQUE") || takeIf("WHERE"))
            skipStatementsUntil({"DERIVE", "INVERSE", "UNIQUE", "WHERE", "END_ENTITY"});
        else
            complainExpected("\"END_ENTITY\"");
    }
    // One published schema closes most of its entities twice.
    while (takeIf("END_ENTITY"))
        expect(";");
    schema_.entities.push_back(std::move(entity));
}

/// "(ONEOF (a, b) ANDOR c)": which combinations are allowed does not matter for reading, the names
/// are checked later.
void Parser::supertypeExpression(EntitySyntax& entity) {
    std::size_t depth = 0;
    do {
        if (takeIf("(")) {
            ++depth;
        } else if (takeIf(")")) {
            --depth;
        } else if (!takeIf(",") && !takeIf("ONEOF") && !takeIf("AND") && !takeIf("ANDOR")) {
            entity.namedSubtypes.push_back(expectName("a subtype's name"));
            if (depth == 0)
                complain(entity.namedSubtypes.back().line,
                         "expected \"(\" behind \"SUPERTYPE OF\"");
        }
    } while (depth > 0);
}

void Parser::attributes(EntitySyntax& entity) {
    while (!atAny({"DERIVE", "INVERSE", "UNIQUE", "WHERE", "END_ENTITY"})) {
        if (at("SELF")) {
            entity.redeclarations.push_back(redeclaration(false));
            expect(":");
            takeIf("OPTIONAL");
            type();  // narrower than the owner's; the owner reads and writes it
            expect(";");
            continue;
        }
        const std::size_t first = entity.attributes.size();
        do {
            entity.attributes.emplace_back().name = expectName("an attribute's name");
        } while (takeIf(","));
        expect(":");
        const bool optional = takeIf("OPTIONAL");
        const TypeSyntax declared = type();
        for (std::size_t i = first; i < entity.attributes.size(); ++i) {
            entity.attributes[i].optional = optional;
            entity.attributes[i].type = declared;
        }
        expect(";");
    }
}

void Parser::derivedAttributes(EntitySyntax& entity) {
    while (!atAny({"DERIVE", "INVERSE", "UNIQUE", "WHERE", "END_ENTITY"})) {
        if (at("SELF"))
            entity.redeclarations.push_back(redeclaration(true));
        else
            entity.derivedAttributes.push_back(expectName("a derived attribute's name"));
        expect(":");
        while (!at(":=") && !at(";") && !atEnd())
            take();  // the type, which may have computed bounds
        expect(":=");
        skipStatement();
    }
}

/// "SELF\Owner.attribute"
RedeclarationSyntax Parser::redeclaration(bool derived) {
    RedeclarationSyntax result;
    result.derived = derived;
    expect("SELF");
    expect("\\");
    result.owner = expectName("the entity that declares the attribute");
    expect(".");
    result.attribute = expectName("the redeclared attribute's name");
    return result;
}

}  // namespace

SchemaSyntax parseSyntax(std::string_view text, DiagnosticList& diagnostics) {
    return Parser(text, diagnostics).schema();
}

}  // namespace schema_generator
