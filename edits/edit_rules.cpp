#include "edits/edit_rules.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "edits/command_texts.h"
#include "edits/edit_rules_texts.h"
#include "edits/value_types.h"
#include "ifc/io/numbers.h"

namespace IFC {
namespace {

/// The characters that Unicode calls White_Space.
constexpr std::u16string_view kWhiteSigns =
    u" \t\n\v\f\r\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009"
    u"\u200A\u2028\u2029\u202F\u205F\u3000";

std::u16string fromAscii(std::string_view text) { return {text.begin(), text.end()}; }

bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

// Numbers.

/// The number with a point in place of the comma; as it stands where there is no comma, and where
/// it could be one between thousands: "1,234" is 1.234 to some and 1234 to others.
std::u16string withPoint(std::u16string text, const EditRules& rules) {
    const std::size_t comma = text.find(u',');
    if (rules.decimalSign != u',' || comma == std::u16string::npos ||
        text.find_first_of(u".,", comma + 1) != std::u16string::npos ||
        text.find(u'.') != std::u16string::npos)
        return text;
    const std::size_t first = text.find_first_of(u"0123456789");
    const std::size_t decimals =
        static_cast<std::size_t>(
            std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(comma) + 1, text.end(),
                             isDigit) -
            text.begin()) -
        comma - 1;
    const bool canBeThousands =
        decimals == 3 && first < comma && comma - first <= 3 && text[first] != u'0';
    if (decimals > 0 && !canBeThousands)
        text[comma] = u'.';
    return text;
}

bool isIn(ValueRange range, double number) {
    switch (range) {
        case ValueRange::Any: return true;
        case ValueRange::Positive: return number > 0;
        case ValueRange::NotNegative: return number >= 0;
        case ValueRange::Ratio: return number >= 0 && number <= 1;
        case ValueRange::PH: return number >= 0 && number <= 14;
    }
    return true;
}

std::u16string_view signsOf(ValueRange range) {
    switch (range) {
        case ValueRange::Any: break;
        case ValueRange::Positive: return u"> 0";
        case ValueRange::NotNegative: return u"\u2265 0";
        case ValueRange::Ratio: return u"0 \u2026 1";
        case ValueRange::PH: return u"0 \u2026 14";
    }
    return {};
}

// Dates and times.

constexpr std::u16string_view kDateForm = u"YYYY-MM-DD, 2024-05-31";
constexpr std::u16string_view kDateTimeForm = u"YYYY-MM-DDThh:mm:ss, 2024-05-31T14:30:00";
constexpr std::u16string_view kTimeForm = u"hh:mm:ss, 14:30:00";
constexpr std::u16string_view kDurationForm = u"PnYnMnDTnHnMnS, P1DT2H30M";

/// Reads the lexical forms of ISO 8601 that the documentation of IfcDate, IfcTime, IfcDateTime and
/// IfcDuration asks for, piece by piece; each function leaves what follows its piece.
class TimeText {
public:
    explicit TimeText(std::u16string_view text) : left_(text) {}

    bool atEnd() const { return left_.empty(); }

    bool take(char16_t sign) {
        const bool isThere = !left_.empty() && left_.front() == sign;
        if (isThere)
            left_.remove_prefix(1);
        return isThere;
    }

    bool date() {
        take(u'-');  // before the year 0
        const std::size_t yearLength = digitCount();
        if (yearLength < 4 || yearLength > 9)
            return false;
        int year = 0;
        int month = 0;
        int day = 0;
        return number(yearLength, year) && take(u'-') && number(2, month) && month >= 1 &&
               month <= 12 && take(u'-') && number(2, day) && day >= 1 &&
               day <= daysOf(month, year);
    }

    bool time() {
        int hour = 0;
        int minute = 0;
        int second = 0;
        if (!number(2, hour) || !take(u':') || !number(2, minute) || !take(u':') ||
            !number(2, second) || !fraction())
            return false;
        const bool isMidnight = hour == 24 && minute == 0 && second == 0;
        return (hour <= 23 || isMidnight) && minute <= 59 && second <= 59 && zone();
    }

    bool duration() {
        take(u'-');
        if (!take(u'P'))
            return false;
        std::size_t parts = components(u"YMWD");
        if (take(u'T')) {
            const std::size_t ofTime = components(u"HMS");
            if (ofTime == 0)
                return false;
            parts += ofTime;
        }
        return parts > 0;
    }

private:
    static int daysOf(int month, int year) {
        constexpr std::array kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
        return month == 2 && isLeap ? 29 : kDays[static_cast<std::size_t>(month - 1)];
    }

