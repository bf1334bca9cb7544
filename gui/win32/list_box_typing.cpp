#include "gui/win32/list_box_typing.h"

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "gui/property_entry.h"
#include "native/window_tools.h"
#include "platform/win32/wide.h"

namespace {

using platform::wide;

/// Whether a key writes a sign or takes one away.
bool isTyping(WPARAM key) {
    const bool isOnMainBlock = (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z') ||
                               key == VK_SPACE || key == VK_BACK;
    const bool isOnNumberBlock = key >= VK_NUMPAD0 && key <= VK_DIVIDE;
    const bool isSign = (key >= VK_OEM_1 && key <= VK_OEM_3) ||
                        (key >= VK_OEM_4 && key <= VK_OEM_8) || key == VK_OEM_102;
    return isOnMainBlock || isOnNumberBlock || isSign || key == VK_PACKET;
}

bool beginsWith(const std::u16string& text, const std::u16string& begin) {
    const int length = static_cast<int>(begin.size());
    return text.size() >= begin.size() &&
           CompareStringOrdinal(wide(text), length, wide(begin), length, TRUE) == CSTR_EQUAL;
}

}  // namespace

ListBoxTyping::ListBoxTyping(HWND box, std::vector<std::u16string> entries, int first,
                             std::function<void(int)> chosen)
    : box_(box), entries_(std::move(entries)), chosen_(std::move(chosen)), current_(first) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    if (GetComboBoxInfo(box_, &parts)) {
        edit_ = parts.hwndItem;
        list_ = parts.hwndList;
    }
    SendMessageW(box_, CB_LIMITTEXT, 0, 0);  // no limit
    SendMessageW(box_, CB_SETMINVISIBLE, kVisibleEntries, 0);
    int widest = 0;
    for (const std::u16string& entry : entries_) {
        SendMessageW(box_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide(entry)));
        widest = std::max<int>(widest, native::textSize(box_, entry).cx);
    }
    const int padding = GetSystemMetrics(SM_CXVSCROLL) + 4 * GetSystemMetrics(SM_CXEDGE);
    SendMessageW(box_, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest + padding), 0);
    choose(first);
}

std::u16string ListBoxTyping::text() const { return native::textOf(box_); }

bool ListBoxTyping::isDroppedDown() const {
    return SendMessageW(box_, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

void ListBoxTyping::choose(int index) {
    // None empties the field too.
    SendMessageW(box_, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    deselect();
    becomeCurrent(index);
}

void ListBoxTyping::deselect() const {
    if (edit_ && GetFocus() != edit_)
        SendMessageW(edit_, EM_SETSEL, 0, 0);
}

void ListBoxTyping::becomeCurrent(int index) {
    if (index == std::exchange(current_, index))
        return;
    if (chosen_ && index >= 0)
        chosen_(index);
}

bool ListBoxTyping::takes(const MSG& message) {
    if (!edit_ || message.hwnd != edit_)
        return false;
    switch (message.message) {
        case WM_KEYDOWN:
            textBefore_ = native::textOf(edit_);
            return isDroppedDown() && takesKey(message.wParam);
        case WM_KEYUP:
            // Some write nothing: Ctrl+C.
            if (isTyping(message.wParam) && native::textOf(edit_) != textBefore_)
                typed(message.wParam == VK_BACK);
            return false;
        case WM_LBUTTONUP: {
            // Not with the press: the list would get the release, and take it for a choice.
            DispatchMessageW(&message);
            DWORD first = 0;
            DWORD end = 0;
            SendMessageW(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                         reinterpret_cast<LPARAM>(&end));
            if (first == end && !isDroppedDown())  // else a part of the text was selected
                dropDown();
            return true;
        }
        default: return false;
    }
}

/// While the list is open. @return whether the key was for it only.
bool ListBoxTyping::takesKey(WPARAM key) {
    switch (key) {
        case VK_RETURN: rollUp(true); return true;
        case VK_ESCAPE: rollUp(false); return true;
        case VK_TAB: rollUp(true); return false;
        default: return false;
    }
}

void ListBoxTyping::notified(WORD notification) {
    if (notification == CBN_SELCHANGE) {
        becomeCurrent(static_cast<int>(SendMessageW(box_, CB_GETCURSEL, 0, 0)));
    } else if (notification == CBN_KILLFOCUS) {
        const int index = unitIndexFor(entries_, typedText());
        if (index >= 0 && entries_[static_cast<std::size_t>(index)] != text())
            choose(index);
    }
}

/// Without what was added behind the caret.
std::u16string ListBoxTyping::typedText() const {
    std::u16string text = native::textOf(edit_);
    DWORD first = 0;
    DWORD end = 0;
    SendMessageW(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                 reinterpret_cast<LPARAM>(&end));
    // A text that is selected as a whole was not added but is about to be replaced.
    if (first > 0 && first < end && end == text.size())
        text.resize(first);
    if (text.size() > kMaxTyped)
        text.resize(kMaxTyped);
    return text;
}

void ListBoxTyping::typed(bool isErasing) {
    const std::u16string text = typedText();
    if (!isDroppedDown())
        dropDown();
    const int index = unitIndexFor(entries_, text);
    if (index < 0) {
        SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(-1), 0);
        return;
    }
    const std::u16string& entry = entries_[static_cast<std::size_t>(index)];
    const bool isAdding = !isErasing && beginsWith(entry, text);
    if (isAdding)
        setEditText(entry, entry.size(), text.size());
    SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
    if (isAdding)
        becomeCurrent(index);
}

/// Opens the list and leaves the text as it is: the box itself would put the first entry that
/// begins with it there.
void ListBoxTyping::dropDown() {
    const std::u16string text = native::textOf(edit_);
    DWORD first = 0;
    DWORD end = 0;
    SendMessageW(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                 reinterpret_cast<LPARAM>(&end));
    SendMessageW(box_, CB_SHOWDROPDOWN, TRUE, 0);
    if (native::textOf(edit_) != text)
        setEditText(text, first, end);
    SetCursor(LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_ARROW)));
}

/// Closes the list. isTaking: chooses what the text means, which need not be what the mouse happens
/// to lie on; else the text stays.
void ListBoxTyping::rollUp(bool isTaking) {
    const std::u16string text = native::textOf(edit_);
    const int meant = isTaking ? unitIndexFor(entries_, text) : kNoUnit;
    SendMessageW(box_, CB_SHOWDROPDOWN, FALSE, 0);
    if (meant != kNoUnit)
        choose(meant);
    else
        setEditText(text, text.size(), text.size());
}

void ListBoxTyping::setEditText(const std::u16string& text, std::size_t anchor, std::size_t caret) {
    SetWindowTextW(edit_, wide(text));
    SendMessageW(edit_, EM_SETSEL, anchor, static_cast<LPARAM>(caret));
}
