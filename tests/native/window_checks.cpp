#include "tests/native/window_checks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "native/window_tools.h"
#include "platform/text.h"
#include "platform/win32/wide.h"
#include "tests/native/native_user.h"

namespace {

constexpr const wchar_t* kHostClass = L"QuilletTestHost";

/// Where the first place is in the system's table of drawing objects behind which none is taken.
/// What there is of them cannot be asked for everywhere.
unsigned endOfDrawingObjects() {
    constexpr std::size_t kMoreThanGaps = 512;
    std::vector<HRGN> fillers(kMoreThanGaps);
    unsigned end = 0;
    for (HRGN& filler : fillers) {
        filler = CreateRectRgn(0, 0, 1, 1);
        end = std::max<unsigned>(end, LOWORD(reinterpret_cast<ULONG_PTR>(filler)));
    }
    for (HRGN filler : fillers)
        DeleteObject(filler);
    return end;
}

}  // namespace

HostWindow::HostWindow() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = &receive;
    windowClass.hInstance = native::ownModule();
    windowClass.lpszClassName = kHostClass;
    RegisterClassExW(&windowClass);
    window_ = CreateWindowExW(0, kHostClass, L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100,
                              800, 600, nullptr, nullptr, native::ownModule(), nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetActiveWindow(window_);
    UpdateWindow(window_);
}

HostWindow::~HostWindow() {
    DestroyWindow(window_);
    UnregisterClassW(kHostClass, native::ownModule());
}

LRESULT CALLBACK HostWindow::receive(HWND window, UINT message, WPARAM word,
                                     LPARAM parameter) noexcept {
    if (auto* const host =
            reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA))) {
        host->workDone_ += message == kWork ? 1 : 0;
        host->paintings_ += message == WM_PAINT ? 1 : 0;
    }
    return DefWindowProcW(window, message, word, parameter);
}

void checkNoDrawingObjectsStay(const std::function<void()>& action) {
    constexpr int kTimes = 40;
    action();  // what the system keeps from the first time on
    const unsigned before = endOfDrawingObjects();
    for (int time = 0; time < kTimes; ++time)
        action();
    EXPECT_LT(endOfDrawingObjects(), before + kTimes / 2);
}

std::vector<HWND> childrenOf(HWND window) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

void checkRoom(HWND control, const std::u16string& text, int reserved) {
    RECT inside{};
    GetClientRect(control, &inside);
    HDC const context = GetDC(control);
    HGDIOBJ const before =
        SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    const LONG width = inside.right - reserved;
    RECT needed{0, 0, width, 0};
    DrawTextW(context, platform::wide(text), -1, &needed, DT_CALCRECT | DT_NOPREFIX | DT_WORDBREAK);
    SelectObject(context, before);
    ReleaseDC(control, context);
    EXPECT_LE(needed.right, width) << platform::toUtf8(text);
    EXPECT_LE(needed.bottom, inside.bottom) << platform::toUtf8(text);
}

void checkPlaces(HWND window) {
    RECT inside{};
    GetClientRect(window, &inside);
    LONG above = 0;
    for (HWND child : childrenOf(window)) {
        RECT place{};
        GetWindowRect(child, &place);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
        EXPECT_GT(place.left, 0);
        EXPECT_GT(place.top, above);
        EXPECT_GT(place.bottom, place.top);
        EXPECT_LT(place.right, inside.right);
        EXPECT_LT(place.bottom, inside.bottom);
        above = place.bottom;
    }
    RECT place{};
    GetWindowRect(window, &place);
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    RECT visible{};
    IntersectRect(&visible, &place, &screen);
    EXPECT_TRUE(EqualRect(&visible, &place));
}

void keepPicture(HWND window, const std::string& name) {
    if (const char* const folder = std::getenv("QUILLET_PICTURES")) {
        EXPECT_TRUE(NativeUser::savePicture(window, std::string(folder) + "/" + name + ".bmp"));
    }
}
