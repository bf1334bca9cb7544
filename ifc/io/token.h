#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

/// What a token is, for quick tests; one value per class.
enum class TokenKind : std::uint8_t {
    Data,
    Header,
    Endsec,
    OpenBracket,
    CloseBracket,
    Equal,
    Semicolon,
    UnknownSign,
    EndOfFile,
    EmptyParameter,
    NewLine,
    Identifier,
    Integer,
    Real,
    EntityName,
    Enumeration,
    String,
    Binary,
    Iso,
    EndIso
};

/// One lexical unit of an exchange file. Made and owned by the tokenizer; valid until its
/// clearTokens().
class Token {
public:
    explicit Token(TokenKind kindOfToken) : kind(kindOfToken) {}
    virtual ~Token() = default;
    Token(const Token&) = delete;
    Token& operator=(const Token&) = delete;

    /// Display name for messages. Usually the class's name.
    virtual const char16_t* typeName() const = 0;

    const TokenKind kind;
};

/// A token that is fully told by its class.
template <TokenKind kKind>
class PlainToken final : public Token {
public:
    PlainToken() : Token(kKind) {}
    const char16_t* typeName() const override;
};

using DataToken = PlainToken<TokenKind::Data>;
using EndsecToken = PlainToken<TokenKind::Endsec>;
using OpenBracketToken = PlainToken<TokenKind::OpenBracket>;
using CloseBracketToken = PlainToken<TokenKind::CloseBracket>;
using EqualToken = PlainToken<TokenKind::Equal>;
using SemicolonToken = PlainToken<TokenKind::Semicolon>;
using UnknownSignToken = PlainToken<TokenKind::UnknownSign>;
using EndOfFileToken = PlainToken<TokenKind::EndOfFile>;
/// Kept although blanks swallow every line feed before one could become a token: readers know the
/// class.
using NewLineToken = PlainToken<TokenKind::NewLine>;

/// "$" and "*".
class EmptyParameterToken final : public Token {
public:
    explicit EmptyParameterToken(bool isDerived)
        : Token(TokenKind::EmptyParameter), derived(isDerived) {}
    const char16_t* typeName() const override;

    const bool derived;  ///< it was "*"
};

/// The name of an instance, #123.
class IdentifierToken final : public Token {
public:
    explicit IdentifierToken(std::int64_t exactNumber)
        : Token(TokenKind::Identifier),
          number(static_cast<std::int32_t>(exactNumber)),
          exact(exactNumber),
          overflow(exactNumber > std::numeric_limits<std::int32_t>::max()) {}
    const char16_t* typeName() const override;

    std::int32_t number;  ///< the low 32 bits, signed
    std::int64_t exact;   ///< the largest 64-bit number when the digits exceed it
    bool overflow;        ///< the digits do not fit 32 bits, signed
};

class IntegerDataTypeToken final : public Token {
public:
    IntegerDataTypeToken(std::int64_t exactValue, bool isOverflow)
        : Token(TokenKind::Integer),
          value(static_cast<std::int32_t>(exactValue)),
          exact(exactValue),
          overflow(isOverflow) {}
    const char16_t* typeName() const override;

    std::int32_t value;  ///< the low 32 bits, signed
    std::int64_t
        exact;      ///< all of it; the largest or smallest 64-bit number when the digits exceed it
    bool overflow;  ///< the digits do not fit 64 bits, signed
};

class RealDataTypeToken final : public Token {
public:
    RealDataTypeToken(double realValue, bool isOverflow, bool isMalformed)
        : Token(TokenKind::Real), value(realValue), overflow(isOverflow), malformed(isMalformed) {}
    const char16_t* typeName() const override;

    double value;    ///< the largest finite number, signed, when overflow is set
    bool overflow;   ///< the digits exceed what a double holds
    bool malformed;  ///< something else follows the number, as in 1.#INF
};

/// Any keyword that is not one of the file's frame: IFCWALL. ASCII letters and digits, underscores
/// removed.
class EntityNameToken final : public Token {
public:
    explicit EntityNameToken(std::string_view keyword)
        : Token(TokenKind::EntityName), name(keyword) {}
    const char16_t* typeName() const override;

    std::string_view name;
};

/// The text between two dots, .ELEMENT. .
class EnumerationToken final : public Token {
public:
    explicit EnumerationToken(std::string_view valueBytes)
        : Token(TokenKind::Enumeration), bytes(valueBytes) {}
    const char16_t* typeName() const override;

    /// The text as UTF-16, one unit a byte, sign-extended.
    std::u16string value() const;

    std::string_view bytes;  ///< file bytes
};

/// A string in quotes. Either `plain` bytes, all of them 7-bit characters that stand for
/// themselves, or decoded `units`.
class WstringToken final : public Token {
public:
    explicit WstringToken(std::string_view plainBytes)
        : Token(TokenKind::String), plain(plainBytes) {}
    explicit WstringToken(std::u16string_view decodedUnits)
        : Token(TokenKind::String), units(decodedUnits), decoded(true) {}
    /// Kept: "StringToken", not the class's name.
    const char16_t* typeName() const override;

    std::u16string value() const;
    std::size_t length() const { return decoded ? units.size() : plain.size(); }

    std::string_view plain;
    std::u16string_view units;
    bool decoded = false;
};

/// BINARY: the text between two double quotes.
class BinaryToken final : public Token {
public:
    explicit BinaryToken(std::string_view hexDigits)
        : Token(TokenKind::Binary), digits(hexDigits) {}
    const char16_t* typeName() const override;

    std::string_view digits;
};

/// The first line's text, ISO-10303-21.
class IsoToken final : public Token {
public:
    explicit IsoToken(std::string_view text);
    const char16_t* typeName() const override;

    std::u16string value;
};

/// The last line's text, END-ISO-10303-21.
class EndIsoToken final : public Token {
public:
    explicit EndIsoToken(std::string_view statement) : Token(TokenKind::EndIso), text(statement) {}
    const char16_t* typeName() const override;

    std::string text;
};

/// The parameters of FILE_DESCRIPTION, FILE_NAME and FILE_SCHEMA (ISO 10303-21, header section).
struct HeaderFields {
    std::vector<std::u16string> description;
    std::u16string implementationLevel;
    std::u16string name;
    std::u16string timeStamp;
    std::vector<std::u16string> author;
    std::vector<std::u16string> organization;
    std::u16string preprocessorVersion;
    std::u16string originatingSystem;
    std::u16string authorization;
    std::u16string schemaIdentifier;  ///< the first one of FILE_SCHEMA
};

/// The keyword HEADER with the whole header section.
class HeaderToken final : public Token {
public:
    HeaderToken() : Token(TokenKind::Header) {}
    const char16_t* typeName() const override;

    HeaderFields fields;
};

/// One byte as one UTF-16 unit, sign-extended: 0xE4 becomes U+FFE4. Kept: files escape all text
/// beyond 7 bits, so such a byte is no character, whatever the system's code page says.
constexpr char16_t widened(char byte) {
    return static_cast<char16_t>(static_cast<signed char>(byte));
}

/// Each byte of `bytes` as `widened` makes it.
std::u16string widened(std::string_view bytes);
