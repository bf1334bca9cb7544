#include "gui/existing_value_row_gui.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStringList>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "gui/custom_q_check_box.h"
#include "gui/edit_many_state.h"
#include "gui/edit_many_texts.h"
#include "gui/existing_property_gui.h"
#include "gui/line_text_edit.h"
#include "gui/qt_text.h"
#include "gui/row_style.h"
#include "gui/row_widgets.h"
#include "gui/unit_combo_box.h"
#include "gui/value_grouping.h"
#include "plugin/host_abi.h"

namespace {

constexpr std::size_t kNamesInToolTip = 10;
// How a row divides its width at first; the value gets what is left.
constexpr int kGroupLabelShare = 30;  // signs
constexpr int kValueShare = 400;

}  // namespace

struct ExistingValueRowGui::Widgets {
    QHBoxLayout* layout = nullptr;  // the property's layout, once inserted, owns it
    CustomQCheckBox* box = nullptr;
    QSplitter* splitter = nullptr;  // holds the next four
    QLineEdit* groupLabel = nullptr;
    LineTextEdit* editor = nullptr;
    QComboBox* truthBox = nullptr;
    QComboBox* unitBox = nullptr;
    UnitTypeAhead* typeAhead = nullptr;  // the unit box's, made when it is first used
    QPushButton* selectButton = nullptr;
};

ExistingValueRowGui::ExistingValueRowGui(ExistingPropertyGui& property, Loaded loaded)
    : property_(property),
      object_(loaded.object),
      setGuid_(std::move(loaded.setGuid)),
      value_(std::move(loaded.value)),
      initialValue_(value_),
      initialUnit_(std::move(loaded.unit)),
      unitIndex_(loaded.unitIndex),
      initialUnitIndex_(loaded.unitIndex),
      kind_(static_cast<std::int8_t>(loaded.kind)),
      valueType_(static_cast<std::int8_t>(loaded.valueType)) {}

ExistingValueRowGui::~ExistingValueRowGui() = default;

QString ExistingValueRowGui::unit() const {
    return isUnitChanged() ? unitLabelAt(unitIndex_) : initialUnit_;
}

bool ExistingValueRowGui::isBoolean() const {
    return kind_ == kHostSingleValue && valueType_ == kHostTruth;
}

bool ExistingValueRowGui::isNumeric() const {
    return isQuantity() ||
           (kind_ == kHostSingleValue && (valueType_ == kHostReal || valueType_ == kHostInteger));
}

bool ExistingValueRowGui::isQuantity() const { return kind_ == kHostQuantity; }

void ExistingValueRowGui::setSelected(bool isSelected) {
    if (isSelected_ == isSelected)
        return;
    isSelected_ = isSelected;
    property_.countSelection(isSelected);
}

void ExistingValueRowGui::representGroup(std::vector<ExistingValueRowGui*> members) {
    members_ = std::make_unique<std::vector<ExistingValueRowGui*>>(std::move(members));
}

std::vector<ExistingValueRowGui*> ExistingValueRowGui::group() {
    return members_ ? *members_ : std::vector<ExistingValueRowGui*>{this};
}

void ExistingValueRowGui::buildWidgets(bool isEditable) {
    if (widgets_)
        return;  // scrolling asks for the same row many times
    widgets_ = std::make_unique<Widgets>();
    widgets_->layout = new QHBoxLayout;
    widgets_->layout->setSpacing(0);
    if (!members_)
        representGroup({this});  // a lone row is a group of one
    widgets_->box = new CustomQCheckBox;
    widgets_->box->setObjectName(QStringLiteral("ValueCheckBox"));
    widgets_->box->setAccessibleName(property_.name());
    widgets_->box->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    widgets_->box->setEnabled(property_.isEditable());
    showSelection();
    connect(widgets_->box, &QCheckBox::stateChanged, this, &ExistingValueRowGui::selectionEdited);
    widgets_->layout->addWidget(widgets_->box);
    row_widgets::addSpacer(*widgets_->layout, row_style::kValueIndent);
    widgets_->splitter = new QSplitter;
    widgets_->splitter->setChildrenCollapsible(false);
    widgets_->splitter->setMaximumHeight(row_style::kMaxFieldHeight);
    widgets_->layout->addWidget(widgets_->splitter);
    addGroupLabel();
    if (property_.isBoolean()) {
        addTruthEditor(isEditable);
    } else {
        addTextEditor(isEditable);
        addUnitBox(isEditable);
    }
    QList<int> shares{kValueShare, row_style::kMinUnitWidth};
    if (const QLineEdit* const label = widgets_->groupLabel)
        shares.prepend(label->fontMetrics().averageCharWidth() * kGroupLabelShare);
    widgets_->splitter->setSizes(shares);
    addSelectButton(isEditable);
    const QString objects = row_widgets::toolTip(objectsText());
    widgets_->box->setToolTip(objects);
    widgets_->splitter->setToolTip(objects);
    ++editManyState().createdGuiCount;
}

