#include "ifc/model/attribute_writer.h"

#include <charconv>

#include "ifc/io/numbers.h"
#include "ifc/io/output_stream.h"
#include "ifc/model/entity.h"
#include "ifc/model/record_shape.h"

namespace IFC {

namespace {

constexpr std::size_t kLongestInteger = 24;
constexpr std::size_t kLongestReal = 40;

void appendInteger(FileStream::OutpoutStream& out, char prefix, std::int64_t value) {
    char* const begin = out.reserve(kLongestInteger);
    char* next = begin;
    if (prefix)
        *next++ = prefix;
    next = std::to_chars(next, begin + kLongestInteger - 1, value).ptr;
    *next++ = ',';
    out.commit(static_cast<std::size_t>(next - begin));
}

constexpr bool standsForItself(char16_t unit) {
    return unit >= 32 && unit < 127 && unit != u'\'' && unit != u'\\';
}

}  // namespace

bool AttributeWriter::begin(bool present) {
    if (depth_ == 0) {
        const std::uint32_t index = index_++;
        if (shape_ && writeAsRead(index, present))
            return false;
        if (derived_ != 0 && index < 64 && ((derived_ >> index) & 1U) != 0) {
            out_.append("*,");
            return false;
        }
    }
    if (!present)
        absent();
    return present;
}

/// @return whether the attribute is done with: its text in the file was taken over, or the record
/// had none.
bool AttributeWriter::writeAsRead(std::uint32_t index, bool present) {
    if (index >= shape_->attributeCount)
        return true;
    const auto raw = shape_->raw.find(index);
    if (raw == shape_->raw.end() || (present && shape_->edited))
        return false;
    out_.append(raw->second);
    out_.put(',');
    return true;
}

void AttributeWriter::number(std::int64_t value) {
    char* const begin = out_.reserve(kLongestInteger);
    out_.commit(
        static_cast<std::size_t>(std::to_chars(begin, begin + kLongestInteger, value).ptr - begin));
}

void AttributeWriter::absent() { out_.append("$,"); }

void AttributeWriter::enumerationValue(std::string_view name) {
    out_.put('.');
    out_.append(name);
    out_.append(".,");
}

void AttributeWriter::text(const Text& value) {
    if (begin(value.present))
        appendString(out_, value.view());
}

void AttributeWriter::binary(const Binary& value) {
    if (begin(value.present))
        oneBinary(value);
}

void AttributeWriter::real(const Real& value) {
    if (begin(value.present))
        oneReal(value.value);
}

void AttributeWriter::integer(const Integer& value) {
    if (begin(value.present))
        oneInteger(value.value);
}

void AttributeWriter::logical(const Logical& value) {
    if (begin(value.present))
        oneLogical(value);
}

void AttributeWriter::enumeration(const Enumeration& value, const EnumerationInfo& type) {
    if (begin(value.present))
        type.write(*this, value.index);
}

void AttributeWriter::reference(const void* value, const ClassInfo& declared) {
    if (begin(value != nullptr))
        oneReference(value, declared);
}

void AttributeWriter::select(const void* value, const ClassInfo& declared) {
    if (begin(value != nullptr))
        oneSelect(value, declared);
}

// Single values.

void AttributeWriter::oneText(const Text& value) {
    if (value.present)
        appendString(out_, value.view());
    else
        absent();
}

void AttributeWriter::oneBinary(const Binary& value) {
    out_.put('"');
    out_.append(value.view());
    out_.append("\",");
}

void AttributeWriter::oneReal(double value) {
    char* const begin = out_.reserve(kLongestReal);
    char* next = formatReal(begin, value);
    *next++ = ',';
    out_.commit(static_cast<std::size_t>(next - begin));
}

void AttributeWriter::oneInteger(std::int64_t value) { appendInteger(out_, '\0', value); }

void AttributeWriter::oneLogical(const Logical& value) {
    switch (value.index) {
        case Logical::kTrue: out_.append(".T.,"); return;
        case Logical::kFalse: out_.append(".F.,"); return;
        default: out_.append(".U.,"); return;
    }
}

/// A removed entity is not written, so nothing may refer to it.
void AttributeWriter::oneReference(const void* value, const ClassInfo& declared) {
    const IfcEntity* entity = declared.toEntity(const_cast<void*>(value));
    if (entity->id() < 1)
        absent();
    else
        appendInteger(out_, '#', entity->id());
}

void AttributeWriter::oneSelect(const void* value, const ClassInfo& declared) {
    const IfcEntity* entity = declared.toEntity(const_cast<void*>(value));
    if (entity->isComplex()) {
        oneReference(value, declared);
        return;
    }
    out_.append(entity->classInfo().key);
    out_.put('(');
    ++depth_;
    entity->writeAttributes(*this);
    --depth_;
    out_.movePointer(-1);
    out_.append("),");
}

// Aggregates.

void AttributeWriter::openList() { out_.put('('); }

void AttributeWriter::closeList(bool empty) {
    if (!empty)
        out_.movePointer(-1);
    out_.append("),");
}

template <class Element, class WriteElement>
void AttributeWriter::flatList(const Sequence<Element>& values, WriteElement writeElement) {
    if (!beginList(values.present))
        return;
    openList();
    for (const Element& value : values.view())
        writeElement(value);
    closeList(values.count == 0);
}

void AttributeWriter::texts(const Sequence<Text>& values) {
    flatList(values, [this](const Text& value) { oneText(value); });
}

void AttributeWriter::binaries(const Sequence<Binary>& values) {
    flatList(values, [this](const Binary& value) { oneBinary(value); });
}

void AttributeWriter::reals(const Sequence<double>& values) {
    flatList(values, [this](double value) { oneReal(value); });
}

void AttributeWriter::integers(const Sequence<std::int64_t>& values) {
    flatList(values, [this](std::int64_t value) { oneInteger(value); });
}

void AttributeWriter::logicals(const Sequence<Logical>& values) {
    flatList(values, [this](const Logical& value) { oneLogical(value); });
}

void AttributeWriter::enumerations(const Sequence<Enumeration>& values,
                                   const EnumerationInfo& type) {
    flatList(values, [&](const Enumeration& value) { type.write(*this, value.index); });
}

void AttributeWriter::references(const PointerSequence& values, const ClassInfo& declared) {
    pointers(values, [&](const void* value) {
        if (declared.toEntity(const_cast<void*>(value))->id() < 1)
            return false;
        oneReference(value, declared);
        return true;
    });
}

void AttributeWriter::selects(const PointerSequence& values, const ClassInfo& declared) {
    pointers(values, [&](const void* value) {
        const IfcEntity* entity = declared.toEntity(const_cast<void*>(value));
        if (entity->isComplex() && entity->id() < 1)
            return false;
        oneSelect(value, declared);
        return true;
    });
}

void AttributeWriter::textLists(const Sequence<Sequence<Text>>& values) {
    lists(values, [this](const Sequence<Text>& inner) { texts(inner); });
}

void AttributeWriter::realLists(const Sequence<Sequence<double>>& values) {
    lists(values, [this](const Sequence<double>& inner) { reals(inner); });
}

void AttributeWriter::integerLists(const Sequence<Sequence<std::int64_t>>& values) {
    lists(values, [this](const Sequence<std::int64_t>& inner) { integers(inner); });
}

/// Every unit beyond 7-bit print gets a group of its own: \X2\00E4\X0\.
void AttributeWriter::appendString(FileStream::OutpoutStream& out, std::u16string_view text) {
    static constexpr char kHexDigits[] = "0123456789ABCDEF";
    constexpr std::size_t kGroupBytes = 12;
    constexpr std::size_t kPieceUnits = 1024;

    out.put('\'');
    while (!text.empty()) {
        const std::u16string_view piece = text.substr(0, kPieceUnits);
        text.remove_prefix(piece.size());
        char* const begin = out.reserve(kPieceUnits * kGroupBytes);
        char* next = begin;
        for (const char16_t unit : piece) {
            if (standsForItself(unit)) [[likely]] {
                *next++ = static_cast<char>(unit);
            } else if (unit == u'\'' || unit == u'\\') {
                *next++ = static_cast<char>(unit);
                *next++ = static_cast<char>(unit);
            } else {
                for (const char letter : {'\\', 'X', '2', '\\'})
                    *next++ = letter;
                for (int shift = 12; shift >= 0; shift -= 4)
                    *next++ = kHexDigits[(unit >> shift) & 0xF];
                for (const char letter : {'\\', 'X', '0', '\\'})
                    *next++ = letter;
            }
        }
        out.commit(static_cast<std::size_t>(next - begin));
    }
    out.append("',");
}

}  // namespace IFC
