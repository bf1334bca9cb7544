#include "gui/win32/native_property_dialog.h"

#include <windows.h>

#include <algorithm>
#include <exception>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "gui/dialog_texts.h"
#include "gui/property_entry.h"
#include "gui/win32/list_box_typing.h"
#include "gui/win32/property_layout.h"
#include "gui/win32/resource_ids.h"
#include "native/window_tools.h"
#include "platform/win32/wide.h"

namespace {

using IFC::PropertyWindowInput;
using IFC::PropertyWindowMode;
using platform::wide;

constexpr const wchar_t* kWindowClass = L"" QUILLET_PROPERTY_WINDOW_CLASS;
constexpr const wchar_t* kFontFace = L"Tahoma";
constexpr int kFontHeight = 15;  // at 96 DPI, as the icon's
constexpr int kIconSize = 36;
constexpr LPARAM kWasDownBefore = 1 << 30;  // of a key message: the key is held

class WindowClass {
public:
    WindowClass() {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.style = CS_DBLCLKS;
        description.lpfnWndProc = &DefDlgProcW;
        description.cbWndExtra = DLGWINDOWEXTRA;
        description.hInstance = native::ownModule();
        description.hCursor = LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_ARROW));
        description.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
        description.lpszClassName = kWindowClass;
        RegisterClassExW(&description);
    }
    // The library may be unloaded, and loaded again elsewhere.
    ~WindowClass() { UnregisterClassW(kWindowClass, native::ownModule()); }
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
};

/// Line ends as edit controls have them.
std::u16string toEditText(std::u16string_view text) {
    std::u16string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPair = text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
        if (text[i] == u'\r' || text[i] == u'\n')
            shown += u"\r\n";
        else
            shown += text[i];
        i += isPair ? 1 : 0;
    }
    return shown;
}

std::u16string fromEditText(std::u16string_view shown) {
    std::u16string text;
    for (std::size_t i = 0; i < shown.size(); ++i)
        if (shown[i] != u'\r' || i + 1 == shown.size() || shown[i + 1] != u'\n')
            text += shown[i] == u'\r' ? u'\n' : shown[i];
    return text;
}

std::u16string trimmed(const std::u16string& text) {
    const auto isBlank = [](char16_t unit) { return unit == u' ' || unit == u'\t'; };
    const auto first = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto last = std::find_if_not(text.rbegin(), text.rend(), isBlank).base();
    return first < last ? std::u16string(first, last) : std::u16string();
}

/// An edit control that knows what it showed first: what the user did not change is as it was
/// given, whatever the control made of it.
class Field {
public:
    Field() = default;
    Field(HWND edit, const std::u16string& given, bool hasLines)
        : edit_(edit), hasLines_(hasLines), given_(given) {
        SendMessageW(edit_, EM_LIMITTEXT, 0, 0);  // no text is cut
        SetWindowTextW(edit_, wide(hasLines_ ? toEditText(given) : given));
        shown_ = native::textOf(edit_);
        setCaretAtEnd();
    }

    HWND edit() const { return edit_; }
    bool hasLines() const { return hasLines_; }
    std::u16string text() const {
        std::u16string now = native::textOf(edit_);
        if (now == shown_)
            return given_;
        return hasLines_ ? fromEditText(now) : now;
    }
    void setCaretAtEnd() const {
        const int end = GetWindowTextLengthW(edit_);
        SendMessageW(edit_, EM_SETSEL, static_cast<WPARAM>(end), end);
        SendMessageW(edit_, EM_SCROLLCARET, 0, 0);
    }
    void selectAll() const { SendMessageW(edit_, EM_SETSEL, 0, -1); }

private:
    HWND edit_ = nullptr;
    bool hasLines_ = false;
    std::u16string given_;
    std::u16string shown_;
};

class NativePropertyDialog {
public:
    NativePropertyDialog(const PropertyWindowInput& input, const TextLookup& textOf,
                         const std::u16string& iconPath)
        : input_(input), textOf_(textOf), iconPath_(iconPath) {}
    NativePropertyDialog(const NativePropertyDialog&) = delete;
    NativePropertyDialog& operator=(const NativePropertyDialog&) = delete;

    std::optional<IFC::PropertyWindowResult> ask();

private:
    static INT_PTR CALLBACK dialogProc(HWND window, UINT message, WPARAM word,
                                       LPARAM parameter) noexcept;
    INT_PTR received(UINT message, WPARAM word, LPARAM parameter);
    void fill();
    void replaceValueByList();
    void setFont();
    void showCaptions();
    void fillFields();
    void fillLists();
    void hideWhatTheModeHasNoUseFor();
    void open();

