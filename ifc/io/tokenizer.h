#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ifc/io/error_callback.h"
#include "ifc/io/input_stream.h"
#include "ifc/io/token.h"
#include "ifc/io/token_arena.h"

/// Turns an exchange file (ISO 10303-21) into tokens, leniently: it knows the lexical forms that
/// IFC files contain, takes the header section as one token, and leaves it to its user to find
/// fault with the order of tokens. Trouble is reported, never thrown. A byte 0xFF counts as the end
/// of the input.
class Tokenizer {
public:
    /// Opens `path` by its extension: ".ifc", ".ifczip" or ".ahx|entry". Any other is reported, and
    /// there is no stream.
    Tokenizer(const std::u16string& path, std::size_t readBufferBytes, ErrorCallback errors);
    /// Reads from a stream that is open already.
    Tokenizer(std::unique_ptr<FileStream::InputStream> stream, ErrorCallback errors);
    ~Tokenizer();
    Tokenizer(const Tokenizer&) = delete;
    Tokenizer& operator=(const Tokenizer&) = delete;

    /// The pending token, else the next one of the input; an EndOfFileToken at the end and after a
    /// failure. Never null; valid until clearTokens().
    const Token* nextToken();

    /// Gives back a token that was read too early; the next request returns it.
    void setPending(const Token* token) { pending_ = token; }
    const Token* pending() const { return pending_; }

    /// The value of the next token when it is a string, else empty. "$" and ")" are consumed.
    std::u16string readStringParameter();

    /// Puts together a real that was written without a dot before its exponent: call right behind
    /// the integer token.
    /// @return null, with nothing consumed, when no exponent follows.
    const RealDataTypeToken* takeExponent(const IntegerDataTypeToken& mantissa);

    /// Skips blanks and comments. @return whether the parameter ends here: before "," ")" ";" or
    /// the end of the input.
    bool atParameterEnd();

    /// Commas between the last token of the input and the one before it; an opening bracket before
    /// it counts as one. So it is 1 for each argument that is where it should be, 0 for what
    /// follows a value without a comma, and more behind arguments that are empty.
    unsigned separation() const { return separation_; }

    /// The byte that the last UnknownSignToken was made of.
    char lastUnknownSign() const { return lastUnknownSign_; }

    // Most of a file are lists of coordinates and of references. These take the next element of one
    // without making a token of it, when it comes right behind its comma or opening bracket, and
    // its own comma or closing bracket right behind it. Otherwise they return false, with nothing
    // consumed.

    /// A real with a dot and without exponent, of few enough digits.
    bool takePlainReal(double& value);
    /// #n
    bool takePlainName(std::int32_t& number);

    /// Ends every token. Does nothing while one is pending.
    void clearTokens() {
        if (pending_)
            return;
        arena_.rewind();
        if (!ownedTokens_.empty()) [[unlikely]]
            ownedTokens_.clear();
    }

    /// Null when the extension is not known.
    FileStream::InputStream* stream() const { return stream_.get(); }
    bool failed() const { return failed_; }
    /// Lines begun so far between tokens, from 1; line ends inside strings and comments do not
    /// count.
    std::int32_t lineNumber() const { return lineNumber_; }
    /// Position of the current parameter inside its instance.
    std::int32_t parameterIndex() const { return parameterIndex_; }

    /// Longest keyword, enumeration value or ISO text that is kept; what goes on longer is cut
    /// there.
    static constexpr std::size_t kMaxNameBytes = 0x10000;
    /// Longest number that is read to its end; one that goes on longer counts as out of range.
    static constexpr std::size_t kMaxNumberBytes = 0x10000;

private:
    static constexpr int kEnd = -1;  // of input; a byte 0xFF reads as it

    const Token* scan();
    bool skipBlanks();
    const char* plainElement() const;
    void takeElement(const char* stop);
    const Token* slash();
    void skipComment();
    const Token* keyword();
    std::string_view keywordText();
    const Token* instanceName();
    const Token* number();
    const Token* numberAcrossWindows();
    const Token* integerToken(const char* begin, const char* end);
    const RealDataTypeToken* realToken(const char* begin, const char* end);
    const Token* enumeration();
    const Token* binary();
    const Token* string();
    const Token* decodedString();
    void decodeEscape(int& codePage);
    const Token* header();
    const Token* nextHeaderToken();
    void skipHeaderTo(TokenKind kind);
    void readStringList(std::vector<std::u16string>& list);
    void appendUntil(char stop, std::string& text);

    /// Next byte as 0..254 without consuming it, or kEnd.
    int peekByte();
    /// The same, consumed.
    int takeByte();
    /// The byte as it is, 0..255, or kEnd at the true end.
    int takeAnyByte();
    int takeHexDigit();
    char16_t takeHexUnit();

    std::string_view keep(std::string_view bytes);

    std::unique_ptr<FileStream::InputStream> stream_;
    bool failed_ = false;
    bool atStart_ = true;
    bool statementEnded_ = false;    // the last token was ";"
    bool afterOpenBracket_ = false;  // the last token was "("
    unsigned separation_ = 0;
    std::size_t headerTokensLeft_ = 0;  // inside the header section only
    char lastUnknownSign_ = 0;
    const Token* pending_ = nullptr;
    TokenArena arena_;
    std::vector<std::unique_ptr<Token>> ownedTokens_;  // those that own memory
    std::int32_t lineNumber_ = 1;
    std::int32_t parameterIndex_ = 0;
    ErrorCallback errors_;
    std::string scratch_;
    std::u16string units_;

    DataToken data_;
    EndsecToken endsec_;
    OpenBracketToken openBracket_;
    CloseBracketToken closeBracket_;
    EqualToken equal_;
    SemicolonToken semicolon_;
    UnknownSignToken unknownSign_;
    EndOfFileToken endOfFile_;
    EmptyParameterToken absent_{false};
    EmptyParameterToken derived_{true};
};
