#include "platform/text.h"

#include <utf8.h>

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace platform {
namespace {

constexpr char16_t kReplacement = 0xFFFD;
constexpr char16_t kEscapedByte = 0xDC00;  // + a byte from 0x80 on

constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }
constexpr bool isEscapedByte(char16_t unit) {
    return unit >= kEscapedByte + 0x80 && unit <= kEscapedByte + 0xFF;
}

/// `onLoneSurrogate(out, unit)` appends what a half of a pair becomes.
template <class OnLoneSurrogate>
std::string encoded(std::u16string_view text, OnLoneSurrogate onLoneSurrogate) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            const auto high = static_cast<std::uint32_t>(unit - 0xD800);
            const auto low = static_cast<std::uint32_t>(text[++i] - 0xDC00);
            utf8::append(static_cast<char32_t>(0x10000 + (high << 10 | low)),
                         std::back_inserter(out));
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            onLoneSurrogate(out, unit);
        } else {
            utf8::append(static_cast<char32_t>(unit), std::back_inserter(out));
        }
    }
    return out;
}

/// `onBadByte(out, byte)` appends what a byte becomes that is no part of UTF-8.
template <class OnBadByte>
std::u16string decoded(std::string_view bytes, OnBadByte onBadByte) {
    std::u16string out;
    out.reserve(bytes.size());
    const char* next = bytes.data();
    const char* const end = next + bytes.size();
    while (next != end) {
        const char* const bad = utf8::find_invalid(next, end);
        utf8::utf8to16(next, bad, std::back_inserter(out));
        next = bad;
        if (next != end)
            onBadByte(out, static_cast<unsigned char>(*next++));
    }
    return out;
}

void appendReplacement(std::string& out, char16_t) {
    utf8::append(static_cast<char32_t>(kReplacement), std::back_inserter(out));
}

}  // namespace

std::string toUtf8(std::u16string_view text) { return encoded(text, appendReplacement); }

std::u16string fromUtf8(std::string_view bytes) {
    return decoded(bytes, [](std::u16string& out, unsigned char) { out.push_back(kReplacement); });
}

std::u16string fromPathBytes(std::string_view bytes) {
    return decoded(bytes, [](std::u16string& out, unsigned char byte) {
        out.push_back(static_cast<char16_t>(kEscapedByte + byte));
    });
}

std::string toPathBytes(std::u16string_view path) {
    return encoded(path, [](std::string& out, char16_t unit) {
        if (isEscapedByte(unit))
            out.push_back(static_cast<char>(unit - kEscapedByte));
        else
            appendReplacement(out, unit);
    });
}

}  // namespace platform
