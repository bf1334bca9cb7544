#pragma once

#include <string>
#include <string_view>

/// Conversions between UTF-16, which the product uses inside, and the narrow encodings at its
/// edges.
namespace platform {

/// UTF-8 of `text`; a lone surrogate becomes U+FFFD.
std::string toUtf8(std::u16string_view text);

/// UTF-16 of UTF-8 `bytes`; what is not UTF-8 becomes U+FFFD.
std::u16string fromUtf8(std::string_view bytes);

/// UTF-16 of a file name or argument as a POSIX system gives it. Such names are bytes and need not
/// be UTF-8: each byte that is not becomes one unit U+DC80 to U+DCFF, which no valid text contains,
/// so that `toPathBytes` can give it back.
std::u16string fromPathBytes(std::string_view bytes);

/// The bytes of `path` for POSIX file functions: UTF-8, and the inverse of `fromPathBytes`.
std::string toPathBytes(std::u16string_view path);

}  // namespace platform
