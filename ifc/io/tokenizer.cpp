#include "ifc/io/tokenizer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>

#include "ifc/io/input_file_stream.h"
#include "ifc/io/input_zip_stream.h"
#include "ifc/io/io_texts.h"
#include "ifc/io/numbers.h"
#include "ifc/io/parser_texts.h"
#include "ifc/io/paths.h"
#include "platform/code_page.h"

namespace {

enum class ByteClass : std::uint8_t {
    Other,
    Blank,  // and "_", which separates like one
    Letter,
    Digit,
    Minus,
    Comma,
    Open,
    Close,
    Name,   // #
    Quote,  // '
    Dot,
    Absent,   // $
    Derived,  // *
    Equal,
    Semicolon,
    Binary,  // "
    Slash,
    End
};

constexpr std::array<ByteClass, 256> makeByteClasses() {
    std::array<ByteClass, 256> classes{};
    for (const char blank : {' ', '\t', '\n', '\v', '\f', '\r', '_'})
        classes[static_cast<unsigned char>(blank)] = ByteClass::Blank;
    for (int letter = 0; letter < 26; ++letter) {
        classes[static_cast<std::size_t>('A' + letter)] = ByteClass::Letter;
        classes[static_cast<std::size_t>('a' + letter)] = ByteClass::Letter;
    }
    for (int digit = 0; digit < 10; ++digit)
        classes[static_cast<std::size_t>('0' + digit)] = ByteClass::Digit;
    classes['-'] = ByteClass::Minus;
    classes[','] = ByteClass::Comma;
    classes['('] = ByteClass::Open;
    classes[')'] = ByteClass::Close;
    classes['#'] = ByteClass::Name;
    classes['\''] = ByteClass::Quote;
    classes['.'] = ByteClass::Dot;
    classes['$'] = ByteClass::Absent;
    classes['*'] = ByteClass::Derived;
    classes['='] = ByteClass::Equal;
    classes[';'] = ByteClass::Semicolon;
    classes['"'] = ByteClass::Binary;
    classes['/'] = ByteClass::Slash;
    classes[0xFF] = ByteClass::End;
    return classes;
}

constexpr std::array<ByteClass, 256> kByteClasses = makeByteClasses();

constexpr ByteClass classOf(char byte) { return kByteClasses[static_cast<unsigned char>(byte)]; }

/// Where the next token does not begin: a blank, or a byte that ends the input.
constexpr bool isSeparator(char byte) {
    return classOf(byte) == ByteClass::Blank || classOf(byte) == ByteClass::End;
}

constexpr bool isDigit(int byte) { return byte >= '0' && byte <= '9'; }

/// The value of a string token, else empty.
std::u16string stringOf(const Token& token) {
    return token.kind == TokenKind::String ? static_cast<const WstringToken&>(token).value()
                                           : std::u16string();
}

constexpr bool isKeywordByte(int byte) {
    return byte >= 0 &&
           (kByteClasses[static_cast<std::size_t>(byte)] == ByteClass::Letter ||
            kByteClasses[static_cast<std::size_t>(byte)] == ByteClass::Digit || byte == '_');
}

/// Bytes of a string that stand for themselves: 7 bits, neither quote nor backslash.
constexpr std::array<bool, 256> makePlainBytes() {
    std::array<bool, 256> plain{};
    for (std::size_t byte = 0; byte < 0x80; ++byte)
        plain[byte] = byte != '\'' && byte != '\\';
    return plain;
}

constexpr std::array<bool, 256> kPlainBytes = makePlainBytes();

constexpr int kDefaultCodePage = 0;
/// Windows' numbers of the ISO 8859 pages begin at 28591 for part 1, which \PA\ selects.
constexpr int kCodePageBeforeA = 28526;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct RealNumber {
    double value = 0;
    bool overflow = false;
    bool malformed = false;
};

/// The number without exponent at the begin of [begin, end), when it is as short as most are.
/// Powers of ten up to 1e22 and mantissas up to 2^53 are exact doubles, so one division gives the
/// correctly rounded result (W. D. Clinger, How to Read Floating Point Numbers Accurately, 1990).
/// @return behind its last digit or dot; null for any other number, and when it has no dot.
const char* parseShortReal(const char* begin, const char* end, double& value) {
    static constexpr std::array<double, 23> kPowersOfTen = {
        1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
        1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr std::uint64_t kLargestExact = std::uint64_t{1} << 53;
    constexpr std::ptrdiff_t kMostDigits = 19;  // which 64 bits hold

    const char* next = begin;
    const bool negative = next != end && *next == '-';
    next += negative ? 1 : 0;
    const char* const digits = next;
    std::uint64_t mantissa = 0;
    while (next != end && isDigit(*next))
        mantissa = mantissa * 10 + static_cast<std::uint64_t>(*next++ - '0');
    if (next == end || *next != '.')
        return nullptr;
    const char* const fraction = ++next;
    while (next != end && isDigit(*next))
        mantissa = mantissa * 10 + static_cast<std::uint64_t>(*next++ - '0');
    const std::ptrdiff_t digitCount = next - digits - 1;
    if (digitCount == 0 || digitCount > kMostDigits || mantissa > kLargestExact ||
        (next != end && (*next == 'E' || *next == 'e')))
        return nullptr;
    const double magnitude = static_cast<double>(mantissa);
    const std::ptrdiff_t scale = next - fraction;
    const double scaled =
        scale == 0 ? magnitude : magnitude / kPowersOfTen[static_cast<std::size_t>(scale)];
    value = negative ? -scaled : scaled;
    return next;
}

/// The number at [begin, end), as far as it is one; blanks may follow.
RealNumber parseReal(const char* begin, const char* end) {
    const auto onlyBlanksFrom = [end](const char* rest) {
        return std::all_of(rest, end, [](char c) { return classOf(c) == ByteClass::Blank; });
    };
    double value = begin != end && *begin == '-' ? -0.0 : 0.0;
    if (const char* stop = parseShortReal(begin, end, value))
        return {value, false, !onlyBlanksFrom(stop)};
    const auto [stop, error] = std::from_chars(begin, end, value);
    bool overflow = false;
    if (error == std::errc::result_out_of_range) {
        overflow = IFC::isTooLarge({begin, static_cast<std::size_t>(stop - begin)});
        const double nearest = overflow ? std::numeric_limits<double>::max() : 0.0;
        value = *begin == '-' ? -nearest : nearest;
    }
    return {value, overflow, error == std::errc::invalid_argument || !onlyBlanksFrom(stop)};
}

/// The digits at [begin, end), with a sign, cut to 64 bits.
std::int64_t parseInteger(const char* begin, const char* end, bool& overflow) {
    std::int64_t value = 0;
    const auto [stop, error] = std::from_chars(begin, end, value);
    overflow = error == std::errc::result_out_of_range;
    if (overflow)
        value = *begin == '-' ? std::numeric_limits<std::int64_t>::min()
                              : std::numeric_limits<std::int64_t>::max();
    return value;
}

/// Null for an extension that is not known.
std::unique_ptr<FileStream::InputStream> openStream(const std::u16string& path,
                                                    std::size_t readBufferBytes,
                                                    const ErrorCallback& errors) {
    const std::u16string extension = FileStream::extensionOf(path);
    if (extension == u".ifc")
        return std::make_unique<FileStream::InputFileStream>(path, errors, readBufferBytes);
    if (extension == u".ifczip" || extension == u".ahx")
        return std::make_unique<FileStream::InputZipFileStream>(path, errors, readBufferBytes);
    report(errors, texts::kCouldNotOpenFileExtensionKey, u" " + path);
    return nullptr;
}

}  // namespace

Tokenizer::Tokenizer(const std::u16string& path, std::size_t readBufferBytes, ErrorCallback errors)
    : stream_(openStream(path, readBufferBytes, errors)), errors_(std::move(errors)) {}

Tokenizer::Tokenizer(std::unique_ptr<FileStream::InputStream> stream, ErrorCallback errors)
    : stream_(std::move(stream)), errors_(std::move(errors)) {}

Tokenizer::~Tokenizer() = default;

const Token* Tokenizer::nextToken() {
    if (pending_ && !failed_) {
        const Token* token = pending_;
        pending_ = nullptr;
        return token;
    }
    if (failed_ || !stream_)
        return &endOfFile_;
    try {
        return scan();
    } catch (const std::bad_alloc&) {
        report(errors_, "", texts::kOutOfMemory);
    } catch (const std::exception& fault) {
        report(errors_, "", widened(fault.what()));
    }
    failed_ = true;
    return &endOfFile_;
}

inline int Tokenizer::peekByte() {
    if (stream_->windowBegin() == stream_->windowEnd() && !stream_->refill())
        return kEnd;
    const auto byte = static_cast<unsigned char>(*stream_->windowBegin());
    return byte == 0xFF ? kEnd : byte;
}

inline int Tokenizer::takeAnyByte() {
    if (stream_->windowBegin() == stream_->windowEnd() && !stream_->refill())
        return kEnd;
    const char* next = stream_->windowBegin();
    const auto byte = static_cast<unsigned char>(*next);
    stream_->advanceTo(next + 1);
    return byte;
}

inline int Tokenizer::takeByte() {
    const int byte = takeAnyByte();
    return byte == 0xFF ? kEnd : byte;
}

std::string_view Tokenizer::keep(std::string_view bytes) {
    char* copy = arena_.array<char>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), copy);
    return {copy, bytes.size()};
}

