#include "edits/property_check.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <exception>
#include <optional>

#include "edits/property_check_texts.h"
#include "ifc/io/numbers.h"
#include "ifc/model/units.h"

namespace {

constexpr std::array<std::u16string_view, 6> kQuantityTypes = {
    u"IfcQuantityArea", u"IfcQuantityCount",  u"IfcQuantityLength",
    u"IfcQuantityTime", u"IfcQuantityVolume", u"IfcQuantityWeight"};

/// The characters that Unicode calls White_Space.
constexpr std::u16string_view kWhiteSigns =
    u" \t\n\v\f\r\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009"
    u"\u200A\u2028\u2029\u202F\u205F\u3000";

bool isInteger(std::u16string_view text) {
    std::string digits;
    for (const char16_t unit : withoutWhiteSigns(text)) {
        if (unit > 0x7F)
            return false;
        digits.push_back(static_cast<char>(unit));
    }
    const char* first = digits.data();
    const char* const last = first + digits.size();
    if (digits.size() > 1 && digits[0] == '+' && digits[1] != '-')
        ++first;
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(first, last, number);
    return error == std::errc() && end == last;
}

bool isUnit(std::u16string_view prefix, std::u16string_view unit) {
    try {
        if (!unit.empty())
            IFC::GetIfcSIUnitNameFromWstring(unit);
        if (!prefix.empty())
            IFC::GetIfcSIPrefixFromWstring(prefix);
    } catch (const std::exception&) {
        return false;
    }
    return prefix.empty() || !unit.empty();
}

}  // namespace

std::u16string withoutWhiteSigns(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(kWhiteSigns);
    if (first == std::u16string_view::npos)
        return {};
    return std::u16string(text.substr(first, text.find_last_not_of(kWhiteSigns) - first + 1));
}

void eraseWhiteSigns(std::u16string& text, std::u16string_view shown) {
    if (text != shown)
        text = withoutWhiteSigns(text);
}

const char* problemOf(const IfcProperty& property) {
    if (withoutWhiteSigns(property.name).empty())
        return texts::kPropertyNameMissingKey;
    if (!isUnit(property.prefix, property.unit))
        return texts::kUnknownUnitKey;
    const std::u16string& value = property.value;
    if (!property.quantityType.empty()) {
        if (std::find(kQuantityTypes.begin(), kQuantityTypes.end(), property.quantityType) ==
            kQuantityTypes.end())
            return texts::kUnknownQuantityTypeKey;
        return IFC::realOf(value) ? nullptr : texts::kValueNoNumberKey;
    }
    switch (property.valueType) {
        case kRealValue: return IFC::realOf(value) ? nullptr : texts::kValueNoNumberKey;
        case kIntegerValue: return isInteger(value) ? nullptr : texts::kValueNoIntegerKey;
        case kTruthValue:
            return value == u"1" || value == u"0" ? nullptr : texts::kValueNoTruthValueKey;
        default: return nullptr;
    }
}