    bool takes(const MSG& message);
    bool takesFirstClick(HWND field);
    bool takesKey(const MSG& message);
    void returnPressed(const MSG& message);
    void commanded(int id, WORD notification);
    void quantityTypeChosen(int index);
    void confirm();
    void close() { isDone_ = true; }

    /// Runs `body`; what it throws closes the dialog and is thrown when it is gone.
    template <class Body>
    auto guarded(Body body) noexcept -> decltype(body()) {
        try {
            return body();
        } catch (...) {
            fault_ = std::current_exception();
            close();
            return {};
        }
    }

    HWND control(int id) const { return GetDlgItem(window_, id); }
    HWND controlOf(PropertyField field) const;
    const Field* fieldWith(HWND edit) const;
    PropertyEntry entry() const;
    std::u16string text(const char* key) const { return textOf_ ? textOf_(key) : std::u16string(); }

    const PropertyWindowInput& input_;
    const TextLookup& textOf_;
    const std::u16string iconPath_;
    HWND window_ = nullptr;
    bool isDone_ = false;
    std::exception_ptr fault_;  // of the window procedure
    std::optional<IFC::PropertyWindowResult> entered_;
    std::optional<native::Font> font_;
    std::optional<native::IconFile> icon_;
    std::optional<PropertyLayout> layout_;
    Field setName_;
    Field propertyName_;
    Field value_;                // without a control for a truth value
    HWND truthValue_ = nullptr;  // in the place of value_
    std::optional<ListBoxTyping> unit_;
    std::optional<ListBoxTyping> quantityType_;
    std::vector<HWND> notClicked_;  // fields that the user has not clicked
};

/// The one that is open; the window class and the user's attention are shared by all.
HWND openDialog = nullptr;

std::optional<IFC::PropertyWindowResult> NativePropertyDialog::ask() {
    native::OwnerBlock owner;
    const WindowClass windowClass;
    if (!CreateDialogParamW(native::ownModule(), MAKEINTRESOURCEW(QUILLET_PROPERTY_WINDOW),
                            owner.owner(), &dialogProc, reinterpret_cast<LPARAM>(this)))
        throw std::runtime_error(texts::kNoPropertyWindow + std::to_string(GetLastError()));
    if (!isDone_) {
        openDialog = window_;
        open();
        native::runModal(
            window_, [this] { return isDone_; },
            [this](const MSG& message) {
                return !isDone_ && guarded([&] { return takes(message); });
            });
        openDialog = nullptr;
    }
    owner.release();
    if (window_)
        DestroyWindow(window_);
    if (fault_)
        std::rethrow_exception(fault_);
    return std::move(entered_);
}

INT_PTR CALLBACK NativePropertyDialog::dialogProc(HWND window, UINT message, WPARAM word,
                                                  LPARAM parameter) noexcept {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, parameter);
        reinterpret_cast<NativePropertyDialog*>(parameter)->window_ = window;
    }
    auto* const self =
        reinterpret_cast<NativePropertyDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!self)
        return FALSE;
    return self->guarded([&] { return self->received(message, word, parameter); });
}

INT_PTR NativePropertyDialog::received(UINT message, WPARAM word, LPARAM parameter) {
    switch (message) {
        case WM_INITDIALOG: fill(); return FALSE;  // the focus is set when the window is visible
        case WM_SIZE:
            if (layout_) {
                layout_->place();
                unit_->deselect();
                quantityType_->deselect();
            }
            return TRUE;
        case WM_GETMINMAXINFO:
            if (!layout_)
                return FALSE;
            {
                const SIZE smallest = layout_->smallestSize();
                reinterpret_cast<MINMAXINFO*>(parameter)->ptMinTrackSize = {smallest.cx,
                                                                            smallest.cy};
            }
            return TRUE;
        case WM_COMMAND: commanded(LOWORD(word), HIWORD(word)); return TRUE;
        case WM_CLOSE: close(); return TRUE;
        case WM_DESTROY:  // perhaps with its owner
            window_ = nullptr;
            close();
            return FALSE;
        default: return FALSE;
    }
}

void NativePropertyDialog::fill() {
    if (input_.isTruthValue)
        replaceValueByList();
    setFont();
    showCaptions();
    fillLists();
    hideWhatTheModeHasNoUseFor();
    layout_.emplace(window_, input_);
    const RECT place = layout_->firstPlace();
    SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
    layout_->place();
    fillFields();  // breaks the lines of the value once
}

