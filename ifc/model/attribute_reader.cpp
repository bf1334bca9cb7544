#include "ifc/model/attribute_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "ifc/io/tokenizer.h"
#include "ifc/model/entity.h"
#include "ifc/model/read_context.h"

namespace IFC {

namespace {

template <class Derived>
const Derived& as(const Token& token) {
    return static_cast<const Derived&>(token);
}

constexpr std::size_t kOpenEnd = std::numeric_limits<std::size_t>::max();
constexpr const char16_t* kAttributeValue = u"attribute value";

/// Whether there can be no argument from `token` on.
bool endsArguments(const Token& token) {
    return token.kind == TokenKind::CloseBracket || token.kind == TokenKind::Semicolon ||
           token.kind == TokenKind::EndOfFile;
}

/// Typed values and aggregates nest as deep as the schema says; a record that goes on is cut off
/// here.
constexpr unsigned kDeepestNesting = 16;

}  // namespace

AttributeReader::AttributeReader(Tokenizer& tokenizer, ReadContext& context)
    : tokenizer_(tokenizer), context_(context) {}

void AttributeReader::beginRecord() {
    asked_ = found_ = attribute_ = emptyArguments_ = 0;
    ended_ = cut_ = false;
    starred_ = 0;
    surplus_ = {};
    damaged_.clear();
}

bool AttributeReader::damage() {
    if (!damaged_.empty() && damaged_.back().place == attribute_)
        return false;
    damaged_.push_back({attribute_, {attributeBegin_, kOpenEnd}});
    return !context_.bindingPass;
}

std::size_t AttributeReader::textPosition() const {
    const std::size_t length = tokenizer_.stream()->statementLength();
    const Token* waiting = tokenizer_.pending();
    return waiting && waiting->kind != TokenKind::EndOfFile ? length - 1 : length;  // ")" or ";"
}

/// The first token behind the value that was read last. What follows that value without a comma
/// belongs to it.
const Token* AttributeReader::nextArgument() {
    const Token* token = nullptr;
    if (emptyArguments_ > 0) {
        token = tokenizer_.nextToken();  // has been waiting
    } else {
        argumentBegin_ = textPosition();
        tokenizer_.clearTokens();
        token = tokenizer_.nextToken();
        while (tokenizer_.separation() == 0 && !endsArguments(*token))
            [[unlikely]] {
                wrongArgument(u"CloseBracketToken", *token);
                argumentBegin_ = textPosition();
                tokenizer_.clearTokens();
                token = tokenizer_.nextToken();
            }
    }
    if (!damaged_.empty() && damaged_.back().text.end == kOpenEnd)
        damaged_.back().text.end = argumentBegin_;
    return token;
}

/// Whether there is nothing between the commas before `next` for the attribute that is due.
bool AttributeReader::isEmptyArgument(const Token& next) const {
    const unsigned separation = tokenizer_.separation();
    if (!endsArguments(next))
        return emptyArguments_ + 1 < separation;
    // Behind the last comma there is one more; "()" has none.
    const bool isFirst = asked_ == emptyArguments_;
    return next.kind == TokenKind::CloseBracket && emptyArguments_ < separation &&
           !(isFirst && separation == 1);
}

/// @return null when the record has no such argument, or an empty one.
const Token* AttributeReader::firstOfAttribute() {
    if (ended_) {
        attribute_ = asked_++;
        return nullptr;
    }
    const Token* token = nextArgument();
    const bool empty = isEmptyArgument(*token);
    attribute_ = asked_++;
    attributeBegin_ = argumentBegin_;
    if (empty) [[unlikely]] {
        ++found_;
        ++emptyArguments_;
        tokenizer_.setPending(token);
        if (!context_.bindingPass)
            context_.wrongArgument(kAttributeValue, u"EmptyParameterToken");
        return nullptr;
    }
    emptyArguments_ = 0;
    if (endsArguments(*token)) {
        tokenizer_.setPending(token);  // these outlive clearTokens()
        ended_ = true;
        return nullptr;
    }
    ++found_;
    return token;
}

/// The next token of a list, or of what stands inside a typed value.
const Token* AttributeReader::nextInValue() {
    tokenizer_.clearTokens();
    const Token* token = tokenizer_.nextToken();
    return tokenizer_.separation() == 1 ? token : behindGap(token);
}

/// What stands before `token` is not one comma or an opening bracket.
const Token* AttributeReader::behindGap(const Token* token) {
    while (tokenizer_.separation() == 0 && !endsArguments(*token)) {
        wrongArgument(u"CloseBracketToken", *token);
        tokenizer_.clearTokens();
        token = tokenizer_.nextToken();
    }
    if (tokenizer_.separation() > 1 && damage())
        context_.wrongArgument(kAttributeValue, u"EmptyParameterToken");
    return token;
}

const Token* AttributeReader::first(Need need) {
    const Token* token = depth_ == 0 ? firstOfAttribute() : nextInValue();
    if (!token || (token->kind != TokenKind::EmptyParameter && !endsArguments(*token))) [[likely]]
        return token;
    if (endsArguments(*token)) {  // an empty typed value
        tokenizer_.setPending(token);
        return nullptr;
    }
    if (as<EmptyParameterToken>(*token).derived) {
        if (depth_ > 0)
            damage();  // only attributes can be derived
        else if (attribute_ < 64)
            starred_ |= std::uint64_t{1} << attribute_;
    } else if (need == Need::Mandatory && !context_.bindingPass) {
        context_.wrongArgument(kAttributeValue, token->typeName());
    }
    return nullptr;
}

bool AttributeReader::endRecord() {
    const Token* token = nextArgument();
    const bool surplus = !endsArguments(*token);
    if (surplus) {
        if (!context_.bindingPass)
            context_.surplusArgument(token->typeName());
        surplus_.begin = argumentBegin_;
        surplusCommas_ = emptyArguments_ + (asked_ > emptyArguments_ ? 1 : 0);
        while (!endsArguments(*token)) {
            skipValue(*token);
            tokenizer_.clearTokens();
            token = tokenizer_.nextToken();
        }
    }
    const bool closed = token->kind == TokenKind::CloseBracket;
    if (!closed)
        tokenizer_.setPending(token);
    if (surplus)
        surplus_.end = textPosition() - (closed ? 1 : 0);
    if (cut_ || token->kind == TokenKind::EndOfFile) {
        if (surplus)
            surplus_ = {};
        else if (!damaged_.empty() && damaged_.back().place + 1 == found_)
            damaged_.pop_back();
    }
    return closed;
}

void AttributeReader::wrongArgument(const char16_t* expected, const Token& found) {
    if (damage())
        context_.wrongArgument(expected, found.typeName());
    skipValue(found);
}

/// Skips the value that begins with `first`, up to the comma or bracket behind it, whatever it is
/// made of.
void AttributeReader::skipValue(const Token& first) {
    for (const Token* token = &first;; token = tokenizer_.nextToken()) {
        switch (token->kind) {
            case TokenKind::OpenBracket: skipBrackets(); break;
            case TokenKind::CloseBracket:
            case TokenKind::Semicolon:
            case TokenKind::EndOfFile: tokenizer_.setPending(token); return;
            // These reach to the next ";", whatever brackets come before it.
            case TokenKind::Iso:
            case TokenKind::EndIso: cut_ = true; break;
            default: break;
        }
        if (tokenizer_.atParameterEnd())
            return;
        tokenizer_.clearTokens();
    }
}

/// Behind an opening bracket: skips to its closing one, or stops before the end of the statement.
void AttributeReader::skipBrackets() {
    for (std::size_t open = 1; open > 0;) {
        tokenizer_.clearTokens();
        const Token* token = tokenizer_.nextToken();
        switch (token->kind) {
            case TokenKind::OpenBracket: ++open; break;
            case TokenKind::CloseBracket: --open; break;
            case TokenKind::Semicolon:
            case TokenKind::EndOfFile: giveBackEnd(token); return;
            default: break;
        }
    }
}

/// The end of the statement, met inside brackets.
void AttributeReader::giveBackEnd(const Token* end) {
    cut_ = true;
    tokenizer_.setPending(end);
}

// Single values.

bool AttributeReader::readText(const Token& token, Text& value) {
    if (token.kind != TokenKind::String)
        return false;
    const auto& string = as<WstringToken>(token);
    const std::size_t length = string.length();
    if (length > std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    // In the second pass the text is there already. Not always in its place: an element of a list
    // may have come before it.
    const auto isThere = [&] {
        const std::u16string_view text = value.view();
        return string.decoded
                   ? text == string.units
                   : std::equal(text.begin(), text.end(), string.plain.begin(), string.plain.end());
    };
    if (context_.bindingPass && value.present && isThere())
        return true;
    auto* units = context_.pool.array<char16_t>(length);
    if (string.decoded)
        std::copy(string.units.begin(), string.units.end(), units);
    else
        std::copy(string.plain.begin(), string.plain.end(), units);  // 7-bit
    value = {units, static_cast<std::uint32_t>(length), true};
    return true;
}

void AttributeReader::text(Text& value, Need need) {
    const Token* token = first(need);
    if (!token) {
        value = {};
    } else if (!readText(*token, value)) {
        value = {};
        wrongArgument(u"StringToken", *token);
    }
}

void AttributeReader::binary(Binary& value, Need need) {
    const Token* token = first(need);
    if (token && token->kind == TokenKind::Binary) {
        const std::string_view digits = as<BinaryToken>(*token).digits;
        if (digits.size() > std::numeric_limits<std::uint32_t>::max())
            throw std::bad_alloc();
        if (value.view() != digits || !value.present)
            value = {context_.pool.copy(digits), static_cast<std::uint32_t>(digits.size()), true};
        return;
    }
    value = {};
    if (token)
        wrongArgument(u"BinaryToken", *token);
}

/// Takes a number written with a plus sign, which the tokenizer gives as a token of its own.
/// @return `token` itself, or the number behind the sign.
const Token& AttributeReader::withoutPlus(const Token& token) {
    if (token.kind != TokenKind::UnknownSign || tokenizer_.lastUnknownSign() != '+' ||
        tokenizer_.atParameterEnd())
        return token;
    const Token* number = tokenizer_.nextToken();
    if (number->kind == TokenKind::Integer || number->kind == TokenKind::Real)
        return *number;
    tokenizer_.setPending(number);
    return token;
}

/// A real, also when it is written without its dot.
bool AttributeReader::readNumber(const Token& first, double& value) {
    const Token* token = &withoutPlus(first);
    bool overflow = false;
    if (token->kind == TokenKind::Integer) [[unlikely]] {
        const auto& integer = as<IntegerDataTypeToken>(*token);
        overflow = integer.overflow;
        value = static_cast<double>(integer.exact);
        token = tokenizer_.takeExponent(integer);
    } else if (token->kind != TokenKind::Real) {
        return false;
    }
    bool malformed = false;
    if (token) {
        const auto& real = as<RealDataTypeToken>(*token);
        value = real.value;
        overflow = overflow || real.overflow;
        malformed = real.malformed;
    }
    if ((overflow || malformed) && damage()) [[unlikely]]
        malformed ? context_.malformedNumber() : context_.numberOutOfRange();
    return true;
}

void AttributeReader::real(Real& value, Need need) {
    const Token* token = first(need);
    value.present = token && readNumber(*token, value.value);
    if (token && !value.present)
        wrongArgument(u"RealDataTypeToken", *token);
}

/// An integer, also when it is written as a real that is one.
bool AttributeReader::readInteger(const Token& first, std::int64_t& value) {
    const Token* token = &withoutPlus(first);
    if (token->kind == TokenKind::Integer) {
        const auto& integer = as<IntegerDataTypeToken>(*token);
        token = tokenizer_.takeExponent(integer);
        if (!token) {
            value = integer.exact;
            if (integer.overflow && damage())
                context_.numberOutOfRange();
            return true;
        }
    }
    if (token->kind != TokenKind::Real)
        return false;
    constexpr double kLargestExact = 9007199254740992.0;  // 2^53
    const auto& real = as<RealDataTypeToken>(*token);
    if (real.malformed || std::trunc(real.value) != real.value ||
        std::abs(real.value) > kLargestExact)
        return false;
    value = static_cast<std::int64_t>(real.value);
    return true;
}

void AttributeReader::integer(Integer& value, Need need) {
    const Token* token = first(need);
    value.present = token && readInteger(*token, value.value);
    if (token && !value.present)
        wrongArgument(u"IntegerDataTypeToken", *token);
}

bool AttributeReader::readLogical(const Token& token, Logical& value) {
    if (token.kind != TokenKind::Enumeration)
        return false;
    constexpr std::array<std::string_view, 3> kNames = {"T", "F", "U"};
    const auto found = std::find(kNames.begin(), kNames.end(), as<EnumerationToken>(token).bytes);
    if (found == kNames.end())
        return false;
    value = {static_cast<std::int32_t>(found - kNames.begin()), true};
    return true;
}

void AttributeReader::logical(Logical& value, Need need) {
    const Token* token = first(need);
    value = {};
    if (token && !readLogical(*token, value))
        wrongArgument(u"EnumerationToken", *token);
}

void AttributeReader::enumeration(Enumeration& value, Need need, const EnumerationInfo& type) {
    const Token* token = first(need);
    if (!token) {
        value = {};
    } else if (token->kind == TokenKind::Enumeration) {
        value = {type.parse(*this, as<EnumerationToken>(*token).bytes), true};
    } else {
        value = {};
        wrongArgument(u"EnumerationToken", *token);
    }
}

void AttributeReader::unknownEnumerationValue(std::string_view enumerationName,
                                              std::string_view text) {
    if (!context_.bindingPass)
        context_.unknownEnumerationValue(enumerationName, text);
}

// References.

/// The part of #n that is of class `declared`; null when there is none (yet).
void* AttributeReader::bind(std::int64_t number, const ClassInfo& declared) {
    IfcEntity* target = number > std::numeric_limits<std::int32_t>::max()
                            ? nullptr
                            : context_.entities.find(static_cast<std::int32_t>(number));
    if (target) [[likely]] {
        const CastCache::Result result = context_.casts.cast(target, declared);
        if (result.editable)
            context_.noteEditableReference();
        if (result.part) [[likely]]
            return result.part;
    }
    if (!context_.bindingPass) {
        context_.needsSecondPass = true;  // where it is bound, or reported for good
        return nullptr;
    }
    if (target)
        context_.wrongReference(*target, declared);
    else
        context_.missingReference(number);
    // What was left out is not to be referred to in the output either; anything else is kept as it
    // stands.
    if (target || !context_.wasLeftOut(number))
        damage();
    return nullptr;
}

void* AttributeReader::readReference(Need need, const ClassInfo& declared) {
    const Token* token = first(need);
    if (!token)
        return nullptr;
    if (token->kind == TokenKind::Identifier) [[likely]]
        return bind(as<IdentifierToken>(*token).exact, declared);
    wrongArgument(u"IdentifierToken", *token);
    return nullptr;
}

void* AttributeReader::readSelect(void* previous, Need need, const ClassInfo& declared) {
    const Token* token = first(need);
    if (!token)
        return nullptr;
    if (token->kind == TokenKind::Identifier)
        return bind(as<IdentifierToken>(*token).exact, declared);
    if (token->kind == TokenKind::EntityName)
        return typedValue(*token, previous, declared);
    wrongArgument(u"IdentifierToken", *token);
    return nullptr;
}

/// NAME(value), with `name` taken. previous: what stood in its place when the instance was read
/// before; used again when it is of the same class.
void* AttributeReader::typedValue(const Token& name, void* previous, const ClassInfo& declared) {
    const std::string_view key = as<EntityNameToken>(name).name;
    const ClassInfo* valueClass = context_.findValueClass(key);
    if (!valueClass || depth_ >= kDeepestNesting) {
        if (damage())
            context_.unknownValueType(key);
        skipValue(name);
        return nullptr;
    }
    const Token* open = tokenizer_.nextToken();
    if (open->kind != TokenKind::OpenBracket) {
        wrongArgument(u"OpenBracketToken", *open);
        return nullptr;
    }
    IfcEntity* value = previous ? declared.toEntity(previous) : nullptr;
    if (!value || &value->classInfo() != valueClass)
        value = valueClass->create(context_.pool);

    ++depth_;
    value->readAttributes(*this);
    --depth_;
    const Token* end = nextInValue();
    if (!endsArguments(*end) && damage())
        context_.surplusArgument(end->typeName());
    while (!endsArguments(*end)) {
        skipValue(*end);
        end = nextInValue();
    }
    if (end->kind != TokenKind::CloseBracket)
        giveBackEnd(end);

    const CastCache::Result result = context_.casts.cast(value, declared);
    if (!result.part && damage())
        context_.wrongReference(*value, declared);
    return result.part;
}

// Aggregates.

bool AttributeReader::openList(bool& present, Need need) {
    const Token* token = nullptr;
    if (depth_ == 0) {
        token = first(need);
    } else {
        token = nextInValue();
        if (token->kind == TokenKind::EmptyParameter) {
            if (as<EmptyParameterToken>(*token).derived)
                damage();
            token = nullptr;
        }
    }
    present = token && token->kind == TokenKind::OpenBracket;
    if (present)
        ++depth_;
    else if (token)
        wrongArgument(u"OpenBracketToken", *token);
    return present;
}

/// The first token of the list's next element; null behind its last one.
const Token* AttributeReader::nextInList() {
    const Token* token = nextInValue();
    if (!endsArguments(*token)) [[likely]]
        return token;
    if (token->kind != TokenKind::CloseBracket)
        giveBackEnd(token);
    --depth_;
    return nullptr;
}

bool AttributeReader::moreInList() {
    const Token* token = nextInList();
    tokenizer_.setPending(token ? token : tokenizer_.pending());
    return token != nullptr;
}

void* AttributeReader::listMemory(std::size_t count, std::size_t elementBytes,
                                  std::size_t alignment) {
    if (count > std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    return context_.pool.allocate(count * elementBytes, alignment);
}

/// Takes the pointers behind `begin` off the scratch list and puts them into `values`.
void AttributeReader::keepPointers(PointerSequence& values, std::size_t begin) {
    const std::span<void* const> read(pointerScratch_.data() + begin,
                                      pointerScratch_.size() - begin);
    if (values.count != read.size()) {
        values.items = static_cast<void**>(listMemory(read.size(), sizeof(void*), alignof(void*)));
        values.count = static_cast<std::uint32_t>(read.size());
    }
    std::copy(read.begin(), read.end(), values.items);
    pointerScratch_.resize(begin);
}

/// A flat list: `readElement(token, element)` tells whether the token was one.
template <class Element, class ReadElement>
void AttributeReader::flatList(Sequence<Element>& values, Need need, const char16_t* expected,
                               ReadElement readElement) {
    if (!openList(values.present, need)) {
        values.count = 0;
        return;
    }
    std::vector<Element> read;
    while (const Token* token = nextInList()) {
        Element element = read.size() < values.count ? values.items[read.size()] : Element{};
        if (readElement(*token, element))
            read.push_back(element);
        else
            wrongArgument(expected, *token);
    }
    keepList<Element>(values, read);
}

void AttributeReader::texts(Sequence<Text>& values, Need need) {
    flatList(values, need, u"StringToken", [this](const Token& token, Text& value) {
        if (token.kind == TokenKind::EmptyParameter) {
            value = {};
            return !as<EmptyParameterToken>(token).derived;
        }
        return readText(token, value);
    });
}

void AttributeReader::binaries(Sequence<Binary>& values, Need need) {
    flatList(values, need, u"BinaryToken", [this](const Token& token, Binary& value) {
        if (token.kind != TokenKind::Binary)
            return false;
        const std::string_view digits = as<BinaryToken>(token).digits;
        if (digits.size() > std::numeric_limits<std::uint32_t>::max())
            throw std::bad_alloc();
        if (value.view() != digits || !value.present)
            value = {context_.pool.copy(digits), static_cast<std::uint32_t>(digits.size()), true};
        return true;
    });
}

void AttributeReader::reals(Sequence<double>& values, Need need) {
    if (!openList(values.present, need)) {
        values.count = 0;
        return;
    }
    realScratch_.clear();
    while (true) {
        double value = 0;
        if (!tokenizer_.takePlainReal(value)) {
            const Token* token = nextInList();
            if (!token)
                break;
            if (!readNumber(*token, value)) {
                wrongArgument(u"RealDataTypeToken", *token);
                continue;
            }
        }
        realScratch_.push_back(value);
    }
    keepList<double>(values, realScratch_);
}

void AttributeReader::integers(Sequence<std::int64_t>& values, Need need) {
    flatList(values, need, u"IntegerDataTypeToken",
             [this](const Token& token, std::int64_t& value) { return readInteger(token, value); });
}

void AttributeReader::logicals(Sequence<Logical>& values, Need need) {
    flatList(values, need, u"EnumerationToken",
             [this](const Token& token, Logical& value) { return readLogical(token, value); });
}

void AttributeReader::enumerations(Sequence<Enumeration>& values, Need need,
                                   const EnumerationInfo& type) {
    flatList(values, need, u"EnumerationToken", [&](const Token& token, Enumeration& value) {
        if (token.kind != TokenKind::Enumeration)
            return false;
        value = {type.parse(*this, as<EnumerationToken>(token).bytes), true};
        return true;
    });
}

void AttributeReader::references(PointerSequence& values, Need need, const ClassInfo& declared) {
    if (!openList(values.present, need)) {
        values.count = 0;
        return;
    }
    const std::size_t begin = pointerScratch_.size();
    while (true) {
        std::int32_t plain = 0;
        std::int64_t number = 0;
        if (tokenizer_.takePlainName(plain)) {
            number = plain;
        } else {
            const Token* token = nextInList();
            if (!token)
                break;
            if (token->kind != TokenKind::Identifier) {
                wrongArgument(u"IdentifierToken", *token);
                continue;
            }
            number = as<IdentifierToken>(*token).exact;
        }
        if (void* part = bind(number, declared))
            pointerScratch_.push_back(part);
    }
    keepPointers(values, begin);
}

void AttributeReader::selects(PointerSequence& values, Need need, const ClassInfo& declared) {
    if (!openList(values.present, need)) {
        values.count = 0;
        return;
    }
    const std::size_t begin = pointerScratch_.size();
    while (const Token* token = nextInList()) {
        const std::size_t index = pointerScratch_.size() - begin;
        void* part = nullptr;
        if (token->kind == TokenKind::Identifier)
            part = bind(as<IdentifierToken>(*token).exact, declared);
        else if (token->kind == TokenKind::EntityName)
            part =
                typedValue(*token, index < values.count ? values.items[index] : nullptr, declared);
        else
            wrongArgument(u"IdentifierToken", *token);
        if (part)
            pointerScratch_.push_back(part);
    }
    keepPointers(values, begin);
}

void AttributeReader::textLists(Sequence<Sequence<Text>>& values, Need need) {
    lists(values, need, [this](Sequence<Text>& inner) { texts(inner, kMandatory); });
}

void AttributeReader::realLists(Sequence<Sequence<double>>& values, Need need) {
    lists(values, need, [this](Sequence<double>& inner) { reals(inner, kMandatory); });
}

void AttributeReader::integerLists(Sequence<Sequence<std::int64_t>>& values, Need need) {
    lists(values, need, [this](Sequence<std::int64_t>& inner) { integers(inner, kMandatory); });
}

}  // namespace IFC
