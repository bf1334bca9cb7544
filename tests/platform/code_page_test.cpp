#include "platform/code_page.h"

#include <gtest/gtest.h>

namespace {

struct ByteCase {
    int codePage;
    unsigned char byte;
    char16_t character;
};

// From the parts of ISO/IEC 8859 and from Windows' code page 1252; one row or more for each page.
constexpr ByteCase kBytes[] = {
    {0, 0x41, u'A'},          {0, 0x80, u'\u20AC'},     {0, 0x9F, u'\u0178'},
    {0, 0x81, u'\x81'},       {0, 0x8D, u'\x8D'},       {0, 0x8F, u'\x8F'},
    {0, 0x90, u'\x90'},       {0, 0x9D, u'\x9D'},       {0, 0xFF, u'\u00FF'},
    {28591, 0x80, u'\x80'},   {28591, 0xE4, u'\u00E4'}, {28592, 0xA3, u'\u0141'},
    {28593, 0xA1, u'\u0126'}, {28593, 0xA5, u'\uFFFD'}, {28594, 0xBD, u'\u014A'},
    {28595, 0xD4, u'\u0434'}, {28595, 0xF0, u'\u2116'}, {28596, 0xC7, u'\u0627'},
    {28596, 0xA1, u'\uFFFD'}, {28596, 0xFF, u'\uFFFD'}, {28597, 0xE1, u'\u03B1'},
    {28597, 0xA1, u'\u2018'}, {28597, 0xA2, u'\u2019'}, {28597, 0xA4, u'\u20AC'},
    {28597, 0xA5, u'\u20AF'}, {28597, 0xAA, u'\u037A'}, {28597, 0xAE, u'\uFFFD'},
    {28597, 0xD2, u'\uFFFD'}, {28597, 0xFF, u'\uFFFD'}, {28598, 0xE0, u'\u05D0'},
    {28598, 0xAF, u'\u00AF'}, {28598, 0xFD, u'\u200E'}, {28598, 0xFE, u'\u200F'},
    {28598, 0xBF, u'\uFFFD'}, {28598, 0xFB, u'\uFFFD'}, {28599, 0xFD, u'\u0131'},
    {28599, 0x00, u'\0'},     {28590, 0x41, u'\uFFFD'}, {28600, 0x41, u'\uFFFD'},
    {65001, 0x41, u'\uFFFD'}, {-1, 0x41, u'\uFFFD'},
};

TEST(CodePage, GivesTheSameCharactersOnEverySystem) {
    for (const auto& [codePage, byte, character] : kBytes)
        EXPECT_EQ(platform::decodeByte(codePage, byte), character)
            << codePage << ", byte " << int{byte};
}

}  // namespace
