#include "platform/code_page.h"

#include <iconv.h>

#include <array>
#include <cstddef>
#include <string>

namespace platform {
namespace {

constexpr char16_t kNoCharacter = 0xFFFD;

/// The 256 characters of one code page.
using Page = std::array<char16_t, 256>;

Page loadPage(const std::string& name) {
    Page page;
    page.fill(kNoCharacter);
    const iconv_t converter = ::iconv_open("UTF-16LE", name.c_str());
    if (converter == reinterpret_cast<iconv_t>(-1))
        return page;
    for (std::size_t i = 0; i < page.size(); ++i) {
        char byte = static_cast<char>(i);
        unsigned char unit[2] = {};
        char* in = &byte;
        char* out = reinterpret_cast<char*>(unit);
        std::size_t inLeft = 1;
        std::size_t outLeft = sizeof unit;
        ::iconv(converter, nullptr, nullptr, nullptr, nullptr);
        if (::iconv(converter, &in, &inLeft, &out, &outLeft) != static_cast<std::size_t>(-1))
            page[i] = static_cast<char16_t>(unit[0] | unit[1] << 8);
    }
    ::iconv_close(converter);
    return page;
}

Page loadWindows1252() {
    Page page = loadPage("CP1252");
    for (const char16_t unused : {u'\x81', u'\x8D', u'\x8F', u'\x90', u'\x9D'})
        page[unused] = unused;
    return page;
}

std::array<Page, kIso8859Part9 - kIso8859Part1 + 1> loadIso8859() {
    std::array<Page, kIso8859Part9 - kIso8859Part1 + 1> pages;
    for (std::size_t i = 0; i < pages.size(); ++i)
        pages[i] = loadPage("ISO-8859-" + std::to_string(i + 1));
    return pages;
}

}  // namespace

char16_t decodeByte(int codePage, unsigned char byte) {
    if (codePage == kDefaultCodePage) {
        static const Page page = loadWindows1252();
        return page[byte];
    }
    if (codePage < kIso8859Part1 || codePage > kIso8859Part9)
        return kNoCharacter;
    static const auto pages = loadIso8859();
    return pages[static_cast<std::size_t>(codePage - kIso8859Part1)][byte];
}

}  // namespace platform
