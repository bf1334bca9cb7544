#include "native/coded_dialog.h"

#include <algorithm>
#include <utility>

#include "platform/win32/wide.h"

namespace native {
namespace {

constexpr DWORD kDialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kDialogStyleEx = WS_EX_CONTROLPARENT;

// Of a button, at 96 DPI.
constexpr int kLeastWidth = 80;
constexpr int kAirBesideCaption = 28;  // on both sides together
constexpr int kAirAboveCaption = 12;   // and below

/// A dialog box template without controls.
struct EmptyTemplate {
    DLGTEMPLATE dialog{.style = kDialogStyle,
                       .dwExtendedStyle = kDialogStyleEx,
                       .cdit = 0,
                       .x = 0,
                       .y = 0,
                       .cx = 0,
                       .cy = 0};
    WORD menu = 0;
    WORD windowClass = 0;
    WORD title = 0;
};

/// The system's font for messages, in the size for the window's screen. Null when there is none.
HFONT makeMessageFont(HWND window) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0))
        return nullptr;
    // Its height is that for the main screen.
    LOGFONTW& font = metrics.lfMessageFont;
    font.lfHeight = MulDiv(font.lfHeight, scaled(window, USER_DEFAULT_SCREEN_DPI),
                           scaled(nullptr, USER_DEFAULT_SCREEN_DPI));
    return CreateFontIndirectW(&font);
}

RECT workArea(HWND owner) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY), &monitor);
    return monitor.rcWork;
}

/// Selects a font for the measuring of texts.
class Measure {
public:
    Measure(HWND window, HFONT font)
        : window_(window), context_(GetDC(window)), before_(SelectObject(context_, font)) {}
    ~Measure() {
        SelectObject(context_, before_);
        ReleaseDC(window_, context_);
    }
    Measure(const Measure&) = delete;
    Measure& operator=(const Measure&) = delete;

    SIZE sizeOf(const std::u16string& text, LONG width) const {
        RECT area{0, 0, width, 0};
        DrawTextW(context_, platform::wide(text), static_cast<int>(text.size()), &area,
                  DT_CALCRECT | DT_NOPREFIX | DT_WORDBREAK);
        return {area.right, area.bottom};
    }

private:
    HWND window_;
    HDC context_;
    HGDIOBJ before_;
};

}  // namespace

CodedDialog::CodedDialog(HWND owner, const std::u16string& title, const std::u16string& iconFile,
                         Handler handler)
    : handler_(std::move(handler)),
      smallIcon_(iconFile, GetSystemMetrics(SM_CXSMICON)),
      largeIcon_(iconFile, GetSystemMetrics(SM_CXICON)) {
    alignas(DWORD) const EmptyTemplate empty;
    window_ = CreateDialogIndirectParamW(ownModule(), &empty.dialog, owner, &receive,
                                         reinterpret_cast<LPARAM>(this));
    if (!window_)
        return;
    font_ = makeMessageFont(window_);
    SetWindowTextW(window_, platform::wide(title));
    SendMessageW(window_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon_.get()));
    SendMessageW(window_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(largeIcon_.get()));
}

CodedDialog::~CodedDialog() {
    if (window_)
        DestroyWindow(window_);
    if (font_)
        DeleteObject(font_);
}

INT_PTR CALLBACK CodedDialog::receive(HWND window, UINT message, WPARAM wide,
                                      LPARAM other) noexcept {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, other);
        return FALSE;  // no control to give the focus to yet
    }
    auto* const dialog = reinterpret_cast<CodedDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!dialog)
        return FALSE;
    if (message == WM_DESTROY)
        dialog->window_ = nullptr;
    try {
        return dialog->handler_(message, wide, other) ? TRUE : FALSE;
    } catch (...) {
        dialog->fault_ = std::current_exception();
        return TRUE;
    }
}

void CodedDialog::rethrowFault() {
    if (const std::exception_ptr fault = std::exchange(fault_, nullptr))
        std::rethrow_exception(fault);
}

HWND CodedDialog::addControl(const wchar_t* windowClass, const std::u16string& text, DWORD style,
                             int id) {
    HWND const control = CreateWindowExW(
        0, windowClass, platform::wide(text), style | WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, window_,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ownModule(), nullptr);
    if (control)
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    return control;
}

SIZE CodedDialog::sizeOf(const std::u16string& text, LONG width) const {
    return Measure(window_, font_).sizeOf(text, width);
}

SIZE CodedDialog::buttonSize(const std::u16string& caption) const {
    const SIZE text = sizeOf(caption, screenSize().cx / 2);
    return {std::max<LONG>(scaled(kLeastWidth), text.cx + scaled(kAirBesideCaption)),
            text.cy + scaled(kAirAboveCaption)};
}

LONG CodedDialog::titleWidth() const {
    // The icon, the button that closes, and some air.
    constexpr int kButtons = 4;
    return sizeOf(textOf(window_), screenSize().cx).cx + kButtons * GetSystemMetrics(SM_CXSIZE);
}

SIZE CodedDialog::screenSize() const {
    const RECT area = workArea(GetWindow(window_, GW_OWNER));
    return {area.right - area.left, area.bottom - area.top};
}

void CodedDialog::place(LONG clientWidth, LONG clientHeight) {
    RECT frame{0, 0, clientWidth, clientHeight};
    AdjustWindowRectEx(&frame, kDialogStyle, FALSE, kDialogStyleEx);
    const LONG width = frame.right - frame.left;
    const LONG height = frame.bottom - frame.top;
    HWND const owner = GetWindow(window_, GW_OWNER);
    RECT around = workArea(owner);
    if (owner && !IsIconic(owner))
        GetWindowRect(owner, &around);
    RECT place{.left = (around.left + around.right - width) / 2,
               .top = (around.top + around.bottom - height) / 2,
               .right = 0,
               .bottom = 0};
    place.right = place.left + width;
    place.bottom = place.top + height;
    fitToScreen(place);
    SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace native
