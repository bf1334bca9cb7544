#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

/// Plays the user in front of windows that run their own event loops: while one is open, the steps
/// are done one after the other, each as soon as it can be. Goes on in nested loops, so that a step
/// may press what opens the next window.
class Pilot {
public:
    /// @return false as long as the step cannot be done yet; then it had no effect.
    using Step = std::function<bool()>;

    Pilot();
    /// Fails the test when steps are left.
    ~Pilot();
    Pilot(const Pilot&) = delete;
    Pilot& operator=(const Pilot&) = delete;

    /// what: for the message of a step that never becomes possible, after which the process ends:
    /// nobody would close the window.
    Pilot& then(std::string what, Step step);

    /// Presses and releases the left button on a widget of the uppermost window.
    Pilot& press(const QString& widget);
    /// Clicks the button with that text in the message box with that text in its message.
    Pilot& answerBox(const QString& message, const QString& button);
    /// Clicks into a text field, takes out what it holds, and types. Combo boxes too.
    Pilot& type(const QString& widget, const QString& text);
    Pilot& choose(const QString& comboBox, const QString& item);

    bool isDone() const;

private:
    struct State;
    std::shared_ptr<State> state_;
};

/// The window that takes input now; null when there is none.
QWidget* uppermostWindow();

/// A visible and enabled widget by its object name, or by the text of a button, in `window`, by
/// default the uppermost one. Null when there is none, or when it lies out of sight.
QWidget* findWidget(const QString& name, const QWidget* window = nullptr);

/// A real click in the middle of the widget, which is scrolled into view before.
void clickOn(QWidget& widget);

/// A real click into the text field (or the edit field of a combo box), Ctrl+A, and keys.
void typeInto(QWidget& field, const QString& text);
