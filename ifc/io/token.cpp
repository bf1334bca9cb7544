#include "ifc/io/token.h"

#include <algorithm>

template <>
const char16_t* DataToken::typeName() const {
    return u"DataToken";
}
template <>
const char16_t* EndsecToken::typeName() const {
    return u"EndsecToken";
}
template <>
const char16_t* OpenBracketToken::typeName() const {
    return u"OpenBracketToken";
}
template <>
const char16_t* CloseBracketToken::typeName() const {
    return u"CloseBracketToken";
}
template <>
const char16_t* EqualToken::typeName() const {
    return u"EqualToken";
}
template <>
const char16_t* SemicolonToken::typeName() const {
    return u"SemicolonToken";
}
template <>
const char16_t* UnknownSignToken::typeName() const {
    return u"UnknownSignToken";
}
template <>
const char16_t* EndOfFileToken::typeName() const {
    return u"EndOfFileToken";
}
template <>
const char16_t* NewLineToken::typeName() const {
    return u"NewLineToken";
}

const char16_t* EmptyParameterToken::typeName() const { return u"EmptyParameterToken"; }
const char16_t* IdentifierToken::typeName() const { return u"IdentifierToken"; }
const char16_t* IntegerDataTypeToken::typeName() const { return u"IntegerDataTypeToken"; }
const char16_t* RealDataTypeToken::typeName() const { return u"RealDataTypeToken"; }
const char16_t* EntityNameToken::typeName() const { return u"EntityNameToken"; }
const char16_t* EnumerationToken::typeName() const { return u"EnumerationToken"; }
const char16_t* WstringToken::typeName() const { return u"StringToken"; }
const char16_t* BinaryToken::typeName() const { return u"BinaryToken"; }
const char16_t* IsoToken::typeName() const { return u"IsoToken"; }
const char16_t* EndIsoToken::typeName() const { return u"EndIsoToken"; }
const char16_t* HeaderToken::typeName() const { return u"HeaderToken"; }

IsoToken::IsoToken(std::string_view text) : Token(TokenKind::Iso), value(widened(text)) {}

std::u16string widened(std::string_view bytes) {
    std::u16string units(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), units.begin(),
                   [](char byte) { return widened(byte); });
    return units;
}

std::u16string EnumerationToken::value() const { return widened(bytes); }

std::u16string WstringToken::value() const {
    return decoded ? std::u16string(units) : widened(plain);
}