/// @return false at the end of the input.
bool Tokenizer::skipBlanks() {
    char previous = 0;
    while (true) {
        const char* next = stream_->windowBegin();
        const char* const end = stream_->windowEnd();
        while (next != end && classOf(*next) == ByteClass::Blank) {
            // A line ends with LF, CR LF, or CR alone.
            if (*next == '\r' || (*next == '\n' && previous != '\r'))
                ++lineNumber_;
            previous = *next++;
        }
        stream_->advanceTo(next);
        if (next != end)
            return classOf(*next) != ByteClass::End;
        if (!stream_->refill())
            return false;
    }
}

const Token* Tokenizer::scan() {
    if (atStart_) {
        atStart_ = false;
        for (const char mark : kByteOrderMark) {
            if (peekByte() != static_cast<unsigned char>(mark))
                break;
            takeByte();
        }
    }
    separation_ = afterOpenBracket_ ? 1 : 0;
    afterOpenBracket_ = false;
    while (true) {
        // Not when any ";" was consumed: one inside a number's text does not end the statement.
        if (statementEnded_ && headerTokensLeft_ == 0) {
            statementEnded_ = false;
            stream_->clearStatement();
        }
        const char* here = stream_->windowBegin();
        if (here == stream_->windowEnd() || isSeparator(*here)) {
            if (!skipBlanks())
                return &endOfFile_;
            here = stream_->windowBegin();
        }
        switch (classOf(*here)) {
            case ByteClass::Comma:
                ++parameterIndex_;
                ++separation_;
                stream_->advanceTo(here + 1);
                continue;
            case ByteClass::Letter: return keyword();
            case ByteClass::Digit:
            case ByteClass::Minus: return number();
            case ByteClass::Quote: return string();
            case ByteClass::Name: return instanceName();
            case ByteClass::Dot: return enumeration();
            case ByteClass::Open:
                afterOpenBracket_ = true;
                stream_->advanceTo(here + 1);
                return &openBracket_;
            case ByteClass::Close: stream_->advanceTo(here + 1); return &closeBracket_;
            case ByteClass::Equal: stream_->advanceTo(here + 1); return &equal_;
            case ByteClass::Absent: stream_->advanceTo(here + 1); return &absent_;
            case ByteClass::Derived: stream_->advanceTo(here + 1); return &derived_;
            case ByteClass::Binary: return binary();
            case ByteClass::Semicolon:
                parameterIndex_ = 0;
                statementEnded_ = true;
                stream_->advanceTo(here + 1);
                return &semicolon_;
            case ByteClass::Slash:
                if (const Token* token = slash())
                    return token;
                continue;
            case ByteClass::Blank:
            case ByteClass::End:
            case ByteClass::Other:
                lastUnknownSign_ = *here;
                stream_->advanceTo(here + 1);
                return &unknownSign_;
        }
    }
}

