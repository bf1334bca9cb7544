#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <initializer_list>
#include <string>
#include <thread>

/// Somebody at the keyboard and the mouse of this process's windows. What he does runs on a thread
/// of its own, while the thread that made him waits in a modal window; messages are sent and posted
/// as the system would. Works with and without a screen.
class NativeUser {
public:
    /// Starts at once. A step that does not succeed within ten seconds ends the story with a
    /// failure of the test, and closes what is open with a WM_QUIT.
    explicit NativeUser(std::function<void(NativeUser&)> story);
    /// Waits for the end of the story.
    ~NativeUser();
    NativeUser(const NativeUser&) = delete;
    NativeUser& operator=(const NativeUser&) = delete;

    /// A visible window of this class and, unless it is empty, of this title.
    HWND waitForWindow(const wchar_t* windowClass, const std::u16string& title = {});
    void waitUntil(const char* what, const std::function<bool()>& isSo);
    void waitUntilGone(HWND window);

    /// Signs at the caret of a control that writes; it gets the focus.
    void type(HWND edit, const std::u16string& text);
    /// The same in place of all its text.
    void retype(HWND edit, const std::u16string& text);
    /// Presses and releases a key: a virtual-key code. with: keys that are held meanwhile.
    void key(HWND receiver, WPARAM key, std::initializer_list<BYTE> with = {});
    /// Left button, at a place of the control.
    void click(HWND control, int x = 4, int y = 4);
    void press(HWND window, int buttonId);
    void post(HWND window, UINT message, WPARAM word = 0, LPARAM parameter = 0);
    /// Until the window has taken what was posted to it.
    void settle(HWND window);

    void setFocus(HWND control);
    bool hasFocus(HWND control) const;

    /// The part of the screen with the window and what hangs from it. @return whether there is a
    /// screen to take it from. path: of a 24-bit .bmp file.
    static bool savePicture(HWND window, const std::string& path);

private:
    struct Failure {
        std::string text;
    };
    DWORD guiThread_;
    HHOOK hook_;
    std::string failure_;  // of the story
    std::atomic<bool> isOver_ = false;
    std::thread thread_;
};

/// Of any control.
std::u16string textOfControl(HWND control);

/// Where the edit control of a combo box is, and its list.
HWND editOf(HWND comboBox);
HWND listOf(HWND comboBox);

/// What is selected in an edit control.
std::u16string selectedText(HWND edit);
