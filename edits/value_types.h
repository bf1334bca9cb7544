#pragma once

#include <string_view>

/// What the schemas say of the types that a value can have.
namespace IFC {

/// How a value is written.
enum class ValueKind {
    Text,
    Real,
    Integer,
    Truth,    // BOOLEAN
    Logical,  // which can be unknown
    Date,
    DateTime,
    Time,
    Duration,
    Closed,  // BINARY and aggregates: not to be entered as one text
};

/// The numbers that are allowed.
enum class ValueRange { Any, Positive, NotNegative, Ratio, PH };

/// What can be measured in one unit of the SI.
struct ValueType {
    std::u16string_view name;
    ValueKind kind = ValueKind::Text;
    ValueRange range = ValueRange::Any;
    /// The IfcUnitEnum of the units with its dimension; kAnyUnit or kNoSIUnit.
    std::string_view unitType = {};
};

inline constexpr std::string_view kAnyUnit = "";
/// Numbers without a dimension, money, and what only a product of units measures.
inline constexpr std::string_view kNoSIUnit = "-";

/// Null for the name of none. Any case.
const ValueType* findValueType(std::u16string_view name);

/// Whether it is one of the quantities.
bool isQuantityType(std::u16string_view name);

}  // namespace IFC
