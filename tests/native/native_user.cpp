#include "tests/native/native_user.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <utility>
#include <vector>

namespace {

constexpr auto kPatience = std::chrono::seconds(10);
constexpr auto kPause = std::chrono::milliseconds(2);

/// Posted behind what is to be taken before it.
UINT settledMessage() {
    static const UINT message = RegisterWindowMessageW(L"QuilletTestSettled");
    return message;
}

std::atomic<unsigned> settledCount = 0;

LRESULT CALLBACK sawMessage(int code, WPARAM isRemoved, LPARAM parameter) noexcept {
    const auto* const message = reinterpret_cast<const MSG*>(parameter);
    if (code == HC_ACTION && isRemoved == PM_REMOVE && message->message == settledMessage())
        ++settledCount;
    return CallNextHookEx(nullptr, code, isRemoved, parameter);
}

struct Wanted {
    const wchar_t* windowClass;
    std::u16string title;
    HWND found = nullptr;
};

BOOL CALLBACK takeWanted(HWND window, LPARAM parameter) noexcept {
    auto& wanted = *reinterpret_cast<Wanted*>(parameter);
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    if (!IsWindowVisible(window) || std::wcscmp(name, wanted.windowClass) != 0 ||
        (!wanted.title.empty() && textOfControl(window) != wanted.title))
        return TRUE;
    wanted.found = window;
    return FALSE;
}

/// The state of the keys and the focus of another thread, for as long as this lives.
class SharedInput {
public:
    explicit SharedInput(DWORD thread) : thread_(thread) {
        AttachThreadInput(GetCurrentThreadId(), thread_, TRUE);
    }
    ~SharedInput() { AttachThreadInput(GetCurrentThreadId(), thread_, FALSE); }
    SharedInput(const SharedInput&) = delete;
    SharedInput& operator=(const SharedInput&) = delete;

private:
    DWORD thread_;
};

void setKeys(std::initializer_list<BYTE> keys, BYTE state) {
    BYTE states[256] = {};
    GetKeyboardState(states);
    for (const BYTE key : keys)
        states[key] = state;
    SetKeyboardState(states);
}

}  // namespace

NativeUser::NativeUser(std::function<void(NativeUser&)> story)
    : guiThread_(GetCurrentThreadId()),
      hook_(SetWindowsHookExW(WH_GETMESSAGE, &sawMessage, nullptr, guiThread_)) {
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);  // makes the queue of messages
    thread_ = std::thread([this, story = std::move(story)] {
        SetThreadDesktop(GetThreadDesktop(guiThread_));
        try {
            story(*this);
        } catch (const Failure& failure) {
            failure_ = failure.text;
            PostThreadMessageW(guiThread_, WM_QUIT, 0, 0);
        }
        isOver_ = true;
    });
}

NativeUser::~NativeUser() {
    while (!isOver_) {  // what the story sends must be taken
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        std::this_thread::sleep_for(kPause);
    }
    thread_.join();
    UnhookWindowsHookEx(hook_);
    if (failure_.empty())
        return;
    ADD_FAILURE() << failure_;
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
        ;
}

HWND NativeUser::waitForWindow(const wchar_t* windowClass, const std::u16string& title) {
    Wanted wanted{windowClass, title};
    waitUntil("the window opens", [&] {
        EnumThreadWindows(guiThread_, &takeWanted, reinterpret_cast<LPARAM>(&wanted));
        return wanted.found != nullptr;
    });
    return wanted.found;
}

void NativeUser::waitUntil(const char* what, const std::function<bool()>& isSo) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!isSo()) {
        if (std::chrono::steady_clock::now() > end)
            throw Failure{std::string("waited in vain until ") + what};
        std::this_thread::sleep_for(kPause);
    }
}

void NativeUser::waitUntilGone(HWND window) {
    waitUntil("the window is gone", [&] { return !IsWindow(window); });
}

void NativeUser::type(HWND edit, const std::u16string& text) {
    setFocus(edit);
    for (const char16_t unit : text)
        PostMessageW(edit, WM_CHAR, unit, 1);
    settle(edit);
}

