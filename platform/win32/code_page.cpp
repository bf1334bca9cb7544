#include "platform/code_page.h"

#include <windows.h>

namespace platform {
namespace {

constexpr char16_t kNoCharacter = 0xFFFD;

constexpr bool isPrivateUse(wchar_t unit) { return unit >= 0xE000 && unit <= 0xF8FF; }

/// Where Windows' pages are older than the present editions of the parts of ISO 8859.
struct Correction {
    int codePage;
    unsigned char byte;
    char16_t character;
};
constexpr Correction kCorrections[] = {
    {28597, 0xA1, 0x2018}, {28597, 0xA2, 0x2019}, {28597, 0xA4, 0x20AC}, {28597, 0xA5, 0x20AF},
    {28597, 0xAA, 0x037A}, {28598, 0xAF, 0x00AF}, {28598, 0xFD, 0x200E}, {28598, 0xFE, 0x200F},
};

}  // namespace

char16_t decodeByte(int codePage, unsigned char byte) {
    if (codePage != kDefaultCodePage && (codePage < kIso8859Part1 || codePage > kIso8859Part9))
        return kNoCharacter;
    for (const Correction& correction : kCorrections)
        if (correction.codePage == codePage && correction.byte == byte)
            return correction.character;
    const char in = static_cast<char>(byte);
    wchar_t out[256] = {};
    if (MultiByteToWideChar(static_cast<UINT>(codePage), MB_PRECOMPOSED, &in, 1, out, 256) < 1)
        return kNoCharacter;
    // Windows keeps bytes without a character apart by private ones.
    return codePage != kDefaultCodePage && isPrivateUse(out[0]) ? kNoCharacter
                                                                : static_cast<char16_t>(out[0]);
}

}  // namespace platform
