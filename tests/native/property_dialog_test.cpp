#include <windows.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "gui/win32/native_property_dialog.h"
#include "gui/win32/resource_ids.h"
#include "native/window_tools.h"
#include "platform/text.h"
#include "tests/native/native_user.h"
#include "tests/native/property_inputs.h"
#include "tests/support/language_texts.h"

namespace {

using IFC::PropertyWindowInput;
using IFC::PropertyWindowMode;
using Result = std::optional<IFC::PropertyWindowResult>;

constexpr const wchar_t* kDialogClass = L"IfcPropertyWindowClass";
constexpr const wchar_t* kMessageClass = L"#32770";

PropertyWindowInput editInput(const std::u16string& value) {
    PropertyWindowInput input = inputFor(PropertyWindowMode::EditProperty);
    input.propertyName = u"Note";
    input.value = value;
    return input;
}

PropertyWindowInput quantityInput(const char16_t* type, const char16_t* prefix,
                                  const char16_t* unit) {
    PropertyWindowInput input = editInput(u"1.5");
    input.isQuantity = true;
    input.quantityType = type;
    input.prefix = prefix;
    input.unit = unit;
    return input;
}

/// The open dialog and its user.
struct Dialog {
    NativeUser& user;
    HWND window;

    HWND control(int id) const { return GetDlgItem(window, id); }
    HWND edit(int id) const { return editOf(control(id)); }  // of a combo box
    std::u16string text(int id) const { return textOfControl(control(id)); }
    LRESULT send(int id, UINT message, WPARAM word = 0, LPARAM parameter = 0) const {
        return SendMessageW(control(id), message, word, parameter);
    }
    bool isDroppedDown(int id) const { return send(id, CB_GETDROPPEDSTATE) != 0; }