void NativeUser::retype(HWND edit, const std::u16string& text) {
    setFocus(edit);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    PostMessageW(edit, WM_CHAR, VK_BACK, 1);
    type(edit, text);
}

void NativeUser::key(HWND receiver, WPARAM key, std::initializer_list<BYTE> with) {
    setFocus(receiver);
    const SharedInput input(guiThread_);
    setKeys(with, 0x80);
    PostMessageW(receiver, WM_KEYDOWN, key, 1);
    PostMessageW(receiver, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    if (IsWindow(receiver))
        settle(receiver);
    setKeys(with, 0);
}

void NativeUser::click(HWND control, int x, int y) {
    const LPARAM place = MAKELPARAM(x, y);
    PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, place);
    PostMessageW(control, WM_LBUTTONUP, 0, place);
    settle(control);
}

void NativeUser::press(HWND window, int buttonId) {
    PostMessageW(GetDlgItem(window, buttonId), BM_CLICK, 0, 0);
}

void NativeUser::post(HWND window, UINT message, WPARAM word, LPARAM parameter) {
    PostMessageW(window, message, word, parameter);
}

void NativeUser::settle(HWND window) {
    const unsigned before = settledCount;
    if (!PostMessageW(window, settledMessage(), 0, 0))
        return;  // it is gone
    waitUntil("the window takes its messages",
              [&] { return settledCount != before || !IsWindow(window); });
}

void NativeUser::setFocus(HWND control) {
    if (hasFocus(control))
        return;
    const SharedInput input(guiThread_);
    SetFocus(control);
}

bool NativeUser::hasFocus(HWND control) const {
    GUITHREADINFO information{};
    information.cbSize = sizeof information;
    return GetGUIThreadInfo(guiThread_, &information) && information.hwndFocus == control;
}

bool NativeUser::savePicture(HWND window, const std::string& path) {
    RECT place{};
    GetWindowRect(window, &place);
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    HDC const screen = GetDC(nullptr);
    HDC const memory = CreateCompatibleDC(screen);
    HBITMAP const bitmap = CreateCompatibleBitmap(screen, width, height);
    HGDIOBJ const before = SelectObject(memory, bitmap);
    const bool isTaken =
        BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY) != 0;
    SelectObject(memory, before);

    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = 24;
    const DWORD lineBytes = (static_cast<DWORD>(width) * 3 + 3) / 4 * 4;
    std::vector<char> pixels(lineBytes * static_cast<DWORD>(height));
    BITMAPINFO information{};
    information.bmiHeader = header;
    const bool isRead = GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), pixels.data(),
                                  &information, DIB_RGB_COLORS) == height;
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    if (!isTaken || !isRead)
        return false;

    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;  // "BM"
    file.bfOffBits = sizeof file + sizeof header;
    file.bfSize = file.bfOffBits + static_cast<DWORD>(pixels.size());
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> out(std::fopen(path.c_str(), "wb"),
                                                              &std::fclose);
    return out && std::fwrite(&file, sizeof file, 1, out.get()) == 1 &&
           std::fwrite(&header, sizeof header, 1, out.get()) == 1 &&
           std::fwrite(pixels.data(), pixels.size(), 1, out.get()) == 1;
}

std::u16string textOfControl(HWND control) {
    // WM_GETTEXT: GetWindowText does not ask controls of other threads.
    std::u16string text(static_cast<std::size_t>(SendMessageW(control, WM_GETTEXTLENGTH, 0, 0)),
                        u'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(control, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

HWND editOf(HWND comboBox) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    return GetComboBoxInfo(comboBox, &parts) ? parts.hwndItem : nullptr;
}

HWND listOf(HWND comboBox) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    return GetComboBoxInfo(comboBox, &parts) ? parts.hwndList : nullptr;
}

std::u16string selectedText(HWND edit) {
    DWORD first = 0;
    DWORD end = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&end));
    return textOfControl(edit).substr(first, end - first);
}
