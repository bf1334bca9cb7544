#include "standin/desktop/property_panel.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <optional>

#include "standin/desktop/desktop_texts.h"
#include "standin/desktop/marks.h"
#include "standin/desktop/qt_text.h"

namespace standin {
namespace {

enum Column { kNameColumn, kValueColumn, kUnitColumn, kChangeColumn, kColumns };

/// Widths of the columns in letters.
constexpr int kNameLetters = 30;
constexpr int kUnitLetters = 16;
constexpr int kChangeLetters = 12;
constexpr int kLeastLetters = 8;

/// Where a row is: of a set its number, of a property also its own.
constexpr int kSetRole = Qt::UserRole;
constexpr int kPropertyRole = Qt::UserRole + 1;
constexpr int kNoProperty = -1;

void setMark(QTreeWidgetItem& item, Mark mark, const std::u16string& was, const QPalette& palette) {
    if (mark == Mark::None)
        return;
    item.setText(kChangeColumn, captionOf(mark));
    for (int column = 0; column < kColumns; ++column) {
        item.setForeground(column, colorOf(mark, palette));
        QFont font = item.font(column);
        font.setStrikeOut(mark == Mark::Deleted && column != kChangeColumn);
        item.setFont(column, font);
        item.setToolTip(column, asToolTip(toolTipOf(mark, toQString(was))));
    }
}

QTreeWidgetItem* itemOf(const ShownProperty& property, int set, int place,
                        const QPalette& palette) {
    auto* const item =
        new QTreeWidgetItem({toQString(property.name).simplified(),
                             toQString(property.value).simplified(), toQString(property.unit)});
    for (int column = 0; column < kColumns; ++column) {
        const QString type =
            toQString(texts::kTypeToolTip).arg(item->text(column), toQString(property.type));
        item->setToolTip(column, asToolTip(property.type.empty() ? item->text(column) : type));
    }
    item->setData(0, kSetRole, set);
    item->setData(0, kPropertyRole, place);
    setMark(*item, property.mark, property.was, palette);
    return item;
}

/// What tells a row from others when all are made anew.
struct RowName {
    std::u16string setGuid;
    std::u16string setName;
    std::u16string property;

