#include "standin/desktop/object_panel.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "standin/desktop/desktop_texts.h"
#include "standin/desktop/qt_text.h"

namespace standin {
namespace {

/// From the last key on, so that a word is searched for and not each of its letters.
constexpr int kSearchDelayMs = 150;
/// File, project, site and building.
constexpr int kFirstLevels = 3;
/// So many that are found are all opened.
constexpr int kOpenedMatches = 20'000;
/// Width of the column in letters.
constexpr int kNameLetters = 34;
/// Least width of the panel.
constexpr int kLeastLetters = 24;

}  // namespace

ObjectPanel::ObjectPanel(const Objects& objects, QWidget* parent)
    : QWidget(parent), objects_(objects), model_(objects) {
    searchField_ = new QLineEdit;
    searchField_->setObjectName(QStringLiteral("objectSearch"));
    searchField_->setPlaceholderText(toQString(texts::kSearchHint));
    searchField_->setAccessibleName(toQString(texts::kSearchHint));
    searchField_->setClearButtonEnabled(true);

    tree_ = new QTreeView;
    tree_->setObjectName(QStringLiteral("objectTree"));
    tree_->setAccessibleName(toQString(texts::kObjectTree));
    tree_->setModel(&model_);
    tree_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    tree_->setUniformRowHeights(true);
    tree_->setContextMenuPolicy(Qt::CustomContextMenu);
    tree_->header()->resizeSection(ObjectModel::kName,
                                   kNameLetters * fontMetrics().averageCharWidth());
    tree_->header()->setStretchLastSection(true);
    emptyNote_ = new EmptyNote({}, tree_);  // the tree's

    setMinimumWidth(kLeastLetters * fontMetrics().averageCharWidth());
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(searchField_);
    layout->addWidget(tree_);

    searchTimer_.setSingleShot(true);
    searchTimer_.setInterval(kSearchDelayMs);
    connect(&searchTimer_, &QTimer::timeout, this, &ObjectPanel::search);
    connect(searchField_, &QLineEdit::textChanged, &searchTimer_, qOverload<>(&QTimer::start));
    // To the objects that were found.
    connect(searchField_, &QLineEdit::returnPressed, this, [this] {
        search();
        tree_->setFocus();
        const QModelIndex first = model_.index(0, ObjectModel::kName);
        if (!tree_->currentIndex().isValid() && first.isValid())
            tree_->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    });
    auto* const clear = new QAction(searchField_);
    clear->setShortcut(Qt::Key_Escape);
    clear->setShortcutContext(Qt::WidgetShortcut);
    connect(clear, &QAction::triggered, searchField_, &QLineEdit::clear);
    searchField_->addAction(clear);
    connect(tree_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ObjectPanel::takeSelection);
    connect(tree_, &QTreeView::customContextMenuRequested, this, [this](const QPoint& position) {
        emit menuWanted(tree_->viewport()->mapToGlobal(position));
    });
    openFirstLevels();
}

void ObjectPanel::rebuild() {
    isShowingSelection_ = true;
    model_.rebuild();
    isShowingSelection_ = false;
    openFirstLevels();
}

void ObjectPanel::openFirstLevels() {
    emptyNote_->setText(
        toQString(objects_.files().empty() ? texts::kNothingOpenNote : texts::kNothingFoundNote));
    if (!model_.filter().isEmpty() && model_.matchCount() <= kOpenedMatches)
        tree_->expandAll();
    else
        tree_->expandToDepth(kFirstLevels);
}

void ObjectPanel::search() {
    searchTimer_.stop();
    if (searchField_->text().trimmed() == model_.filter())
        return;
    isShowingSelection_ = true;  // the selection stays, even of what is not let through
    model_.setFilter(searchField_->text());
    isShowingSelection_ = false;
    openFirstLevels();
    showSelection();
}

void ObjectPanel::focusSearch() {
    searchField_->setFocus(Qt::ShortcutFocusReason);
    searchField_->selectAll();
}

void ObjectPanel::takeSelection() {
    if (!isShowingSelection_)
        emit selected(model_.idsIn(tree_->selectionModel()->selection()));
}

void ObjectPanel::showSelection() {
    QItemSelectionModel& selection = *tree_->selectionModel();
    if (model_.idsIn(selection.selection()) == objects_.selected())
        return;
    isShowingSelection_ = true;
    // The ranges are whole rows already: Qt takes seconds to make them so.
    selection.select(model_.selectionOf(objects_.selected()), QItemSelectionModel::ClearAndSelect);
    for (const HostObjectId id : objects_.selected()) {
        const QModelIndex index = model_.indexOf(id);
        if (!index.isValid())
            continue;
        selection.setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        tree_->scrollTo(index);
        break;
    }
    isShowingSelection_ = false;
}

void ObjectPanel::selectAllOfType() {
    if (const Object* const object = model_.objectAt(tree_->currentIndex()))
        emit selected(model_.idsOfType(object->entityName));
}

}  // namespace standin