    std::size_t digitCount() const {
        return static_cast<std::size_t>(std::find_if_not(left_.begin(), left_.end(), isDigit) -
                                        left_.begin());
    }

    bool number(std::size_t length, int& value) {
        if (digitCount() < length)
            return false;
        for (; length > 0; --length) {
            value = value * 10 + (left_.front() - u'0');
            left_.remove_prefix(1);
        }
        return true;
    }

    bool fraction() {
        if (!take(u'.'))
            return true;
        const std::size_t length = digitCount();
        left_.remove_prefix(length);
        return length > 0;
    }

    bool zone() {
        if (atEnd() || take(u'Z'))
            return true;
        int hour = 0;
        int minute = 0;
        return (take(u'+') || take(u'-')) && number(2, hour) && hour <= 14 && take(u':') &&
               number(2, minute) && minute <= 59;
    }

    /// Numbers with letters of `letters`, in their order; the last may have decimals.
    std::size_t components(std::u16string_view letters) {
        std::size_t count = 0;
        bool isLast = false;
        while (!isLast && digitCount() > 0) {
            left_.remove_prefix(digitCount());
            isLast = !left_.empty() && left_.front() == u'.';
            if (!fraction() || left_.empty())
                return 0;
            const std::size_t letter = letters.find(left_.front());
            if (letter == std::u16string_view::npos)
                return 0;
            letters.remove_prefix(letter + 1);
            left_.remove_prefix(1);
            ++count;
        }
        return count;
    }

    std::u16string_view left_;
};

bool isTimeText(ValueKind kind, std::u16string_view text) {
    TimeText time(text);
    switch (kind) {
        case ValueKind::Date: return time.date() && time.atEnd();
        case ValueKind::DateTime:
            return time.date() && time.take(u'T') && time.time() && time.atEnd();
        case ValueKind::Time: return time.time() && time.atEnd();
        case ValueKind::Duration: return time.duration() && time.atEnd();
        default: return false;
    }
}

std::u16string_view formOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::Date: return kDateForm;
        case ValueKind::DateTime: return kDateTimeForm;
        case ValueKind::Time: return kTimeForm;
        default: return kDurationForm;
    }
}

// Types.

constexpr std::u16string_view kCountTypes[] = {u"IfcCountMeasure", u"IfcQuantityCount"};

/// The type that the record names; that of its kind of value when it names none.
const ValueType& typeOf(std::u16string_view name, std::int32_t valueType) {
    if (const ValueType* const named = findValueType(name))
        return *named;
    switch (valueType) {
        case kRealValue: return *findValueType(u"IfcReal");
        case kIntegerValue: return *findValueType(u"IfcInteger");
        case kTruthValue: return *findValueType(u"IfcBoolean");
        default: return *findValueType(u"IfcLabel");
    }
}

std::u16string_view typeName(const IfcProperty& property) {
    return property.quantityType.empty() ? property.entityName : property.quantityType;
}

std::int32_t valueTypeOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::Real: return kRealValue;
        case ValueKind::Integer: return kIntegerValue;
        case ValueKind::Truth:
        case ValueKind::Logical: return kTruthValue;
        default: return kTextValue;
    }
}

// Units.

/// What is often entered and no unit of the SI, with the unit to choose in its place.
struct ForeignUnit {
    std::u16string_view name;
    std::u16string_view inSI;
};
constexpr ForeignUnit kForeignUnits[] = {
    {u"kWh", u"MJ (1 kWh = 3.6 MJ)"},
    {u"Wh", u"kJ (1 Wh = 3.6 kJ)"},
    {u"MWh", u"GJ (1 MWh = 3.6 GJ)"},
    {u"h", u"s (1 h = 3600 s)"},
    {u"min", u"s (1 min = 60 s)"},
    {u"d", u"s (1 d = 86400 s)"},
    {u"t", u"Mg (1 t = 1 Mg)"},
    {u"l", u"m3 (1 l = 0.001 m3)"},
    {u"L", u"m3 (1 L = 0.001 m3)"},
    {u"ha", u"m2 (1 ha = 10000 m2)"},
    {u"bar", u"kPa (1 bar = 100 kPa)"},
    {u"\u00B0", u"rad (1\u00B0 = 0.017453292519943295 rad)"},
    {u"deg", u"rad (1\u00B0 = 0.017453292519943295 rad)"},
    {u"in", u"mm (1 in = 25.4 mm)"},
    {u"ft", u"m (1 ft = 0.3048 m)"},
    {u"lb", u"kg (1 lb = 0.45359237 kg)"},
    {u"\u00B0F", u"\u00B0C"},
};

