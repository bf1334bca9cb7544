#pragma once

#include <QString>
#include <QWidget>

namespace standin {

/// The window that takes the input now: a menu that is open, the modal window on top, the active
/// window, or `otherwise`.
QWidget& inputWindow(QWidget& otherwise);

/// A visible window with that title, or that object name; null when there is none. Tool windows
/// have no title here.
QWidget* findWindow(const QString& name);

/// A visible widget in `window` by its object name, its accessible name, the text on it, or the
/// text of the label that belongs to it. "value[2]" is the second, in reading order. Null when
/// there is none.
QWidget* findWidget(QWidget& window, const QString& name);

/// The text that a widget shows or holds; of a button without the "&" that marks its key, and on
/// one line.
QString textOn(const QWidget& widget);

}  // namespace standin
