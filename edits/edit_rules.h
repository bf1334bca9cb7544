#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "ifc/model/property_set_record.h"
#include "ifc/model/units.h"

/// What may be edited, and what a text means as a name, a value or a unit. Windows, flows, the
/// command line and edits of many objects ask here, and show the refusal; nobody else judges. All
/// texts are UTF-16.
namespace IFC {

/// What a refusal is about: where to put the cursor.
enum class EditField { Object, Set, SetName, Property, PropertyName, Value, Unit, QuantityType };

struct Refusal {
    EditField field = EditField::Value;
    const char* key = "";                   ///< of the language files; one of texts::kRefusals
    std::vector<std::u16string> arguments;  ///< for the places {1}, {2} ... of its text

    bool operator==(const Refusal&) const = default;
};

/// The refusal in words. textOf: gives the text of a key in the user's language; where it is empty
/// or gives nothing, the words are English.
using TextOfKey = std::function<std::u16string(const char* key)>;
std::u16string wordsOf(const Refusal& refusal, const TextOfKey& textOf = {});

/// A result, or why there is none.
template <class Result>
using Judged = std::variant<Result, Refusal>;

/// What differs between users and between the releases of files.
struct EditRules {
    bool isCountInteger = false;  ///< IfcCountMeasure: INTEGER in IFC4X3_ADD2, NUMBER before
    char16_t decimalSign = u'.';  ///< of the user's language; a point is always understood
};
/// release: as the library names it ("IFC4X3_ADD2"); empty for unknown. language: "de"; empty for
/// none.
EditRules rulesFor(std::string_view release, std::u16string_view language = {});

// Names.

/// `text` without the blanks around it: spaces of any width, tabs, line ends.
std::u16string withoutWhiteSigns(std::u16string_view text);

/// The same for a text that was entered in place of `shown`; what was left as it was shown stays.
void eraseWhiteSigns(std::u16string& text, std::u16string_view shown = {});

/// Whether another set of the object, or another property of the set, has the name.
using IsTaken = std::function<bool(std::u16string_view name)>;

/// shown: the name that the set has, empty for a new one; it is always good enough to be kept.
std::optional<Refusal> refusalOfSetName(std::u16string_view name, std::u16string_view shown,
                                        const IsTaken& isTaken);

// What is shown of the object.

/// Of a set by its entity ("IfcPropertySet"): predefined sets are only shown.
std::optional<Refusal> refusalOfSet(std::u16string_view entityName);
/// The same; and a set that is known by its GUID alone needs one.
std::optional<Refusal> refusalOfSet(std::u16string_view entityName, std::u16string_view guid);

// Values.

/// What the text says as a value of the type. type: a member of IfcValue ("IfcLengthMeasure") or a
/// quantity ("IfcQuantityLength"); of what is none of them, such as the empty name, the value is
/// one of `valueType` (PropertyValueType).
/// @return the text as it is stored: of a number the one with a decimal point, of a truth value "1"
/// or "0", any other text as it stands.
Judged<std::u16string> valueOf(std::u16string_view text, std::u16string_view type,
                               std::int32_t valueType, const EditRules& rules);

/// The unit that a text means: a label of the list ("mm (MilliMetre)"), a symbol ("mm", "m\u00B2",
/// "\u00B0C"), or a name ("MILLI METRE", "millimetre", "meter").
Judged<SIUnit> unitOf(std::u16string_view text);

/// Whether the unit measures what the type does; a refusal when it does not. A type without a
/// dimension of its own (texts, IfcReal) takes each.
std::optional<Refusal> refusalOfUnit(const SIUnit& unit, std::u16string_view type);

/// The unit of the record; nothing for none, and for names that do not exist.
std::optional<SIUnit> unitOf(const IfcProperty& property);
void setUnit(IfcProperty& property, const SIUnit& unit);

// Properties.

/// The record with which a new property is added. entered: its name, value, prefix and unit, and a
/// quantity type or the name of the value's type (entityName). Without a type, a value with a unit
/// is a number and any other is of the entered kind. clearsValue: it has no value.
Judged<IfcProperty> newProperty(IfcProperty entered, const EditRules& rules);

/// The next form of a property that is shown as `shown`. entered: what it gets; an empty name,
/// value, unit or type stays as it is, and what is equal to what is shown is not judged, because
/// files hold more than this program would write. A value keeps its type unless another is entered
/// (entityName). isTaken: whether another property of the set has the name.
/// @return nothing when that changes nothing.
Judged<std::optional<IfcProperty>> nextForm(const IfcProperty& shown, const IfcProperty& entered,
                                            const IsTaken& isTaken, const EditRules& rules);

}  // namespace IFC