const char* Tokenizer::plainElement() const {
    if (pending_ || failed_ || !stream_)
        return nullptr;
    const char* const here = stream_->windowBegin();
    if (afterOpenBracket_)
        return here;
    return here != stream_->windowEnd() && *here == ',' ? here + 1 : nullptr;
}

void Tokenizer::takeElement(const char* stop) {
    parameterIndex_ += afterOpenBracket_ ? 0 : 1;
    afterOpenBracket_ = false;
    separation_ = 1;
    stream_->advanceTo(stop);
}

bool Tokenizer::takePlainReal(double& value) {
    const char* const begin = plainElement();
    const char* const end = stream_->windowEnd();
    if (!begin || begin == end || *begin == '.')  // which begins an enumeration value
        return false;
    const char* const stop = parseShortReal(begin, end, value);
    if (!stop || stop == end || (*stop != ',' && *stop != ')'))
        return false;
    takeElement(stop);
    return true;
}

bool Tokenizer::takePlainName(std::int32_t& number) {
    constexpr std::ptrdiff_t kMostDigits = 9;  // which 31 bits hold
    const char* begin = plainElement();
    const char* const end = stream_->windowEnd();
    if (!begin || begin == end || *begin != '#')
        return false;
    const char* next = ++begin;
    std::int32_t value = 0;
    while (next != end && isDigit(*next) && next - begin < kMostDigits)
        value = value * 10 + (*next++ - '0');
    if (next == begin || next == end || (*next != ',' && *next != ')'))
        return false;
    number = value;
    takeElement(next);
    ++parameterIndex_;
    return true;
}

