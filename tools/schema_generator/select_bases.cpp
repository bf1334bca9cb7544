#include "tools/schema_generator/select_bases.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

namespace schema_generator {

namespace {

/// Bounds the work for one class; real schemas stay below ten.
constexpr std::size_t kMaximumReached = 64;

/// A declaration that can have selects as bases: itself one, an entity, a defined type or an
/// enumeration.
struct Node {
    const void* declaration = nullptr;
    std::string_view name;
    int line = 1;
    const EntityType* supertype = nullptr;
    const SelectType* select = nullptr;  // when it is a select itself
    std::vector<SelectBase>* bases = nullptr;
};

/// How often the parts of an object of one class are there.
struct Parts {
    std::unordered_map<const SelectType*, unsigned> own;  // through bases that are not virtual
    std::set<const SelectType*> shared;                   // virtual bases
};

class SelectBases {
public:
    SelectBases(Schema& schema, DiagnosticList& diagnostics)
        : schema_(schema), diagnostics_(diagnostics) {}

    void settle();

private:
    template <class Type>
    void addAll(const std::vector<std::unique_ptr<Type>>& types);
    bool orderBasesFirst();
    bool collectReached();
    void dropRedundant(Node& node);
    std::set<const SelectType*> selectsThereTwice();
    static void addPart(Parts& parts, const SelectType* part, const Parts& of);

    Schema& schema_;
    DiagnosticList& diagnostics_;
    std::vector<Node> nodes_;  // every node behind its supertype and its bases
    std::unordered_map<const void*, std::set<const SelectType*>> reached_;  // by declaration
};

template <class Type>
void SelectBases::addAll(const std::vector<std::unique_ptr<Type>>& types) {
    for (const auto& type : types) {
        Node node{.declaration = type.get(), .name = type->name, .line = type->line};
        node.bases = &type->bases;
        if constexpr (std::is_same_v<Type, EntityType>)
            node.supertype = type->supertype;
        if constexpr (std::is_same_v<Type, SelectType>)
            node.select = type.get();
        nodes_.push_back(node);
    }
}

/// @return false, with a complaint, when selects list each other in a circle.
bool SelectBases::orderBasesFirst() {
    std::unordered_map<const void*, std::size_t> indices;
    for (std::size_t i = 0; i < nodes_.size(); ++i)
        indices[nodes_[i].declaration] = i;
    std::vector<std::size_t> waitingFor(nodes_.size(), 0);
    std::vector<std::vector<std::size_t>> derived(nodes_.size());
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        if (nodes_[i].supertype)
            derived[indices[nodes_[i].supertype]].push_back(i);
        for (const SelectBase& base : *nodes_[i].bases)
            derived[indices[base.select]].push_back(i);
        waitingFor[i] = nodes_[i].bases->size() + (nodes_[i].supertype ? 1 : 0);
    }
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        if (waitingFor[i] == 0)
            order.push_back(i);
    }
    for (std::size_t done = 0; done < order.size(); ++done) {
        for (const std::size_t i : derived[order[done]]) {
            if (--waitingFor[i] == 0)
                order.push_back(i);
        }
    }
    if (order.size() < nodes_.size()) {
        for (std::size_t i = 0; i < nodes_.size(); ++i) {
            if (waitingFor[i] > 0 && nodes_[i].select)
                diagnostics_.add(nodes_[i].line, "SELECT \"" + std::string(nodes_[i].name) +
                                                     "\" leads back to itself");
        }
        return false;
    }
    std::vector<Node> ordered;
    ordered.reserve(order.size());
    for (const std::size_t i : order)
        ordered.push_back(nodes_[i]);
    nodes_ = std::move(ordered);
    return true;
}

/// @return false, with a complaint, when there are too many.
bool SelectBases::collectReached() {
    for (const Node& node : nodes_) {
        std::set<const SelectType*>& reached = reached_[node.declaration];
        if (node.supertype)
            reached = reached_[node.supertype];
        for (const SelectBase& base : *node.bases) {
            reached.merge(std::set(reached_[base.select]));
            reached.insert(base.select);
            if (reached.size() > kMaximumReached) {
                diagnostics_.add(node.line,
                                 "too many selects list \"" + std::string(node.name) + "\"");
                return false;
            }
        }
    }
    return true;
}

void SelectBases::dropRedundant(Node& node) {
    const std::vector<SelectBase> listed = *node.bases;
    std::erase_if(*node.bases, [&](const SelectBase& base) {
        if (node.supertype && reached_[node.supertype].contains(base.select))
            return true;
        return std::any_of(listed.begin(), listed.end(), [&](const SelectBase& other) {
            return reached_[other.select].contains(base.select);
        });
    });
}

void SelectBases::addPart(Parts& parts, const SelectType* part, const Parts& of) {
    ++parts.own[part];
    for (const auto& [select, count] : of.own)
        parts.own[select] += count;
    parts.shared.insert(of.shared.begin(), of.shared.end());
}

/// The selects of which some class has two parts with the bases as they are, without those that
/// come twice only because another of them does.
std::set<const SelectType*> SelectBases::selectsThereTwice() {
    std::unordered_map<const void*, Parts> partsOf;
    std::set<const SelectType*> result;
    for (const Node& node : nodes_) {
        Parts& parts = partsOf[node.declaration];
        if (node.supertype)
            parts = partsOf[node.supertype];
        for (const SelectBase& base : *node.bases) {
            const Parts& of = partsOf[base.select];
            if (base.isVirtual) {
                parts.shared.insert(base.select);
                parts.shared.insert(of.shared.begin(), of.shared.end());
            } else {
                addPart(parts, base.select, of);
            }
        }
        std::unordered_map<const SelectType*, unsigned> counts = parts.own;
        for (const SelectType* shared : parts.shared) {
            ++counts[shared];
            for (const auto& [select, count] : partsOf[shared].own)
                counts[select] += count;
        }
        for (const auto& [select, count] : counts) {
            const bool isOutermost =
                std::none_of(counts.begin(), counts.end(), [&, inner = select](const auto& other) {
                    return other.second > 1 && reached_[other.first].contains(inner);
                });
            if (count > 1 && isOutermost)
                result.insert(select);
        }
        // Two parts are enough to know; this keeps the numbers small.
        for (auto& [select, count] : parts.own)
            count = std::min(count, 2U);
    }
    return result;
}

void SelectBases::settle() {
    addAll(schema_.selects);
    addAll(schema_.definedTypes);
    addAll(schema_.enumerations);
    addAll(schema_.entities);
    if (!orderBasesFirst() || !collectReached())
        return;
    for (Node& node : nodes_)
        dropRedundant(node);
    for (std::set<const SelectType*> twice; twice = selectsThereTwice(), !twice.empty();) {
        for (const Node& node : nodes_) {
            for (SelectBase& base : *node.bases)
                base.isVirtual = base.isVirtual || twice.contains(base.select);
        }
    }
}

}  // namespace

void settleSelectBases(Schema& schema, DiagnosticList& diagnostics) {
    SelectBases(schema, diagnostics).settle();
}

}  // namespace schema_generator
