#include "tests/support/token_text.h"

#include <charconv>
#include <cstdio>

namespace {

template <class Derived>
const Derived& as(const Token& token) {
    return static_cast<const Derived&>(token);
}

std::string integerText(std::int32_t value, std::int64_t exact, bool overflow) {
    std::string text = std::to_string(value);
    if (exact != value)
        text += "/" + std::to_string(exact);
    return overflow ? text + "!" : text;
}

std::string realText(const RealDataTypeToken& token) {
    char digits[32];
    const std::string text(digits, std::to_chars(digits, digits + sizeof digits, token.value).ptr);
    return text + (token.overflow ? "!" : "") + (token.malformed ? "?" : "");
}

std::string joined(const std::vector<std::u16string>& list) {
    std::string text;
    for (const std::u16string& item : list)
        text += "'" + printable(item) + "'";
    return "[" + text + "]";
}

std::string headerText(const HeaderFields& fields) {
    return joined(fields.description) + "," + printable(fields.implementationLevel) + "," +
           printable(fields.name) + "," + printable(fields.timeStamp) + "," +
           joined(fields.author) + "," + joined(fields.organization) + "," +
           printable(fields.preprocessorVersion) + "," + printable(fields.originatingSystem) + "," +
           printable(fields.authorization) + "," + printable(fields.schemaIdentifier);
}

}  // namespace

std::string printable(std::u16string_view text) {
    std::string result;
    for (const char16_t unit : text) {
        if (unit >= 32 && unit < 127) {
            result.push_back(static_cast<char>(unit));
        } else {
            char escape[8];
            std::snprintf(escape, sizeof escape, "<%04X>", static_cast<unsigned>(unit));
            result += escape;
        }
    }
    return result;
}

std::string textOf(const Token& token) {
    std::string name = printable(token.typeName());
    name.resize(name.size() - std::string_view("Token").size());
    switch (token.kind) {
        case TokenKind::Identifier: {
            const auto& identifier = as<IdentifierToken>(token);
            return name + ":" +
                   integerText(identifier.number, identifier.exact, identifier.overflow);
        }
        case TokenKind::Integer: {
            const auto& integer = as<IntegerDataTypeToken>(token);
            return "Integer:" + integerText(integer.value, integer.exact, integer.overflow);
        }
        case TokenKind::Real: return "Real:" + realText(as<RealDataTypeToken>(token));
        case TokenKind::EmptyParameter:
            return as<EmptyParameterToken>(token).derived ? "Derived" : "Empty";
        case TokenKind::EntityName: return "Name:" + std::string(as<EntityNameToken>(token).name);
        case TokenKind::Enumeration:
            return name + ":" + printable(as<EnumerationToken>(token).value());
        case TokenKind::String: return name + ":" + printable(as<WstringToken>(token).value());
        case TokenKind::Binary: return name + ":" + std::string(as<BinaryToken>(token).digits);
        case TokenKind::Iso: return name + ":" + printable(as<IsoToken>(token).value);
        case TokenKind::EndIso: return name + ":" + as<EndIsoToken>(token).text;
        case TokenKind::Header: return name + ":" + headerText(as<HeaderToken>(token).fields);
        default: return name;
    }
}

std::string remainingTokens(Tokenizer& tokenizer) {
    std::string text;
    for (int count = 0; count < 1'000'000; ++count) {
        const Token* token = tokenizer.nextToken();
        if (token->kind == TokenKind::EndOfFile)
            return text;
        text += (text.empty() ? "" : " ") + textOf(*token);
        tokenizer.clearTokens();
    }
    return text + " ... without end";
}
