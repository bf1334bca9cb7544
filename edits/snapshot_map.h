#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace IFC {

/// A map from instance numbers to values, in ascending order, whose copies share what they have in
/// common: a copy costs a pointer, and a change afterwards costs the changed value and the few
/// nodes on its way. A value is copied when it is handed out for writing while another map shares
/// it, so that no map sees what is written through another one.
///
/// A radix tree: each level tells six bits of the number, a node holds only the children that there
/// are.
template <class Value>
class SnapshotMap {
public:
    using Entry = std::pair<const std::int32_t, Value>;

    /// Reads in order; valid until the map is changed.
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Entry;
        using difference_type = std::ptrdiff_t;
        using pointer = const Entry*;
        using reference = const Entry&;

        Iterator() = default;
        reference operator*() const { return *entry_; }
        pointer operator->() const { return entry_; }
        Iterator& operator++() {
            entry_ = map_->firstFrom(positionOf(entry_->first) + 1);
            return *this;
        }
        Iterator operator++(int) {
            const Iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Iterator&) const = default;

    private:
        friend SnapshotMap;
        Iterator(const SnapshotMap* map, const Entry* entry) : map_(map), entry_(entry) {}

        const SnapshotMap* map_ = nullptr;
        const Entry* entry_ = nullptr;  // null: the end
    };

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    Iterator begin() const { return {this, firstFrom(0)}; }
    Iterator end() const { return {this, nullptr}; }

    /// Null when there is none.
    const Value* find(std::int32_t number) const {
        const Entry* entry = firstFrom(positionOf(number));
        return entry && entry->first == number ? &entry->second : nullptr;
    }
    /// There must be one.
    const Value& at(std::int32_t number) const { return *find(number); }

    /// The value for writing, made when there is none. Write through it before the map is copied
    /// again.
    Value& operator[](std::int32_t number) {
        if (!root_)
            root_ = std::make_shared<Node>();
        std::shared_ptr<Node>* place = &root_;
        for (int shift = kTopShift;; shift -= kBitsPerLevel) {
            Node& node = own(*place);
            const unsigned digit = digitOf(positionOf(number), shift);
            const auto index = static_cast<std::ptrdiff_t>(indexOf(node, digit));
            const bool isThere = (node.occupied >> digit & 1) != 0;
            if (shift == 0) {
                if (!isThere) {
                    node.entries.insert(node.entries.begin() + index,
                                        std::make_shared<Entry>(number, Value()));
                    node.occupied |= std::uint64_t{1} << digit;
                    ++size_;
                }
                return own(node.entries[static_cast<std::size_t>(index)]).second;
            }
            if (!isThere) {
                node.nodes.insert(node.nodes.begin() + index, std::make_shared<Node>());
                node.occupied |= std::uint64_t{1} << digit;
            }
            place = &node.nodes[static_cast<std::size_t>(index)];
        }
    }
    /// The same, but null when there is none.
    Value* findForWriting(std::int32_t number) { return find(number) ? &(*this)[number] : nullptr; }

    bool operator==(const SnapshotMap& other) const {
        return size_ == other.size_ && (size_ == 0 || isSame(root_, other.root_));
    }

private:
    static constexpr int kBitsPerLevel = 6;
    static constexpr int kTopShift = 30;  // six levels for 32 bits

    struct Node {
        std::uint64_t occupied = 0;                   // a bit for each child
        std::vector<std::shared_ptr<Node>> nodes;     // the children, or
        std::vector<std::shared_ptr<Entry>> entries;  // on the lowest level
    };

    /// Orders as the numbers do, negative ones too.
    static constexpr std::uint64_t positionOf(std::int32_t number) {
        return static_cast<std::uint32_t>(number) ^ 0x80000000U;
    }
    static constexpr unsigned digitOf(std::uint64_t position, int shift) {
        return static_cast<unsigned>(position >> shift & 63);
    }
    static std::size_t indexOf(const Node& node, unsigned digit) {
        const std::uint64_t below = (std::uint64_t{1} << digit) - 1;
        return static_cast<std::size_t>(std::popcount(node.occupied & below));
    }

    template <class Shared>
    static Shared& own(std::shared_ptr<Shared>& shared) {
        if (shared.use_count() > 1)
            shared = std::make_shared<Shared>(*shared);
        return *shared;
    }

    /// The entry at `position` or the next one behind it.
    const Entry* firstFrom(std::uint64_t position) const {
        return root_ ? firstFrom(*root_, kTopShift, position) : nullptr;
    }
    static const Entry* firstFrom(const Node& node, int shift, std::uint64_t position) {
        const unsigned first = digitOf(position, shift);
        std::uint64_t rest = node.occupied & (~std::uint64_t{0} << first);
        for (; rest != 0; rest &= rest - 1) {
            const auto digit = static_cast<unsigned>(std::countr_zero(rest));
            const std::size_t index = indexOf(node, digit);
            if (shift == 0)
                return node.entries[index].get();
            const Entry* found =
                firstFrom(*node.nodes[index], shift - kBitsPerLevel, digit == first ? position : 0);
            if (found)
                return found;
        }
        return nullptr;
    }

    static bool isSame(const std::shared_ptr<Node>& a, const std::shared_ptr<Node>& b) {
        if (a == b)
            return true;
        if (a->occupied != b->occupied)
            return false;
        for (std::size_t index = 0; index < a->nodes.size(); ++index)
            if (!isSame(a->nodes[index], b->nodes[index]))
                return false;
        for (std::size_t index = 0; index < a->entries.size(); ++index)
            if (a->entries[index] != b->entries[index] && *a->entries[index] != *b->entries[index])
                return false;
        return true;
    }

    std::shared_ptr<Node> root_;
    std::size_t size_ = 0;
};

}  // namespace IFC
