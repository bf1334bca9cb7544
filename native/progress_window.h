#pragma once

#include <memory>
#include <string>

namespace native {

/// A window with two bars and a label above each, which is there as long as this. Modal to the
/// window that the user works in.
///
/// The work runs on the same thread, so it is show() that lets the window live: it hands on what
/// the user does in this window, and lets the thread's other windows paint, but nothing else gets
/// to them in the middle of the work. Of a WM_QUIT the thread's loop hears when this is gone; until
/// then it is a wish to cancel.
class ProgressWindow {
public:
    /// cancelCaption: empty for work that cannot be cancelled: there is no button then, and the
    /// window cannot be closed. iconFile: path; may be missing. All texts are shown as they are.
    ProgressWindow(const std::u16string& title, const std::u16string& cancelCaption,
                   const std::u16string& iconFile);
    ~ProgressWindow();
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    /// Whether the window could be opened. All else does nothing when not.
    bool isOpen() const { return window_ != nullptr; }

    /// Percents: 0 to 100, what lies outside is taken for the nearer one. A label that is too long
    /// is shortened. The first call makes the window visible.
    void show(int overallPercent, const std::u16string& overallLabel, int currentPercent,
              const std::u16string& currentLabel) noexcept;

    /// Whether the user has pressed the button or Escape or closed the window since this was last
    /// called.
    bool takeCancel() noexcept;

private:
    class Window;
    std::unique_ptr<Window> window_;
};

}  // namespace native
