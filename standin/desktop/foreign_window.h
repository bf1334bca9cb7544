#pragma once

#include <QImage>
#include <QKeySequence>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

namespace standin {

/// A window of this process that our Qt knows nothing of, because a plug-in has brought its own
/// toolkit. Scripts find the system's own controls in it as a screen reader does: by their text, or
/// by the caption before them. What a toolkit paints itself is reached by keys alone. Input comes
/// in as from mouse and keyboard; it has arrived when hasArrived() says so.
class ForeignWindow {
public:
    /// The one that takes the input in place of our windows.
    static std::optional<ForeignWindow> onTop();
    static std::optional<ForeignWindow> named(const QString& title);
    static QStringList titles();
    /// Whether all input has been taken from the queue.
    static bool hasArrived();

    /// Ends their event loops, as a program does that ends.
    static void endAll();

    /// False while another window lies over it that has to be dealt with first.
    bool takesInput() const;

    /// A control of the window.
    using Control = std::uintptr_t;
    std::optional<Control> find(const QString& name) const;
    static bool isEnabled(Control control);
    static QString textOf(Control control);
    static void click(Control control);
    /// Of a list that drops down. @return false when it has no such item, or is no such list.
    static bool choose(Control control, const QString& item);

    /// To what has the focus. press() knows no media keys and the like. @return false for those.
    static bool press(const QKeySequence& keys);
    static void type(const QString& text);
    void close() const;
    QImage picture() const;

private:
    explicit ForeignWindow(std::uintptr_t handle) : handle_(handle) {}

    [[maybe_unused]] std::uintptr_t handle_;  // of a window; only Windows has any
};

}  // namespace standin
