#include "native/progress_window.h"

#include <windows.h>
// Needs windows.h.
#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "native/coded_dialog.h"
#include "platform/win32/wide.h"

namespace native {
namespace {

// Lengths at 96 DPI.
constexpr int kLabelGap = 3;
constexpr int kBarGap = 12;
constexpr int kWidth = 420;  // of the bars
constexpr int kBarHeight = 18;

constexpr int kWholePercent = 100;
/// A user sees no delay below.
constexpr ULONGLONG kMillisecondsBetweenLooks = 50;
/// At one look: windows that ask to be painted again and again must not hold up the work.
constexpr int kMostMessages = 100;

}  // namespace

class ProgressWindow::Window {
public:
    Window(const std::u16string& title, const std::u16string& cancelCaption,
           const std::u16string& iconFile)
        : canCancel_(!cancelCaption.empty()),
          dialog_(block_.owner(), title, iconFile,
                  [this](UINT message, WPARAM wide, LPARAM) { return take(message, wide); }) {
        if (!dialog_.window())
            return;
        const INITCOMMONCONTROLSEX classes{.dwSize = sizeof classes, .dwICC = ICC_PROGRESS_CLASS};
        InitCommonControlsEx(&classes);
        overall_.add(dialog_, SS_ENDELLIPSIS);
        current_.add(dialog_, SS_PATHELLIPSIS);
        if (canCancel_) {
            cancelButton_ = dialog_.addControl(L"BUTTON", asCaption(cancelCaption),
                                               WS_TABSTOP | BS_DEFPUSHBUTTON, IDCANCEL);
            SendMessageW(dialog_.window(), DM_SETDEFID, IDCANCEL, 0);
        } else {
            EnableMenuItem(GetSystemMenu(dialog_.window(), FALSE), SC_CLOSE,
                           MF_BYCOMMAND | MF_GRAYED);
        }
        layOut(cancelCaption);
    }
    ~Window() {
        block_.release();  // before the window goes
        if (quit_)
            PostQuitMessage(*quit_);
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    bool isComplete() const {
        return dialog_.window() && overall_.isComplete() && current_.isComplete() &&
               (cancelButton_ || !canCancel_);
    }

    void show(int overallPercent, const std::u16string& overallLabel, int currentPercent,
              const std::u16string& currentLabel) {
        if (!dialog_.window())
            return;  // gone with the window that owned it
        overall_.show(overallPercent, overallLabel);
        current_.show(currentPercent, currentLabel);
        if (!std::exchange(isVisible_, true)) {
            ShowWindow(dialog_.window(), SW_SHOW);
            SetFocus(canCancel_ ? cancelButton_ : dialog_.window());
            RedrawWindow(dialog_.window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        }
        look();
    }

    bool takeCancel() {
        look();
        return std::exchange(isCancelWanted_, false);
    }

private:
    /// A label and the bar below it.
    class Bar {
    public:
        void add(CodedDialog& dialog, DWORD shortening) {
            label_ = dialog.addControl(L"STATIC", {}, SS_LEFT | SS_NOPREFIX | shortening, 0);
            bar_ = dialog.addControl(PROGRESS_CLASSW, {}, 0, 0);
            SendMessageW(bar_, PBM_SETRANGE32, 0, kWholePercent);
        }
        bool isComplete() const { return label_ && bar_; }

        /// @return where the next one begins.
        LONG place(const CodedDialog& dialog, LONG left, LONG top, LONG width) const {
            const LONG height = dialog.sizeOf(u"Xg", width).cy;
            MoveWindow(label_, left, top, width, height, FALSE);
            top += height + dialog.scaled(kLabelGap);
            MoveWindow(bar_, left, top, width, dialog.scaled(kBarHeight), FALSE);
            return top + dialog.scaled(kBarHeight) + dialog.scaled(kBarGap);
        }

        void show(int percent, const std::u16string& text) {
            percent = std::clamp(percent, 0, kWholePercent);
            if (std::exchange(percent_, percent) != percent) {
                SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(percent), 0);
                UpdateWindow(bar_);
            }
            if (text != text_) {
                text_ = text;
                SetWindowTextW(label_, platform::wide(text));
                UpdateWindow(label_);
            }
        }

    private:
        HWND label_ = nullptr;
        HWND bar_ = nullptr;
        int percent_ = 0;
        std::u16string text_;
    };

    void layOut(const std::u16string& cancelCaption) {
        const LONG margin = dialog_.margin();
        const LONG width = std::min(std::max<LONG>(dialog_.scaled(kWidth), dialog_.titleWidth()),
                                    dialog_.screenSize().cx - 4 * margin);
        LONG top = overall_.place(dialog_, margin, margin, width);
        top = current_.place(dialog_, margin, top, width);
        if (canCancel_) {
            const SIZE button = dialog_.buttonSize(cancelCaption);
            MoveWindow(cancelButton_, margin + width - button.cx, top, button.cx, button.cy, FALSE);
            top += button.cy;
        }
        dialog_.place(width + 2 * margin, top + margin);
    }

    bool take(UINT message, WPARAM wide) {
        const bool isCancel = message == WM_COMMAND && LOWORD(wide) == IDCANCEL;
        if (!isCancel && message != WM_CLOSE)
            return false;
        isCancelWanted_ |= canCancel_;
        return true;
    }

    /// Lets the user in, unless that was just done.
    void look() {
        const ULONGLONG now = GetTickCount64();
        if (now - lastLook_ < kMillisecondsBetweenLooks)
            return;
        MSG message;
        for (int count = 0; count < kMostMessages && isWaiting(message); ++count) {
            if (message.message == WM_QUIT) {
                quit_ = static_cast<int>(message.wParam);
                isCancelWanted_ |= canCancel_;
            } else if (!IsDialogMessageW(dialog_.window(), &message)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
        }
        lastLook_ = GetTickCount64();
    }

    /// Takes the next message that concerns this window, or the painting of any.
    bool isWaiting(MSG& message) const {
        HWND const window = dialog_.window();
        return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) ||
               (window && PeekMessageW(&message, window, 0, 0, PM_REMOVE)) ||
               PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT);
    }

    const bool canCancel_;
    OwnerBlock block_;
    Bar overall_;
    Bar current_;
    HWND cancelButton_ = nullptr;
    bool isVisible_ = false;
    bool isCancelWanted_ = false;
    std::optional<int> quit_;
    ULONGLONG lastLook_ = 0;
    CodedDialog dialog_;
};

ProgressWindow::ProgressWindow(const std::u16string& title, const std::u16string& cancelCaption,
                               const std::u16string& iconFile)
    : window_(std::make_unique<Window>(title, cancelCaption, iconFile)) {
    if (!window_->isComplete())
        window_.reset();
}

ProgressWindow::~ProgressWindow() = default;

void ProgressWindow::show(int overallPercent, const std::u16string& overallLabel,
                          int currentPercent, const std::u16string& currentLabel) noexcept {
    try {
        if (window_)
            window_->show(overallPercent, overallLabel, currentPercent, currentLabel);
    } catch (...) {
        // No memory for a label.
    }
}

bool ProgressWindow::takeCancel() noexcept { return window_ && window_->takeCancel(); }

}  // namespace native
