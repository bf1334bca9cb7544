#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

/// How attribute values are held inside the generated classes. All storage behind a pointer belongs
/// to the model's MemoryPool and is never changed after reading: who edits a text or a list puts a
/// new one in its place, so copies of an entity may share them.
namespace IFC {

class IfcEntity;
struct ClassInfo;

/// STRING and the defined types on it: UTF-16 units; "$" when not present, which is not the same as
/// ''.
struct Text {
    const char16_t* units = nullptr;
    std::uint32_t length = 0;
    bool present = false;

    std::u16string_view view() const { return {units, length}; }
};

/// BINARY: the hexadecimal digits between the double quotes as they stand in the file.
struct Binary {
    const char* digits = nullptr;
    std::uint32_t length = 0;
    bool present = false;

    std::string_view view() const { return {digits, length}; }
};

/// REAL and NUMBER.
struct Real {
    double value = 0;
    bool present = false;
};

/// INTEGER, exact to 64 bits.
struct Integer {
    std::int64_t value = 0;
    bool present = false;
};

/// BOOLEAN and LOGICAL. Kept: true comes first, so a truth value v is stored as the index of !v.
struct Logical {
    static constexpr std::int32_t kTrue = 0;
    static constexpr std::int32_t kFalse = 1;
    static constexpr std::int32_t kUnknown = 2;

    std::int32_t index = kUnknown;
    bool present = false;
};

/// Position in the release's value list of the attribute's enumeration.
struct Enumeration {
    std::int32_t index = -1;
    bool present = false;
};

/// LIST, SET, BAG and ARRAY of any element but entities and selects. "()" is present and empty, "$"
/// is not present.
template <class Element>
struct Sequence {
    static_assert(std::is_trivially_destructible_v<Element>);

    Element* items = nullptr;
    std::uint32_t count = 0;
    bool present = false;

    std::span<const Element> view() const { return {items, count}; }
};

/// LIST, SET, BAG and ARRAY of entities or selects, without their class: each item points to the
/// part of the object that is of the declared class (a null item is a reference that could not be
/// bound).
struct PointerSequence {
    void** items = nullptr;
    std::uint32_t count = 0;
    bool present = false;
};

/// The same with its declared class.
template <class Declared>
struct References : PointerSequence {
    Declared* operator[](std::uint32_t index) const { return static_cast<Declared*>(items[index]); }
};

}  // namespace IFC
