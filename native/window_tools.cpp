#include "native/window_tools.h"

#include <algorithm>

#include "platform/win32/wide.h"

namespace native {
namespace {

/// Of EnumThreadWindows: takes the first one that the user can work in.
BOOL CALLBACK takeWorkingWindow(HWND window, LPARAM found) noexcept {
    if (!IsWindowVisible(window) || !IsWindowEnabled(window) || GetWindow(window, GW_OWNER))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

HWND workingWindow() {
    if (HWND const active = GetActiveWindow())
        return active;
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &takeWorkingWindow, reinterpret_cast<LPARAM>(&found));
    return found;
}

}  // namespace

HINSTANCE ownModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const wchar_t*>(&ownModule), &module);
    return module;
}

int scaled(HWND window, int lengthAt96Dpi) {
    HDC const context = GetDC(window);
    const int resolution = context ? GetDeviceCaps(context, LOGPIXELSX) : USER_DEFAULT_SCREEN_DPI;
    if (context)
        ReleaseDC(window, context);
    return MulDiv(lengthAt96Dpi, resolution, USER_DEFAULT_SCREEN_DPI);
}

Font::Font(const wchar_t* face, int heightAt96Dpi, HWND window)
    : font_(CreateFontW(scaled(window, heightAt96Dpi), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                        DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                        DEFAULT_PITCH | FF_DONTCARE, face)) {}

Font::~Font() {
    if (font_)
        DeleteObject(font_);
}

IconFile::IconFile(const std::u16string& path, int size)
    : icon_(static_cast<HICON>(
          LoadImageW(nullptr, platform::wide(path), IMAGE_ICON, size, size, LR_LOADFROMFILE))) {}

IconFile::~IconFile() {
    if (icon_)
        DestroyIcon(icon_);
}

std::u16string textOf(HWND window) {
    // The length is an upper bound.
    std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(window)), u'\0');
    const int length = GetWindowTextW(window, reinterpret_cast<wchar_t*>(text.data()),
                                      static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

SIZE textSize(HWND control, const std::u16string& text) {
    SIZE size{};
    HDC const context = GetDC(control);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    HGDIOBJ const before = font ? SelectObject(context, font) : nullptr;
    GetTextExtentPoint32W(context, platform::wide(text), static_cast<int>(text.size()), &size);
    if (before)
        SelectObject(context, before);
    ReleaseDC(control, context);
    return size;
}

std::u16string asCaption(std::u16string_view text) {
    std::u16string caption;
    for (const char16_t unit : text)
        caption.append(unit == u'&' ? 2 : 1, unit);
    return caption;
}

void fitToScreen(RECT& rectangle) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (!GetMonitorInfoW(MonitorFromRect(&rectangle, MONITOR_DEFAULTTONEAREST), &monitor))
        return;
    const RECT& area = monitor.rcWork;
    const LONG width = std::min(rectangle.right - rectangle.left, area.right - area.left);
    const LONG height = std::min(rectangle.bottom - rectangle.top, area.bottom - area.top);
    rectangle.left = std::clamp(rectangle.left, area.left, area.right - width);
    rectangle.top = std::clamp(rectangle.top, area.top, area.bottom - height);
    rectangle.right = rectangle.left + width;
    rectangle.bottom = rectangle.top + height;
}

OwnerBlock::OwnerBlock() : owner_(workingWindow()) {
    if (owner_)
        isBlocking_ = !EnableWindow(owner_, FALSE);  // else somebody else did
}

OwnerBlock::~OwnerBlock() { release(); }

void OwnerBlock::release() {
    if (!isBlocking_)
        return;
    isBlocking_ = false;
    if (!IsWindow(owner_))
        return;
    EnableWindow(owner_, TRUE);
    // Not in front of the program that the user has changed to meanwhile.
    if (GetActiveWindow())
        SetActiveWindow(owner_);
}

void runModal(HWND window, const std::function<bool()>& isDone,
              const std::function<bool(MSG&)>& takes) {
    while (!isDone() && IsWindow(window)) {
        MSG message;
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            // Not GetMessage: it would not come back from what another thread sends.
            MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
            continue;
        }
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if ((takes && takes(message)) || IsDialogMessageW(window, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace native
