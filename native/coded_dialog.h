#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <string>

#include "native/window_tools.h"

namespace native {

/// A dialog box without a template: its controls are made in code and placed by the sizes of their
/// texts, in the system's font for messages.
///
/// Of one thread. Its window may go before it does, with the window that owns it.
class CodedDialog {
public:
    /// Sees each message before the system does. @return whether it is done with it.
    using Handler = std::function<bool(UINT message, WPARAM wide, LPARAM other)>;

    /// Makes the window, not yet visible. owner: may be null. iconFile: path of an .ico file, which
    /// may be missing. handler: what it throws is kept (rethrowFault).
    CodedDialog(HWND owner, const std::u16string& title, const std::u16string& iconFile,
                Handler handler);
    ~CodedDialog();
    CodedDialog(const CodedDialog&) = delete;
    CodedDialog& operator=(const CodedDialog&) = delete;

    /// Null when it could not be made, and when it is gone.
    HWND window() const { return window_; }
    /// Throws what the handler threw, once.
    void rethrowFault();
    bool hasFault() const { return fault_ != nullptr; }

    /// Adds a visible control, of the size 0. style: without WS_CHILD and WS_VISIBLE. text: as the
    /// control takes it. @return null when it could not be made.
    HWND addControl(const wchar_t* windowClass, const std::u16string& text, DWORD style, int id);

    int scaled(int lengthAt96Dpi) const { return native::scaled(window_, lengthAt96Dpi); }
    /// Size of a text in the dialog's font, "&" as it is, in lines of at most `width` pixels.
    SIZE sizeOf(const std::u16string& text, LONG width) const;
    /// Size of a button with this caption.
    SIZE buttonSize(const std::u16string& caption) const;
    /// Between the controls and the frame.
    int margin() const { return scaled(14); }
    /// Width of the client area in which the title bar shows all of the title.
    LONG titleWidth() const;
    /// Of the work area of the owner's screen, in pixels.
    SIZE screenSize() const;

    /// Gives the client area this size and centres the window above its owner, or on the screen.
    void place(LONG clientWidth, LONG clientHeight);

private:
    static INT_PTR CALLBACK receive(HWND window, UINT message, WPARAM wide, LPARAM other) noexcept;

    Handler handler_;
    HWND window_ = nullptr;
    std::exception_ptr fault_;
    HFONT font_ = nullptr;  // null: the system's
    IconFile smallIcon_;
    IconFile largeIcon_;
};

}  // namespace native
