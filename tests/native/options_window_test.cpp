#include "native/options_window.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <utility>

#include "native/window_tools.h"
#include "platform/text.h"
#include "tests/native/native_user.h"
#include "tests/native/window_checks.h"
#include "tests/support/language_texts.h"

namespace {

constexpr const wchar_t* kDialogClass = L"#32770";
const std::u16string kIcon =
    platform::fromUtf8(QUILLET_SOURCE_DIR "/data/plugins/quillet/quillet_data/options.ico");

using Changes = std::vector<std::pair<std::size_t, bool>>;

/// The open window and its user.
struct Options {
    NativeUser& user;
    HWND window;
    std::vector<HWND> boxes;
    HWND close = nullptr;

    Options(NativeUser& self, HWND opened) : user(self), window(opened), boxes(childrenOf(opened)) {
        close = boxes.back();
        boxes.pop_back();
    }
    bool isOn(std::size_t index) const {
        return SendMessageW(boxes.at(index), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
};

struct Shown {
    std::u16string title = u"Options";
    std::vector<native::Option> options = {{u"First", true}, {u"Second", false}};
    std::u16string close = u"Close";
    std::u16string icon = kIcon;
    std::function<void()> whenChanged = {};
};

/// What was told of while the story, which has to close the window, went on.
Changes show(const Shown& shown, const std::function<void(const Options&)>& story) {
    NativeUser user([&](NativeUser& self) {
        const Options options(self, self.waitForWindow(kDialogClass, shown.title));
        self.settle(options.window);
        story(options);
        self.waitUntilGone(options.window);
    });
    Changes changes;
    const bool wasOpened = native::showOptionsWindow(
        shown.title, shown.options,
        [&](std::size_t index, bool isOn) {
            changes.emplace_back(index, isOn);
            if (shown.whenChanged)
                shown.whenChanged();
        },
        shown.close, shown.icon);
    EXPECT_TRUE(wasOpened);
    return changes;
}

TEST(OptionsWindow, ShowsTheStatesAndTellsOfEachChangeAtOnce) {
    std::atomic<int> told = 0;
    const Changes changes =
        show({.whenChanged = [&told] { ++told; }}, [&told](const Options& options) {
            EXPECT_TRUE(options.isOn(0));
            EXPECT_FALSE(options.isOn(1));
            options.user.key(options.boxes[0], VK_SPACE);
            EXPECT_EQ(told, 1);
            options.user.click(options.boxes[1]);
            EXPECT_EQ(told, 2);
            options.user.key(options.boxes[0], VK_SPACE);
            EXPECT_EQ(told, 3);
            EXPECT_TRUE(options.isOn(0));
            EXPECT_TRUE(options.isOn(1));
            options.user.key(options.boxes[0], VK_ESCAPE);
        });
    EXPECT_EQ(changes, (Changes{{0, false}, {1, true}, {0, true}}));
}

TEST(OptionsWindow, ClosesByEveryWayAndChangesNothingByIt) {
    const std::vector<std::function<void(const Options&)>> ways = {
        [](const Options& options) { options.user.key(options.boxes[0], VK_RETURN); },
        [](const Options& options) { options.user.key(options.close, VK_RETURN); },
        [](const Options& options) { options.user.key(options.close, VK_SPACE); },
        [](const Options& options) { options.user.key(options.boxes[1], VK_ESCAPE); },
        [](const Options& options) { options.user.click(options.close); },
        [](const Options& options) { options.user.post(options.window, WM_SYSCOMMAND, SC_CLOSE); },
        [](const Options& options) {  // Alt+F4
            options.user.post(options.boxes[0], WM_SYSKEYDOWN, VK_F4, 0x20000001);
        },
        [](const Options& options) { options.user.post(options.window, WM_CLOSE); }};
    HostWindow host;
    for (std::size_t way = 0; way < ways.size(); ++way) {
        SCOPED_TRACE(way);
        const Changes changes = show({}, [&](const Options& options) {
            EXPECT_EQ(GetWindow(options.window, GW_OWNER), host.get());
            EXPECT_FALSE(IsWindowEnabled(host.get()));
            ways[way](options);
        });
        EXPECT_EQ(changes, Changes());
        EXPECT_TRUE(IsWindowEnabled(host.get()));
        EXPECT_EQ(GetActiveWindow(), host.get());
    }
}

TEST(OptionsWindow, EndsWithTheHost) {
    show({}, [](const Options& options) {
        PostThreadMessageW(GetWindowThreadProcessId(options.window, nullptr), WM_QUIT, 7, 0);
    });
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7u) << "the loop of the host still hears of it";

    HostWindow host;
    show({}, [&](const Options& options) { options.user.post(host.get(), WM_CLOSE); });
    EXPECT_FALSE(IsWindow(host.get())) << "and took the window with it";
}

TEST(OptionsWindow, CanBeWalkedThroughByTheKeyboard) {
    show({}, [](const Options& options) {
        const auto press = [&](WPARAM key, std::initializer_list<BYTE> with, HWND from, HWND to) {
            EXPECT_TRUE(options.user.hasFocus(from));
            options.user.key(from, key, with);
            EXPECT_TRUE(options.user.hasFocus(to)) << key;
        };
        HWND const first = options.boxes[0];
        HWND const second = options.boxes[1];
        press(VK_TAB, {}, first, second);
        press(VK_TAB, {}, second, options.close);
        press(VK_TAB, {}, options.close, first);
        press(VK_TAB, {VK_SHIFT}, first, options.close);
        press(VK_TAB, {VK_SHIFT}, options.close, second);
        press(VK_UP, {}, second, first);
        press(VK_DOWN, {}, first, second);
        options.user.key(second, VK_ESCAPE);
    });
}

TEST(OptionsWindow, HasTheIconOfTheFileIfThereIsOne) {
    for (const std::u16string& file : {kIcon, std::u16string(u"C:\\there is\\none.ico")}) {
        show({.icon = file}, [&](const Options& options) {
            for (const WPARAM size : {ICON_SMALL, ICON_BIG})
                EXPECT_EQ(SendMessageW(options.window, WM_GETICON, size, 0) != 0, file == kIcon);
            options.user.key(options.close, VK_ESCAPE);
        });
    }
}

TEST(OptionsWindow, HandsOnWhatAChangeThrows) {
    EXPECT_THROW(
        show({.whenChanged = [] { throw std::runtime_error("full"); }},
             [](const Options& options) { options.user.post(options.boxes[0], BM_CLICK); }),
        std::runtime_error);
}

TEST(OptionsWindow, LeavesNothingBehind) {
    checkNoDrawingObjectsStay([] {
        show({}, [](const Options& options) { options.user.post(options.window, WM_CLOSE); });
    });
}

void checkLayout(const Options& options, const Shown& shown) {
    // The box of a check box is 13 pixels wide, with some air behind it.
    for (std::size_t index = 0; index < options.boxes.size(); ++index)
        checkRoom(options.boxes[index], shown.options[index].caption,
                  native::scaled(options.window, 18));
    checkRoom(options.close, shown.close, native::scaled(options.window, 8));
    checkPlaces(options.window);
}

TEST(OptionsWindowLayout, HasRoomForTheTextsOfEveryLanguage) {
    std::vector<Shown> all;
    for (const std::string language : {"de", "en", "es", "fr", "it", "pl", "pt"}) {
        const TextLookup text = textsOfLanguage(language);
        all.push_back({.title = text("options"),
                       .options = {{text("option_ignore_enume_errors"), true},
                                   {text("option_erase_white_signs"), true}},
                       .close = text("btnCloseName")});
    }
    std::u16string longText;
    for (int word = 0; word < 25; ++word)
        longText += u"Aufzählungswerte ";
    all.push_back({.title = u"A title that is much wider than the options below it",
                   .options = {{u"A", true}}});
    all.push_back({.options = {{longText, true}, {u"Names & values", true}}});
    for (const Shown& shown : all) {
        SCOPED_TRACE(platform::toUtf8(shown.title));
        show(shown, [&](const Options& options) {
            checkLayout(options, shown);
            keepPicture(options.window, "options_" + std::to_string(&shown - all.data()));
            options.user.post(options.window, WM_CLOSE);
        });
    }
}

TEST(OptionsWindowLayout, TakesAnAmpersandForItself) {
    const Shown shown{.options = {{u"&Names & values", true}}, .close = u"R&D"};
    const Changes changes = show(shown, [&](const Options& options) {
        checkLayout(options, shown);
        EXPECT_EQ(textOfControl(options.boxes[0]), u"&&Names && values");
        EXPECT_EQ(textOfControl(options.close), u"R&&D");
        options.user.post(options.close, WM_SYSCHAR, 'n', 0x20000001);  // Alt+N
        options.user.settle(options.window);
        options.user.post(options.window, WM_CLOSE);
    });
    EXPECT_EQ(changes, Changes());
}

}  // namespace
