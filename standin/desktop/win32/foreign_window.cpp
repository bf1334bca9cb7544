#include "standin/desktop/foreign_window.h"

#include <windows.h>
// windows.h must come first.
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <cstring>
#include <cwchar>
#include <iterator>
#include <vector>

namespace standin {
namespace {

HWND handleOf(std::uintptr_t window) { return reinterpret_cast<HWND>(window); }

bool isOurs(HWND window) {
    for (const QWindow* const each : QGuiApplication::allWindows())
        if (each->handle() && reinterpret_cast<HWND>(each->winId()) == window)
            return true;
    return false;
}

QString windowText(HWND window) {
    std::vector<wchar_t> text(
        static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1);
    const auto length =
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return QString::fromWCharArray(text.data(), static_cast<int>(length));
}

/// As people read it: without the mark of the key.
QString caption(HWND window) {
    QString text = windowText(window);
    text.replace(QLatin1String("&&"), QChar(1)).remove(QLatin1Char('&'));
    return text.replace(QChar(1), QLatin1Char('&')).simplified();
}

bool isOfClass(HWND window, const wchar_t* name) {
    wchar_t found[64] = {};
    GetClassNameW(window, found, static_cast<int>(std::size(found)));
    return _wcsicmp(found, name) == 0;
}

/// Windows that a person sees, the uppermost first.
std::vector<HWND> foreignWindows() {
    std::vector<HWND> found;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM into) -> BOOL {
            RECT place = {};
            // Toolkits keep message windows without a size.
            if (IsWindowVisible(window) && GetWindowRect(window, &place) &&
                place.right > place.left && place.bottom > place.top &&
                GetWindowTextLengthW(window) > 0 && !isOurs(window))
                reinterpret_cast<std::vector<HWND>*>(into)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

/// Toolkits put what they take from the queue into one of their own.
constexpr int kSettlingMs = 50;
QElapsedTimer lastInput;

void send(std::vector<INPUT> inputs) {
    lastInput.start();
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

INPUT keyInput(WORD key, WORD sign, DWORD flags) {
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = sign;
    input.ki.dwFlags = flags;
    return input;
}

/// The virtual key of a key of Qt's; 0 when there is none here.
WORD virtualKey(int key) {
    static constexpr struct {
        Qt::Key qt;
        WORD windows;
    } kKeys[] = {
        {Qt::Key_Tab, VK_TAB},        {Qt::Key_Backtab, VK_TAB},   {Qt::Key_Return, VK_RETURN},
        {Qt::Key_Enter, VK_RETURN},   {Qt::Key_Escape, VK_ESCAPE}, {Qt::Key_Space, VK_SPACE},
        {Qt::Key_Backspace, VK_BACK}, {Qt::Key_Delete, VK_DELETE}, {Qt::Key_Home, VK_HOME},
        {Qt::Key_End, VK_END},        {Qt::Key_Up, VK_UP},         {Qt::Key_Down, VK_DOWN},
        {Qt::Key_Left, VK_LEFT},      {Qt::Key_Right, VK_RIGHT},   {Qt::Key_PageUp, VK_PRIOR},
        {Qt::Key_PageDown, VK_NEXT},
    };
    for (const auto& each : kKeys)
        if (each.qt == key)
            return each.windows;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<WORD>(VK_F1 + key - Qt::Key_F1);
    const bool isLetterOrDigit =
        (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9);
    return isLetterOrDigit ? static_cast<WORD>(key) : WORD{0};
}

}  // namespace

std::optional<ForeignWindow> ForeignWindow::onTop() {
    for (const HWND window : foreignWindows())
        if (IsWindowEnabled(window))
            return ForeignWindow(reinterpret_cast<std::uintptr_t>(window));
    return std::nullopt;
}

std::optional<ForeignWindow> ForeignWindow::named(const QString& title) {
    for (const HWND window : foreignWindows())
        if (windowText(window) == title &&
            !(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW))
            return ForeignWindow(reinterpret_cast<std::uintptr_t>(window));
    return std::nullopt;
}

QStringList ForeignWindow::titles() {
    QStringList titles;
    for (const HWND window : foreignWindows())
        titles.push_back(windowText(window));
    return titles;
}

bool ForeignWindow::hasArrived() {
    if (!lastInput.isValid())
        return true;
    if (HIWORD(GetQueueStatus(QS_INPUT)) != 0)
        lastInput.restart();
    return lastInput.hasExpired(kSettlingMs);
}

void ForeignWindow::endAll() {
    if (!foreignWindows().empty())
        PostQuitMessage(0);
}

bool ForeignWindow::takesInput() const { return IsWindowEnabled(handleOf(handle_)); }

std::optional<ForeignWindow::Control> ForeignWindow::find(const QString& name) const {
    bool isNext = false;  // the caption was there
    for (HWND control = GetWindow(handleOf(handle_), GW_CHILD); control;
         control = GetWindow(control, GW_HWNDNEXT)) {
        if (!IsWindowVisible(control))
            continue;
        const bool isCaption = isOfClass(control, L"Static");
        const bool isButton = isOfClass(control, L"Button");
        if (isNext && !isCaption && !isButton)
            return reinterpret_cast<Control>(control);
        if ((isCaption || isButton) && caption(control) == name) {
            if (isButton && (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) != BS_GROUPBOX)
                return reinterpret_cast<Control>(control);
            isNext = isCaption;
        }
    }
    return std::nullopt;
}

bool ForeignWindow::isEnabled(Control control) { return IsWindowEnabled(handleOf(control)); }

QString ForeignWindow::textOf(Control control) {
    return windowText(handleOf(control)).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

void ForeignWindow::click(Control control) {
    SetForegroundWindow(GetAncestor(handleOf(control), GA_ROOT));
    RECT place = {};
    GetWindowRect(handleOf(control), &place);
    // 65536 steps from one edge of the screen to the other.
    const auto step = [](LONG pixel, int screen) {
        return (pixel * 65536 + screen / 2) / std::max(screen, 1);
    };
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dx = step((place.left + place.right) / 2, GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = step((place.top + place.bottom) / 2, GetSystemMetrics(SM_CYSCREEN));
    std::vector<INPUT> inputs(3, input);
    inputs[0].mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    inputs[2].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    send(inputs);
}

bool ForeignWindow::choose(Control control, const QString& item) {
    const HWND box = handleOf(control);
    const std::wstring text = item.toStdWString();
    const LRESULT index = SendMessageW(box, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(text.c_str()));
    if (!isOfClass(box, L"ComboBox") || index < 0)
        return false;
    SetFocus(box);
    SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(GetParent(box), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(box), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(box));
    return true;
}

bool ForeignWindow::press(const QKeySequence& keys) {
    static constexpr struct {
        Qt::KeyboardModifier qt;
        WORD windows;
    } kModifiers[] = {{Qt::ControlModifier, VK_CONTROL},
                      {Qt::AltModifier, VK_MENU},
                      {Qt::ShiftModifier, VK_SHIFT}};
    std::vector<INPUT> inputs;
    for (int at = 0; at < keys.count(); ++at) {
        const auto code = static_cast<unsigned>(keys[static_cast<unsigned>(at)]);
        const WORD key =
            virtualKey(static_cast<int>(code & ~static_cast<unsigned>(Qt::KeyboardModifierMask)));
        if (key == 0)
            return false;
        for (const auto& modifier : kModifiers)
            if (code & static_cast<unsigned>(modifier.qt))
                inputs.push_back(keyInput(modifier.windows, 0, 0));
        inputs.push_back(keyInput(key, 0, 0));
        inputs.push_back(keyInput(key, 0, KEYEVENTF_KEYUP));
        for (const auto& modifier : kModifiers)
            if (code & static_cast<unsigned>(modifier.qt))
                inputs.push_back(keyInput(modifier.windows, 0, KEYEVENTF_KEYUP));
    }
    send(inputs);
    return true;
}

void ForeignWindow::type(const QString& text) {
    std::vector<INPUT> inputs;
    for (const QChar unit : text) {
        inputs.push_back(keyInput(0, unit.unicode(), KEYEVENTF_UNICODE));
        inputs.push_back(keyInput(0, unit.unicode(), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP));
    }
    if (!inputs.empty())
        send(inputs);
}

void ForeignWindow::close() const { PostMessageW(handleOf(handle_), WM_SYSCOMMAND, SC_CLOSE, 0); }

QImage ForeignWindow::picture() const {
    const HWND window = handleOf(handle_);
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    RECT place = {};
    GetWindowRect(window, &place);
    QImage image(place.right - place.left, place.bottom - place.top, QImage::Format_RGB32);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = image.width();
    info.bmiHeader.biHeight = -image.height();  // the first line is the uppermost
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    const bool isCopied = bits && BitBlt(memory, 0, 0, image.width(), image.height(), screen,
                                         place.left, place.top, SRCCOPY);
    GdiFlush();
    if (isCopied)
        std::memcpy(image.bits(), bits, static_cast<std::size_t>(image.sizeInBytes()));
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return isCopied ? image : QImage();
}

}  // namespace standin
