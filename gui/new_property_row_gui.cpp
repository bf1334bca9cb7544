#include "gui/new_property_row_gui.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>

#include "gui/edit_many_state.h"
#include "gui/edit_many_texts.h"
#include "gui/line_text_edit.h"
#include "gui/new_set_gui.h"
#include "gui/qt_text.h"
#include "gui/row_style.h"
#include "gui/row_widgets.h"
#include "gui/unit_combo_box.h"
#include "platform/message_box.h"

namespace {

/// Between a unit's symbol and its name in a label.
constexpr const char16_t* kSymbolEnd = u" (";

LineTextEdit* makeField(const char* objectName, const QString& caption, const QString& text) {
    auto* const field = new LineTextEdit;
    field->setObjectName(QString::fromLatin1(objectName));
    field->setAccessibleName(caption);
    field->setPlaceholderText(caption);
    field->setLine(text);
    return field;
}

}  // namespace

NewPropertyRowGui::NewPropertyRowGui(NewSetGui& set, const QString& name, const QString& value,
                                     const QString& unit, QBoxLayout& into)
    : set_(set),
      name_(name),
      layout_(new QHBoxLayout),
      splitter_(new QSplitter),
      nameField_(makeField("NewPropertyNameEdit", editManyState().captions.propertyName, name)),
      valueField_(makeField("NewPropertyValueEdit", editManyState().captions.value, value)),
      unitBox_(new QComboBox),
      deleteButton_(row_widgets::makeButton("DeletePropertyButton",
                                            editManyState().captions.deleteProperty)) {
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(0);
    splitter_->setChildrenCollapsible(false);
    splitter_->setMaximumHeight(row_style::kMaxFieldHeight);
    splitter_->addWidget(nameField_);
    splitter_->addWidget(valueField_);
    addUnitBox(unit);
    layout_->addWidget(splitter_);
    layout_->addWidget(deleteButton_);
    into.addLayout(layout_);
    connect(nameField_, &QTextEdit::textChanged, this, &NewPropertyRowGui::nameEdited);
    connect(deleteButton_, &QPushButton::pressed, this, [this] { set_.removeProperty(*this); });
    ++editManyState().createdGuiCount;
}

NewPropertyRowGui::~NewPropertyRowGui() { destroyWidgets(); }

void NewPropertyRowGui::destroyWidgets() {
    if (!splitter_)
        return;
    nameField_->disconnect(this);
    unitBox_->lineEdit()->disconnect(this);
    row_widgets::retire(this, splitter_);
    row_widgets::retire(this, deleteButton_);
    delete layout_;
}

void NewPropertyRowGui::addUnitBox(const QString& unit) {
    unitBox_->setObjectName(QStringLiteral("NewPropertyUnitBox"));
    unitBox_->setAccessibleName(editManyState().captions.value);
    setUpUnitComboBox(*unitBox_, -1);
    unitBox_->setCurrentIndex(unitBox_->findText(unit));
    new WheelIgnorer(*unitBox_);
    connect(unitBox_->lineEdit(), &QLineEdit::editingFinished, this, &NewPropertyRowGui::unitTyped);
    splitter_->addWidget(unitBox_);
    splitter_->setStretchFactor(0, 1);
    splitter_->setStretchFactor(1, 1);
}

QString NewPropertyRowGui::value() const { return valueField_->line(); }

int NewPropertyRowGui::unitIndex() const { return unitBox_->currentIndex(); }

std::vector<QWidget*> NewPropertyRowGui::focusOrder() const {
    return {nameField_, valueField_, unitBox_, deleteButton_};
}

void NewPropertyRowGui::takeNameFocus() { row_widgets::takeFocus(*nameField_); }

void NewPropertyRowGui::takeValueFocus() { row_widgets::takeFocus(*valueField_); }

void NewPropertyRowGui::nameEdited() {
    if (isResettingName_)
        return;
    const QString typed = nameField_->line();
    if (typed == name_)
        return;
    if (set_.renameProperty(*this, typed)) {
        name_ = typed;
        return;
    }
    isResettingName_ = true;
    platform::showMessageBox(std::u16string(texts::many::kProperty) + fromQString(typed) +
                                 std::u16string(texts::many::kNameTaken),
                             texts::many::kCaption, platform::MessageButtons::Ok,
                             platform::MessageIcon::Warning);
    nameField_->setLine(name_);
    nameField_->moveCursor(QTextCursor::End);
    isResettingName_ = false;
}

void NewPropertyRowGui::unitTyped() {
    const QString typed = unitBox_->currentText().trimmed();
    if (typed.isEmpty())
        return unitBox_->setCurrentIndex(-1);
    if (unitBox_->findText(typed, Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0)
        return;  // the box itself takes it
    const int bySymbol = unitBox_->findText(typed + QString::fromUtf16(kSymbolEnd),
                                            Qt::MatchStartsWith | Qt::MatchCaseSensitive);
    if (bySymbol >= 0)
        unitBox_->setCurrentIndex(bySymbol);
    unitBox_->setEditText(unitBox_->itemText(unitBox_->currentIndex()));
}
