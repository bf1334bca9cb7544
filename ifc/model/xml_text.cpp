#include "ifc/model/xml_text.h"

#include <cstddef>
#include <optional>

#include "platform/text.h"

namespace IFC {
namespace {

constexpr std::u16string_view kEscapeBegin = u"\\X2\\";
constexpr std::u16string_view kEscapeEnd = u"\\X0\\";
constexpr std::size_t kEscapeDigits = 4;
constexpr std::size_t kEscapeUnits = kEscapeBegin.size() + kEscapeDigits + kEscapeEnd.size();
constexpr std::u16string_view kDigits = u"0123456789ABCDEF";

constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// What an escape may stand for. The carriage return, because a document that processes entities
/// loses it.
constexpr bool isEscapable(char16_t unit) {
    return (unit < 0x20 && unit != u'\t' && unit != u'\n') || isHighSurrogate(unit) ||
           isLowSurrogate(unit) || unit >= 0xFFFE;
}

std::u16string_view referenceTo(char16_t unit) {
    switch (unit) {
        case u'&': return u"&amp;";
        case u'<': return u"&lt;";
        case u'>': return u"&gt;";
        case u'"': return u"&quot;";
        case u'\t': return u"&#9;";
        case u'\n': return u"&#10;";
        case u'\r': return u"&#13;";
        default: return {};
    }
}

void appendEscape(std::u16string& out, char16_t unit) {
    out += kEscapeBegin;
    for (int shift = 12; shift >= 0; shift -= 4)
        out += kDigits[(unit >> shift) & 0xF];
    out += kEscapeEnd;
}

/// The unit of the escape that `text` begins with.
std::optional<char16_t> leadingEscape(std::u16string_view text) {
    if (!text.starts_with(kEscapeBegin) || !text.substr(0, kEscapeUnits).ends_with(kEscapeEnd) ||
        text.size() < kEscapeUnits)
        return std::nullopt;
    unsigned value = 0;
    for (const char16_t digit : text.substr(kEscapeBegin.size(), kEscapeDigits)) {
        const std::size_t place = kDigits.find(digit);
        if (place == kDigits.npos)
            return std::nullopt;
        value = value * 16 + static_cast<unsigned>(place);
    }
    const auto unit = static_cast<char16_t>(value);
    const bool isMaskedBackslash =
        unit == u'\\' && text.substr(kEscapeUnits).starts_with(kEscapeBegin.substr(1));
    return isEscapable(unit) || isMaskedBackslash ? std::optional(unit) : std::nullopt;
}

}  // namespace

std::string toXmlText(std::u16string_view text, XmlReferences references) {
    const bool written = references == XmlReferences::Written;
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const std::u16string_view reference = written ? referenceTo(unit) : std::u16string_view();
        const bool isEnd = i == 0 || i + 1 == text.size();
        if (!reference.empty())
            out += reference;
        else if (written && unit == u' ' && isEnd)
            out += u"&#32;";
        else if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1]))
            out.append(text, i++, 2);
        else if (isEscapable(unit) || text.substr(i).starts_with(kEscapeBegin))
            appendEscape(out, unit);
        else
            out += unit;
    }
    return platform::toUtf8(out);
}

TextFromXml fromXmlText(std::string_view utf8) {
    TextFromXml result{platform::fromUtf8(utf8), false};
    std::u16string& text = result.text;
    result.damaged = platform::toUtf8(text) != utf8;
    if (text.find(kEscapeBegin) == text.npos)
        return result;
    std::u16string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        if (const auto unit = leadingEscape(std::u16string_view(text).substr(i))) {
            plain += *unit;
            i += kEscapeUnits;
        } else {
            plain += text[i++];
        }
    }
    text = std::move(plain);
    return result;
}

}  // namespace IFC
