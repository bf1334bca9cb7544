#include "standin/desktop/user_input.h"

#include <QApplication>
#include <QPointer>
#include <QScrollArea>
#include <QTest>
#include <QWindow>

namespace standin::input {
namespace {

/// Where there is no window manager, nobody makes a window the active one when another has closed.
void activate(QWidget& window) {
    if (window.windowType() != Qt::Popup && !window.isActiveWindow()) {
        window.activateWindow();
        QApplication::setActiveWindow(&window);
    }
}

QWidget& focusIn(QWidget& window) {
    if (window.windowType() == Qt::Popup)
        return window;
    QWidget* const focus = window.focusWidget();
    return focus ? *focus : window;
}

}  // namespace

void click(QWidget& widget) { click(widget, widget.rect().center()); }

void click(QWidget& widget, const QPoint& position, Qt::MouseButton button,
           Qt::KeyboardModifiers modifiers) {
    for (QWidget* above = widget.parentWidget(); above; above = above->parentWidget())
        if (auto* const area = qobject_cast<QScrollArea*>(above))
            area->ensureWidgetVisible(&widget);
    QWidget* const window = widget.window();
    // It would take the click for its own end.
    if (QWidget* const popup = QApplication::activePopupWidget(); popup && popup != window)
        popup->close();
    activate(*window);
    QTest::mouseClick(window->windowHandle(), button, modifiers, widget.mapTo(window, position));
}

void clickRow(QTreeView& tree, const QModelIndex& row, Qt::KeyboardModifiers modifiers,
              Qt::MouseButton button) {
    tree.scrollTo(row);
    const QRect place = tree.visualRect(row).intersected(tree.viewport()->rect());
    click(*tree.viewport(), place.center(), button, modifiers);
}

void press(QWidget& window, const QKeySequence& keys) {
    activate(window);
    const QPointer<QWidget> there(&window);
    for (int at = 0; at < keys.count() && there; ++at) {
        const auto code = static_cast<unsigned>(keys[static_cast<unsigned>(at)]);
        const auto modifiers = static_cast<unsigned>(Qt::KeyboardModifierMask);
        QTest::keyClick(&focusIn(window), static_cast<Qt::Key>(code & ~modifiers),
                        Qt::KeyboardModifiers(QFlag(static_cast<int>(code & modifiers))));
    }
}

void type(QWidget& window, const QString& text) {
    activate(window);
    const QPointer<QWidget> there(&window);
    for (int at = 0; at < text.size() && there; ++at) {
        QString letter = text.mid(at, 1);
        if (text.at(at).isHighSurrogate())
            letter += text.mid(++at, 1);
        if (letter == QLatin1String("\n"))
            QTest::keyClick(&focusIn(window), Qt::Key_Return);
        else
            QTest::sendKeyEvent(QTest::Click, &focusIn(window),
                                static_cast<Qt::Key>(letter.at(0).toUpper().unicode()), letter,
                                Qt::NoModifier);
    }
}

}  // namespace standin::input
