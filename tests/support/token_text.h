#pragma once

#include <string>

#include "ifc/io/tokenizer.h"

/// One token as text: its class and what it carries, "Identifier:12", "String:It's". Units beyond
/// 7-bit print as <00E4>.
/// "!" behind a number that was cut to its range, "?" behind one that something else follows.
std::string textOf(const Token& token);

/// The tokens up to the end of the input, separated by blanks; the EndOfFile at the end is left
/// out. Ends at a token that follows an EndOfFile or after a million tokens, and says so.
std::string remainingTokens(Tokenizer& tokenizer);

/// `text` with what is not 7-bit print as <00E4>.
std::string printable(std::u16string_view text);
