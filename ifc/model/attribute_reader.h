#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "ifc/model/class_info.h"
#include "ifc/model/enumeration.h"
#include "ifc/model/values.h"

class Token;
class Tokenizer;

namespace IFC {

class ReadContext;

/// Whether the schema lets an attribute be "$". A missing mandatory value is reported; both read as
/// not present.
enum class Need : bool { Mandatory, Optional };
inline constexpr Need kMandatory = Need::Mandatory;
inline constexpr Need kOptional = Need::Optional;

/// Reads the attributes of one instance from the tokenizer, one call per attribute in file order. A
/// value of another kind than asked for is reported once and skipped with all that its brackets
/// enclose; the attribute is then not present and reading goes on with the next one. An attribute
/// that the record does not have any more is not present. Called again for an object that was read
/// before (its references lay ahead of it), a call replaces the value.
class AttributeReader {
public:
    AttributeReader(Tokenizer& tokenizer, ReadContext& context);
    AttributeReader(const AttributeReader&) = delete;
    AttributeReader& operator=(const AttributeReader&) = delete;

    void text(Text& value, Need need);
    void binary(Binary& value, Need need);
    void real(Real& value, Need need);  ///< REAL and NUMBER
    void integer(Integer& value, Need need);
    void logical(Logical& value, Need need);  ///< BOOLEAN and LOGICAL
    void enumeration(Enumeration& value, Need need, const EnumerationInfo& type);
    /// "#n" of class `declared`. Not bound when #n does not exist (yet) or is of another class.
    template <class Declared>
    void reference(Declared*& value, Need need, const ClassInfo& declared) {
        value = static_cast<Declared*>(readReference(need, declared));
    }
    /// "#n", or a typed value NAME(…), of select class `declared`.
    template <class Declared>
    void select(Declared*& value, Need need, const ClassInfo& declared) {
        value = static_cast<Declared*>(readSelect(value, need, declared));
    }

    // Aggregates.
    void texts(Sequence<Text>& values, Need need);
    void binaries(Sequence<Binary>& values, Need need);
    void reals(Sequence<double>& values, Need need);
    void integers(Sequence<std::int64_t>& values, Need need);
    void logicals(Sequence<Logical>& values, Need need);
    void enumerations(Sequence<Enumeration>& values, Need need, const EnumerationInfo& type);
    void references(PointerSequence& values, Need need, const ClassInfo& declared);
    void selects(PointerSequence& values, Need need, const ClassInfo& declared);

    // Aggregates of aggregates.
    void textLists(Sequence<Sequence<Text>>& values, Need need);
    void realLists(Sequence<Sequence<double>>& values, Need need);
    void integerLists(Sequence<Sequence<std::int64_t>>& values, Need need);
    template <class Declared>
    void referenceLists(Sequence<References<Declared>>& values, Need need,
                        const ClassInfo& declared) {
        lists(values, need,
              [&](References<Declared>& inner) { references(inner, kMandatory, declared); });
    }
    template <class Declared>
    void selectLists(Sequence<References<Declared>>& values, Need need, const ClassInfo& declared) {
        lists(values, need,
              [&](References<Declared>& inner) { selects(inner, kMandatory, declared); });
    }

    /// To be called behind the record's opening bracket.
    void beginRecord();
    /// Takes what stands before the record's closing bracket, and the bracket. What the class has
    /// no attribute for is reported and skipped.
    /// @return whether the record was closed; false when the statement or the file ends first.
    bool endRecord();

    // What the record had, once it is ended. Places in the text are offsets into the tokenizer's
    // statement.

    struct TextRange {
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    /// Attributes asked for, and how many of these the record had.
    std::uint32_t attributesAsked() const { return asked_; }
    std::uint32_t attributesFound() const { return found_; }
    /// The text of the arguments behind the last attribute, with the `surplusCommas()` commas
    /// before them; empty when there are none.
    TextRange surplusArguments() const { return surplus_; }
    unsigned surplusCommas() const { return surplusCommas_; }
    /// An attribute that was not understood: its place in the record, and its text with the commas
    /// before it.
    struct DamagedAttribute {
        std::uint32_t place = 0;
        TextRange text;
    };
    /// In ascending order. One that the end of the statement or of the file cuts off is left out:
    /// written back, it would take in what follows it.
    std::span<const DamagedAttribute> damagedAttributes() const { return damaged_; }
    /// Places of attributes that were given as "*", of the first 64.
    std::uint64_t starredAttributes() const { return starred_; }