/// @return null behind a comment.
const Token* Tokenizer::slash() {
    takeByte();
    if (peekByte() == kEnd)
        return &endOfFile_;
    const int second = takeByte();
    if (second != '*') {
        lastUnknownSign_ = '/';
        return &unknownSign_;
    }
    skipComment();
    return nullptr;
}

/// Line ends inside comments are not counted.
void Tokenizer::skipComment() {
    for (int byte = takeAnyByte(); byte != kEnd; byte = takeAnyByte()) {
        if (byte == '*' && peekByte() == '/') {
            takeByte();
            return;
        }
    }
}

std::string_view Tokenizer::keywordText() {
    const char* const begin = stream_->windowBegin();
    const char* const end = stream_->windowEnd();
    const char* next = begin;
    while (next != end &&
           (classOf(*next) == ByteClass::Letter || classOf(*next) == ByteClass::Digit))
        ++next;
    if (next != end && *next != '_') {
        stream_->advanceTo(next);
        return keep(std::string_view(begin, static_cast<std::size_t>(next - begin))
                        .substr(0, kMaxNameBytes));
    }
    scratch_.clear();
    for (int byte = peekByte(); isKeywordByte(byte); byte = peekByte()) {
        takeByte();
        if (byte != '_' && scratch_.size() < kMaxNameBytes)
            scratch_.push_back(static_cast<char>(byte));
    }
    return keep(scratch_);
}

const Token* Tokenizer::keyword() {
    const std::string_view text = keywordText();
    if (text.size() > 3 && text.front() == 'I') [[likely]]  // IFC…
        return arena_.create<EntityNameToken>(text);
    if (text == "inf")
        return arena_.create<RealDataTypeToken>(std::numeric_limits<double>::infinity(), false,
                                                false);
    if (text == "ISO" || text == "END") {
        std::string statement(text);
        appendUntil(';', statement);
        if (text == "ISO")
            return ownedTokens_.emplace_back(std::make_unique<IsoToken>(statement)).get();
        return ownedTokens_.emplace_back(std::make_unique<EndIsoToken>(statement)).get();
    }
    // Inside an instance it is a keyword like others, and one header inside another would nest
    // without end.
    if (text == "HEADER" && parameterIndex_ == 0 && headerTokensLeft_ == 0)
        return header();
    if (text == "ENDSEC")
        return &endsec_;
    if (text == "DATA")
        return &data_;
    return arena_.create<EntityNameToken>(text);
}

