#pragma once

#include <QAbstractItemModel>
#include <QItemSelection>
#include <QString>
#include <unordered_map>
#include <vector>

#include "standin/core/objects.h"

namespace standin {

/// The files with the spatial tree of each. What a filter lets through is there with all that is
/// above it.
class ObjectModel : public QAbstractItemModel {
public:
    enum Column { kName, kType, kColumnCount };

    /// objects: borrowed.
    explicit ObjectModel(const Objects& objects, QObject* parent = nullptr);

    /// To be called when objects came or went, before anything else looks at the model.
    void rebuild();
    /// Lets through what has the text in its name, entity or GUID, or is all of it; an empty one
    /// lets all through.
    void setFilter(const QString& text);
    const QString& filter() const { return filter_; }
    /// How many objects the filter lets through for themselves.
    int matchCount() const { return matchCount_; }

    /// Null for files.
    const Object* objectAt(const QModelIndex& index) const;
    /// Invalid for what is not there, or not let through.
    QModelIndex indexOf(HostObjectId id) const;
    /// Those of the ids that are let through.
    QItemSelection selectionOf(const std::vector<HostObjectId>& ids) const;
    /// Parents before their children.
    std::vector<HostObjectId> idsIn(const QItemSelection& selection) const;
    /// All objects with that entity that are let through.
    std::vector<HostObjectId> idsOfType(const std::u16string& entityName) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    using NodeNumber = std::uint32_t;
    static constexpr NodeNumber kRoot = 0;

    struct Node {
        const Object* object = nullptr;  // null for files
        const LoadedFile* file = nullptr;
        NodeNumber parent = kRoot;
        int row = 0;  // among the children of its parent that are let through
        bool isLetThrough = true;
        std::vector<NodeNumber> children;
        std::vector<NodeNumber> shown;  // the children that are let through
    };

    NodeNumber nodeOf(const QModelIndex& index) const;
    QModelIndex indexOfNode(NodeNumber node, int column = kName) const;
    void addChildren(NodeNumber parent, HostObjectId id);
    void letThrough();
    bool matches(const Object& object) const;

    const Objects& objects_;
    std::vector<Node> nodes_;  // parents before their children; the first is the root
    std::unordered_map<HostObjectId, NodeNumber> nodeOfId_;
    QString filter_;
    int matchCount_ = 0;
};

}  // namespace standin
