#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

/// A window of the host, the active one, that counts what it gets to do.
class HostWindow {
public:
    static constexpr UINT kWork = WM_APP + 1;

    HostWindow();
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    /// Gone when the user has closed it.
    HWND get() const { return window_; }
    int workDone() const { return workDone_; }
    int paintings() const { return paintings_; }

private:
    static LRESULT CALLBACK receive(HWND window, UINT message, WPARAM word,
                                    LPARAM parameter) noexcept;

    HWND window_;
    int workDone_ = 0;
    int paintings_ = 0;
};

/// Checks that doing something again and again leaves no fonts and bitmaps behind.
void checkNoDrawingObjectsStay(const std::function<void()>& action);

std::vector<HWND> childrenOf(HWND window);

/// Checks that the control shows all of the text, in lines, beside `reserved` pixels.
void checkRoom(HWND control, const std::u16string& text, int reserved);

/// Checks that the children stand below each other inside their window, and that on the screen.
void checkPlaces(HWND window);

/// Saves a picture of the window in the folder that the environment variable QUILLET_PICTURES
/// names, if it does.
void keepPicture(HWND window, const std::string& name);