/// Appends what comes before `stop`, which stays unread, or before the end of the input.
void Tokenizer::appendUntil(char stop, std::string& text) {
    for (int byte = peekByte(); byte != kEnd && byte != stop; byte = peekByte()) {
        takeByte();
        if (text.size() < kMaxNameBytes)
            text.push_back(static_cast<char>(byte));
    }
}

const Token* Tokenizer::instanceName() {
    ++parameterIndex_;
    const char* const begin = stream_->windowBegin() + 1;
    const char* const end = stream_->windowEnd();
    const char* next = begin;
    std::uint64_t value = 0;
    while (next != end && isDigit(*next))
        value = value * 10 + static_cast<std::uint64_t>(*next++ - '0');
    if (next != end && next - begin <= 18) [[likely]] {
        stream_->advanceTo(next);
        return arena_.create<IdentifierToken>(static_cast<std::int64_t>(value));
    }
    takeByte();
    scratch_.clear();
    for (int byte = peekByte(); isDigit(byte); byte = peekByte()) {
        takeByte();
        if (scratch_.size() < kMaxNumberBytes)
            scratch_.push_back(static_cast<char>(byte));
    }
    bool overflow = false;
    const std::int64_t exact =
        parseInteger(scratch_.data(), scratch_.data() + scratch_.size(), overflow);
    return arena_.create<IdentifierToken>(exact);
}

const Token* Tokenizer::integerToken(const char* begin, const char* end) {
    bool overflow = false;
    const std::int64_t value = parseInteger(begin, end, overflow);
    return arena_.create<IntegerDataTypeToken>(value, overflow);
}

const RealDataTypeToken* Tokenizer::realToken(const char* begin, const char* end) {
    const bool cut = end - begin > static_cast<std::ptrdiff_t>(kMaxNumberBytes);
    const RealNumber number = parseReal(begin, cut ? begin + kMaxNumberBytes : end);
    return arena_.create<RealDataTypeToken>(number.value, number.overflow || cut, number.malformed);
}

const Token* Tokenizer::number() {
    const char* const begin = stream_->windowBegin();
    const char* const end = stream_->windowEnd();
    double value = 0;
    const char* next = parseShortReal(begin, end, value);
    if (next && next != end && (*next == ',' || *next == ')')) [[likely]] {
        stream_->advanceTo(next);
        return arena_.create<RealDataTypeToken>(value, false, false);
    }
    next = begin + (*begin == '-' ? 1 : 0);
    while (next != end && isDigit(*next))
        ++next;
    if (next == end)
        return numberAcrossWindows();
    if (*next != '.') {
        stream_->advanceTo(next);
        return integerToken(begin, next);
    }
    // All up to the next "," or ")" belongs to the number; what follows its digits is ignored.
    while (next != end && *next != ',' && *next != ')' && *next != '/' &&
           classOf(*next) != ByteClass::End)
        ++next;
    if (next == end || *next == '/')
        return numberAcrossWindows();
    stream_->advanceTo(next);
    return realToken(begin, next);
}

/// The same for a number that may reach beyond the window, or be followed by a comment.
const Token* Tokenizer::numberAcrossWindows() {
    scratch_.clear();
    const auto take = [this] {
        const int byte = takeByte();
        if (scratch_.size() <= kMaxNumberBytes)  // one more, so that the cut shows
            scratch_.push_back(static_cast<char>(byte));
    };
    take();
    while (isDigit(peekByte()))
        take();
    const bool real = peekByte() == '.';
    if (real) {
        for (int byte = peekByte(); byte != ',' && byte != ')' && byte != kEnd; byte = peekByte()) {
            take();
            if (byte == '/' && peekByte() == '*') {  // a comment, which may hold commas
                scratch_.back() = ' ';
                takeByte();
                skipComment();
            }
        }
    }
    const char* const begin = scratch_.data();
    return real ? realToken(begin, begin + scratch_.size())
                : integerToken(begin, begin + scratch_.size());
}

