#include "gui/unit_combo_box.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QPointer>
#include <QStringListModel>
#include <QWheelEvent>

#include "gui/qt_text.h"
#include "gui/row_style.h"
#include "ifc/model/units.h"

namespace {

/// One list of labels for all boxes, as long as the application lives: there may be thousands.
QAbstractItemModel* unitLabels() {
    static QPointer<QStringListModel> model;
    if (!model) {
        QStringList labels;
        for (const std::u16string_view label : IFC::siUnitLabels())
            labels.append(toQString(label));
        model = new QStringListModel(labels, qApp);
    }
    return model;
}

/// Not a list of its own: only this kind can hide rows.
QListView& listOf(QComboBox& box) {
    auto* list = qobject_cast<QListView*>(box.view());
    if (!list) {
        list = new QListView;
        box.setView(list);  // which takes it
    }
    return *list;
}

std::int64_t systemClockMs() {
    QElapsedTimer now;
    now.start();
    return now.msecsSinceReference();
}

/// Keeps a list open that was opened with a press of the mouse: the list gets the release too, and
/// would be closed by it.
class ReleaseIgnorer : public QObject {
public:
    /// list: owns this until the mouse is released.
    explicit ReleaseIgnorer(QWidget& list) : QObject(&list) { list.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        const bool isRelease = event->type() == QEvent::MouseButtonRelease;
        if (isRelease || event->type() == QEvent::Hide)
            deleteLater();
        return isRelease;
    }
};

void showPopupForPress(QComboBox& box) {
    box.showPopup();
    new ReleaseIgnorer(*box.view()->window());
}

/// The parts of a box still get events, such as a loss of the focus, when it is no combo box any
/// more.
bool isBeingDestroyed(const QObject& box) { return !qobject_cast<const QComboBox*>(&box); }

/// Whether the key writes a sign.
bool isTyping(const QKeyEvent& key) {
    const auto commands = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    const bool isCommand = commands == Qt::ControlModifier || commands == Qt::AltModifier;
    // Both together are AltGr.
    return !key.text().isEmpty() && key.text().at(0).isPrint() && !isCommand;
}

}  // namespace

void setUpUnitComboBox(QComboBox& box, int index) {
    // First: what follows would measure all labels otherwise.
    box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box.setModel(unitLabels());
    box.setEditable(true);
    box.setInsertPolicy(QComboBox::NoInsert);
    box.setCompleter(nullptr);
    box.setMaxVisibleItems(15);
    box.setMinimumWidth(row_style::kMinUnitWidth);
    box.setMaximumHeight(row_style::kMaxFieldHeight);
    box.setCurrentIndex(index);
}

WheelIgnorer::WheelIgnorer(QComboBox& box) : QObject(&box) { box.installEventFilter(this); }

bool WheelIgnorer::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::Wheel)
        return false;
    event->ignore();  // so that it goes on to what the box lies in
    return true;
}

UnitTypeAhead::UnitTypeAhead(QComboBox& box, Clock clock)
    : QObject(&box),
      box_(box),
      list_(listOf(box)),
      clock_(clock ? std::move(clock) : Clock(systemClockMs)) {
    box.installEventFilter(this);
    if (box.lineEdit())
        box.lineEdit()->installEventFilter(this);
    list_.installEventFilter(this);
}

bool UnitTypeAhead::eventFilter(QObject* watched, QEvent* event) {
    if (isBeingDestroyed(*parent()))
        return false;
    switch (event->type()) {
        case QEvent::Wheel:
            if (watched != &box_)
                return false;
            event->ignore();
            return true;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            if (watched == &list_ || !box_.isEnabled())
                return false;
            showAllRows();
            showPopupForPress(box_);
            return true;
        case QEvent::KeyPress: return keyPressed(static_cast<const QKeyEvent&>(*event));
        default: return false;
    }
}

/// @return whether the key was for the list.
bool UnitTypeAhead::keyPressed(const QKeyEvent& key) {
    const bool isErasing = key.key() == Qt::Key_Backspace;
    if (!isErasing && !isTyping(key)) {
        if (!list_.isVisible())
            showAllRows();  // before a key that opens the list
        return false;
    }
    const std::int64_t now = clock_();
    if (now - lastKeyMs_ > kPauseMs)
        prefix_.clear();
    lastKeyMs_ = now;
    if (isErasing)
        prefix_.chop(1);
    else
        prefix_ += key.text();
    if (!list_.isVisible())
        box_.showPopup();
    showRowsFor(prefix_);
    return true;
}

