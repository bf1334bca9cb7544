#include "standin/desktop/widget_finder.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRegularExpression>
#include <QTextEdit>
#include <algorithm>
#include <vector>

namespace standin {
namespace {

/// Captions mark their key by "&", and break where there is no room.
QString plain(QString caption) {
    static const QRegularExpression kMark(QStringLiteral("&(.)"));
    return caption.replace(kMark, QStringLiteral("\\1")).simplified();
}

bool isCalled(const QWidget& widget, const QString& name) {
    if (widget.objectName() == name || widget.accessibleName() == name)
        return true;
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    const bool hasText = label || qobject_cast<const QAbstractButton*>(&widget) ||
                         qobject_cast<const QGroupBox*>(&widget);
    return hasText && textOn(widget) == name;
}

/// The widget that a label belongs to; else the widget itself.
QWidget* target(QWidget* widget) {
    const auto* const label = qobject_cast<const QLabel*>(widget);
    return label && label->buddy() ? label->buddy() : widget;
}

}  // namespace

QWidget& inputWindow(QWidget& otherwise) {
    QWidget* popup = QApplication::activePopupWidget();
    // The proposals for a field take no input from it.
    if (qobject_cast<QAbstractItemView*>(popup))
        popup = nullptr;
    for (QWidget* const window :
         {popup, QApplication::activeModalWidget(), QApplication::activeWindow()})
        if (window && window->isVisible())
            return *window;
    return otherwise;
}

QWidget* findWindow(const QString& name) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        // Boxes that say "please wait" bear the title of what they are for.
        const bool isTitled = window->windowType() != Qt::Tool && window->windowTitle() == name;
        if (window->isVisible() && (isTitled || window->objectName() == name))
            return window;
    }
    return nullptr;
}

QWidget* findWidget(QWidget& window, const QString& name) {
    static const QRegularExpression kNumbered(QStringLiteral("^(.+)\\[(\\d+)\\]$"));
    const QRegularExpressionMatch numbered = kNumbered.match(name);
    const QString bare = numbered.hasMatch() ? numbered.captured(1) : name;
    const std::size_t wanted =
        numbered.hasMatch() ? std::max(numbered.captured(2).toUInt(), 1U) : 1U;
    std::vector<QWidget*> found;
    for (QWidget* const widget : window.findChildren<QWidget*>())
        if (widget->isVisible() && isCalled(*widget, bare))
            found.push_back(widget);
    if (found.empty() && isCalled(window, bare))
        found.push_back(&window);
    std::stable_sort(found.begin(), found.end(), [&](const QWidget* a, const QWidget* b) {
        const QPoint left = a->mapTo(&window, QPoint());
        const QPoint right = b->mapTo(&window, QPoint());
        return left.y() != right.y() ? left.y() < right.y() : left.x() < right.x();
    });
    return found.size() < wanted ? nullptr : target(found[wanted - 1]);
}

QString textOn(const QWidget& widget) {
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
        return plain(button->text());
    if (const auto* const label = qobject_cast<const QLabel*>(&widget))
        return label->buddy() ? plain(label->text()) : label->text();
    if (const auto* const group = qobject_cast<const QGroupBox*>(&widget))
        return plain(group->title());
    if (const auto* const line = qobject_cast<const QLineEdit*>(&widget))
        return line->text();
    if (const auto* const text = qobject_cast<const QTextEdit*>(&widget))
        return text->toPlainText();
    if (const auto* const text = qobject_cast<const QPlainTextEdit*>(&widget))
        return text->toPlainText();
    if (const auto* const combo = qobject_cast<const QComboBox*>(&widget))
        return combo->currentText();
    if (const auto* const bar = qobject_cast<const QProgressBar*>(&widget))
        return bar->text();
    return widget.windowTitle();
}

}  // namespace standin
