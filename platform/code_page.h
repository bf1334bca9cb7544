#pragma once

namespace platform {

/// The default 8-bit code page of the system: Windows' ANSI page; elsewhere Windows-1252.
inline constexpr int kDefaultCodePage = 0;
/// ISO 8859-1; the parts up to 9 have the numbers that follow.
inline constexpr int kIso8859Part1 = 28591;
inline constexpr int kIso8859Part9 = 28599;

/// The character of `byte` in a code page, which has one of the numbers above: the same on every
/// system. The pages are the present editions of the parts of ISO 8859 (part 7 of 2003, part 8 of
/// 1999). A byte to which its page gives no character, and every byte of any other page, gives
/// U+FFFD; but Windows-1252 gives its five unused bytes (81 8D 8F 90 9D) the control characters of
/// the same number.
char16_t decodeByte(int codePage, unsigned char byte);

}  // namespace platform
