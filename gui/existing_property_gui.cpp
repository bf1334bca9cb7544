#include "gui/existing_property_gui.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <string>
#include <utility>

#include "gui/custom_q_check_box.h"
#include "gui/edit_many_state.h"
#include "gui/edit_many_texts.h"
#include "gui/existing_set_gui.h"
#include "gui/line_text_edit.h"
#include "gui/qt_text.h"
#include "gui/row_style.h"
#include "gui/row_widgets.h"
#include "gui/trace.h"
#include "gui/value_grouping.h"
#include "platform/message_box.h"
#include "platform/text.h"

namespace {

/// From here on putting rows together anew takes long enough to be seen.
constexpr std::size_t kManyRows = 20'000;

std::u16string number(std::size_t value) { return platform::fromUtf8(std::to_string(value)); }

}  // namespace

struct ExistingPropertyGui::Widgets {
    QVBoxLayout* layout = nullptr;  // the set's layout owns it
    CustomQCheckBox* box = nullptr;
    QToolButton* expandButton = nullptr;
    LineTextEdit* nameField = nullptr;
    QPushButton* modeButton = nullptr;
    QVBoxLayout* valueArea = nullptr;
};

ExistingPropertyGui::ExistingPropertyGui(ExistingSetGui& set, QString name)
    : set_(set), name_(std::move(name)), initialName_(name_) {}

ExistingPropertyGui::~ExistingPropertyGui() = default;

const QString& ExistingPropertyGui::setName() const { return set_.name(); }

void ExistingPropertyGui::addRow(ExistingValueRowGui::Loaded loaded, bool isEditable) {
    unitIndex_ = rows_.empty() || unitIndex_ == loaded.unitIndex ? loaded.unitIndex : -1;
    const ExistingValueRowGui& row =
        *rows_.emplace_back(std::make_unique<ExistingValueRowGui>(*this, std::move(loaded)));
    isEditable_ &= isEditable;
    isNumeric_ &= row.isNumeric();
    isBoolean_ &= row.isBoolean();
}

void ExistingPropertyGui::createGui(QBoxLayout& into, int index) {
    if (widgets_)
        return;
    if (isTracing())
        trace(std::u16string(texts::many::kLogPropertyGui) + fromQString(name_) +
              std::u16string(texts::many::kLogAtIndex) + number(static_cast<std::size_t>(index)) +
              u")");
    widgets_ = std::make_unique<Widgets>();
    widgets_->layout = new QVBoxLayout;
    widgets_->layout->setSpacing(0);
    into.addLayout(widgets_->layout);
    auto* const header = new QHBoxLayout;
    header->setSpacing(0);
    widgets_->layout->addLayout(header);

    auto* const box = new CustomQCheckBox;
    box->setObjectName(QStringLiteral("PropertyCheckBox"));
    box->setAccessibleName(name_);
    box->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    box->setEnabled(isEditable_);
    connect(box, &QCheckBox::stateChanged, this, &ExistingPropertyGui::selectionEdited);
    header->addWidget(box);
    widgets_->box = box;
    row_widgets::addSpacer(*header, row_style::kPropertyIndent);

    widgets_->expandButton = row_widgets::makeExpandButton("PropertyExpandButton");
    widgets_->expandButton->setAccessibleName(name_);
    connect(widgets_->expandButton, &QToolButton::clicked, this,
            &ExistingPropertyGui::ShowChildBtnPressed);
    header->addWidget(widgets_->expandButton);
    row_widgets::addSpacer(*header, row_style::kSpacer);

    auto* const field = new LineTextEdit;
    field->setObjectName(QStringLiteral("PropertyNameEdit"));
    field->setAccessibleName(editManyState().captions.propertyName);
    field->setToolTip(row_widgets::toolTip(name_ + u'\n' + unitLabelAt(unitIndex_)));
    field->setLine(name_);
    field->setReadOnly(!isEditable_);
    connect(field, &QTextEdit::textChanged, this, &ExistingPropertyGui::nameEdited);
    header->addWidget(field);
    widgets_->nameField = field;

    widgets_->modeButton = row_widgets::makeButton("PropertyModeButton", {});
    connect(widgets_->modeButton, &QPushButton::pressed, this,
            &ExistingPropertyGui::EditSeparatelyFunc);
    header->addWidget(widgets_->modeButton);

    widgets_->valueArea = new QVBoxLayout;
    widgets_->valueArea->setSpacing(0);
    widgets_->layout->addLayout(widgets_->valueArea);
    ++editManyState().createdGuiCount;
    for (QWidget* const widget : focusOrder())
        widget->show();
    mode_ = Mode::Grouped;
    showMode();
    row_widgets::showExpanded(*widgets_->expandButton, isExpanded_);
    if (isExpanded_)
        createValueRows();
    showSelection();
}

bool ExistingPropertyGui::isGrouped() const {
    return editManyState().groupingType != GroupingType::DoNotGroup && mode_ != Mode::PerObject;
}