std::u16string shown(const SIUnit& unit) {
    const std::u16string_view label = siUnitLabel(unit);
    if (!label.empty())
        return std::u16string(label);
    std::u16string names = unit.prefix ? fromAscii(siPrefixName(*unit.prefix)) + u" " : u"";
    return names + fromAscii(siUnitName(unit.name));
}

/// The units that measure what has the unit type, without prefixes.
std::u16string unitsOfType(std::string_view unitType) {
    std::u16string names;
    for (std::int32_t index = 0; index < kSIUnitNameCount; ++index) {
        const auto name = static_cast<IfcSIUnitName>(index);
        if (siUnitType(name) == unitType)
            names += (names.empty() ? u"" : u", ") + shown({.prefix = {}, .name = name});
    }
    return names;
}

}  // namespace

// Refusals.

std::u16string wordsOf(const Refusal& refusal, const TextOfKey& textOf) {
    std::u16string words = textOf ? textOf(refusal.key) : std::u16string();
    if (words.empty()) {
        const auto known =
            std::find_if(std::begin(texts::kRefusals), std::end(texts::kRefusals),
                         [&](const texts::RefusalText& text) { return text.key == refusal.key; });
        if (known != std::end(texts::kRefusals))
            words = known->english;
    }
    std::u16string filled;
    for (std::size_t at = 0; at < words.size(); ++at) {
        const bool isPlace = words[at] == u'{' && at + 2 < words.size() && isDigit(words[at + 1]) &&
                             words[at + 2] == u'}';
        const auto place = isPlace ? static_cast<std::size_t>(words[at + 1] - u'1') : 0;
        if (isPlace && place < refusal.arguments.size()) {
            filled += refusal.arguments[place];
            at += 2;
        } else {
            filled += words[at];
        }
    }
    return filled;
}

EditRules rulesFor(std::string_view release, std::u16string_view language) {
    constexpr std::u16string_view kWithComma[] = {u"de", u"es", u"fr", u"it", u"pl", u"pt"};
    const std::u16string_view code = language.substr(0, 2);
    return {.isCountInteger = release.starts_with("IFC4X3"),
            .decimalSign = std::find(std::begin(kWithComma), std::end(kWithComma), code) !=
                                   std::end(kWithComma)
                               ? u','
                               : u'.'};
}

// Names.

std::u16string withoutWhiteSigns(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(kWhiteSigns);
    if (first == std::u16string_view::npos)
        return {};
    return std::u16string(text.substr(first, text.find_last_not_of(kWhiteSigns) - first + 1));
}

void eraseWhiteSigns(std::u16string& text, std::u16string_view shownText) {
    if (text != shownText)
        text = withoutWhiteSigns(text);
}

std::optional<Refusal> refusalOfSetName(std::u16string_view name, std::u16string_view shownName,
                                        const IsTaken& isTaken) {
    if (!shownName.empty() && name == shownName)
        return std::nullopt;
    if (withoutWhiteSigns(name).empty())
        return Refusal{EditField::SetName, texts::kSetNameMissingKey, {}};
    if (isTaken && isTaken(name))
        return Refusal{EditField::SetName, texts::kSetNameTakenKey, {std::u16string(name)}};
    return std::nullopt;
}

std::optional<Refusal> refusalOfSet(std::u16string_view entityName) {
    if (entityName == texts::kPropertySetEntity || entityName == texts::kQuantitySetEntity)
        return std::nullopt;
    return Refusal{EditField::Set, texts::kSetNotEditableKey, {std::u16string(entityName)}};
}

std::optional<Refusal> refusalOfSet(std::u16string_view entityName, std::u16string_view guid) {
    if (auto refusal = refusalOfSet(entityName))
        return refusal;
    if (guid.empty())
        return Refusal{EditField::Set, texts::kSetGuidMissingKey, {}};
    return std::nullopt;
}

// Values.

