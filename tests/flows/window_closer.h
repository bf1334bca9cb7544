#pragma once

#ifdef _WIN32

#include <windows.h>

/// While it lives, whoever waits for the user of a window of this thread is told that the program
/// is to end. Works from the loop that waits, whatever toolkit runs it.
class WindowCloser {
public:
    WindowCloser() : timer_(SetTimer(nullptr, 0, kPeriodMs, &tick)) {}
    ~WindowCloser() {
        KillTimer(nullptr, timer_);
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
            continue;
    }
    WindowCloser(const WindowCloser&) = delete;
    WindowCloser& operator=(const WindowCloser&) = delete;

private:
    static constexpr UINT kPeriodMs = 50;

    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
        EnumThreadWindows(GetCurrentThreadId(), &quitIfVisible, 0);
    }
    static BOOL CALLBACK quitIfVisible(HWND window, LPARAM) {
        if (!IsWindowVisible(window))
            return TRUE;
        PostQuitMessage(0);
        return FALSE;
    }

    UINT_PTR timer_;
};

#else

/// Tests have no display here, and so no windows.
class WindowCloser {
public:
    WindowCloser() {}
};

#endif
