#pragma once

#include <QKeySequence>
#include <QModelIndex>
#include <QPoint>
#include <QString>
#include <QTreeView>
#include <QWidget>

/// What mouse and keyboard send, for scripts: through the window, so that it reaches what a person
/// would reach.
namespace standin::input {

/// In the middle of the widget, or at `position` in it; scrolls it into view.
void click(QWidget& widget);
void click(QWidget& widget, const QPoint& position, Qt::MouseButton button = Qt::LeftButton,
           Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// On the text of a row, which is scrolled into view.
void clickRow(QTreeView& tree, const QModelIndex& row,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier,
              Qt::MouseButton button = Qt::LeftButton);
/// To what has the focus in `window`.
void press(QWidget& window, const QKeySequence& keys);
void type(QWidget& window, const QString& text);

}  // namespace standin::input
