#include "ifc/io/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>
#include <utility>

#include "ifc/io/io_texts.h"
#include "platform/message_box.h"

namespace IFC {
namespace {

char* append(char* out, std::string_view text) { return std::copy(text.begin(), text.end(), out); }

constexpr bool isBlank(char16_t unit) {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r') || unit == u'\u00A0';
}

std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// `formatReal` for the numbers that models are full of: zero, and those with at most six decimals
/// whose text has no exponent. @return nullptr for all others.
char* formatShortReal(char* out, double value) {
    if (value == 0)
        return append(out, std::signbit(value) ? "-0." : "0.");
    const double size = std::abs(value);
    if (!(size >= 1e-3 && size < 1e9))  // beyond it an exponent may be shorter
        return nullptr;
    // A correctly rounded quotient of exact numbers: equal to the value only if the decimals name
    // it. Texts of up to 15 digits name different doubles, so without the zeros at its end this one
    // is the shortest. One division for all numbers of decimals is faster than trying each.
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): what is rounded wrong is not equal to the value
    const auto millionths = static_cast<std::uint64_t>(size * 1e6 + 0.5);
    if (static_cast<double>(millionths) / 1e6 != size)
        return nullptr;
    const auto whole = static_cast<std::uint32_t>(millionths / 1'000'000);
    auto decimals = static_cast<std::uint32_t>(millionths % 1'000'000);
    if (decimals == 0 && whole >= 100'000)
        return nullptr;  // may end in zeros, for which an exponent is shorter
    if (value < 0)
        *out++ = '-';
    out = std::to_chars(out, out + 10, whole).ptr;
    *out++ = '.';
    for (std::uint32_t place = 100'000; decimals > 0; place /= 10) {
        *out++ = static_cast<char>('0' + decimals / place);
        decimals %= place;
    }
    return out;
}

}  // namespace

char* formatReal(char* out, double value) {
    if (char* const end = formatShortReal(out, value))
        return end;
    if (!std::isfinite(value)) [[unlikely]] {
        if (std::isnan(value))
            return append(out, "$");
        if (value > 0)
            return append(out, "inf");
        value = std::numeric_limits<double>::lowest();
    }
    char* const end = std::to_chars(out, out + kRealTextBytes, value).ptr;
    // An exponent has two or three digits behind its sign.
    char* const mantissaEnd = end - out > 5 && end[-5] == 'e'   ? end - 5
                              : end - out > 4 && end[-4] == 'e' ? end - 4
                                                                : end;
    const bool hasPoint = std::find(out, mantissaEnd, '.') != mantissaEnd;
    if (mantissaEnd == end) {
        if (hasPoint)
            return end;
        *end = '.';
        return end + 1;
    }
    // 1e-05 becomes 1.E-5, 1e+20 becomes 1.E20. The digits are put aside first: their new place
    // overlaps the old.
    const char* digits = mantissaEnd + 1;
    const bool negative = *digits++ == '-';
    if (*digits == '0')
        ++digits;
    char exponent[3];
    const char* const exponentEnd = std::copy(digits, static_cast<const char*>(end), exponent);
    char* next = mantissaEnd;
    if (!hasPoint)
        *next++ = '.';
    *next++ = 'E';
    if (negative)
        *next++ = '-';
    return std::copy(static_cast<const char*>(exponent), exponentEnd, next);
}

bool isTooLarge(std::string_view number) {
    // Compares the places of the point and of the first digit that counts: 0.001E5 is 10^2.
    const std::size_t mantissaEnd = std::min(number.find_first_of("eE"), number.size());
    const std::size_t point = std::min(number.find('.'), mantissaEnd);
    const std::size_t firstDigit = number.find_first_of("123456789");
    const char* exponentText = number.data() + std::min(mantissaEnd + 1, number.size());
    const char* const end = number.data() + number.size();
    if (exponentText != end && *exponentText == '+')
        ++exponentText;
    long long exponent = 0;
    if (std::from_chars(exponentText, end, exponent).ec == std::errc::result_out_of_range)
        return *exponentText != '-';
    return exponent > static_cast<long long>(firstDigit) - static_cast<long long>(point);
}

std::optional<double> realOf(std::u16string_view text) {
    text = trimmed(text);
    if (!text.empty() && text.front() == u'+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == u'-')
            return std::nullopt;
    }
    std::string bytes;
    bytes.reserve(text.size());
    for (const char16_t unit : text) {
        // from_chars also knows words such as "inf", which are no numbers here.
        const bool ofNumber = (unit >= u'0' && unit <= u'9') || unit == u'.' || unit == u'-' ||
                              unit == u'+' || unit == u'e' || unit == u'E';
        if (!ofNumber)
            return std::nullopt;
        bytes.push_back(static_cast<char>(unit));
    }
    double value = 0;
    const char* const end = bytes.data() + bytes.size();
    const auto [stop, error] = std::from_chars(bytes.data(), end, value);
    if (stop != end || error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc::result_out_of_range) {
        if (isTooLarge(bytes))
            return std::nullopt;
        return bytes.front() == '-' ? -0.0 : 0.0;
    }
    return value;
}

std::optional<std::int64_t> integerOf(std::u16string_view text) {
    const std::optional<double> real = realOf(text);
    if (!real || std::trunc(*real) != *real)
        return std::nullopt;
    // Exact where the double is not: 64-bit numbers written without a point.
    text = trimmed(text);
    if (text.front() == u'+')
        text.remove_prefix(1);
    const std::string digits(text.begin(), text.end());  // ASCII, because it is a number
    const char* const last = digits.data() + digits.size();
    std::int64_t value = 0;
    const auto [stop, error] = std::from_chars(digits.data(), last, value);
    if (error == std::errc() && stop == last)
        return value;
    constexpr double kLargestExact = 9007199254740992.0;  // 2^53
    if (std::abs(*real) > kLargestExact)
        return std::nullopt;
    return static_cast<std::int64_t>(*real);
}

std::optional<Truth> truthOf(std::u16string_view text) {
    constexpr std::pair<std::u16string_view, Truth> kWords[] = {
        {u"TRUE", Truth::True},   {u"T", Truth::True},          {u".T.", Truth::True},
        {u"1", Truth::True},      {u"YES", Truth::True},        {u"FALSE", Truth::False},
        {u"F", Truth::False},     {u".F.", Truth::False},       {u"0", Truth::False},
        {u"NO", Truth::False},    {u"UNKNOWN", Truth::Unknown}, {u"U", Truth::Unknown},
        {u".U.", Truth::Unknown},
    };
    std::u16string upper(trimmed(text));
    for (char16_t& unit : upper)
        if (unit >= u'a' && unit <= u'z')
            unit = static_cast<char16_t>(unit - u'a' + u'A');
    for (const auto& [word, truth] : kWords)
        if (upper == word)
            return truth;
    return std::nullopt;
}

double toReal(std::u16string_view text) {
    if (const auto value = realOf(text))
        return *value;
    platform::showMessageBox(texts::kUnableToConvertToDouble, texts::kUtilsErrorCaption);
    return 0;
}

}  // namespace IFC