void NativePropertyDialog::replaceValueByList() {
    DestroyWindow(control(QUILLET_VALUE));
    truthValue_ = CreateWindowExW(
        0, L"COMBOBOX", nullptr, WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST,
        0, 0, 0, 0, window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(QUILLET_VALUE)),
        native::ownModule(), nullptr);
    // Behind its caption, as the Tab key goes.
    SetWindowPos(truthValue_, control(QUILLET_VALUE_LABEL), 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    for (const std::u16string* const text : {&input_.no, &input_.yes})
        SendMessageW(truthValue_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide(*text)));
    SendMessageW(truthValue_, CB_SETCURSEL, input_.truthValue ? 1 : 0, 0);
}

void NativePropertyDialog::setFont() {
    font_.emplace(kFontFace, kFontHeight, window_);
    for (HWND child = GetWindow(window_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_->get()), FALSE);
}

void NativePropertyDialog::showCaptions() {
    SetWindowTextW(window_, wide(input_.title));
    const int iconSize = native::scaled(window_, kIconSize);
    icon_.emplace(iconPath_, iconSize);
    for (const WPARAM size : {ICON_SMALL, ICON_BIG})
        SendMessageW(window_, WM_SETICON, size, reinterpret_cast<LPARAM>(icon_->get()));
    const auto show = [this](int id, const std::u16string& caption) {
        SetWindowTextW(control(id), wide(caption));
    };
    show(QUILLET_FRAME, {});
    show(QUILLET_SET_GROUP, native::asCaption(input_.setNameMessage));
    show(QUILLET_PROPERTY_GROUP, native::asCaption(input_.propertyData));
    show(QUILLET_PROPERTY_NAME_LABEL, input_.propertyNameMessage);
    show(QUILLET_VALUE_LABEL, text(texts::kValueLabelKey));
    show(QUILLET_UNIT_LABEL, text(texts::kUnitLabelKey));
    show(QUILLET_QUANTITY_TYPE_LABEL, input_.quantityTypeLabel);
    show(QUILLET_OK, native::asCaption(input_.ok));
    show(QUILLET_CANCEL, native::asCaption(input_.cancel));
}

void NativePropertyDialog::fillFields() {
    setName_ = Field(control(QUILLET_SET_NAME), input_.setName, false);
    propertyName_ = Field(control(QUILLET_PROPERTY_NAME), input_.propertyName, false);
    notClicked_ = {setName_.edit(), propertyName_.edit()};
    if (truthValue_)
        return;
    value_ = Field(control(QUILLET_VALUE), input_.value, true);
    notClicked_.push_back(value_.edit());
}

void NativePropertyDialog::fillLists() {
    unit_.emplace(control(QUILLET_UNIT), offeredUnits(input_), firstUnitIndex(input_));
    quantityType_.emplace(control(QUILLET_QUANTITY_TYPE), offeredQuantityTypes(input_),
                          firstQuantityTypeIndex(input_),
                          [this](int index) { quantityTypeChosen(index); });
    EnableWindow(unit_->box(), !input_.isTruthValue);
}

void NativePropertyDialog::hideWhatTheModeHasNoUseFor() {
    EnableWindow(control(QUILLET_SET_NAME), canEditSetName(input_.mode));
    const auto hide = [this](std::initializer_list<int> ids) {
        for (const int id : ids)
            ShowWindow(control(id), SW_HIDE);
    };
    if (!hasPropertyFields(input_.mode))
        hide({QUILLET_PROPERTY_GROUP, QUILLET_PROPERTY_NAME_LABEL, QUILLET_PROPERTY_NAME,
              QUILLET_VALUE_LABEL, QUILLET_VALUE, QUILLET_UNIT_LABEL, QUILLET_UNIT});
    if (!hasQuantityType(input_))
        hide({QUILLET_QUANTITY_TYPE_LABEL, QUILLET_QUANTITY_TYPE});
}

void NativePropertyDialog::open() {
    ShowWindow(window_, SW_SHOW);
    const bool isEdit = input_.mode == PropertyWindowMode::EditProperty;
    HWND const first = control(canEditSetName(input_.mode) ? QUILLET_SET_NAME
                               : isEdit                    ? QUILLET_VALUE
                                                           : QUILLET_PROPERTY_NAME);
    SetFocus(first);
    // The focus may have selected the text.
    if (const Field* const field = fieldWith(first))
        field->setCaretAtEnd();
}

bool NativePropertyDialog::takes(const MSG& message) {
    if (message.hwnd != window_ && !IsChild(window_, message.hwnd))
        return false;
    if (unit_->takes(message) || quantityType_->takes(message))
        return true;
    switch (message.message) {
        case WM_LBUTTONDOWN: return takesFirstClick(message.hwnd);
        case WM_KEYDOWN: return takesKey(message);
        default: return false;
    }
}

/// Once for each field.
bool NativePropertyDialog::takesFirstClick(HWND edit) {
    if (std::erase(notClicked_, edit) == 0)
        return false;
    SetFocus(edit);
    fieldWith(edit)->selectAll();
    return true;
}