    /// For enumerations: reports a value that is not in the list.
    void unknownEnumerationValue(std::string_view enumerationName, std::string_view text);

private:
    template <class Element, class ReadInner>
    void lists(Sequence<Element>& values, Need need, ReadInner readInner) {
        if (!openList(values.present, need)) {
            values.count = 0;
            return;
        }
        std::vector<Element> read;
        while (moreInList()) {
            Element list = read.size() < values.count ? values.items[read.size()] : Element{};
            readInner(list);
            read.push_back(list);
        }
        keepList<Element>(values, read);
    }

    /// Notes that the current attribute was not understood. @return whether that is to be reported:
    /// once per attribute, in the first pass.
    bool damage();
    /// Begins the next attribute, or what stands inside a typed value: takes its first token.
    /// @return null when it is absent.
    const Token* first(Need need);
    const Token* firstOfAttribute();
    const Token* nextArgument();
    bool isEmptyArgument(const Token& next) const;
    const Token* nextInValue();
    const Token* behindGap(const Token* token);
    void giveBackEnd(const Token* end);
    /// Place in the statement's text behind the last token that was used.
    std::size_t textPosition() const;
    /// Reports `found` in place of `expected` and skips all that belongs to it.
    void wrongArgument(const char16_t* expected, const Token& found);
    void skipValue(const Token& first);
    void skipBrackets();

    bool openList(bool& present, Need need);
    const Token* nextInList();
    bool moreInList();
    template <class Element>
    void keepList(Sequence<Element>& values, std::span<const Element> read) {
        if (values.count != read.size()) {
            values.items =
                static_cast<Element*>(listMemory(read.size(), sizeof(Element), alignof(Element)));
            values.count = static_cast<std::uint32_t>(read.size());
        }
        std::copy(read.begin(), read.end(), values.items);
    }
    /// Room in the model's pool. Throws std::bad_alloc for more elements than a list can count.
    void* listMemory(std::size_t count, std::size_t elementBytes, std::size_t alignment);
    void keepPointers(PointerSequence& values, std::size_t begin);
    template <class Element, class ReadElement>
    void flatList(Sequence<Element>& values, Need need, const char16_t* expected,
                  ReadElement readElement);

    void* readReference(Need need, const ClassInfo& declared);
    void* readSelect(void* previous, Need need, const ClassInfo& declared);
    void* bind(std::int64_t number, const ClassInfo& declared);
    void* typedValue(const Token& name, void* previous, const ClassInfo& declared);
    const Token& withoutPlus(const Token& token);
    bool readNumber(const Token& first, double& value);
    bool readInteger(const Token& first, std::int64_t& value);
    bool readText(const Token& token, Text& value);
    bool readLogical(const Token& token, Logical& value);

    Tokenizer& tokenizer_;
    ReadContext& context_;
    std::uint32_t asked_ = 0;
    std::uint32_t found_ = 0;
    bool ended_ = false;           // the record has no more arguments
    bool cut_ = false;             // the statement ended inside brackets
    std::uint32_t attribute_ = 0;  // place of the current one in the record
    std::size_t argumentBegin_ =
        0;  // of the last argument begun in the statement's text, its comma included
    std::size_t attributeBegin_ = 0;  // the same of the current attribute
    unsigned emptyArguments_ =
        0;  // empty ones in front of the pending token, as far as they were given
    TextRange surplus_;
    unsigned surplusCommas_ = 0;
    std::vector<DamagedAttribute> damaged_;
    std::uint64_t starred_ = 0;
    unsigned depth_ = 0;  // of aggregates and typed values; bounded by the schema
    std::vector<double> realScratch_;
    std::vector<void*>
        pointerScratch_;  // a stack: lists may stand inside typed values inside lists
};

}  // namespace IFC
