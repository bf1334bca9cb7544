#pragma once

#include <cstddef>
#include <string_view>

#include "tools/schema_generator/diagnostics.h"

namespace schema_generator {

enum class TokenKind {
    Word,     ///< keyword or identifier; EXPRESS does not tell upper from lower case
    Integer,  ///< digits
    Literal,  ///< real, string or binary literal; only ever skipped
    Symbol,   ///< ":=" or a single character
    End,      ///< end of the text
};

struct Token {
    TokenKind kind = TokenKind::End;
    std::string_view text;  ///< points into the schema's text
    int line = 1;
};

/// Cuts an EXPRESS text (ISO 10303-11) into tokens. White space, tail remarks ("--" to the line's
/// end) and embedded remarks ("(*" to "*)", nested) are left out. Lines may end in LF or CR LF.
class Lexer {
public:
    /// `text` must outlive the tokens; what cannot be a token goes to `diagnostics` and is passed
    /// over.
    Lexer(std::string_view text, DiagnosticList& diagnostics)
        : text_(text), diagnostics_(diagnostics) {}

    /// The next token; End again and again at the end.
    Token next();

private:
    bool atEnd() const { return position_ >= text_.size(); }
    char peek(std::size_t ahead = 0) const {
        return position_ + ahead < text_.size() ? text_[position_ + ahead] : '\0';
    }
    void advance();
    bool startsWith(std::string_view prefix) const {
        return text_.substr(position_).starts_with(prefix);
    }
    void skipBlanksAndRemarks();
    void skipEmbeddedRemark();
    Token number();
    Token quoted(char quote);
    Token from(std::size_t start, TokenKind kind, int line) const {
        return {kind, text_.substr(start, position_ - start), line};
    }

    std::string_view text_;
    DiagnosticList& diagnostics_;
    std::size_t position_ = 0;
    int line_ = 1;
};

}  // namespace schema_generator
