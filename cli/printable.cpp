#include "cli/printable.h"

#include <cstddef>

#include "platform/text.h"

namespace cli {
namespace {

constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// C0 and C1 controls and DEL.
constexpr bool isControl(char16_t unit) { return unit < 0x20 || (unit >= 0x7F && unit < 0xA0); }

void appendEscape(std::string& out, char16_t unit) {
    switch (unit) {
        case u'\n': out += "\\n"; return;
        case u'\r': out += "\\r"; return;
        case u'\t': out += "\\t"; return;
        default: break;
    }
    out += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4)
        out.push_back("0123456789ABCDEF"[(unit >> shift) & 0xF]);
}

/// UTF-8 of `text`, with a backslash before the characters `quoted` (ASCII).
std::string escaped(std::u16string_view text, std::u16string_view quoted) {
    std::string out;
    std::size_t runBegin = 0;  // of units that stand for themselves and were not appended yet
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (isHighSurrogate(unit) && at + 1 < text.size() && isLowSurrogate(text[at + 1])) {
            ++at;
            continue;
        }
        const bool isQuoted = quoted.find(unit) != quoted.npos;
        if (!isQuoted && !isControl(unit) && !isHighSurrogate(unit) && !isLowSurrogate(unit))
            continue;
        out += platform::toUtf8(text.substr(runBegin, at - runBegin));
        runBegin = at + 1;
        if (isQuoted) {
            out.push_back('\\');
            out.push_back(static_cast<char>(unit));
        } else {
            appendEscape(out, unit);
        }
    }
    return out + platform::toUtf8(text.substr(runBegin));
}

}  // namespace

std::string printable(std::u16string_view text) { return escaped(text, u""); }

std::string jsonString(std::u16string_view text) { return '"' + escaped(text, u"\"\\") + '"'; }

}  // namespace cli
