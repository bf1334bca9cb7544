#include "gui/property_dialog.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

#include "gui/dialog_texts.h"
#include "gui/message_boxes.h"
#include "gui/qt_text.h"
#include "gui/row_style.h"
#include "gui/unit_combo_box.h"

namespace {

constexpr int kWidth = 860;
constexpr int kHeight = 200;
constexpr int kHeightWithProperty = 260;
constexpr QPoint kPositionWithoutScreen(100, 100);
constexpr QSize kIconSize(36, 36);
constexpr int kVisibleUnits = 15;
constexpr int kColumnSpacing = 12;
constexpr int kMinFieldWidth = 120;
constexpr int kValueLines = 3;
constexpr int kUnitLength = 12;  // signs

/// Window titles take "[*]" for the place of a mark.
QString titleText(std::u16string_view text) {
    return toQString(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

QLineEdit* makeNameField(const char* name, std::u16string_view text) {
    auto* const field = new QLineEdit;
    field->setObjectName(QString::fromLatin1(name));
    field->setMaxLength(std::numeric_limits<int>::max());  // no name is cut
    field->setText(toQString(text));
    return field;
}

QStringList toQStrings(const std::vector<std::u16string>& texts) {
    QStringList list;
    for (const std::u16string& text : texts)
        list.append(toQString(text));
    return list;
}

/// The text of a field; what the user did not touch is as it was given, whatever the field made of
/// it.
std::u16string textOf(const QLineEdit& field, const std::u16string& shown) {
    return field.isModified() ? fromQString(field.text()) : shown;
}

}  // namespace

PropertyDialog::PropertyDialog(IFC::PropertyWindowInput input, TextLookup textOf, const QIcon& icon,
                               QWidget* parent)
    : QDialog(parent), input_(std::move(input)), textOf_(std::move(textOf)) {
    setObjectName(QStringLiteral("PropertyDialog"));
    setWindowTitle(titleText(input_.title));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowIcon(QIcon(icon.pixmap(kIconSize)));
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(makeSetGroup());
    if (hasPropertyFields(input_.mode))
        layout->addWidget(makePropertyGroup(), 1);
    else
        layout->addStretch(1);
    layout->addLayout(makeButtons());
    const bool isEdit = input_.mode == IFC::PropertyWindowMode::EditProperty;
    widgetOf(canEditSetName(input_.mode) ? PropertyField::SetName
             : isEdit                    ? PropertyField::Value
                                         : PropertyField::PropertyName)
        ->setFocus();
    place();
}

QString PropertyDialog::text(const char* key) const {
    return textOf_ ? toQString(textOf_(key)) : QString();
}

QWidget* PropertyDialog::makeSetGroup() {
    auto* const group = new QGroupBox(toQString(input_.setLabel));
    auto* const grid = new QGridLayout(group);
    setName_ = makeNameField("SetName", input_.setName);
    setName_->setEnabled(canEditSetName(input_.mode));
    addField(*grid, toQString(input_.setNameMessage), setName_, 1);
    setName_->installEventFilter(this);
    notClicked_.push_back(setName_);
    return group;
}

QWidget* PropertyDialog::makePropertyGroup() {
    auto* const group = new QGroupBox(toQString(input_.propertyData));
    auto* const grid = new QGridLayout(group);
    grid->setHorizontalSpacing(kColumnSpacing);
    propertyName_ = makeNameField("PropertyName", input_.propertyName);
    propertyName_->setMinimumWidth(kMinFieldWidth);
    propertyName_->installEventFilter(this);
    notClicked_.push_back(propertyName_);
    addField(*grid, toQString(input_.propertyNameMessage), propertyName_, 3);
    addField(*grid, text(texts::kValueLabelKey), makeValueField(), 3);
    addField(*grid, text(texts::kUnitLabelKey), makeUnitField(), 2);
    if (hasQuantityType(input_))
        addField(*grid, toQString(input_.quantityTypeLabel), makeQuantityTypeField(), 2);
    grid->setRowStretch(1, 1);
    return group;
}

QWidget* PropertyDialog::makeValueField() {
    if (input_.isTruthValue) {
        truthValue_ = new QComboBox;
        truthValue_->setObjectName(QStringLiteral("TruthValue"));
        truthValue_->addItems({toQString(input_.no), toQString(input_.yes)});
        truthValue_->setCurrentIndex(input_.truthValue ? 1 : 0);
        return truthValue_;
    }
    value_ = new QPlainTextEdit(toQString(input_.value));
    value_->setObjectName(QStringLiteral("Value"));
    value_->setTabChangesFocus(true);
    value_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    value_->setMinimumWidth(kMinFieldWidth);
    value_->setMinimumHeight(kValueLines * value_->fontMetrics().lineSpacing() +
                             2 * value_->frameWidth() +
                             static_cast<int>(2 * value_->document()->documentMargin()));
    value_->document()->setModified(false);
    value_->moveCursor(QTextCursor::End);
    value_->installEventFilter(this);
    value_->viewport()->installEventFilter(this);
    notClicked_.push_back(value_->viewport());
    return value_;
}

QWidget* PropertyDialog::makeUnitField() {
    unit_ = new QComboBox;
    unit_->setObjectName(QStringLiteral("Unit"));
    const std::vector<std::u16string> units = offeredUnits(input_);
    unit_->addItems(toQStrings(units));
    unit_->setEditable(true);
    unit_->setInsertPolicy(QComboBox::NoInsert);
    unit_->setCompleter(nullptr);
    unit_->setMaxVisibleItems(kVisibleUnits);
    unit_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    unit_->setMinimumContentsLength(kUnitLength);
    unit_->view()->setMinimumWidth(unit_->view()->sizeHintForColumn(0) +
                                   style()->pixelMetric(QStyle::PM_ScrollBarExtent) +
                                   2 * unit_->view()->frameWidth());
    unit_->setCurrentIndex(firstUnitIndex(input_));
    unit_->setEnabled(!input_.isTruthValue);
    new UnitTextMatcher(
        *unit_, [units](const QString& typed) { return unitIndexFor(units, fromQString(typed)); });
    return unit_;
}

QWidget* PropertyDialog::makeQuantityTypeField() {
    quantityType_ = new QComboBox;
    quantityType_->setObjectName(QStringLiteral("QuantityType"));
    quantityType_->addItems(toQStrings(offeredQuantityTypes(input_)));
    quantityType_->setCurrentIndex(firstQuantityTypeIndex(input_));
    connect(quantityType_, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyDialog::quantityTypeChosen);
    return quantityType_;
}

/// A column of the grid: the caption above its field.
void PropertyDialog::addField(QGridLayout& grid, const QString& caption, QWidget* field,
                              int stretch) {
    const int column = grid.count() == 0 ? 0 : grid.columnCount();
    auto* const label = new QLabel(caption);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(field);
    field->setAccessibleName(caption);
    grid.addWidget(label, 0, column, Qt::AlignBottom);
    const bool isHigh = qobject_cast<QPlainTextEdit*>(field) != nullptr;
    grid.addWidget(field, 1, column, isHigh ? Qt::Alignment() : Qt::AlignTop);
    grid.setColumnStretch(column, stretch);
}

QLayout* PropertyDialog::makeButtons() {
    auto* const line = new QHBoxLayout;
    line->addStretch(1);
    const auto addButton = [&](const char* name, const std::u16string& caption, auto slot) {
        auto* const button = new QPushButton(toQString(caption));
        button->setObjectName(QString::fromLatin1(name));
        button->setMinimumSize(QSize(row_style::kMinButtonWidth, row_style::kMaxFieldHeight)
                                   .expandedTo(button->sizeHint()));
        button->setAutoDefault(false);  // Return is OK wherever the focus is
        connect(button, &QPushButton::clicked, this, slot);
        line->addWidget(button);
        return button;
    };
    addButton("OkButton", input_.ok, &PropertyDialog::accept)->setDefault(true);
    addButton("CancelButton", input_.cancel, &PropertyDialog::reject);
    return line;
}

void PropertyDialog::place() {
    const bool isHigh = hasPropertyFields(input_.mode) && !input_.propertyData.empty() &&
                        !input_.propertyNameMessage.empty();
    const QSize wanted(kWidth, isHigh ? kHeightWithProperty : kHeight);
    const QScreen* const screen = QGuiApplication::primaryScreen();
    if (!screen) {
        resize(wanted.expandedTo(sizeHint()));
        move(kPositionWithoutScreen);
        return;
    }
    const QRect desktop = screen->availableGeometry();
    resize(wanted.expandedTo(sizeHint()).boundedTo(desktop.size()));
    const int right = desktop.x() + desktop.width();
    const int bottom = desktop.y() + desktop.height();
    move(std::max(right / 3 - width() / 3 + 5, desktop.x()),
         std::max(bottom / 3 - height() / 3, desktop.y()));
}

void PropertyDialog::quantityTypeChosen(int index) {
    const int unit = unitIndexOf(fromQString(quantityType_->itemText(index)));
    unit_->setCurrentIndex(unit);
    if (unit == kNoUnit)
        unit_->clearEditText();
}

void PropertyDialog::setVisible(bool isVisible) {
    QDialog::setVisible(isVisible);
    // The focus selects the text of the field that has it first.
    auto* const field = qobject_cast<QLineEdit*>(focusWidget());
    if (isVisible && field)
        field->end(false);
}

PropertyEntry PropertyDialog::entry() const {
    PropertyEntry entry;
    entry.setName = textOf(*setName_, input_.setName);
    if (!hasPropertyFields(input_.mode))
        return entry;
    entry.propertyName = textOf(*propertyName_, input_.propertyName);
    entry.value = valueText();
    entry.unit = fromQString(unit_->currentText().trimmed());
    if (quantityType_)
        entry.quantityType = fromQString(quantityType_->currentText());
    return entry;
}

std::u16string PropertyDialog::valueText() const {
    if (truthValue_)
        return truthValue_->currentIndex() == 1 ? u"1" : u"0";
    if (!value_->document()->isModified())
        return input_.value;
    // Not toPlainText(), which makes blanks of no-break spaces.
    return fromQString(value_->document()->toRawText().replace(QChar::ParagraphSeparator, u'\n'));
}

QWidget* PropertyDialog::widgetOf(PropertyField field) const {
    switch (field) {
        case PropertyField::SetName: return setName_;
        case PropertyField::PropertyName: return propertyName_;
        case PropertyField::Value: return truthValue_ ? static_cast<QWidget*>(truthValue_) : value_;
        case PropertyField::Unit: return unit_;
        case PropertyField::QuantityType: return quantityType_;
    }
    return nullptr;
}

void PropertyDialog::accept() {
    auto result = resultOf(input_, entry());
    if (const auto* const problem = std::get_if<FieldProblem>(&result)) {
        showMessage(this, textOf_ ? textOf_(problem->textKey) : std::u16string(),
                    texts::kInputErrorCaption, platform::MessageButtons::Ok,
                    platform::MessageIcon::Warning, textOf_);
        if (QWidget* const field = widgetOf(problem->field))
            field->setFocus();
        return;
    }
    entered_ = std::move(std::get<IFC::PropertyWindowResult>(result));
    QDialog::accept();
}

bool PropertyDialog::eventFilter(QObject* watched, QEvent* event) {
    if (isFirstClick(watched, *event)) {
        if (value_ && watched == value_->viewport()) {
            value_->setFocus(Qt::MouseFocusReason);
            value_->selectAll();
        } else {
            auto* const field = static_cast<QLineEdit*>(watched);
            field->setFocus(Qt::MouseFocusReason);
            field->selectAll();
        }
        return true;
    }
    if (value_ && watched == value_ && event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
            if (key.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier))
                value_->insertPlainText(QStringLiteral("\n"));
            else
                accept();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

/// Once for each field.
bool PropertyDialog::isFirstClick(QObject* watched, const QEvent& event) {
    if (event.type() != QEvent::MouseButtonPress ||
        static_cast<const QMouseEvent&>(event).button() != Qt::LeftButton)
        return false;
    return std::erase(notClicked_, watched) > 0;
}

std::optional<IFC::PropertyWindowResult> askInPropertyDialog(const IFC::PropertyWindowInput& input,
                                                             const TextLookup& textOf,
                                                             const std::u16string& pluginFolder,
                                                             QWidget* parent) {
    std::u16string iconPath = pluginFolder;
    iconPath += texts::kEditIcon;
    PropertyDialog dialog(input, textOf, QIcon(toQString(iconPath)), parent);
    dialog.exec();
    return dialog.entered();
}
