#pragma once

#include <string>
#include <string_view>

/// UTF-16 text as the program's output shows it.
namespace cli {

/// UTF-8 of `text` on one line: control characters and halves of surrogate pairs become \uXXXX, so
/// that no text of a file can break a line or command a terminal; line feed, carriage return and
/// tab become \n, \r and \t.
std::string printable(std::u16string_view text);

/// UTF-8 of `text` in double quotes as a JSON string (RFC 8259). Halves of surrogate pairs become
/// \uXXXX.
std::string jsonString(std::u16string_view text);

}  // namespace cli