const RealDataTypeToken* Tokenizer::takeExponent(const IntegerDataTypeToken& mantissa) {
    const int letter = peekByte();
    if (pending_ || (letter != 'E' && letter != 'e'))
        return nullptr;
    takeByte();
    scratch_ = std::to_string(mantissa.exact) + "E";
    if (peekByte() == '-')
        scratch_.push_back(static_cast<char>(takeByte()));
    else if (peekByte() == '+')
        takeByte();
    for (int byte = peekByte(); isDigit(byte); byte = peekByte()) {
        takeByte();
        if (scratch_.size() < kMaxNumberBytes)
            scratch_.push_back(static_cast<char>(byte));
    }
    return realToken(scratch_.data(), scratch_.data() + scratch_.size());
}

bool Tokenizer::atParameterEnd() {
    if (pending_)
        return pending_->kind == TokenKind::CloseBracket ||
               pending_->kind == TokenKind::Semicolon || pending_->kind == TokenKind::EndOfFile;
    while (stream_ && !failed_ && skipBlanks()) {
        const char next = *stream_->windowBegin();
        if (next != '/')
            return next == ',' || next == ')' || next == ';';
        if (const Token* noComment = slash())
            return noComment->kind == TokenKind::EndOfFile;
    }
    return true;
}

const Token* Tokenizer::enumeration() {
    const char* const begin = stream_->windowBegin() + 1;
    const char* const end = stream_->windowEnd();
    const auto* stop = static_cast<const char*>(
        std::memchr(begin, '.', std::min<std::size_t>(static_cast<std::size_t>(end - begin), 64)));
    if (stop && std::none_of(begin, stop, [](char c) { return classOf(c) == ByteClass::End; })) {
        stream_->advanceTo(stop + 1);
        return arena_.create<EnumerationToken>(
            keep({begin, static_cast<std::size_t>(stop - begin)}));
    }
    takeByte();
    scratch_.clear();
    appendUntil('.', scratch_);
    if (peekByte() == '.')
        takeByte();
    return arena_.create<EnumerationToken>(keep(scratch_));
}

const Token* Tokenizer::binary() {
    takeByte();
    scratch_.clear();
    for (int byte = takeByte(); byte != kEnd && byte != '"'; byte = takeByte())
        scratch_.push_back(static_cast<char>(byte));
    return arena_.create<BinaryToken>(keep(scratch_));
}

const Token* Tokenizer::string() {
    const char* const begin = stream_->windowBegin() + 1;
    const char* const end = stream_->windowEnd();
    const char* next = begin;
    while (next != end && kPlainBytes[static_cast<unsigned char>(*next)])
        ++next;
    if (end - next < 2 || *next != '\'' || next[1] == '\'')
        return decodedString();
    stream_->advanceTo(next + 1);
    return arena_.create<WstringToken>(keep({begin, static_cast<std::size_t>(next - begin)}));
}

const Token* Tokenizer::decodedString() {
    takeByte();
    units_.clear();
    int codePage = kDefaultCodePage;  // of this string alone
    for (int byte = takeByte(); byte != kEnd; byte = takeByte()) {
        if (byte == '\\') {
            decodeEscape(codePage);
        } else if (byte != '\'') {
            units_.push_back(widened(static_cast<char>(byte)));
        } else {
            if (peekByte() != '\'')
                break;
            takeByte();
            units_.push_back(u'\'');
        }
    }
    auto* copy = arena_.array<char16_t>(units_.size());
    std::copy(units_.begin(), units_.end(), copy);
    return arena_.create<WstringToken>(std::u16string_view(copy, units_.size()));
}