void ExistingPropertyGui::groupRows() {
    groups_.clear();
    shownRows_.clear();
    for (const auto& row : rows_)
        row->standAlone();
    if (!isGrouped()) {
        for (const auto& row : rows_)
            shownRows_.push_back(row.get());
        return;
    }
    trace(texts::many::kLogCreatingGroups);
    const GroupingType type = editManyState().groupingType;
    for (const auto& row : rows_)
        groups_[groupingKey(type, row->object().entityName, row->value())].push_back(row.get());
    trace(texts::many::kLogGroupsFilled);
    for (const auto& [key, members] : groups_) {
        members.front()->representGroup(members);
        shownRows_.push_back(members.front());
    }
}

bool ExistingPropertyGui::createValueRows() {
    destroyValueRows();
    groupRows();
    const row_widgets::LayoutPause pause(widgets_->nameField->parentWidget());
    bool isComplete = true;
    for (int row = 0; row < static_cast<int>(shownRows_.size()); ++row) {
        const ExistingValueRowGui& shown = shownRow(row);
        if (row >= kRowsAtOnce) {
            isComplete = false;
            if (!isTracing())
                break;
            trace(isGrouped() ? texts::many::kLogTooManyGroups : texts::many::kLogTooManyValues);
            continue;
        }
        if (isTracing()) {
            const std::u16string value = fromQString(shown.value());
            trace(isGrouped() ? std::u16string(texts::many::kLogGroupGui) + value +
                                    std::u16string(texts::many::kLogGroupSize) +
                                    number(static_cast<std::size_t>(shown.groupSize())) + u")"
                              : std::u16string(texts::many::kLogValueGui) + value + u" (" +
                                    number(static_cast<std::size_t>(row)) + u")");
        }
        createRow(row);
        endCreated = row + 1;
    }
    return isComplete;
}

void ExistingPropertyGui::destroyValueRows() {
    for (const int row : liveRows_)
        shownRows_[static_cast<std::size_t>(row)]->destroyWidgets();
    liveRows_.clear();
    for (ExistingValueRowGui* const row : shownRows_)
        row->standAlone();
    shownRows_.clear();
    groups_.clear();
    firstCreated = endCreated = 0;
}

void ExistingPropertyGui::destroyGui() {
    if (!widgets_)
        return;
    if (isTracing())
        trace(std::u16string(texts::many::kLogPropertyGuiGone) + fromQString(name_));
    destroyValueRows();
    row_widgets::retire(this, widgets_->box);
    row_widgets::retire(this, widgets_->expandButton);
    row_widgets::retire(this, widgets_->nameField);
    row_widgets::retire(this, widgets_->modeButton);
    delete widgets_->layout;
    widgets_.reset();
}

std::vector<QWidget*> ExistingPropertyGui::focusOrder() const {
    if (!widgets_)
        return {};
    return {widgets_->box, widgets_->expandButton, widgets_->nameField, widgets_->modeButton};
}

int ExistingPropertyGui::rowCount() const {
    return widgets_ && isExpanded_ ? static_cast<int>(shownRows_.size()) : 0;
}

const ExistingValueRowGui& ExistingPropertyGui::shownRow(int row) const {
    return *shownRows_[static_cast<std::size_t>(row)];
}

const LineTextEdit* ExistingPropertyGui::nameField() const {
    return widgets_ ? widgets_->nameField : nullptr;
}

void ExistingPropertyGui::createRow(int row) {
    ExistingValueRowGui& shown = *shownRows_[static_cast<std::size_t>(row)];
    if (shown.hasWidgets())
        return;
    shown.buildWidgets(isRowEditable());
    const auto place = std::lower_bound(liveRows_.begin(), liveRows_.end(), row);
    widgets_->valueArea->insertLayout(static_cast<int>(place - liveRows_.begin()), shown.layout());
    shown.showWidgets();
    liveRows_.insert(place, row);
    connect(&shown, &ExistingValueRowGui::stateChanged, this,
            &ExistingPropertyGui::headerStateChanged, Qt::UniqueConnection);
}

void ExistingPropertyGui::destroyRow(int row) {
    ExistingValueRowGui& shown = *shownRows_[static_cast<std::size_t>(row)];
    if (shown.hasFocus())
        return;
    const auto place = std::lower_bound(liveRows_.begin(), liveRows_.end(), row);
    if (place == liveRows_.end() || *place != row)
        return;
    shown.disconnect(this);
    shown.destroyWidgets();
    liveRows_.erase(place);
}

void ExistingPropertyGui::destroyKeptRow() {
    const std::vector<int> live = liveRows_;
    for (const int row : live)
        if (row < firstCreated || row >= endCreated)
            destroyRow(row);
}

QString ExistingPropertyGui::groupLabelOf(const ExistingValueRowGui& row) const {
    const GroupingType type = editManyState().groupingType;
    // One row per object: its group is no use, its name is.
    return mode_ == Mode::PerObject && type != GroupingType::DoNotGroup
               ? row.object().displayName()
               : groupLabel(type, row.object().entityName, row.groupSize());
}

void ExistingPropertyGui::takeValueOf(const ExistingValueRowGui& row) {
    const QString value = row.value();
    const int index = row.unitIndex();
    DeselectAllRows();
    for (const auto& each : rows_) {
        each->setValue(value);
        if (index >= 0)
            each->setUnitIndex(index);
        each->setSelected(true);
    }
    setMode(Mode::Grouped);
    emit stateChanged(Qt::Checked);
}