    void pressOk() const { user.press(window, QUILLET_OK); }
    void pressCancel() const { user.press(window, QUILLET_CANCEL); }
    /// As the keyboard does it: a sign, then the release of its key.
    void typeKeys(int id, const std::string& keys) const {
        for (const char sign : keys) {
            user.setFocus(edit(id));
            const auto key = LOBYTE(VkKeyScanW(static_cast<wchar_t>(sign)));
            user.post(edit(id), WM_CHAR, static_cast<WPARAM>(sign), 1);
            user.post(edit(id), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
            user.settle(window);
        }
    }
};

/// What comes of the story in the dialog, which it has to close.
Result ask(const PropertyWindowInput& input, const std::function<void(const Dialog&)>& story,
           const std::string& language = "en",
           const std::u16string& folder = platform::fromUtf8(QUILLET_SOURCE_DIR
                                                             "/data/plugins/quillet")) {
    NativeUser user([&](NativeUser& self) {
        HWND const window = self.waitForWindow(kDialogClass);
        self.settle(window);  // it gets its focus when it is visible already
        story(Dialog{self, window});
        self.waitUntilGone(window);
    });
    return askInNativePropertyDialog(input, textsOfLanguage(language), folder);
}

TEST(NativePropertyDialogModes, ShowWhatTheyNeed) {
    struct Case {
        PropertyWindowMode mode;
        bool isQuantity;
        bool setName;  // can be edited
        bool property;
        bool quantityType;
        int height;
        int focus;
    };
    const Case cases[] = {
        {PropertyWindowMode::AddProperty, false, false, true, false, 260, QUILLET_PROPERTY_NAME},
        {PropertyWindowMode::AddProperty, true, false, true, true, 260, QUILLET_PROPERTY_NAME},
        {PropertyWindowMode::EditProperty, false, false, true, false, 260, QUILLET_VALUE},
        {PropertyWindowMode::EditProperty, true, false, true, true, 260, QUILLET_VALUE},
        {PropertyWindowMode::AddSet, true, true, true, false, 260, QUILLET_SET_NAME},
        {PropertyWindowMode::RenameSet, true, true, false, false, 200, QUILLET_SET_NAME},
    };
    for (const Case& each : cases) {
        PropertyWindowInput input = inputFor(each.mode);
        input.isQuantity = each.isQuantity;
        const Result result = ask(input, [&](const Dialog& dialog) {
            SCOPED_TRACE(static_cast<int>(each.mode));
            const auto isShown = [&](int id) {
                return (GetWindowLongPtrW(dialog.control(id), GWL_STYLE) & WS_VISIBLE) != 0;
            };
            EXPECT_EQ(IsWindowEnabled(dialog.control(QUILLET_SET_NAME)) != 0, each.setName);
            EXPECT_EQ(dialog.text(QUILLET_SET_NAME), u"Pset_WallCommon");
            for (const int id :
                 {QUILLET_PROPERTY_GROUP, QUILLET_PROPERTY_NAME_LABEL, QUILLET_PROPERTY_NAME,
                  QUILLET_VALUE_LABEL, QUILLET_VALUE, QUILLET_UNIT_LABEL, QUILLET_UNIT})
                EXPECT_EQ(isShown(id), each.property) << id;
            for (const int id : {QUILLET_QUANTITY_TYPE_LABEL, QUILLET_QUANTITY_TYPE})
                EXPECT_EQ(isShown(id), each.quantityType) << id;
            for (const int id : {QUILLET_FRAME, QUILLET_SET_GROUP, QUILLET_OK, QUILLET_CANCEL})
                EXPECT_TRUE(isShown(id)) << id;
            EXPECT_TRUE(dialog.user.hasFocus(dialog.control(each.focus)));

            RECT place{};
            GetWindowRect(dialog.window, &place);
            EXPECT_EQ(place.right - place.left, native::scaled(dialog.window, 860));
            EXPECT_EQ(place.bottom - place.top, native::scaled(dialog.window, each.height));
            dialog.pressCancel();
        });
        EXPECT_FALSE(result);
    }
}

TEST(NativePropertyDialog, LooksAsAgreed) {
    ask(editInput(u"x"), [](const Dialog& dialog) {
        EXPECT_EQ(textOfControl(dialog.window), u"Property");
        int children = 0;
        for (HWND child = GetWindow(dialog.window, GW_CHILD); child;
             child = GetWindow(child, GW_HWNDNEXT)) {
            ++children;
            LOGFONTW font{};
            GetObjectW(reinterpret_cast<HFONT>(SendMessageW(child, WM_GETFONT, 0, 0)), sizeof font,
                       &font);
            EXPECT_STREQ(font.lfFaceName, L"Tahoma");
            EXPECT_EQ(font.lfHeight, native::scaled(dialog.window, 15));
        }
        EXPECT_EQ(children, 14);
        for (const WPARAM size : {ICON_SMALL, ICON_BIG}) {
            ICONINFO icon{};
            GetIconInfo(reinterpret_cast<HICON>(SendMessageW(dialog.window, WM_GETICON, size, 0)),
                        &icon);
            BITMAP bitmap{};
            GetObjectW(icon.hbmColor, sizeof bitmap, &bitmap);
            EXPECT_EQ(bitmap.bmWidth, native::scaled(dialog.window, 36));
            DeleteObject(icon.hbmColor);
            DeleteObject(icon.hbmMask);
        }
        EXPECT_EQ(LOWORD(SendMessageW(dialog.window, DM_GETDEFID, 0, 0)), QUILLET_OK);
        dialog.pressCancel();
    });
}

TEST(NativePropertyDialog, OpensWithoutItsIcon) {
    const Result result = ask(
        editInput(u"x"),
        [](const Dialog& dialog) {
            EXPECT_EQ(SendMessageW(dialog.window, WM_GETICON, ICON_BIG, 0), 0);
            dialog.user.type(dialog.control(QUILLET_VALUE), u"y");
            dialog.pressOk();
        },
        "en", u"C:\\nowhere");
    ASSERT_TRUE(result);
    EXPECT_EQ(result->property.value, u"xy");
}

TEST(NativePropertyDialogCaptions, FitInAllLanguages) {
    for (const char* const language : {"de", "en", "es", "fr", "it", "pl", "pt"}) {
        PropertyWindowInput input = inputFor(PropertyWindowMode::AddProperty, language);
        input.isQuantity = true;
        input.title = u"Storey & <b>";
        ask(
            input,
            [&](const Dialog& dialog) {
                SCOPED_TRACE(language);
                EXPECT_EQ(textOfControl(dialog.window), u"Storey & <b>");
                for (const int id :
                     {QUILLET_SET_GROUP, QUILLET_PROPERTY_GROUP, QUILLET_PROPERTY_NAME_LABEL,
                      QUILLET_VALUE_LABEL, QUILLET_UNIT_LABEL, QUILLET_QUANTITY_TYPE_LABEL,
                      QUILLET_OK, QUILLET_CANCEL}) {
                    const std::u16string text = dialog.text(id);
                    const SIZE needed = native::textSize(dialog.control(id), text);
                    RECT inside{};
                    GetClientRect(dialog.control(id), &inside);
                    EXPECT_FALSE(text.empty()) << id;
                    EXPECT_GE(inside.right, needed.cx) << id;
                    EXPECT_GE(inside.bottom, needed.cy) << id;
                }
                dialog.pressCancel();
            },
            language);
    }
}

TEST(NativePropertyDialogCaptions, ShowAnAmpersand) {
    PropertyWindowInput input = inputFor(PropertyWindowMode::AddSet);
    input.setNameMessage = u"Doors & Windows";
    input.propertyNameMessage = u"A & B";
    input.ok = u"Yes & OK";
    input.setName = u"R&D";
    const Result result = ask(input, [](const Dialog& dialog) {
        // Two where one would mark a key.
        EXPECT_EQ(dialog.text(QUILLET_SET_GROUP), u"Doors && Windows");
        EXPECT_EQ(dialog.text(QUILLET_OK), u"Yes && OK");
        EXPECT_EQ(dialog.text(QUILLET_PROPERTY_NAME_LABEL), u"A & B");
        EXPECT_TRUE(GetWindowLongPtrW(dialog.control(QUILLET_PROPERTY_NAME_LABEL), GWL_STYLE) &
                    SS_NOPREFIX);
        EXPECT_EQ(dialog.text(QUILLET_SET_NAME), u"R&D");
        dialog.pressOk();
    });
    ASSERT_TRUE(result);
    EXPECT_EQ(result->setName, u"R&D");
}

TEST(NativePropertyDialogUnits, OpenWithTheUnitOfTheProperty) {
    PropertyWindowInput newQuantity = inputFor(PropertyWindowMode::AddProperty);
    newQuantity.isQuantity = true;
    struct Case {
        PropertyWindowInput input;
        int count;
        std::u16string chosen;
    };
    const Case cases[] = {
        {newQuantity, 464, u"m2 (SquareMetre)"},
        {inputFor(PropertyWindowMode::AddProperty), 464, u""},
        {quantityInput(u"IfcQuantityLength", u"MILLI", u"METRE"), 464, u"mm (MilliMetre)"},
        // Not offered for choice, but not lost either.
        {quantityInput(u"IfcQuantityLength", u"ATTO", u"METRE"), 465, u"ATTO METRE"},
    };
    for (const Case& each : cases) {
        ask(each.input, [&](const Dialog& dialog) {
            EXPECT_EQ(dialog.send(QUILLET_UNIT, CB_GETCOUNT), each.count);
            EXPECT_EQ(dialog.text(QUILLET_UNIT), each.chosen);
            dialog.pressCancel();
        });
    }
}

TEST(NativePropertyDialogUnits, ShowFifteenWhenTheListIsOpen) {
    ask(inputFor(PropertyWindowMode::AddProperty), [](const Dialog& dialog) {
        dialog.user.click(dialog.edit(QUILLET_UNIT));
        EXPECT_TRUE(dialog.isDroppedDown(QUILLET_UNIT));
        RECT inside{};
        GetClientRect(listOf(dialog.control(QUILLET_UNIT)), &inside);
        EXPECT_EQ(inside.bottom / dialog.send(QUILLET_UNIT, CB_GETITEMHEIGHT), 15);
        dialog.user.key(dialog.edit(QUILLET_UNIT), VK_ESCAPE);
        EXPECT_FALSE(dialog.isDroppedDown(QUILLET_UNIT));
        EXPECT_TRUE(IsWindowVisible(dialog.window)) << "Escape closed the list only";
        dialog.pressCancel();
    });
}

TEST(NativePropertyDialogUnits, FollowTheQuantityType) {
    const std::pair<const char*, std::u16string> cases[] = {
        {"IfcQuantityA", u"m2 (SquareMetre)"}, {"IfcQuantityC", u""},
        {"IfcQuantityL", u"m (Metre)"},        {"IfcQuantityT", u""},
        {"IfcQuantityV", u"m3 (CubicMetre)"},  {"IfcQuantityW", u""}};
    for (const auto& [typed, unit] : cases) {
        ask(quantityInput(u"IfcQuantityNumber", u"KILO", u"GRAM"), [&](const Dialog& dialog) {
            EXPECT_EQ(dialog.text(QUILLET_QUANTITY_TYPE), u"IfcQuantityNumber");
            EXPECT_EQ(dialog.text(QUILLET_UNIT), u"kg (KiloGram)");
            SendMessageW(dialog.edit(QUILLET_QUANTITY_TYPE), EM_SETSEL, 0, -1);
            dialog.typeKeys(QUILLET_QUANTITY_TYPE, typed);
            dialog.user.key(dialog.edit(QUILLET_QUANTITY_TYPE), VK_RETURN);
            EXPECT_EQ(dialog.text(QUILLET_UNIT), unit) << typed;
            dialog.pressCancel();
        });
    }
    // With the arrow keys.
    const Result result =
        ask(quantityInput(u"IfcQuantityLength", u"MILLI", u"METRE"), [](const Dialog& dialog) {
            HWND const edit = dialog.edit(QUILLET_QUANTITY_TYPE);
            dialog.user.key(edit, VK_UP);
            dialog.user.key(edit, VK_UP);
            EXPECT_EQ(dialog.text(QUILLET_QUANTITY_TYPE), u"IfcQuantityArea");
            EXPECT_EQ(dialog.text(QUILLET_UNIT), u"m2 (SquareMetre)");
            dialog.pressOk();
        });
    ASSERT_TRUE(result);
    EXPECT_EQ(result->property.quantityType, u"IfcQuantityArea");
    EXPECT_EQ(result->property.unit, u"SQUARE_METRE");
    EXPECT_EQ(result->property.prefix, u"");
}

TEST(NativePropertyDialogUnits, AreFoundByTyping) {
    const std::pair<const char*, std::u16string> cases[] = {
        {"k", u"kA (KiloAmpere)"}, {"kg", u"kg (KiloGram)"},
        {"m", u"m (Metre)"},       {"mm2", u"mm2 (MilliSquareMetre)"},
        {"KG", u"kg (KiloGram)"},  {"kg ", u"kg (KiloGram)"},
        {"mo", u"mo (Mole)"}};
    for (const auto& [typed, chosen] : cases) {
        ask(inputFor(PropertyWindowMode::AddProperty), [&](const Dialog& dialog) {
            dialog.typeKeys(QUILLET_UNIT, typed);
            EXPECT_TRUE(dialog.isDroppedDown(QUILLET_UNIT));
            EXPECT_EQ(dialog.text(QUILLET_UNIT), chosen);
            // The next sign replaces what was added.
            EXPECT_EQ(selectedText(dialog.edit(QUILLET_UNIT)),
                      chosen.substr(std::string(typed).size()));
            dialog.user.key(dialog.edit(QUILLET_UNIT), VK_RETURN);
            EXPECT_FALSE(dialog.isDroppedDown(QUILLET_UNIT));
            EXPECT_EQ(dialog.text(QUILLET_UNIT), chosen);
            EXPECT_TRUE(IsWindowVisible(dialog.window)) << "Return closed the list only";
            dialog.pressCancel();
        });
    }
    ask(inputFor(PropertyWindowMode::AddProperty), [](const Dialog& dialog) {
        // The name of a unit only marks the entry; Tab takes it.
        dialog.typeKeys(QUILLET_UNIT, "squ");
        EXPECT_EQ(dialog.text(QUILLET_UNIT), u"squ");
        dialog.user.key(dialog.edit(QUILLET_UNIT), VK_TAB);
        EXPECT_EQ(dialog.text(QUILLET_UNIT), u"m2 (SquareMetre)");
        EXPECT_TRUE(dialog.user.hasFocus(dialog.control(QUILLET_OK)));
        // So does leaving the box in any other way.
        dialog.user.retype(dialog.edit(QUILLET_UNIT), u"cub");
        dialog.user.setFocus(dialog.control(QUILLET_PROPERTY_NAME));
        EXPECT_EQ(dialog.text(QUILLET_UNIT), u"m3 (CubicMetre)");
        // Backspace takes away what was added, then what was typed.
        dialog.user.retype(dialog.edit(QUILLET_UNIT), u"");
        dialog.typeKeys(QUILLET_UNIT, "kg\b");
        EXPECT_EQ(dialog.text(QUILLET_UNIT), u"kg");
        dialog.typeKeys(QUILLET_UNIT, "\b");
        EXPECT_EQ(dialog.text(QUILLET_UNIT), u"k");
        // What means nothing stays, and is refused later.
        dialog.typeKeys(QUILLET_UNIT, "\bfurlong");
        EXPECT_EQ(dialog.text(QUILLET_UNIT), u"furlong");
        dialog.pressCancel();
    });
}

TEST(NativePropertyDialogResult, IsWhatWasEntered) {
    const std::u16string name = u"\u05E8\u05D5\u05D7\u05D1 \U0001F6AA &Width";
    const Result result = ask(inputFor(PropertyWindowMode::AddProperty), [&](const Dialog& dialog) {
        dialog.user.type(dialog.control(QUILLET_PROPERTY_NAME), name);
        dialog.user.type(dialog.control(QUILLET_VALUE), u"12.5");
        dialog.typeKeys(QUILLET_UNIT, "cm");
        dialog.user.key(dialog.edit(QUILLET_UNIT), VK_RETURN);
        dialog.pressOk();
    });
    ASSERT_TRUE(result);
    EXPECT_EQ(result->setName, u"Pset_WallCommon");
    EXPECT_EQ(result->property.name, name);
    EXPECT_EQ(result->property.value, u"12.5");
    EXPECT_EQ(result->property.prefix, u"CENTI");
    EXPECT_EQ(result->property.unit, u"METRE");
    EXPECT_EQ(result->property.valueType, kRealValue);
}

TEST(NativePropertyDialogResult, KeepsWhatWasNotTouched) {
    std::u16string longValue;
    while (longValue.size() < 10000)
        longValue += u"word & word, ";
    const std::u16string odd = u" a\u00A0b\nc\rd\r\ne\r\r\nf\u2028\xD800\t ";
    PropertyWindowInput input = quantityInput(u"IfcQuantityNumber", u"ATTO", u"METRE");
    input.setName = odd;
    input.propertyName = std::u16string(10000, u'x');
    for (const std::u16string& value : {odd, longValue, std::u16string(u"\n")}) {
        input.value = value;  // no number; but it was there
        const Result result = ask(input, [](const Dialog& dialog) { dialog.pressOk(); });
        ASSERT_TRUE(result);
        EXPECT_EQ(result->setName, odd);
        EXPECT_EQ(result->property.name, input.propertyName);
        EXPECT_EQ(result->property.value, value);
        EXPECT_EQ(result->property.prefix, u"ATTO");
        EXPECT_EQ(result->property.unit, u"METRE");
        EXPECT_EQ(result->property.quantityType, u"IfcQuantityNumber");
    }
}

TEST(NativePropertyDialogResult, ChangesOnlyWhatWasTyped) {
    const std::u16string longValue(10000, u'a');
    const std::u16string hebrew = u"\u05E9\u05DC\u05D5\u05DD \U0001D11E";
    const std::pair<std::u16string, std::u16string> cases[] = {
        {u"a\u00A0b", u"a\u00A0bc"},
        {u"one\ntwo", u"one\ntwoc"},
        {u"one\r\ntwo\rthree", u"one\ntwo\nthreec"},
        {longValue, longValue + u"c"},
        {hebrew, hebrew + u"c"},
    };
    for (const auto& [before, after] : cases) {
        const Result result = ask(editInput(before), [](const Dialog& dialog) {
            // Behind the caret, which stands at the end.
            dialog.user.type(dialog.control(QUILLET_VALUE), u"c");
            dialog.pressOk();
        });
        ASSERT_TRUE(result);
        EXPECT_EQ(result->property.value, after);
    }
}

TEST(NativePropertyDialogTruthValue, IsChosenFromTwo) {
    for (const bool before : {false, true}) {
        PropertyWindowInput input = editInput(u"");
        input.isTruthValue = true;
        input.truthValue = before;
        input.unit = u"METRE";  // odd, but not to be lost
        const Result result = ask(input, [&](const Dialog& dialog) {
            EXPECT_FALSE(IsWindowEnabled(dialog.control(QUILLET_UNIT)));
            EXPECT_EQ(dialog.send(QUILLET_VALUE, CB_GETCOUNT), 2);
            EXPECT_EQ(dialog.text(QUILLET_VALUE), before ? u"Yes" : u"No");
            EXPECT_TRUE(dialog.user.hasFocus(dialog.control(QUILLET_VALUE)));
            EXPECT_EQ(
                GetNextDlgTabItem(dialog.window, dialog.control(QUILLET_PROPERTY_NAME), FALSE),
                dialog.control(QUILLET_VALUE));
            dialog.user.key(dialog.control(QUILLET_VALUE), before ? VK_UP : VK_DOWN);
            dialog.user.key(dialog.control(QUILLET_VALUE), VK_RETURN);
        });
        ASSERT_TRUE(result);
        EXPECT_EQ(result->property.value, before ? u"0" : u"1");
        EXPECT_EQ(result->property.valueType, kTruthValue);
        EXPECT_EQ(result->property.unit, u"METRE");
    }
}

TEST(NativePropertyDialogKeys, ReturnIsOkWhereverTheFocusIs) {
    for (const int id : {QUILLET_PROPERTY_NAME, QUILLET_VALUE, QUILLET_UNIT, QUILLET_QUANTITY_TYPE,
                         QUILLET_OK, QUILLET_CANCEL}) {
        const Result result =
            ask(quantityInput(u"IfcQuantityArea", u"", u"SQUARE_METRE"), [&](const Dialog& dialog) {
                HWND const edit = dialog.edit(id);
                dialog.user.key(edit ? edit : dialog.control(id), VK_RETURN);
            });
        EXPECT_TRUE(result) << id;
    }
    for (const BYTE modifier : {BYTE{VK_SHIFT}, BYTE{VK_CONTROL}}) {
        const Result result = ask(editInput(u"a"), [&](const Dialog& dialog) {
            HWND const value = dialog.control(QUILLET_VALUE);
            dialog.user.key(value, VK_RETURN, {modifier});
            dialog.user.type(value, u"b");
            dialog.user.key(value, VK_RETURN);
        });
        ASSERT_TRUE(result);
        EXPECT_EQ(result->property.value, u"a\nb");
    }
}

TEST(NativePropertyDialogKeys, TabGoesThroughTheFields) {
    ask(quantityInput(u"IfcQuantityArea", u"", u"SQUARE_METRE"), [](const Dialog& dialog) {
        const HWND order[] = {
            dialog.control(QUILLET_VALUE),      dialog.edit(QUILLET_UNIT),
            dialog.edit(QUILLET_QUANTITY_TYPE), dialog.control(QUILLET_OK),
            dialog.control(QUILLET_CANCEL),     dialog.control(QUILLET_PROPERTY_NAME),
            dialog.control(QUILLET_VALUE)};
        for (std::size_t i = 0; i + 1 < std::size(order); ++i) {
            EXPECT_TRUE(dialog.user.hasFocus(order[i])) << i;
            dialog.user.key(order[i], VK_TAB);
        }
        EXPECT_TRUE(dialog.user.hasFocus(order[6]));
        dialog.user.key(order[6], VK_TAB, {VK_SHIFT});
        EXPECT_TRUE(dialog.user.hasFocus(order[5]));
        dialog.pressCancel();
    });
}

TEST(NativePropertyDialogKeys, ControlASelectsAll) {
    ask(editInput(u"a\nb"), [](const Dialog& dialog) {
        HWND const value = dialog.control(QUILLET_VALUE);
        dialog.user.key(value, 'A', {VK_CONTROL});
        EXPECT_EQ(selectedText(value), u"a\r\nb");
        dialog.pressCancel();
    });
}

TEST(NativePropertyDialogClosing, GivesNothingAndAsksForNothing) {
    const std::pair<const char*, std::function<void(const Dialog&)>> ways[] = {
        {"Cancel", [](const Dialog& dialog) { dialog.pressCancel(); }},
        {"Escape in the value",
         [](const Dialog& dialog) { dialog.user.key(dialog.control(QUILLET_VALUE), VK_ESCAPE); }},
        {"Escape on a button",
         [](const Dialog& dialog) { dialog.user.key(dialog.control(QUILLET_OK), VK_ESCAPE); }},
        {"system menu",
         [](const Dialog& dialog) { dialog.user.post(dialog.window, WM_SYSCOMMAND, SC_CLOSE); }},
        {"Alt+F4",
         [](const Dialog& dialog) {
             dialog.user.post(dialog.control(QUILLET_VALUE), WM_SYSKEYDOWN, VK_F4, 1 << 29);
         }},
        // Handled while the thread waits for messages, not by them.
        {"sent from another thread",
         [](const Dialog& dialog) { SendMessageW(dialog.window, WM_CLOSE, 0, 0); }},
    };
    for (const auto& [name, close] : ways) {
        const Result result = ask(editInput(u"x"), [&, &way = close](const Dialog& dialog) {
            dialog.user.type(dialog.control(QUILLET_VALUE), u"y");
            way(dialog);
        });
        EXPECT_FALSE(result) << name;
    }
}

TEST(NativePropertyDialogClosing, LeavesTheHostItsQuitMessage) {
    const DWORD thread = GetCurrentThreadId();
    for (const bool isMessageOpen : {false, true}) {
        const Result result = ask(editInput(u"x"), [&](const Dialog& dialog) {
            if (isMessageOpen) {
                dialog.user.retype(dialog.control(QUILLET_PROPERTY_NAME), u"");
                dialog.pressOk();
                dialog.user.waitForWindow(kMessageClass, u"Error!");
            }
            PostThreadMessageW(thread, WM_QUIT, 7, 0);
        });
        EXPECT_FALSE(result);
        MSG message{};
        ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
        EXPECT_EQ(message.wParam, 7U);
    }
}

/// A window of the host.
class HostWindow {
public:
    HostWindow()
        : window_(CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                  400, 300, nullptr, nullptr, nullptr, nullptr)) {
        SetActiveWindow(window_);
    }
    ~HostWindow() { DestroyWindow(window_); }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND get() const { return window_; }

private:
    HWND window_;
};

TEST(NativePropertyDialogOwner, WaitsAndIsActiveAfterwards) {
    const HostWindow host;
    ask(editInput(u"x"), [&](const Dialog& dialog) {
        EXPECT_EQ(GetWindow(dialog.window, GW_OWNER), host.get());
        EXPECT_FALSE(IsWindowEnabled(host.get()));
        dialog.pressOk();
    });
    EXPECT_TRUE(IsWindowEnabled(host.get()));
    EXPECT_EQ(GetActiveWindow(), host.get());

    // One that was disabled by somebody else stays so.
    EnableWindow(host.get(), FALSE);
    ask(editInput(u"x"), [](const Dialog& dialog) { dialog.pressOk(); });
    EXPECT_FALSE(IsWindowEnabled(host.get()));
}

LRESULT CALLBACK destroyWhenAsked(HWND window, UINT message, WPARAM word, LPARAM parameter) {
    if (message == WM_APP) {
        DestroyWindow(window);
        return 0;
    }
    return DefWindowProcW(window, message, word, parameter);
}

TEST(NativePropertyDialogOwner, TakesTheDialogWithIt) {
    const HostWindow host;
    SetWindowLongPtrW(host.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&destroyWhenAsked));
    const Result result =
        ask(editInput(u"x"), [&](const Dialog& dialog) { dialog.user.post(host.get(), WM_APP); });
    EXPECT_FALSE(result);
}

