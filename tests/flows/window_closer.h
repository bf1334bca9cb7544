#pragma once

#ifdef _WIN32

#include <windows.h>

#include <atomic>
#include <chrono>
#include <thread>

/// While it lives, every window that this thread opens is closed by its frame, again and again
/// until it gives way.
class WindowCloser {
public:
    WindowCloser()
        : closer_([this, thread = GetCurrentThreadId()] {
              while (!isDone_) {
                  EnumThreadWindows(thread, &close, 0);
                  std::this_thread::sleep_for(std::chrono::milliseconds(20));
              }
          }) {}
    ~WindowCloser() {
        isDone_ = true;
        closer_.join();
    }
    WindowCloser(const WindowCloser&) = delete;
    WindowCloser& operator=(const WindowCloser&) = delete;

private:
    static BOOL CALLBACK close(HWND window, LPARAM) {
        if (IsWindowVisible(window) && IsWindowEnabled(window))
            PostMessageW(window, WM_CLOSE, 0, 0);
        return TRUE;
    }

    std::atomic<bool> isDone_ = false;
    std::thread closer_;
};

#else

/// Tests have no display here, and so no windows.
class WindowCloser {
public:
    WindowCloser() {}
};

#endif
