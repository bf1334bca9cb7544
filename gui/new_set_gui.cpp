#include "gui/new_set_gui.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "gui/edit_many_state.h"
#include "gui/edit_many_texts.h"
#include "gui/line_text_edit.h"
#include "gui/qt_text.h"
#include "gui/row_style.h"
#include "gui/row_widgets.h"
#include "platform/message_box.h"

NewSetGui::NewSetGui(Owner owner, const QString& name, QBoxLayout& into)
    : owner_(std::move(owner)),
      name_(name),
      layout_(new QVBoxLayout),
      propertiesLayout_(new QVBoxLayout),
      nameField_(new LineTextEdit),
      addButton_(
          row_widgets::makeButton("AddPropertyButton", editManyState().captions.addProperty)),
      deleteButton_(
          row_widgets::makeButton("DeleteSetButton", editManyState().captions.deleteSet)) {
    propertiesByName_.max_load_factor(1.0F);
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(0);
    layout_->setAlignment(Qt::AlignTop);
    auto* const line = new QHBoxLayout;
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(0);
    nameField_->setObjectName(QStringLiteral("NewSetNameEdit"));
    nameField_->setAccessibleName(editManyState().captions.setName);
    nameField_->setPlaceholderText(editManyState().captions.setName);
    nameField_->setLine(name);
    line->addWidget(nameField_);
    line->addWidget(addButton_);
    line->addWidget(deleteButton_);
    layout_->addLayout(line);
    propertiesLayout_->setContentsMargins(row_style::kValueIndent, 0, 0, 0);
    propertiesLayout_->setSpacing(0);
    layout_->addLayout(propertiesLayout_);
    into.addLayout(layout_);
    connect(nameField_, &QTextEdit::textChanged, this, &NewSetGui::nameEdited);
    connect(addButton_, &QPushButton::pressed, this,
            [this] { addProperty({}, {}, {}).takeNameFocus(); });
    connect(deleteButton_, &QPushButton::pressed, this, [this] { owner_.remove(*this); });
    ++editManyState().createdGuiCount;
}

NewSetGui::~NewSetGui() { destroyWidgets(); }

void NewSetGui::destroyWidgets() {
    for (const auto& property : properties_)
        property->destroyWidgets();
    if (nameField_)
        nameField_->disconnect(this);
    row_widgets::retire(this, nameField_);
    row_widgets::retire(this, addButton_);
    row_widgets::retire(this, deleteButton_);
    delete layout_;
}

NewPropertyRowGui& NewSetGui::addProperty(const QString& name, const QString& value,
                                          const QString& unit) {
    addButton_->setDown(false);  // the keyboard goes on to the new row
    NewPropertyRowGui& property = *properties_.emplace_back(
        std::make_unique<NewPropertyRowGui>(*this, name, value, unit, *propertiesLayout_));
    if (!name.isEmpty())
        propertiesByName_.try_emplace(name, &property);
    return property;
}

std::vector<QWidget*> NewSetGui::focusOrder() const {
    std::vector<QWidget*> order{nameField_, addButton_, deleteButton_};
    for (const auto& property : properties_)
        for (QWidget* const widget : property->focusOrder())
            order.push_back(widget);
    return order;
}

void NewSetGui::removeProperty(NewPropertyRowGui& property) {
    const auto found = std::find_if(properties_.begin(), properties_.end(),
                                    [&](const auto& each) { return each.get() == &property; });
    if (found == properties_.end())
        return;
    propertiesByName_.erase(property.name());
    property.destroyWidgets();
    found->release()->deleteLater();
    properties_.erase(found);
}

bool NewSetGui::renameProperty(NewPropertyRowGui& property, const QString& name) {
    if (propertiesByName_.contains(name))
        return false;
    propertiesByName_.erase(property.name());
    if (!name.isEmpty())  // several may be without a name while they are typed
        propertiesByName_.emplace(name, &property);
    return true;
}

void NewSetGui::nameEdited() {
    if (isResettingName_)
        return;
    const QString typed = nameField_->line();
    if (typed == name_)
        return;
    if (typed.isEmpty() || !owner_.isNameTaken(*this, typed)) {
        name_ = typed;
        return;
    }
    isResettingName_ = true;
    platform::showMessageBox(std::u16string(texts::many::kSet) + fromQString(typed) +
                                 std::u16string(texts::many::kNameTaken),
                             texts::many::kCaption, platform::MessageButtons::Ok,
                             platform::MessageIcon::Warning);
    nameField_->setLine(name_);
    nameField_->moveCursor(QTextCursor::End);
    isResettingName_ = false;
}

void NewSetGui::takeFocus() { row_widgets::takeFocus(*nameField_); }