Result innerResult;

LRESULT CALLBACK askWhenAsked(HWND window, UINT message, WPARAM word, LPARAM parameter) {
    if (message == WM_APP) {
        innerResult = askInNativePropertyDialog(editInput(u"inner"), textsOfLanguage("en"), u"");
        return 0;
    }
    return DefWindowProcW(window, message, word, parameter);
}

TEST(NativePropertyDialogOwner, CannotOpenASecondOne) {
    const HostWindow host;
    SetWindowLongPtrW(host.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&askWhenAsked));
    innerResult.emplace();
    const Result result = ask(editInput(u"outer"), [&](const Dialog& dialog) {
        SendMessageW(host.get(), WM_APP, 0, 0);
        EXPECT_FALSE(innerResult);
        dialog.pressOk();
    });
    ASSERT_TRUE(result);
    EXPECT_EQ(result->property.value, u"outer");
}

TEST(NativePropertyDialog, HandsOnWhatATextLookupThrows) {
    const TextLookup broken = [](const char*) -> std::u16string { throw std::bad_alloc(); };
    EXPECT_THROW(askInNativePropertyDialog(editInput(u"x"), broken, u""), std::bad_alloc);
    // Nothing is left that would stand in the way of the next one.
    EXPECT_TRUE(ask(editInput(u"x"), [](const Dialog& dialog) { dialog.pressOk(); }));
}

