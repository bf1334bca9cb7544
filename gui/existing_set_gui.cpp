#include "gui/existing_set_gui.h"

#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "gui/custom_q_check_box.h"
#include "gui/edit_many_state.h"
#include "gui/edit_many_texts.h"
#include "gui/line_text_edit.h"
#include "gui/qt_text.h"
#include "gui/row_style.h"
#include "gui/row_widgets.h"
#include "gui/trace.h"
#include "platform/message_box.h"

struct ExistingSetGui::Widgets {
    QVBoxLayout* layout = nullptr;  // the window's layout, once inserted, owns it
    CustomQCheckBox* box = nullptr;
    QToolButton* expandButton = nullptr;
    LineTextEdit* nameField = nullptr;
};

ExistingSetGui::ExistingSetGui(QString name, QString guid, const SetCarriers& carriers)
    : name_(std::move(name)), initialName_(name_), guid_(std::move(guid)), carriers_(carriers) {}

ExistingSetGui::~ExistingSetGui() = default;

bool ExistingSetGui::isEditable() const {
    return std::any_of(carriers_.begin(), carriers_.end(),
                       [](const SetCarrier& carrier) { return carrier.isEditable; });
}

bool ExistingSetGui::isSelected() const {
    return std::all_of(properties_.begin(), properties_.end(),
                       [](const auto& property) { return property->isSelected(); });
}

ExistingPropertyGui& ExistingSetGui::property(const QString& name) {
    if (ExistingPropertyGui* const known = findProperty(name))
        return *known;
    ExistingPropertyGui& property =
        *properties_.emplace_back(std::make_unique<ExistingPropertyGui>(*this, name));
    propertiesByName_.emplace(name, &property);
    connect(&property, &ExistingPropertyGui::stateChanged, this, &ExistingSetGui::showSelection);
    connect(&property, &ExistingPropertyGui::ChildrenGuiVisibilityChanged, this,
            &ExistingSetGui::UpdateCreatedGuiPos);
    return property;
}

ExistingPropertyGui* ExistingSetGui::findProperty(const QString& name) const {
    const auto found = propertiesByName_.find(name);
    return found != propertiesByName_.end() ? found->second : nullptr;
}

bool ExistingSetGui::renameProperty(ExistingPropertyGui& property, const QString& name) {
    if (findProperty(name))
        return false;
    propertiesByName_.erase(property.name());
    property.setName(name);
    if (!name.isEmpty())  // several may be without a name while they are typed
        propertiesByName_.emplace(name, &property);
    return true;
}

void ExistingSetGui::resetName() {
    name_ = initialName_;
    restoreName();
}

void ExistingSetGui::createGui(QBoxLayout& into) {
    if (widgets_)
        return;
    widgets_ = std::make_unique<Widgets>();
    widgets_->layout = new QVBoxLayout;
    widgets_->layout->setSpacing(0);
    widgets_->layout->setAlignment(Qt::AlignTop);
    into.addLayout(widgets_->layout);
    auto* const header = new QHBoxLayout;
    header->setSpacing(0);
    widgets_->layout->addLayout(header);

    auto* const box = new CustomQCheckBox;
    box->setObjectName(QStringLiteral("SetCheckBox"));
    box->setAccessibleName(name_);
    box->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    connect(box, &QCheckBox::stateChanged, this, &ExistingSetGui::selectionEdited);
    header->addWidget(box);
    widgets_->box = box;
    row_widgets::addSpacer(*header, row_style::kSpacer);

    widgets_->expandButton = row_widgets::makeExpandButton("SetExpandButton");
    widgets_->expandButton->setAccessibleName(name_);
    row_widgets::showExpanded(*widgets_->expandButton, isExpanded_);
    connect(widgets_->expandButton, &QToolButton::clicked, this,
            &ExistingSetGui::ShowChildBtnPressed);
    header->addWidget(widgets_->expandButton);
    row_widgets::addSpacer(*header, row_style::kSpacer);

    auto* const field = new LineTextEdit;
    field->setObjectName(QStringLiteral("SetNameEdit"));
    field->setAccessibleName(editManyState().captions.setName);
    field->setToolTip(row_widgets::toolTip(name_));
    field->setBoldLine(name_);
    field->setReadOnly(!isEditable());
    connect(field, &QTextEdit::textChanged, this, &ExistingSetGui::nameEdited);
    header->addWidget(field);
    widgets_->nameField = field;
    ++editManyState().createdGuiCount;
    for (QWidget* const widget : focusOrder())
        widget->show();
    if (isExpanded_)
        createChildren();
    showSelection();
}