bool NativePropertyDialog::takesKey(const MSG& message) {
    const bool isControlDown = GetKeyState(VK_CONTROL) < 0;
    const bool isListOpen = truthValue_ && SendMessageW(truthValue_, CB_GETDROPPEDSTATE, 0, 0) != 0;
    const WPARAM key = message.wParam;
    if (isListOpen && (key == VK_RETURN || key == VK_ESCAPE)) {
        SendMessageW(truthValue_, CB_SHOWDROPDOWN, FALSE, 0);
    } else if (key == VK_RETURN) {
        returnPressed(message);
    } else if (key == VK_ESCAPE) {
        close();
    } else if (const Field* const field = fieldWith(message.hwnd);
               field && key == 'A' && isControlDown && GetKeyState(VK_MENU) >= 0) {
        field->selectAll();
    } else {
        return false;
    }
    return true;
}

/// OK wherever the focus is; with another key, a new line of the value.
void NativePropertyDialog::returnPressed(const MSG& message) {
    const bool isNewLine = GetKeyState(VK_SHIFT) < 0 || GetKeyState(VK_CONTROL) < 0;
    const Field* const field = fieldWith(message.hwnd);
    if (isNewLine && field && field->hasLines())
        SendMessageW(field->edit(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"\r\n"));
    else if (!(message.lParam & kWasDownBefore))  // perhaps since before the dialog was opened
        confirm();
}

void NativePropertyDialog::commanded(int id, WORD notification) {
    switch (id) {
        case QUILLET_UNIT: return unit_ ? unit_->notified(notification) : void();
        case QUILLET_QUANTITY_TYPE:
            return quantityType_ ? quantityType_->notified(notification) : void();
        case IDOK:
        case QUILLET_OK: return notification == BN_CLICKED ? confirm() : void();
        case IDCANCEL:
        case QUILLET_CANCEL: return notification == BN_CLICKED ? close() : void();
        default: return;
    }
}

void NativePropertyDialog::quantityTypeChosen(int index) {
    unit_->choose(unitIndexOf(quantityType_->entries()[static_cast<std::size_t>(index)]));
}

void NativePropertyDialog::confirm() {
    auto result = resultOf(input_, entry());
    if (const auto* const problem = std::get_if<FieldProblem>(&result)) {
        MessageBoxW(window_, wide(text(problem->textKey)),
                    reinterpret_cast<const wchar_t*>(texts::kInputErrorCaption),
                    MB_OK | MB_ICONWARNING);
        if (!isDone_)
            SendMessageW(window_, WM_NEXTDLGCTL,
                         reinterpret_cast<WPARAM>(controlOf(problem->field)), TRUE);
        return;
    }
    entered_ = std::move(std::get<IFC::PropertyWindowResult>(result));
    close();
}

HWND NativePropertyDialog::controlOf(PropertyField field) const {
    switch (field) {
        case PropertyField::SetName: return control(QUILLET_SET_NAME);
        case PropertyField::PropertyName: return control(QUILLET_PROPERTY_NAME);
        case PropertyField::Value: return control(QUILLET_VALUE);
        case PropertyField::Unit: return control(QUILLET_UNIT);
        case PropertyField::QuantityType: return control(QUILLET_QUANTITY_TYPE);
    }
    return nullptr;
}

/// Null for what is none of the fields.
const Field* NativePropertyDialog::fieldWith(HWND edit) const {
    for (const Field* const field : {&setName_, &propertyName_, &value_})
        if (edit && field->edit() == edit)
            return field;
    return nullptr;
}

PropertyEntry NativePropertyDialog::entry() const {
    PropertyEntry entry;
    entry.setName = setName_.text();
    if (!hasPropertyFields(input_.mode))
        return entry;
    entry.propertyName = propertyName_.text();
    if (truthValue_)
        entry.value = SendMessageW(truthValue_, CB_GETCURSEL, 0, 0) == 1 ? u"1" : u"0";
    else
        entry.value = value_.text();
    entry.unit = trimmed(unit_->text());
    if (hasQuantityType(input_))
        entry.quantityType = trimmed(quantityType_->text());
    return entry;
}

}  // namespace

std::optional<IFC::PropertyWindowResult> askInNativePropertyDialog(
    const IFC::PropertyWindowInput& input, const TextLookup& textOf,
    const std::u16string& pluginFolder) {
    if (openDialog) {
        SetForegroundWindow(openDialog);
        return std::nullopt;
    }
    std::u16string iconPath = pluginFolder;
    iconPath += texts::kEditIcon;
    return NativePropertyDialog(input, textOf, iconPath).ask();
}
