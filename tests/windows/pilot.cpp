#include "tests/windows/pilot.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QScrollArea>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <deque>
#include <iostream>

namespace {

constexpr int kPatienceMs = 30'000;

QString textOf(const QAbstractButton& button) {
    QString text = button.text();
    return text.remove(QLatin1Char('&'));
}

void describeWindows() {
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible())
            std::cerr << "  " << window->metaObject()->className() << " '"
                      << window->windowTitle().toStdString() << "' "
                      << window->objectName().toStdString() << '\n';
}

}  // namespace

struct Pilot::State : std::enable_shared_from_this<Pilot::State> {
    struct Named {
        std::string what;
        Step step;
    };

    std::deque<Named> steps;
    QElapsedTimer waiting;

    // A timer of its own for every turn: one that is being served does not fire in nested loops.
    void schedule() {
        QTimer::singleShot(1, [self = weak_from_this()] {
            if (const auto state = self.lock())
                state->turn();
        });
    }

    void turn() {
        schedule();
        if (steps.empty())
            return;
        const Named next = steps.front();
        steps.pop_front();  // before it is done: it may go on in a nested loop
        const std::size_t left = steps.size();
        if (next.step()) {
            waiting.restart();
            return;
        }
        if (steps.size() != left)
            return;
        steps.push_front(next);
        if (waiting.elapsed() < kPatienceMs)
            return;
        std::cerr << "Nobody can " << next.what << "; visible windows:\n";
        describeWindows();
        std::abort();
    }
};

Pilot::Pilot() : state_(std::make_shared<State>()) {
    state_->waiting.start();
    state_->schedule();
}

Pilot::~Pilot() {
    for (const auto& step : state_->steps)
        ADD_FAILURE() << "not done: " << step.what;
}

Pilot& Pilot::then(std::string what, Step step) {
    state_->steps.push_back({std::move(what), std::move(step)});
    state_->waiting.restart();
    return *this;
}

Pilot& Pilot::press(const QString& widget) {
    return then("press " + widget.toStdString(), [widget] {
        QWidget* const found = findWidget(widget);
        if (found)
            clickOn(*found);
        return found != nullptr;
    });
}

Pilot& Pilot::answerBox(const QString& message, const QString& button) {
    return then("answer '" + message.toStdString() + "'", [message, button] {
        auto* const box = qobject_cast<QMessageBox*>(uppermostWindow());
        if (!box || !box->text().contains(message))
            return false;
        for (QAbstractButton* const each : box->buttons()) {
            if (textOf(*each) == button) {
                clickOn(*each);
                return true;
            }
        }
        return false;
    });
}

Pilot& Pilot::type(const QString& widget, const QString& text) {
    return then("type into " + widget.toStdString(), [widget, text] {
        QWidget* const found = findWidget(widget);
        if (found)
            typeInto(*found, text);
        return found != nullptr;
    });
}

Pilot& Pilot::choose(const QString& comboBox, const QString& item) {
    return then("choose " + item.toStdString() + " in " + comboBox.toStdString(), [=] {
        auto* const box = qobject_cast<QComboBox*>(findWidget(comboBox));
        const int index = box ? box->findText(item) : -1;
        if (index < 0)
            return false;
        box->setFocus();
        box->setCurrentIndex(index);
        return true;
    });
}

bool Pilot::isDone() const { return state_->steps.empty(); }

QWidget* uppermostWindow() {
    if (QWidget* const popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal;
    // A list that was closed may still count as active.
    if (QWidget* const active = QApplication::activeWindow(); active && active->isVisible())
        return active;
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (window->isVisible())
            return window;
    return nullptr;
}

QWidget* findWidget(const QString& name, const QWidget* window) {
    if (!window)
        window = uppermostWindow();
    if (!window)
        return nullptr;
    const auto isUsable = [&](const QWidget* widget) {
        return widget->isVisibleTo(window) && widget->isEnabled();
    };
    for (QWidget* const widget : window->findChildren<QWidget*>(name))
        if (isUsable(widget))
            return widget;
    for (QAbstractButton* const button : window->findChildren<QAbstractButton*>())
        if (isUsable(button) && textOf(*button) == name)
            return button;
    return nullptr;
}

void clickOn(QWidget& widget) {
    for (QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget())
        if (auto* const area = qobject_cast<QScrollArea*>(parent))
            area->ensureWidgetVisible(&widget);
    // Check boxes and radio buttons may be wider than what reacts.
    const bool isWide = widget.width() > 2 * widget.height();
    QTest::mouseClick(
        &widget, Qt::LeftButton, {},
        isWide ? QPoint(widget.height() / 2, widget.height() / 2) : widget.rect().center());
}

void typeInto(QWidget& field, const QString& text) {
    auto* const area = qobject_cast<QAbstractScrollArea*>(&field);
    clickOn(area ? *area->viewport() : field);
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Delete);
    for (const QChar& character : text)
        QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, character, Qt::NoModifier);
}