Judged<std::u16string> valueOf(std::u16string_view text, std::u16string_view typeName,
                               std::int32_t valueType, const EditRules& rules) {
    const ValueType& type = typeOf(typeName, valueType);
    const auto refused = [&](const char* key, std::u16string_view expected = {}) {
        return Refusal{EditField::Value,
                       key,
                       {std::u16string(text), std::u16string(type.name), std::u16string(expected)}};
    };
    const std::u16string trimmed = withoutWhiteSigns(text);
    const auto numberOf = [&](bool isInteger) -> Judged<std::u16string> {
        std::u16string number = withPoint(trimmed, rules);
        const auto value = realOf(number);
        if (isInteger && !integerOf(number))
            return refused(texts::kValueNoIntegerKey);
        if (!value)
            return refused(texts::kValueNoNumberKey);
        if (!isIn(type.range, *value))
            return refused(texts::kValueOutOfRangeKey, signsOf(type.range));
        return number;
    };
    switch (type.kind) {
        case ValueKind::Text: return std::u16string(text);
        case ValueKind::Real:
            return numberOf(rules.isCountInteger &&
                            std::find(std::begin(kCountTypes), std::end(kCountTypes), type.name) !=
                                std::end(kCountTypes));
        case ValueKind::Integer: return numberOf(true);
        case ValueKind::Truth:
        case ValueKind::Logical: {
            const bool canBeUnknown = type.kind == ValueKind::Logical;
            const auto truth = truthOf(trimmed);
            if (truth == Truth::True)
                return u"1";
            if (truth == Truth::False)
                return u"0";
            if (truth == Truth::Unknown && canBeUnknown)
                return u"unknown";
            return refused(canBeUnknown ? texts::kValueNoLogicalKey : texts::kValueNoTruthValueKey);
        }
        case ValueKind::Date:
        case ValueKind::DateTime:
        case ValueKind::Time:
        case ValueKind::Duration:
            if (isTimeText(type.kind, trimmed))
                return trimmed;
            return refused(texts::kValueNoTimeKey, formOf(type.kind));
        case ValueKind::Closed: break;
    }
    return refused(texts::kValueNoTextKey);
}

Judged<SIUnit> unitOf(std::u16string_view text) {
    if (const auto unit = siUnitFromText(text))
        return *unit;
    const std::u16string name = withoutWhiteSigns(text);
    for (const ForeignUnit& foreign : kForeignUnits)
        if (foreign.name == name)
            return Refusal{
                EditField::Unit, texts::kUnitNotOfSIKey, {name, std::u16string(foreign.inSI)}};
    return Refusal{EditField::Unit, texts::kUnknownUnitKey, {name}};
}

std::optional<Refusal> refusalOfUnit(const SIUnit& unit, std::u16string_view typeName) {
    const ValueType* const type = findValueType(typeName);
    if (!type || type->unitType == kAnyUnit || type->unitType == siUnitType(unit.name))
        return std::nullopt;
    if (type->unitType == kNoSIUnit)
        return Refusal{
            EditField::Unit, texts::kNoUnitOfTypeKey, {shown(unit), std::u16string(type->name)}};
    return Refusal{EditField::Unit,
                   texts::kUnitNotOfTypeKey,
                   {shown(unit), std::u16string(type->name), unitsOfType(type->unitType)}};
}

