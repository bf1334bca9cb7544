// Text of exchange file instances, put together in batches.
//
// One instance is one line "#12= IFCWALL('guid',#5,...);". An instance may refer to others of its
// batch that have no number yet: numbers are given when the batch is written, in the order in which
// its lines stand in the file. So the same content can be written with the referred instances
// before or behind those that refer to them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

/// Reference to an instance: a number that is already written, or a place in the current batch.
struct Ref {
    std::int64_t value = 0;  // > 0: instance number; <= 0: negated index in the batch
};

/// "$".
struct Absent {};
inline constexpr Absent kAbsent;

/// Text in quotes. The view holds what stands between them, escapes included; it is not checked.
struct Text {
    std::string_view encoded;
};

/// Anything that is written as it stands: enumerations, truth values, "*".
struct Raw {
    std::string_view text;
};

struct Integer {
    std::int64_t value;
};

/// A real number in fixed point, written without trailing zeros: {1250, 3} is "1.25" and {5000, 3}
/// is "5.".
struct Decimal {
    std::int64_t value;
    int decimals;  // 0 to 13
};

/// A value with its type: IFCLABEL('...').
template <class Value>
struct Typed {
    std::string_view type;
    Value value;
};
template <class Value>
Typed(std::string_view, Value) -> Typed<Value>;

/// How many instances and bytes were written, and how many of the instances refer to one further
/// down.
struct WrittenCounts {
    std::int64_t bytes = 0;
    std::int64_t instances = 0;
    std::int64_t forward = 0;
    std::int64_t largestNumber = 0;

    void add(const WrittenCounts& other);
};

/// Gives out instance numbers in file order: 1, 2, 3, … or with gaps.
class Numbering {
public:
    explicit Numbering(bool withGaps) : withGaps_(withGaps) {}

    /// Every number is given once; all are from 1 to 2^31-1.
    std::int64_t next();

private:
    bool withGaps_;
    std::int64_t given_ = 0;
    std::int64_t scattered_ = 0;
    std::int64_t block_ = 0;
    std::int64_t inBlock_ = 0;
};

enum class LineOrder {
    kReferredFirst,  // as most programs write: no instance refers to a later line
    kReferredLast,   // users of an instance first, instances without references at the end of the
                     // batch
};

class Batch {
public:
    /// Appends one instance. Arguments: the types above, vectors of them (lists) and optionals; an
    /// empty optional is an attribute that the schema release does not have.
    template <class... Args>
    Ref add(std::string_view type, const Args&... args) {
        const Ref ref = begin(type);
        (appendArgument(args), ...);
        end();
        return ref;
    }

    std::size_t size() const { return instances_.size(); }

    /// Bytes that the batch will take in the file, within a few percent.
    std::int64_t estimatedBytes() const;

    /// Writes and numbers all instances. The batch must be cleared before it is filled again.
    WrittenCounts write(std::ostream& out, Numbering& numbering, LineOrder order);

    /// The number that write() gave to an instance of this batch. Valid until clear().
    Ref numbered(Ref ref) const;

    void clear();

private:
    /// A place in text_ where the number of another instance of the batch is missing.
    struct Hole {
        std::size_t offset;
        std::uint32_t target;
    };
    struct Instance {
        std::size_t textEnd;
        std::size_t holesEnd;
    };

    Ref begin(std::string_view type);
    void end();

    template <class Value>
    void appendArgument(const Value& value) {
        separate();
        append(value);
    }
    template <class Value>
    void appendArgument(const std::optional<Value>& value) {
        if (value)
            appendArgument(*value);
    }
    void separate();
    void append(Ref ref);
    void append(Absent) { text_.push_back('$'); }
    void append(Text text);
    void append(Raw raw) { text_.append(raw.text); }
    void append(Integer integer);
    void append(Decimal decimal);
    template <class Value>
    void append(const Typed<Value>& typed) {
        text_.append(typed.type);
        text_.push_back('(');
        append(typed.value);
        text_.push_back(')');
    }
    template <class Value>
    void append(const std::vector<Value>& list) {
        text_.push_back('(');
        for (std::size_t i = 0; i < list.size(); ++i) {
            if (i != 0)
                text_.push_back(',');
            append(list[i]);
        }
        text_.push_back(')');
    }

    std::size_t textBegin(std::size_t instance) const;
    std::size_t holesBegin(std::size_t instance) const;
    std::vector<std::uint32_t> lines(LineOrder order) const;

    std::string text_;  // "IFCWALL('guid',,...)" without the numbers, which holes_ lists in
                        // ascending order of offset
    std::vector<Hole> holes_;
    std::vector<Instance> instances_;
    std::vector<std::int64_t> numbers_;  // by index in the batch, after write()
    bool first_ = true;                  // no argument of the current instance was written yet
};

}  // namespace bench