/// Behind a backslash inside a string: appends what the escape stands for (ISO 10303-21, strings).
/// Nothing is checked that would make a file unreadable.
void Tokenizer::decodeEscape(int& codePage) {
    const auto appendByte = [&](int byte) {
        units_.push_back(platform::decodeByte(codePage, static_cast<unsigned char>(byte)));
    };
    switch (peekByte()) {
        case '\\':
            takeByte();
            units_.push_back(u'\\');
            return;
        case 'S': {
            takeByte();
            takeByte();
            const int byte = takeByte();
            if (byte != kEnd)
                appendByte((byte + 0x80) & 0xFF);
            return;
        }
        case 'P': {
            takeByte();
            const int letter = takeByte();
            takeByte();
            codePage = kCodePageBeforeA + letter;
            return;
        }
        case 'X': takeByte(); break;
        default: units_.push_back(u'\\'); return;
    }
    const auto takeTerminator = [this] {  // \X0\, unchecked
        for (int count = 0; count < 4; ++count)
            takeByte();
    };
    switch (peekByte()) {
        case '\\': {
            takeByte();
            const int high = takeHexDigit();
            appendByte(high * 16 + takeHexDigit());
            return;
        }
        case '2':
            takeByte();
            takeByte();
            while (peekByte() != '\\' && peekByte() != kEnd)
                units_.push_back(takeHexUnit());
            takeTerminator();
            return;
        case '4':
            takeByte();
            takeByte();
            while (peekByte() != '\\' && peekByte() != kEnd) {
                const char16_t high = takeHexUnit();
                // Kept: low half first, then the high half where there is one; no surrogates are
                // formed.
                units_.push_back(takeHexUnit());
                if (high != 0)
                    units_.push_back(high);
            }
            takeTerminator();
            return;
        default: return;
    }
}

/// Any byte counts as a digit, as far as the arithmetic goes.
int Tokenizer::takeHexDigit() {
    int digit = takeByte();
    if (digit >= 'a' && digit <= 'z')
        digit -= 'a' - 'A';
    return digit < 'A' ? digit - '0' : digit - 'A' + 10;
}

char16_t Tokenizer::takeHexUnit() {
    int unit = 0;
    for (int count = 0; count < 4; ++count)
        unit = unit * 16 + takeHexDigit();
    return static_cast<char16_t>(unit);
}

std::u16string Tokenizer::readStringParameter() { return stringOf(*nextToken()); }

/// Every loop over a header ends at the end of the input, or when this has come to believe that it
/// is no header.
const Token* Tokenizer::nextHeaderToken() {
    if (headerTokensLeft_ <= 1)
        return &endOfFile_;
    --headerTokensLeft_;
    return nextToken();
}

void Tokenizer::skipHeaderTo(TokenKind kind) {
    const Token* token = nextHeaderToken();
    while (token->kind != kind && token->kind != TokenKind::EndOfFile)
        token = nextHeaderToken();
}

/// Up to the closing bracket, which is taken too.
void Tokenizer::readStringList(std::vector<std::u16string>& list) {
    for (const Token* token = nextHeaderToken();
         token->kind != TokenKind::CloseBracket && token->kind != TokenKind::EndOfFile;
         token = nextHeaderToken())
        list.push_back(stringOf(*token));
}

/// The three entities of the header section in the standard's order. Kept: further ones are not
/// expected; the token behind the last ";" is taken for ENDSEC whatever it is.
const Token* Tokenizer::header() {
    constexpr std::size_t kMostTokens = 0x100000;  // thousands are usual at most
    headerTokensLeft_ = kMostTokens;
    const auto nextString = [this] { return stringOf(*nextHeaderToken()); };
    auto owned = std::make_unique<HeaderToken>();
    HeaderFields& fields = owned->fields;
    skipHeaderTo(TokenKind::OpenBracket);  // FILE_DESCRIPTION(
    nextHeaderToken();
    readStringList(fields.description);
    fields.implementationLevel = nextString();
    skipHeaderTo(TokenKind::OpenBracket);  // FILE_NAME(
    fields.name = nextString();
    fields.timeStamp = nextString();
    nextHeaderToken();
    readStringList(fields.author);
    nextHeaderToken();
    readStringList(fields.organization);
    fields.preprocessorVersion = nextString();
    fields.originatingSystem = nextString();
    fields.authorization = nextString();
    skipHeaderTo(TokenKind::OpenBracket);  // FILE_SCHEMA(
    nextHeaderToken();
    fields.schemaIdentifier = nextString();
    skipHeaderTo(TokenKind::Semicolon);
    nextHeaderToken();
    headerTokensLeft_ = 0;
    return ownedTokens_.emplace_back(std::move(owned)).get();
}