void ExistingPropertyGui::selectAllRows(bool isSelected) {
    for (const auto& row : rows_)
        row->setSelected(isSelected);
    showSelection();
}

void ExistingPropertyGui::DeselectAllRows() {
    for (const auto& row : rows_)
        row->Deselect();
    showSelection();
}

void ExistingPropertyGui::showSelection() {
    if (widgets_)
        row_widgets::showChecked(*widgets_->box, selectedCount_, rows_.size());
    for (const int row : liveRows_)
        shownRows_[static_cast<std::size_t>(row)]->showSelection();
}

void ExistingPropertyGui::headerStateChanged() {
    if (widgets_)
        row_widgets::showChecked(*widgets_->box, selectedCount_, rows_.size());
    emit stateChanged(isSelected() ? Qt::Checked : Qt::Unchecked);
}

void ExistingPropertyGui::selectionEdited(int state) {
    selectAllRows(state == Qt::Checked);
    emit stateChanged(state);
}

void ExistingPropertyGui::ChangeUnitInGroup(int index, std::vector<ExistingValueRowGui*> group) {
    for (ExistingValueRowGui* const row : group) {
        row->setUnitIndex(index);
        row->setSelected(true);
    }
    for (const int row : liveRows_)
        shownRows_[static_cast<std::size_t>(row)]->showUnit();
    showSelection();
    emit stateChanged(Qt::Checked);
}

void ExistingPropertyGui::EditSeparatelyFunc() {
    widgets_->modeButton->setDown(false);
    switch (mode_) {
        case Mode::Grouped: return setMode(Mode::ChoosingValue);
        case Mode::ChoosingValue: return setMode(Mode::PerObject);
        case Mode::PerObject: return setMode(Mode::Grouped);
    }
}

/// Says that it will take a moment, where it will.
void ExistingPropertyGui::showLoadingScreen() {
    LoadingDialog* const dialog = editManyState().loadingDialog.get();
    if (!dialog || rows_.size() < kManyRows)
        return;
    dialog->show();
    dialog->setProgress(0, 0);  // has it painted
    QTimer::singleShot(0, this, &ExistingPropertyGui::CloseLoadingScreen);
}

void ExistingPropertyGui::setMode(Mode mode) {
    showLoadingScreen();
    if (!widgets_)
        return;
    mode_ = mode;
    isExpanded_ = true;
    row_widgets::showExpanded(*widgets_->expandButton, isExpanded_);
    showMode();
    createValueRows();
    showSelection();
    emit ChildrenGuiVisibilityChanged();
}

void ExistingPropertyGui::CloseLoadingScreen() {
    if (editManyState().loadingDialog)
        editManyState().loadingDialog->close();
}

void ExistingPropertyGui::showMode() {
    const RowCaptions& captions = editManyState().captions;
    widgets_->modeButton->setText(mode_ == Mode::ChoosingValue ? captions.editSeparately
                                                               : captions.selectValue);
    widgets_->modeButton->setEnabled(isEditable_ &&
                                     editManyState().groupingType != GroupingType::DoNotGroup);
}

void ExistingPropertyGui::ShowChildBtnPressed() {
    isExpanded_ = !isExpanded_;
    if (isExpanded_)
        showLoadingScreen();
    if (!widgets_)
        return;
    row_widgets::showExpanded(*widgets_->expandButton, isExpanded_);
    if (isExpanded_) {
        createValueRows();
    } else {
        const bool hasFocus = std::any_of(liveRows_.begin(), liveRows_.end(),
                                          [&](int row) { return shownRow(row).hasFocus(); });
        if (hasFocus)
            widgets_->expandButton->setFocus();
        destroyValueRows();
    }
    emit ChildrenGuiVisibilityChanged();
}

void ExistingPropertyGui::nameEdited() {
    if (isResettingName_)
        return;
    const QString typed = widgets_->nameField->line();
    if (typed == name_ || set_.renameProperty(*this, typed))
        return;
    isResettingName_ = true;
    platform::showMessageBox(std::u16string(texts::many::kProperty) + fromQString(typed) +
                                 std::u16string(texts::many::kNameTaken),
                             texts::many::kCaption, platform::MessageButtons::Ok,
                             platform::MessageIcon::Warning);
    if (widgets_) {
        widgets_->nameField->setLine(name_);
        widgets_->nameField->moveCursor(QTextCursor::End);
    }
    isResettingName_ = false;
}

void ExistingPropertyGui::takeFocus() {
    if (widgets_)
        widgets_->nameField->setFocus();
}

void ExistingPropertyGui::takeFocus(const ExistingValueRowGui& row) {
    if (widgets_ && !isExpanded_)
        ShowChildBtnPressed();
    for (const int live : liveRows_) {
        ExistingValueRowGui& shown = *shownRows_[static_cast<std::size_t>(live)];
        const auto group = shown.group();
        if (std::find(group.begin(), group.end(), &row) != group.end())
            return shown.takeFocus();
    }
    takeFocus();
}
