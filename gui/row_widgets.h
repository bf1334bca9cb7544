#pragma once

#include <QBoxLayout>
#include <QIcon>
#include <QString>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QPushButton;
class QScrollArea;
class QToolButton;

/// What the rows of the edit-many window build themselves from.
namespace row_widgets {

/// A button as wide as its icon that shows or hides what is below it.
QToolButton* makeExpandButton(const char* objectName);
void showExpanded(QToolButton& button, bool isExpanded);

QPushButton* makeButton(const char* objectName, const QString& caption);

void addSpacer(QBoxLayout& layout, int width);

/// All, some or none of the rows below are checked; says nothing to those connected.
void showChecked(QCheckBox& box, std::size_t checked, std::size_t total);

/// For a tool tip: markup in `text` is shown, lines are kept, what is very long is cut.
QString toolTip(const QString& text);

/// What `widget` is scrolled by; null for nothing.
QScrollArea* scrollAreaOf(const QWidget& widget);

/// Gives the keyboard to a widget that may just have been made, and scrolls to it.
void takeFocus(QWidget& widget);

/// Hides `widget`, deletes it later, because the call may come from its own signal, and forgets it
/// at once, so that the row may be built again before that.
template <class Widget>
void retire(const QObject* row, Widget*& widget) {
    if (!widget)
        return;
    widget->disconnect(row);
    widget->hide();
    widget->deleteLater();
    widget = nullptr;
}

/// While it lives, the layout of `parent` does nothing. Without it every widget that is shown lays
/// out all that were shown before.
class LayoutPause {
public:
    /// parent: null for nothing to pause.
    explicit LayoutPause(QWidget* parent);
    ~LayoutPause();
    LayoutPause(const LayoutPause&) = delete;
    LayoutPause& operator=(const LayoutPause&) = delete;

private:
    QLayout* layout_ = nullptr;  // to be started again
};

}  // namespace row_widgets