std::optional<SIUnit> unitOf(const IfcProperty& property) {
    try {
        SIUnit unit;
        unit.name = GetIfcSIUnitNameFromWstring(property.unit);
        if (!property.prefix.empty())
            unit.prefix = GetIfcSIPrefixFromWstring(property.prefix);
        return unit;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

void setUnit(IfcProperty& property, const SIUnit& unit) {
    property.unit = fromAscii(siUnitName(unit.name));
    property.prefix = unit.prefix ? fromAscii(siPrefixName(*unit.prefix)) : std::u16string();
}

// Properties.

namespace {

/// Puts the value as it is stored in the place of the one that was entered.
std::optional<Refusal> takeValue(IfcProperty& property, const EditRules& rules) {
    auto value = valueOf(property.value, typeName(property), property.valueType, rules);
    if (auto* const refusal = std::get_if<Refusal>(&value))
        return std::move(*refusal);
    property.value = std::move(std::get<std::u16string>(value));
    return std::nullopt;
}

std::optional<Refusal> refusalOfUnit(const IfcProperty& property) {
    if (property.unit.empty() && property.prefix.empty())
        return std::nullopt;
    if (const auto unit = unitOf(property))
        return refusalOfUnit(*unit, typeName(property));
    const std::u16string_view joint = property.prefix.empty() ? u"" : u" ";
    return Refusal{EditField::Unit,
                   texts::kUnknownUnitKey,
                   {std::u16string(property.prefix).append(joint).append(property.unit)}};
}

std::optional<Refusal> refusalOfQuantityType(const IfcProperty& property) {
    if (isQuantityType(property.quantityType))
        return std::nullopt;
    return Refusal{
        EditField::QuantityType, texts::kUnknownQuantityTypeKey, {property.quantityType}};
}

/// A quantity has a value (its attribute is not optional in any release).
Refusal valueMissing(const IfcProperty& property) {
    return {EditField::Value, texts::kValueMissingKey, {property.name}};
}

}  // namespace

Judged<IfcProperty> newProperty(IfcProperty entered, const EditRules& rules) {
    entered.initialName = entered.name;
    if (withoutWhiteSigns(entered.name).empty())
        return Refusal{EditField::PropertyName, texts::kPropertyNameMissingKey, {}};
    const bool isQuantity = !entered.quantityType.empty();
    if (isQuantity) {
        if (auto refusal = refusalOfQuantityType(entered))
            return *std::move(refusal);
        entered.valueType = kRealValue;
    } else if (const ValueType* const type = findValueType(entered.entityName)) {
        entered.valueType = valueTypeOf(type->kind);
    } else if (!entered.unit.empty() && entered.valueType == kTextValue) {
        entered.valueType = kRealValue;
    }
    const bool isEmpty = entered.value.empty() && !isQuantity && entered.valueType == kTextValue;
    if (entered.clearsValue && isQuantity)
        return valueMissing(entered);
    if (!entered.clearsValue && !isEmpty) {
        if (entered.value.empty())
            return valueMissing(entered);
        if (auto refusal = takeValue(entered, rules))
            return *std::move(refusal);
    }
    if (auto refusal = refusalOfUnit(entered))
        return *std::move(refusal);
    return entered;
}

Judged<std::optional<IfcProperty>> nextForm(const IfcProperty& shown, const IfcProperty& entered,
                                            const IsTaken& isTaken, const EditRules& rules) {
    IfcProperty next = shown;
    next.initialName = shown.name;
    if (!entered.name.empty() && entered.name != shown.name) {
        next.name = entered.name;
        if (withoutWhiteSigns(next.name).empty())
            return Refusal{EditField::PropertyName, texts::kPropertyNameMissingKey, {}};
        if (isTaken && isTaken(next.name))
            return Refusal{EditField::PropertyName, texts::kPropertyNameTakenKey, {next.name}};
    }
    const bool isQuantity = !shown.quantityType.empty();
    bool isTypeKept = true;
    if (isQuantity && !entered.quantityType.empty() && entered.quantityType != shown.quantityType) {
        isTypeKept = false;
        next.quantityType = entered.quantityType;
        next.entityName = entered.quantityType;
        if (auto refusal = refusalOfQuantityType(next))
            return *std::move(refusal);
    } else if (!isQuantity && !entered.entityName.empty() &&
               entered.entityName != shown.entityName) {
        isTypeKept = false;
        next.entityName = entered.entityName;
        if (const ValueType* const type = findValueType(entered.entityName))
            next.valueType = valueTypeOf(type->kind);
    }
    if (entered.clearsValue) {
        next.value.clear();
        next.clearsValue = true;
        if (isQuantity)
            return valueMissing(next);
    } else if (!entered.value.empty() && entered.value != shown.value) {
        next.value = entered.value;
        next.clearsValue = false;
    }
    if (!next.value.empty() && (next.value != shown.value || !isTypeKept))
        if (auto refusal = takeValue(next, rules))
            return *std::move(refusal);
    if (entered.clearsUnit) {
        next.unit.clear();
        next.prefix.clear();
        next.clearsUnit = true;
    } else if (!entered.unit.empty() || !entered.prefix.empty()) {
        next.unit = entered.unit;
        next.prefix = entered.prefix;
        next.clearsUnit = false;
    }
    const bool isUnitKept = next.unit == shown.unit && next.prefix == shown.prefix;
    if (!isUnitKept || !isTypeKept)
        if (auto refusal = refusalOfUnit(next))
            return *std::move(refusal);
    const bool isSame =
        next.name == shown.name && next.value == shown.value && isTypeKept && isUnitKept;
    return isSame ? std::nullopt : std::optional<IfcProperty>(std::move(next));
}

}  // namespace IFC