TEST(NativePropertyDialogMouse, FirstClickSelectsTheText) {
    PropertyWindowInput input = inputFor(PropertyWindowMode::AddSet);
    input.propertyName = u"Name";
    input.value = u"Value";
    ask(input, [](const Dialog& dialog) {
        for (const int id : {QUILLET_SET_NAME, QUILLET_PROPERTY_NAME, QUILLET_VALUE}) {
            HWND const edit = dialog.control(id);
            DWORD caret = 0;
            SendMessageW(edit, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
            EXPECT_EQ(caret, dialog.text(id).size()) << id;
            EXPECT_EQ(selectedText(edit), u"") << id;
            dialog.user.click(edit);
            EXPECT_TRUE(dialog.user.hasFocus(edit)) << id;
            EXPECT_EQ(selectedText(edit), dialog.text(id)) << id;
            dialog.user.click(edit);
            EXPECT_EQ(selectedText(edit), u"") << id;
        }
        dialog.pressCancel();
    });
}

struct RefusalCase {
    PropertyWindowInput input;
    std::vector<std::pair<int, std::u16string>> typed;  // field and text
    const char* textKey;
    int focus;
};

TEST(NativePropertyDialogRefusals, SayWhatIsWrongAndLeadToTheField) {
    const PropertyWindowInput add = inputFor(PropertyWindowMode::AddProperty);
    const RefusalCase cases[] = {
        {add, {}, "property_name_missing", QUILLET_PROPERTY_NAME},
        {add,
         {{QUILLET_PROPERTY_NAME, u"A"}, {QUILLET_UNIT, u"furlong"}},
         "unknown_unit",
         QUILLET_UNIT},
        {add,
         {{QUILLET_PROPERTY_NAME, u"A"}, {QUILLET_VALUE, u"x"}, {QUILLET_UNIT, u"m (Metre)"}},
         "value_is_no_number",
         QUILLET_VALUE},
        {editInput(u"x"), {{QUILLET_VALUE, u""}}, "value_missing", QUILLET_VALUE},
        {inputFor(PropertyWindowMode::RenameSet),
         {{QUILLET_SET_NAME, u" "}},
         "set_name_missing",
         QUILLET_SET_NAME},
        {quantityInput(u"IfcQuantityLength", u"", u"METRE"),
         {{QUILLET_QUANTITY_TYPE, u"IfcQuantityDepth"}},
         "unknown_quantity_type",
         QUILLET_QUANTITY_TYPE},
        {quantityInput(u"IfcQuantityLength", u"", u"METRE"),
         {{QUILLET_UNIT, u"V (Volt)"}},
         "unit_not_of_quantity",
         QUILLET_UNIT},
    };
    for (const RefusalCase& each : cases) {
        const Result result = ask(each.input, [&](const Dialog& dialog) {
            SCOPED_TRACE(each.textKey);
            for (const auto& [id, text] : each.typed) {
                HWND const edit = dialog.edit(id);
                dialog.user.retype(edit ? edit : dialog.control(id), text);
            }
            dialog.pressOk();
            HWND const message = dialog.user.waitForWindow(kMessageClass, u"Error!");
            EXPECT_EQ(GetWindow(message, GW_OWNER), dialog.window);
            EXPECT_EQ(textOfControl(GetDlgItem(message, 0xFFFF)),
                      textsOfLanguage("en")(each.textKey));
            dialog.user.press(message, IDOK);
            dialog.user.waitUntilGone(message);
            HWND const edit = dialog.edit(each.focus);
            dialog.user.waitUntil("the field has the focus", [&] {
                return dialog.user.hasFocus(edit ? edit : dialog.control(each.focus));
            });
            EXPECT_TRUE(IsWindowVisible(dialog.window));
            dialog.pressCancel();
        });
        EXPECT_FALSE(result);
    }
}

TEST(NativePropertyDialogLayout, FollowsTheSizeOfTheWindow) {
    PropertyWindowInput input = quantityInput(u"IfcQuantityLength", u"", u"METRE");
    ask(input, [](const Dialog& dialog) {
        for (const SIZE size : {SIZE{1, 1}, SIZE{1200, 500}}) {
            SetWindowPos(dialog.window, nullptr, 0, 0, size.cx, size.cy,
                         SWP_NOZORDER | SWP_NOMOVE | SWP_NOACTIVATE);
            RECT inside{};
            GetClientRect(dialog.window, &inside);
            std::vector<RECT> fields;
            for (const int id : {QUILLET_SET_NAME, QUILLET_PROPERTY_NAME, QUILLET_VALUE,
                                 QUILLET_UNIT, QUILLET_QUANTITY_TYPE, QUILLET_OK, QUILLET_CANCEL}) {
                RECT field{};
                GetWindowRect(dialog.control(id), &field);
                MapWindowPoints(nullptr, dialog.window, reinterpret_cast<POINT*>(&field), 2);
                EXPECT_GE(field.bottom - field.top, native::scaled(dialog.window, 19)) << id;
                EXPECT_LT(field.right, inside.right) << id;
                EXPECT_LT(field.bottom, inside.bottom) << id;
                for (const RECT& other : fields) {
                    RECT common{};
                    EXPECT_FALSE(IntersectRect(&common, &field, &other)) << id;
                }
                fields.push_back(field);
            }
        }
        EXPECT_EQ(selectedText(dialog.edit(QUILLET_UNIT)), u"");
        dialog.pressCancel();
    });
}

}  // namespace