void ExistingValueRowGui::addGroupLabel() {
    const QString label = property_.groupLabelOf(*this);
    if (label.isEmpty())
        return;
    auto* const field = new QLineEdit(label);
    field->setObjectName(QStringLiteral("GroupLabel"));
    field->setAccessibleName(property_.name());
    field->setReadOnly(true);
    field->setFrame(false);
    QPalette palette = field->palette();
    palette.setColor(QPalette::Base, Qt::transparent);  // no field to fill in
    field->setPalette(palette);
    field->setFocusPolicy(Qt::ClickFocus);  // it can be copied from, but is none to fill in
    field->setMaximumHeight(row_style::kMaxFieldHeight);
    field->setBaseSize(row_style::kGroupLabelWidth, row_style::kMaxFieldHeight);
    field->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Minimum);
    field->setCursorPosition(0);
    widgets_->splitter->addWidget(field);
    widgets_->groupLabel = field;
}

void ExistingValueRowGui::addTruthEditor(bool isEditable) {
    auto* const box = new QComboBox;
    box->setObjectName(QStringLiteral("ValueComboBox"));
    box->setAccessibleName(property_.name());
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    box->setMaximumHeight(row_style::kMaxFieldHeight);
    box->addItems({editManyState().captions.no, editManyState().captions.yes});
    box->setCurrentIndex(value_ == u"1" ? 1 : value_ == u"0" ? 0 : -1);
    box->setEnabled(isEditable);
    new WheelIgnorer(*box);
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &ExistingValueRowGui::BoolValueChanged);
    widgets_->splitter->addWidget(box);
    widgets_->splitter->setStretchFactor(widgets_->splitter->indexOf(box), 1);
    widgets_->truthBox = box;
}

void ExistingValueRowGui::addTextEditor(bool isEditable) {
    auto* const editor = new LineTextEdit;
    editor->setObjectName(QStringLiteral("ValueEdit"));
    editor->setAccessibleName(property_.name());
    editor->setLine(value_);
    editor->setReadOnly(!isEditable);
    if (property_.isNumeric()) {  // whole texts come from input methods, past the filter of keys
        editor->setInputMethodHints(Qt::ImhFormattedNumbersOnly);
        editor->setAttribute(Qt::WA_InputMethodEnabled, false);
    }
    connect(editor, &QTextEdit::textChanged, this, [this, editor] { valueEdited(editor->line()); });
    editor->installEventFilter(this);
    widgets_->splitter->addWidget(editor);
    widgets_->splitter->setStretchFactor(widgets_->splitter->indexOf(editor), 1);
    widgets_->editor = editor;
    showInitialValue();
}

void ExistingValueRowGui::addUnitBox(bool isEditable) {
    auto* const box = new QComboBox;
    box->setObjectName(QStringLiteral("UnitComboBox"));
    box->setAccessibleName(property_.name());
    setUpUnitComboBox(*box, unitIndex_);
    box->setEnabled(isEditable);
    box->installEventFilter(this);
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &ExistingValueRowGui::UnitIndexChanged);
    // Text that is no unit does not stay.
    connect(box->lineEdit(), &QLineEdit::editingFinished, this, &ExistingValueRowGui::showUnit);
    widgets_->splitter->addWidget(box);
    widgets_->unitBox = box;
    showUnit();
}

void ExistingValueRowGui::addSelectButton(bool isEditable) {
    if (editManyState().groupingType == GroupingType::DoNotGroup)
        return;
    auto* const button = row_widgets::makeButton("SelectButton", editManyState().captions.select);
    button->setEnabled(!isEditable && property_.isEditable());
    connect(button, &QPushButton::pressed, this, &ExistingValueRowGui::Select);
    widgets_->layout->addWidget(button);
    widgets_->selectButton = button;
}

void ExistingValueRowGui::destroyWidgets() {
    if (!widgets_)
        return;
    row_widgets::retire(this, widgets_->box);
    if (widgets_->editor) {
        widgets_->editor->disconnect(this);
        widgets_->editor->removeEventFilter(this);
    }
    if (widgets_->truthBox)
        widgets_->truthBox->disconnect(this);
    if (widgets_->unitBox) {
        widgets_->unitBox->disconnect(this);
        widgets_->unitBox->lineEdit()->disconnect(this);
        widgets_->unitBox->removeEventFilter(this);
    }
    row_widgets::retire(this, widgets_->splitter);
    row_widgets::retire(this, widgets_->selectButton);
    delete widgets_->layout;
    widgets_.reset();
    if (groupSize() == 1)
        standAlone();
}

QHBoxLayout* ExistingValueRowGui::layout() const { return widgets_ ? widgets_->layout : nullptr; }

void ExistingValueRowGui::showWidgets() {
    widgets_->box->show();
    widgets_->splitter->show();
    if (widgets_->selectButton)
        widgets_->selectButton->show();
}

std::vector<QWidget*> ExistingValueRowGui::focusOrder() const {
    std::vector<QWidget*> order;
    if (widgets_)
        for (QWidget* const widget :
             {static_cast<QWidget*>(widgets_->box), static_cast<QWidget*>(widgets_->groupLabel),
              static_cast<QWidget*>(widgets_->editor), static_cast<QWidget*>(widgets_->truthBox),
              static_cast<QWidget*>(widgets_->unitBox),
              static_cast<QWidget*>(widgets_->selectButton)})
            if (widget)
                order.push_back(widget);
    return order;
}

