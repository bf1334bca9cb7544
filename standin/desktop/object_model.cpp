#include "standin/desktop/object_model.h"

#include <algorithm>

#include "standin/core/disk.h"
#include "standin/desktop/desktop_texts.h"
#include "standin/desktop/qt_text.h"

namespace standin {
namespace {

QString numberOf(const Object& object) {
    return QLatin1Char('#') + QString::number(object.instanceNumber);
}

QString toolTipOf(const Object& object) {
    return toQString(object.entityName) + QLatin1Char(' ') + numberOf(object) +
           (object.name.empty() ? QString() : QLatin1Char('\n') + toQString(object.name)) +
           (object.guid.empty() ? QString() : QLatin1Char('\n') + toQString(object.guid));
}

}  // namespace

ObjectModel::ObjectModel(const Objects& objects, QObject* parent)
    : QAbstractItemModel(parent), objects_(objects) {
    rebuild();
}

void ObjectModel::rebuild() {
    beginResetModel();
    nodes_.assign(1, Node());
    nodeOfId_.clear();
    for (const LoadedFile& file : objects_.files()) {
        const auto number = static_cast<NodeNumber>(nodes_.size());
        nodes_.push_back({.file = &file, .children = {}, .shown = {}});
        nodes_[kRoot].children.push_back(number);
        addChildren(number, file.id);
    }
    letThrough();
    endResetModel();
}

void ObjectModel::addChildren(NodeNumber parent, HostObjectId id) {
    // Level by level, without recursion: a file may nest objects as deep as it likes.
    std::vector<std::pair<NodeNumber, HostObjectId>> waiting = {{parent, id}};
    for (std::size_t at = 0; at < waiting.size(); ++at) {
        const auto [above, aboveId] = waiting[at];
        for (const HostObjectId child : objects_.children(aboveId)) {
            const auto number = static_cast<NodeNumber>(nodes_.size());
            nodes_.push_back(
                {.object = objects_.find(child), .parent = above, .children = {}, .shown = {}});
            nodes_[above].children.push_back(number);
            nodeOfId_.emplace(child, number);
            waiting.emplace_back(number, child);
        }
    }
}

void ObjectModel::setFilter(const QString& text) {
    const QString trimmed = text.trimmed();
    if (trimmed == filter_)
        return;
    beginResetModel();
    filter_ = trimmed;
    letThrough();
    endResetModel();
}

bool ObjectModel::matches(const Object& object) const {
    for (const std::u16string* text : {&object.name, &object.entityName})
        if (toQString(*text).contains(filter_, Qt::CaseInsensitive))
            return true;
    // GUIDs tell capitals from small letters.
    return toQString(object.guid).contains(filter_) || numberOf(object) == filter_;
}

void ObjectModel::letThrough() {
    matchCount_ = 0;
    for (Node& node : nodes_) {
        node.isLetThrough = filter_.isEmpty() || (node.object && matches(*node.object));
        matchCount_ += node.isLetThrough && node.object ? 1 : 0;
        node.shown.clear();
    }
    // Those below come later in the list: from its end on, what is let through takes along what is
    // above it.
    for (NodeNumber number = static_cast<NodeNumber>(nodes_.size()); --number > kRoot;)
        if (nodes_[number].isLetThrough)
            nodes_[nodes_[number].parent].isLetThrough = true;
    for (NodeNumber number = 1; number < nodes_.size(); ++number) {
        if (!nodes_[number].isLetThrough)
            continue;
        std::vector<NodeNumber>& siblings = nodes_[nodes_[number].parent].shown;
        nodes_[number].row = static_cast<int>(siblings.size());
        siblings.push_back(number);
    }
}

ObjectModel::NodeNumber ObjectModel::nodeOf(const QModelIndex& index) const {
    return index.isValid() ? static_cast<NodeNumber>(index.internalId()) : kRoot;
}

QModelIndex ObjectModel::indexOfNode(NodeNumber node, int column) const {
    return node == kRoot ? QModelIndex() : createIndex(nodes_[node].row, column, quintptr{node});
}

const Object* ObjectModel::objectAt(const QModelIndex& index) const {
    return nodes_[nodeOf(index)].object;
}

QModelIndex ObjectModel::indexOf(HostObjectId id) const {
    const auto found = nodeOfId_.find(id);
    if (found == nodeOfId_.end() || !nodes_[found->second].isLetThrough)
        return {};
    return indexOfNode(found->second);
}

QItemSelection ObjectModel::selectionOf(const std::vector<HostObjectId>& ids) const {
    std::vector<NodeNumber> chosen;
    chosen.reserve(ids.size());
    for (const HostObjectId id : ids) {
        const auto found = nodeOfId_.find(id);
        if (found != nodeOfId_.end() && nodes_[found->second].isLetThrough)
            chosen.push_back(found->second);
    }
    // Neighbours become one range: views are slow with many.
    std::sort(chosen.begin(), chosen.end(), [this](NodeNumber a, NodeNumber b) {
        return std::pair(nodes_[a].parent, nodes_[a].row) <
               std::pair(nodes_[b].parent, nodes_[b].row);
    });
    QItemSelection selection;
    for (std::size_t begin = 0; begin < chosen.size();) {
        std::size_t end = begin + 1;
        while (end < chosen.size() && nodes_[chosen[end]].parent == nodes_[chosen[begin]].parent &&
               nodes_[chosen[end]].row <= nodes_[chosen[end - 1]].row + 1)
            ++end;
        selection.append({indexOfNode(chosen[begin], kName), indexOfNode(chosen[end - 1], kType)});
        begin = end;
    }
    return selection;
}

std::vector<HostObjectId> ObjectModel::idsIn(const QItemSelection& selection) const {
    std::vector<NodeNumber> chosen;
    for (const QItemSelectionRange& range : selection) {
        if (range.left() > kName)
            continue;
        const std::vector<NodeNumber>& siblings = nodes_[nodeOf(range.parent())].shown;
        for (int row = range.top(); row <= range.bottom(); ++row)
            if (const NodeNumber node = siblings[static_cast<std::size_t>(row)];
                nodes_[node].object)
                chosen.push_back(node);
    }
    std::sort(chosen.begin(), chosen.end());
    std::vector<HostObjectId> ids;
    ids.reserve(chosen.size());
    for (const NodeNumber node : chosen)
        ids.push_back(nodes_[node].object->id);
    return ids;
}

std::vector<HostObjectId> ObjectModel::idsOfType(const std::u16string& entityName) const {
    std::vector<HostObjectId> ids;
    for (const Node& node : nodes_)
        if (node.isLetThrough && node.object && node.object->entityName == entityName)
            ids.push_back(node.object->id);
    return ids;
}

QModelIndex ObjectModel::index(int row, int column, const QModelIndex& parent) const {
    const std::vector<NodeNumber>& siblings = nodes_[nodeOf(parent)].shown;
    if (row < 0 || static_cast<std::size_t>(row) >= siblings.size() || column < 0 ||
        column >= kColumnCount)
        return {};
    return createIndex(row, column, quintptr{siblings[static_cast<std::size_t>(row)]});
}

QModelIndex ObjectModel::parent(const QModelIndex& index) const {
    return indexOfNode(nodes_[nodeOf(index)].parent);
}

int ObjectModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > kName ? 0 : static_cast<int>(nodes_[nodeOf(parent)].shown.size());
}

int ObjectModel::columnCount(const QModelIndex&) const { return kColumnCount; }

QVariant ObjectModel::data(const QModelIndex& index, int role) const {
    const Node& node = nodes_[nodeOf(index)];
    if (!node.object) {
        if (!node.file)
            return {};
        if (role == Qt::ToolTipRole)
            return asToolTip(toQString(node.file->path));
        return role == Qt::DisplayRole && index.column() == kName
                   ? QVariant(toQString(fileNameOf(node.file->path)))
                   : QVariant();
    }
    const Object& object = *node.object;
    switch (role) {
        case Qt::DisplayRole:
            if (index.column() == kType)
                return toQString(object.entityName);
            return object.name.empty() ? numberOf(object) : toQString(object.name).simplified();
        case Qt::ToolTipRole: return asToolTip(toolTipOf(object));
        default: return {};
    }
}

QVariant ObjectModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return toQString(section == kName ? texts::kObjectColumn : texts::kTypeColumn);
}

Qt::ItemFlags ObjectModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    return objectAt(index) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::ItemIsEnabled;
}

}  // namespace standin