void ExistingSetGui::createChildren() {
    for (std::size_t index = 0; index < properties_.size(); ++index)
        properties_[index]->createGui(*widgets_->layout, static_cast<int>(index));
}

void ExistingSetGui::showChildren() {
    if (widgets_ && !isExpanded_)
        ShowChildBtnPressed();
}

void ExistingSetGui::destroyGui() {
    createdProperties = {};
    if (!widgets_)
        return;
    for (const auto& property : properties_)
        property->destroyGui();
    row_widgets::retire(this, widgets_->box);
    row_widgets::retire(this, widgets_->expandButton);
    row_widgets::retire(this, widgets_->nameField);
    delete widgets_->layout;
    widgets_.reset();
}

std::vector<QWidget*> ExistingSetGui::focusOrder() const {
    if (!widgets_)
        return {};
    return {widgets_->box, widgets_->expandButton, widgets_->nameField};
}

const LineTextEdit* ExistingSetGui::nameField() const {
    return widgets_ ? widgets_->nameField : nullptr;
}

void ExistingSetGui::selectAllRows(bool isSelected) {
    for (const auto& property : properties_)
        property->selectAllRows(isSelected);
    showSelection();
}

void ExistingSetGui::showSelection() {
    if (!widgets_)
        return;
    std::size_t selected = 0;
    std::size_t total = 0;
    for (const auto& property : properties_) {
        selected += property->selectedCount();
        total += property->rows().size();
    }
    row_widgets::showChecked(*widgets_->box, selected, total);
}

void ExistingSetGui::selectionEdited(int state) { selectAllRows(state == Qt::Checked); }

void ExistingSetGui::ShowChildBtnPressed() {
    isExpanded_ = !isExpanded_;
    if (!widgets_)
        return;
    row_widgets::showExpanded(*widgets_->expandButton, isExpanded_);
    if (isExpanded_) {
        createChildren();
    } else {
        const std::vector<QWidget*> header = focusOrder();
        QWidget* const focus = widgets_->box->window()->focusWidget();
        const QWidget* const area = widgets_->box->parentWidget();
        if (focus && area && area->isAncestorOf(focus) &&
            std::find(header.begin(), header.end(), focus) == header.end())
            widgets_->expandButton->setFocus();  // it may be in what goes now
        for (const auto& property : properties_)
            property->destroyGui();
    }
    UpdateCreatedGuiPos();
    emit ChildrenGuiVisibilityChanged();
}

void ExistingSetGui::UpdateCreatedGuiPos() {
    createdProperties = {};
    bool isFirst = true;
    for (std::size_t index = 0; index < properties_.size(); ++index) {
        const ExistingPropertyGui& property = *properties_[index];
        if (property.firstCreated == property.endCreated)
            continue;
        createdProperties.last = static_cast<std::int32_t>(index);
        if (std::exchange(isFirst, false))
            createdProperties.first = createdProperties.last;
    }
}

void ExistingSetGui::nameEdited() {
    if (isResettingName_)
        return;
    const QString typed = widgets_->nameField->line();
    if (typed == name_)
        return;
    std::u16string problem;
    if (guid_.isEmpty())
        problem = texts::many::kSetGuidEmpty;
    else if (isNameTaken_ && !typed.isEmpty() && isNameTaken_(*this, typed))
        problem = std::u16string(texts::many::kSet) + fromQString(typed) +
                  std::u16string(texts::many::kNameTaken);
    if (problem.empty()) {
        if (isTracing())
            trace(std::u16string(texts::many::kLogUpdatingChild) + fromQString(name_) +
                  std::u16string(texts::many::kLogTo) + fromQString(typed));
        name_ = typed;
        return;
    }
    isResettingName_ = true;
    platform::showMessageBox(problem, texts::many::kCaption, platform::MessageButtons::Ok,
                             platform::MessageIcon::Warning);
    isResettingName_ = false;
    restoreName();
}

void ExistingSetGui::restoreName() {
    if (!widgets_)
        return;
    isResettingName_ = true;
    widgets_->nameField->setBoldLine(name_);
    widgets_->nameField->moveCursor(QTextCursor::End);
    isResettingName_ = false;
}

void ExistingSetGui::takeFocus() {
    if (widgets_)
        widgets_->nameField->setFocus();
}