void UnitTypeAhead::showRowsFor(const QString& prefix) {
    const QAbstractItemModel& model = *box_.model();
    const auto label = [&](int row) { return model.index(row, 0).data().toString(); };
    const int rows = model.rowCount();
    int first = -1;
    const auto show = [&](int row, bool isShown) {
        list_.setRowHidden(row, !isShown);
        if (isShown && first < 0)
            first = row;
    };
    for (int row = 0; row < rows; ++row)
        show(row, label(row).startsWith(prefix));
    if (first < 0) {
        const QString upperPrefix = prefix.toUpper();
        for (int row = 0; row < rows; ++row)
            show(row, label(row).toUpper().contains(upperPrefix));
    }
    // Without any, Return must not take one that is hidden.
    list_.setCurrentIndex(first >= 0 ? model.index(first, box_.modelColumn()) : QModelIndex());
    list_.scrollToTop();
}

void UnitTypeAhead::showAllRows() {
    prefix_.clear();
    for (int row = 0; row < box_.count(); ++row)
        list_.setRowHidden(row, false);
}

UnitTextMatcher::UnitTextMatcher(QComboBox& box, Match match)
    : QObject(&box), box_(box), match_(std::move(match)) {
    box.installEventFilter(this);              // has the focus, and so the keys
    box.lineEdit()->installEventFilter(this);  // has the clicks
    box.view()->installEventFilter(this);
}

bool UnitTextMatcher::eventFilter(QObject* watched, QEvent* event) {
    if (isBeingDestroyed(*parent()))
        return false;
    switch (event->type()) {
        case QEvent::KeyPress:
            return watched == box_.view() && takeFromList(static_cast<QKeyEvent&>(*event));
        case QEvent::KeyRelease: {
            const auto& key = static_cast<const QKeyEvent&>(*event);
            const bool isErasing = key.key() == Qt::Key_Backspace;
            if (isErasing || isTyping(key))
                typed(isErasing);
            return false;
        }
        case QEvent::MouseButtonPress:
            if (watched == box_.lineEdit())
                showPopupForPress(box_);
            return false;
        case QEvent::FocusOut:
            if (watched == &box_ && !box_.view()->isVisible())  // not to the list
                choose(match_(typedText()));
            return false;
        default: return false;
    }
}

/// While the list is open it has the keys: what is typed goes on into the box, and so does Tab,
/// which takes the marked entry first. @return whether the key was such a one.
bool UnitTextMatcher::takeFromList(QKeyEvent& key) {
    if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) {
        const QModelIndex marked = box_.view()->currentIndex();
        box_.hidePopup();
        choose(marked.isValid() ? marked.row() : -1);
    } else if (key.key() != Qt::Key_Backspace && !isTyping(key)) {
        return false;
    }
    QCoreApplication::sendEvent(&box_, &key);
    return true;
}

/// Without what was added behind the cursor.
QString UnitTextMatcher::typedText() const {
    const QLineEdit& line = *box_.lineEdit();
    QString text = line.text();
    if (line.hasSelectedText() && line.selectionEnd() == text.size())
        text.truncate(line.selectionStart());
    return text.left(kMaxTyped);
}

void UnitTextMatcher::choose(int index) {
    if (index >= 0)
        box_.setCurrentIndex(index);
}

void UnitTextMatcher::typed(bool isErasing) {
    const QString text = typedText();
    if (!box_.view()->isVisible())
        box_.showPopup();  // which takes the focus, and with it the selection
    const int index = match_(text);
    const QString label = box_.itemText(index);
    if (index >= 0 && !isErasing && label.startsWith(text, Qt::CaseInsensitive)) {
        box_.setCurrentIndex(index);
        box_.lineEdit()->setText(label);
        box_.lineEdit()->setSelection(label.size(), text.size() - label.size());
    }
    if (index >= 0)
        box_.view()->setCurrentIndex(box_.model()->index(index, box_.modelColumn()));
}
