#include "tools/schema_generator/lexer.h"

#include <string>

namespace schema_generator {

namespace {

constexpr bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr bool isWordCharacter(char c) { return isLetter(c) || isDigit(c) || c == '_'; }

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}

constexpr std::string_view kSymbols = "=:;,.()[]{}<>+-*/|?\\%";

/// The character itself when it can be printed, its code otherwise.
std::string shown(char c) {
    if (c > ' ' && c < 0x7F)
        return std::string("'") + c + "'";
    return "code " + std::to_string(static_cast<int>(static_cast<unsigned char>(c)));
}

}  // namespace

void Lexer::advance() {
    if (text_[position_] == '\n')
        ++line_;
    ++position_;
}

void Lexer::skipBlanksAndRemarks() {
    while (!atEnd()) {
        if (isBlank(peek())) {
            advance();
        } else if (startsWith("--")) {
            while (!atEnd() && peek() != '\n')
                advance();
        } else if (startsWith("(*")) {
            skipEmbeddedRemark();
        } else {
            return;
        }
    }
}

void Lexer::skipEmbeddedRemark() {
    const int firstLine = line_;
    std::size_t depth = 0;
    do {
        if (startsWith("(*")) {
            ++depth;
            position_ += 2;
        } else if (startsWith("*)")) {
            --depth;
            position_ += 2;
        } else {
            advance();
        }
    } while (depth > 0 && !atEnd());
    if (depth > 0)
        diagnostics_.add(firstLine, "remark is not closed");
}

Token Lexer::number() {
    const std::size_t start = position_;
    TokenKind kind = TokenKind::Integer;
    while (isDigit(peek()))
        advance();
    if (peek() == '.') {
        kind = TokenKind::Literal;
        advance();
        while (isDigit(peek()))
            advance();
        const bool signedExponent = (peek(1) == '+' || peek(1) == '-') && isDigit(peek(2));
        if ((peek() == 'e' || peek() == 'E') && (isDigit(peek(1)) || signedExponent)) {
            position_ += 2;
            while (isDigit(peek()))
                advance();
        }
    }
    return from(start, kind, line_);
}

Token Lexer::quoted(char quote) {
    const std::size_t start = position_;
    advance();
    while (!atEnd() && peek() != quote && peek() != '\n')
        advance();
    if (peek() == quote)
        advance();
    else
        diagnostics_.add(line_, "string is not closed on its line");
    return from(start, TokenKind::Literal, line_);
}

Token Lexer::next() {
    while (true) {
        skipBlanksAndRemarks();
        if (atEnd())
            return {TokenKind::End, {}, line_};
        const std::size_t start = position_;
        if (isLetter(peek())) {
            while (isWordCharacter(peek()))
                advance();
            return from(start, TokenKind::Word, line_);
        }
        if (isDigit(peek()))
            return number();
        if (peek() == '\'' || peek() == '"')
            return quoted(peek());
        if (startsWith(":=")) {
            position_ += 2;
            return from(start, TokenKind::Symbol, line_);
        }
        if (kSymbols.find(peek()) != std::string_view::npos) {
            advance();
            return from(start, TokenKind::Symbol, line_);
        }
        diagnostics_.add(line_, "unexpected character " + shown(peek()));
        advance();
    }
}

}  // namespace schema_generator
