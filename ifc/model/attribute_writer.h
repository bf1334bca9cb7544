#pragma once

#include <cstdint>
#include <string_view>

#include "ifc/model/class_info.h"
#include "ifc/model/enumeration.h"
#include "ifc/model/values.h"

namespace FileStream {
class OutpoutStream;
}

namespace IFC {

struct RecordShape;

/// Writes the attributes of one instance, one call per attribute in file order, each followed by a
/// comma; the caller takes the last comma back. Values that are not present become "$".
class AttributeWriter {
public:
    explicit AttributeWriter(FileStream::OutpoutStream& out) : out_(out) {}
    AttributeWriter(const AttributeWriter&) = delete;
    AttributeWriter& operator=(const AttributeWriter&) = delete;

    /// Starts a record. derived: the places of attributes (bit 0 for the first of the root
    /// supertype) that the object's class derives; they are written as "*". shape: how the record
    /// was read, or null; lasts as long as the record.
    void beginRecord(std::uint64_t derived, const RecordShape* shape = nullptr) {
        index_ = 0;
        derived_ = derived;
        shape_ = shape;
    }

    void text(const Text& value);
    void binary(const Binary& value);
    void real(const Real& value);  ///< REAL and NUMBER
    void integer(const Integer& value);
    void logical(const Logical& value);  ///< BOOLEAN and LOGICAL
    void enumeration(const Enumeration& value, const EnumerationInfo& type);
    void reference(const void* value, const ClassInfo& declared);
    void select(const void* value, const ClassInfo& declared);

    // Aggregates.
    void texts(const Sequence<Text>& values);
    void binaries(const Sequence<Binary>& values);
    void reals(const Sequence<double>& values);
    void integers(const Sequence<std::int64_t>& values);
    void logicals(const Sequence<Logical>& values);
    void enumerations(const Sequence<Enumeration>& values, const EnumerationInfo& type);
    void references(const PointerSequence& values, const ClassInfo& declared);
    void selects(const PointerSequence& values, const ClassInfo& declared);

    // Aggregates of aggregates.
    void textLists(const Sequence<Sequence<Text>>& values);
    void realLists(const Sequence<Sequence<double>>& values);
    void integerLists(const Sequence<Sequence<std::int64_t>>& values);
    template <class Declared>
    void referenceLists(const Sequence<References<Declared>>& values, const ClassInfo& declared) {
        lists(values, [&](const References<Declared>& inner) { references(inner, declared); });
    }
    template <class Declared>
    void selectLists(const Sequence<References<Declared>>& values, const ClassInfo& declared) {
        lists(values, [&](const References<Declared>& inner) { selects(inner, declared); });
    }

    /// Appends `value` in decimal, without a comma.
    void number(std::int64_t value);
    /// ".NAME.," and "$,"; for EnumerationInfo.
    void enumerationValue(std::string_view name);
    void absent();

    /// `text` as a STEP string in quotes, everything outside 32..126 escaped, followed by a comma.
    static void appendString(FileStream::OutpoutStream& out, std::u16string_view text);

private:
    /// Counts the attribute; false when nothing more is to be written for it: it is derived, not
    /// present, or written as it was read.
    bool begin(bool present);
    bool writeAsRead(std::uint32_t index, bool present);
    /// The same for a list; one inside another list or a typed value is no attribute of the record.
    bool beginList(bool present) {
        if (depth_ == 0)
            return begin(present);
        if (!present)
            absent();
        return present;
    }
    template <class Element, class WriteInner>
    void lists(const Sequence<Element>& values, WriteInner writeInner) {
        if (!beginList(values.present))
            return;
        openList();
        ++depth_;
        for (const Element& inner : values.view())
            writeInner(inner);
        --depth_;
        closeList(values.count == 0);
    }
    /// writePointer: writes one item and tells whether it did; items that are gone are left out.
    template <class WritePointer>
    void pointers(const PointerSequence& values, WritePointer writePointer) {
        if (!beginList(values.present))
            return;
        openList();
        bool empty = true;
        for (std::uint32_t index = 0; index < values.count; ++index) {
            if (writePointer(values.items[index]))
                empty = false;
        }
        closeList(empty);
    }
    void openList();
    /// Takes the comma behind the last element back and writes "),".
    void closeList(bool empty);
    void oneReference(const void* value, const ClassInfo& declared);
    void oneSelect(const void* value, const ClassInfo& declared);
    void oneText(const Text& value);
    void oneBinary(const Binary& value);
    void oneReal(double value);
    void oneInteger(std::int64_t value);
    void oneLogical(const Logical& value);
    template <class Element, class WriteElement>
    void flatList(const Sequence<Element>& values, WriteElement writeElement);

    FileStream::OutpoutStream& out_;
    std::uint32_t index_ = 0;
    std::uint64_t derived_ = 0;
    const RecordShape* shape_ = nullptr;
    unsigned depth_ =
        0;  // of lists and typed values: what stands in one is no attribute of the record
};

}  // namespace IFC