    bool operator==(const RowName&) const = default;
};

}  // namespace

PropertyPanel::PropertyPanel(QWidget* parent) : QWidget(parent) {
    head_ = new QLabel;
    head_->setObjectName(QStringLiteral("propertyHead"));
    QFont font = head_->font();
    font.setBold(true);
    head_->setFont(font);
    detail_ = new QLabel;
    detail_->setObjectName(QStringLiteral("propertyDetail"));
    detail_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    note_ = new QLabel;
    note_->setObjectName(QStringLiteral("propertyNote"));
    for (QLabel* const label : {head_, detail_, note_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }

    tree_ = new QTreeWidget;
    tree_->setObjectName(QStringLiteral("propertyTree"));
    tree_->setAccessibleName(toQString(texts::kPropertyTree));
    tree_->setHeaderLabels({toQString(texts::kPropertyColumn), toQString(texts::kValueColumn),
                            toQString(texts::kUnitColumn), toQString(texts::kChangeColumn)});
    const int letter = fontMetrics().averageCharWidth();
    tree_->header()->setStretchLastSection(false);
    tree_->header()->setSectionResizeMode(kValueColumn, QHeaderView::Stretch);
    tree_->header()->resizeSection(kNameColumn, kNameLetters * letter);
    tree_->header()->resizeSection(kUnitColumn, kUnitLetters * letter);
    tree_->header()->resizeSection(kChangeColumn, kChangeLetters * letter);
    tree_->header()->setMinimumSectionSize(kLeastLetters * letter);
    tree_->setUniformRowHeights(true);
    tree_->setAlternatingRowColors(true);
    tree_->setExpandsOnDoubleClick(false);  // asks to edit
    tree_->setContextMenuPolicy(Qt::CustomContextMenu);
    emptyNote_ = new EmptyNote({}, tree_);  // the tree's

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(head_);
    layout->addWidget(detail_);
    layout->addWidget(note_);
    addRequest(kHostAskEditProperty, false, texts::kEdit, texts::kEditHint, Qt::Key_F2,
               "requestEdit");
    addRequest(kHostAskAddProperty, false, texts::kAddProperty, texts::kAddPropertyHint,
               Qt::Key_Insert, "requestAddProperty");
    addRequest(kHostAskAddProperty, true, texts::kAddQuantity, texts::kAddQuantityHint,
               QKeySequence(QStringLiteral("Shift+Ins")), "requestAddQuantity");
    addRequest(kHostAskDeleteProperty, false, texts::kDelete, texts::kDeleteHint, Qt::Key_Delete,
               "requestDelete");
    addRequest(kHostAskRenameSet, false, texts::kRenameSet, texts::kRenameSetHint,
               QKeySequence(QStringLiteral("Shift+F2")), "requestRenameSet");
    addRequest(kHostAskDeleteSet, false, texts::kDeleteSet, texts::kDeleteSetHint,
               QKeySequence(QStringLiteral("Shift+Del")), "requestDeleteSet");
    addToolBar();
    layout->addWidget(tree_);

    connect(tree_, &QTreeWidget::currentItemChanged, this, &PropertyPanel::enableRequests);
    connect(tree_, &QTreeWidget::itemDoubleClicked, this, &PropertyPanel::askDefault);
    connect(tree_, &QTreeWidget::customContextMenuRequested, this, [this](const QPoint& position) {
        emit menuWanted(tree_->viewport()->mapToGlobal(position));
    });
    show(nullptr, 0);
}

void PropertyPanel::addRequest(HostChangeAction action, bool asQuantity, std::u16string_view text,
                               std::u16string_view hint, const QKeySequence& key,
                               const char* name) {
    auto* const request = new QAction(asCaption(text), this);
    request->setObjectName(QLatin1String(name));
    request->setShortcut(key);
    request->setShortcutContext(Qt::WidgetShortcut);
    request->setToolTip(
        asToolTip(toQString(texts::kHintWithKey)
                      .arg(toQString(hint), key.toString(QKeySequence::NativeText))));
    request->setData(static_cast<int>(action));
    connect(request, &QAction::triggered, this,
            [this, action, asQuantity] { ask(action, asQuantity); });
    tree_->addAction(request);
    requests_.push_back(request);
}

void PropertyPanel::addToolBar() {
    auto* const bar = new QToolBar;  // has a list for what finds no place
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    for (QAction* const request : requests_) {
        bar->addAction(request);
        bar->widgetForAction(request)->setFocusPolicy(Qt::TabFocus);
    }
    layout()->addWidget(bar);
}

void PropertyPanel::showHead(const Object* first, std::size_t selectedCount) {
    head_->setVisible(first);
    detail_->setVisible(first);
    note_->setVisible(first && selectedCount > 1);
    emptyNote_->setText(toQString(first ? texts::kNoPropertiesNote : texts::kNothingSelectedNote));
    if (!first)
        return;
    const QString name = toQString(first->name).simplified();
    const QString number = QLatin1Char('#') + QString::number(first->instanceNumber);
    head_->setText(name.isEmpty() ? number : name);
    detail_->setText(toQString(texts::kObjectDetail)
                         .arg(toQString(first->entityName), number, toQString(first->guid)));
    note_->setText(toQString(texts::kSeveralSelected).arg(selectedCount));
}

void PropertyPanel::show(const Object* first, std::size_t selectedCount) {
    showHead(first, selectedCount);
    isReadOnly_ = selectedCount != 1;
    const bool isSameObject = first && first->id == object_;
    object_ = first ? first->id : 0;
    const auto nameOf = [this](const QTreeWidgetItem* item) -> std::optional<RowName> {
        if (!item)
            return std::nullopt;
        const ShownSet& set = sets_[item->data(0, kSetRole).toUInt()];
        const int property = item->data(0, kPropertyRole).toInt();
        return RowName{set.guid, set.guid.empty() ? set.name : std::u16string(),
                       property == kNoProperty
                           ? std::u16string()
                           : set.properties[static_cast<std::size_t>(property)].name};
    };
    std::optional<RowName> current = isSameObject ? nameOf(tree_->currentItem()) : std::nullopt;
    std::vector<RowName> closed;
    for (int at = 0; isSameObject && at < tree_->topLevelItemCount(); ++at)
        if (!tree_->topLevelItem(at)->isExpanded())
            closed.push_back(*nameOf(tree_->topLevelItem(at)));
    const int scrolled = isSameObject ? tree_->verticalScrollBar()->value() : 0;

    sets_ = first ? shownSets(first->display) : std::vector<ShownSet>();
    fill();

    for (int at = 0; at < tree_->topLevelItemCount(); ++at) {
        QTreeWidgetItem* const set = tree_->topLevelItem(at);
        for (const RowName& name : closed)
            set->setExpanded(set->isExpanded() && *nameOf(set) != name);
        if (current && *nameOf(set) == *current)
            tree_->setCurrentItem(set);
        for (int row = 0; current && row < set->childCount(); ++row)
            if (*nameOf(set->child(row)) == *current)
                tree_->setCurrentItem(set->child(row));
    }
    tree_->verticalScrollBar()->setValue(scrolled);
    enableRequests();
}

void PropertyPanel::fill() {
    tree_->clear();
    QList<QTreeWidgetItem*> items;
    for (const ShownSet& set : sets_) {
        auto* const item = new QTreeWidgetItem({toQString(set.name).simplified()});
        const int number = items.size();
        item->setData(0, kSetRole, number);
        item->setData(0, kPropertyRole, kNoProperty);
        QFont font = item->font(kNameColumn);
        font.setBold(true);
        for (int column = 0; column < kColumns; ++column)
            item->setFont(column, font);
        item->setToolTip(
            0, asToolTip(toQString(texts::kTypeToolTip).arg(item->text(0), toQString(set.type))));
        setMark(*item, set.mark, set.was, palette());
        for (std::size_t place = 0; place < set.properties.size(); ++place)
            item->addChild(
                itemOf(set.properties[place], number, static_cast<int>(place), palette()));
        items.push_back(item);
    }
    tree_->addTopLevelItems(items);
    // The name of a set may take the room of what sets do not have.
    for (QTreeWidgetItem* const item : items)
        item->setFirstColumnSpanned(item->text(kChangeColumn).isEmpty());
    tree_->expandAll();
}

const ShownSet* PropertyPanel::currentSet() const {
    const QTreeWidgetItem* const item = tree_->currentItem();
    return item ? &sets_[item->data(0, kSetRole).toUInt()] : nullptr;
}

const ShownProperty* PropertyPanel::currentProperty() const {
    const ShownSet* const set = currentSet();
    const int place = set ? tree_->currentItem()->data(0, kPropertyRole).toInt() : kNoProperty;
    return place == kNoProperty ? nullptr : &set->properties[static_cast<std::size_t>(place)];
}

bool PropertyPanel::isPossible(HostChangeAction action) const {
    const ShownSet* const set = currentSet();
    if (isReadOnly_ || !set || set->mark == Mark::Deleted)
        return false;
    const ShownProperty* const property = currentProperty();
    if (action != kHostAskEditProperty && action != kHostAskDeleteProperty)
        return true;
    // On a set these two mean the set.
    return !property || property->mark != Mark::Deleted;
}

void PropertyPanel::enableRequests() {
    for (QAction* const request : requests_)
        request->setEnabled(isPossible(static_cast<HostChangeAction>(request->data().toInt())));
}

void PropertyPanel::askDefault() {
    if (isPossible(kHostAskEditProperty))
        ask(kHostAskEditProperty, false);
}

void PropertyPanel::ask(HostChangeAction action, bool asQuantity) {
    if (!isPossible(action))
        return;
    const ShownSet& set = *currentSet();
    const ShownProperty* const property = currentProperty();
    PropertyRequest request{.action = action,
                            .setName = set.name,
                            .setGuid = set.guid,
                            .propertyName = {},
                            .asQuantity = asQuantity};
    if (!property && action == kHostAskEditProperty)
        request.action = kHostAskRenameSet;
    if (!property && action == kHostAskDeleteProperty)
        request.action = kHostAskDeleteSet;
    const bool isOfSet = request.action == kHostAskRenameSet || request.action == kHostAskDeleteSet;
    if (property && !isOfSet)
        request.propertyName = property->name;
    // A property is added at a row; on the set itself that is its first.
    if (action == kHostAskAddProperty && (!property || property->mark == Mark::Deleted)) {
        request.propertyName.clear();
        for (const ShownProperty& row : set.properties)
            if (row.mark != Mark::Deleted && request.propertyName.empty())
                request.propertyName = row.name;
    }
    emit requested(request);
}

}  // namespace standin