bool ExistingValueRowGui::hasFocus() const {
    if (!widgets_)
        return false;
    const QWidget* const focus = widgets_->box->window()->focusWidget();
    return focus && (focus == widgets_->box || focus == widgets_->selectButton ||
                     widgets_->splitter->isAncestorOf(focus));
}

void ExistingValueRowGui::takeFocus() {
    if (!widgets_)
        return;
    if (widgets_->truthBox)
        widgets_->truthBox->setFocus();
    else
        widgets_->editor->setFocus();
}

void ExistingValueRowGui::showSelection() {
    if (!widgets_)
        return;
    const auto selected = std::count_if(members_->begin(), members_->end(),
                                        [](const auto* member) { return member->isSelected_; });
    row_widgets::showChecked(*widgets_->box, static_cast<std::size_t>(selected), members_->size());
}

void ExistingValueRowGui::showUnit() {
    if (!widgets_ || !widgets_->unitBox)
        return;
    const QSignalBlocker blocker(widgets_->unitBox);
    const QString ownUnit = unit();
    const bool isMixed = std::any_of(members_->begin(), members_->end(), [&](const auto* member) {
        return member->unitIndex_ != unitIndex_ || member->unit() != ownUnit;
    });
    widgets_->unitBox->setCurrentIndex(isMixed ? -1 : unitIndex_);
    widgets_->unitBox->setEditText(isMixed ? toQString(texts::many::kEllipsis) : ownUnit);
    widgets_->unitBox->lineEdit()->setCursorPosition(0);
}

QString ExistingValueRowGui::objectsText() const {
    QStringList names;
    const std::size_t shown = std::min(members_->size(), kNamesInToolTip);
    for (std::size_t member = 0; member < shown; ++member)
        names.append((*members_)[member]->object().displayName());
    if (shown < members_->size())
        names.append(toQString(texts::many::kMoreObjects) +
                     QString::number(members_->size() - shown));
    return names.join(u'\n');
}

void ExistingValueRowGui::selectionEdited(int state) {
    for (ExistingValueRowGui* const member : group())
        member->setSelected(state == Qt::Checked);
    showSelection();
    emit stateChanged(state);
}

void ExistingValueRowGui::valueEdited(const QString& value) {
    if (value == value_)
        return;
    for (ExistingValueRowGui* const member : group()) {
        member->setValue(value);
        member->setSelected(true);
    }
    showSelection();
    showInitialValue();
    emit stateChanged(Qt::Checked);
}

void ExistingValueRowGui::showInitialValue() {
    if (!widgets_->editor || !editManyState().showInitialValues)
        return;
    widgets_->editor->setToolTip(isValueChanged()
                                     ? row_widgets::toolTip(editManyState().captions.before +
                                                            QStringLiteral(": ") + initialValue_)
                                     : QString());
}

void ExistingValueRowGui::Select() { property_.takeValueOf(*this); }

void ExistingValueRowGui::Deselect() {
    setSelected(false);
    showSelection();
}

void ExistingValueRowGui::BoolValueChanged(int index) {
    if (index >= 0)
        valueEdited(index == 1 ? QStringLiteral("1") : QStringLiteral("0"));
}

void ExistingValueRowGui::UnitIndexChanged(int index) {
    if (index >= 0)
        property_.ChangeUnitInGroup(index, group());
}

bool ExistingValueRowGui::eventFilter(QObject* watched, QEvent* event) {
    if (!widgets_)
        return false;
    if (watched == widgets_->unitBox)
        return filterUnitEvent(*event);
    return watched == widgets_->editor && event->type() == QEvent::KeyPress && filterKey(*event);
}

/// What costs most of a unit box, its list, is made only for those that are used.
bool ExistingValueRowGui::filterUnitEvent(QEvent& event) {
    switch (event.type()) {
        case QEvent::Wheel:
            event.ignore();  // so that the list scrolls
            return true;
        case QEvent::FocusIn:
        case QEvent::MouseButtonPress:
        case QEvent::KeyPress:
            if (widgets_->typeAhead)
                return false;  // it has its own filter
            widgets_->typeAhead = new UnitTypeAhead(*widgets_->unitBox);
            return widgets_->typeAhead->eventFilter(widgets_->unitBox, &event);
        default: return false;
    }
}

bool ExistingValueRowGui::filterKey(QEvent& event) {
    const auto& key = static_cast<const QKeyEvent&>(event);
    LineTextEdit& editor = *widgets_->editor;
    const bool isShortcut = (key.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
    if (!property_.isNumeric() || editor.isReadOnly() || isShortcut ||
        isNumericKey(key.key(), key.text()))
        return false;
    QToolTip::showText(editor.mapToGlobal(editor.rect().center()),
                       editManyState().captions.numberAllowed, &editor);
    return true;
}
