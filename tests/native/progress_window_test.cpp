#include "native/progress_window.h"

#include <windows.h>
#include <gtest/gtest.h>
// Needs windows.h.
#include <commctrl.h>

#include <atomic>
#include <functional>
#include <vector>

#include "native/window_tools.h"
#include "platform/text.h"
#include "tests/native/native_user.h"
#include "tests/native/window_checks.h"
#include "tests/support/language_texts.h"

namespace {

constexpr const wchar_t* kDialogClass = L"#32770";
const std::u16string kIcon =
    platform::fromUtf8(QUILLET_SOURCE_DIR "/data/plugins/quillet/quillet_data/edit.ico");

/// The open window and its user, while somebody works.
struct Progress {
    NativeUser& user;
    HWND window;
    std::vector<HWND> controls;  // label, bar, label, bar, and the button if there is one
    std::atomic<int>& cancels;

    HWND button() const { return controls.at(4); }
    int position(std::size_t bar) const {
        return static_cast<int>(SendMessageW(controls.at(2 * bar + 1), PBM_GETPOS, 0, 0));
    }
    std::u16string label(std::size_t bar) const { return textOfControl(controls.at(2 * bar)); }
};

struct State {
    int overall = 0;
    std::u16string overallLabel = u"Overall";
    int current = 0;
    std::u16string currentLabel = u"Current";
};

/// Works until the story is over, and shows one state after the other, the last one for the rest.
/// @return how often the user cancelled.
int work(const std::u16string& cancel, const std::function<void(const Progress&)>& story,
         const std::vector<State>& states = {{}}, const std::u16string& title = u"Export") {
    std::atomic<bool> isOver = false;
    std::atomic<int> cancels = 0;
    NativeUser user([&](NativeUser& self) {
        struct End {
            std::atomic<bool>& isOver;
            ~End() { isOver = true; }
        } const end{isOver};
        HWND const window = self.waitForWindow(kDialogClass, title);
        self.settle(window);
        story(Progress{self, window, childrenOf(window), cancels});
    });
    native::ProgressWindow window(title, cancel, kIcon);
    EXPECT_TRUE(window.isOpen());
    for (std::size_t step = 0; !isOver; ++step) {
        const State& state = states[std::min(step, states.size() - 1)];
        window.show(state.overall, state.overallLabel, state.current, state.currentLabel);
        cancels += window.takeCancel() ? 1 : 0;
        Sleep(1);
    }
    return cancels;
}

TEST(ProgressWindow, ShowsBothBarsAndTheirLabels) {
    const std::u16string path = u"Reading: C:\\R&D\\" + std::u16string(300, u'x') + u"\\house.ifc";
    work(u"Cancel",
         [&](const Progress& progress) {
             ASSERT_EQ(progress.controls.size(), 5u);
             progress.user.waitUntil("the last state is shown",
                                     [&] { return progress.position(0) == 100; });
             EXPECT_EQ(progress.position(1), 0);
             EXPECT_EQ(progress.label(0), u"All & everything");
             EXPECT_EQ(progress.label(1), path);
             for (const std::size_t label : {0, 2})
                 EXPECT_TRUE(GetWindowLongPtrW(progress.controls[label], GWL_STYLE) & SS_NOPREFIX);
             EXPECT_TRUE(progress.user.hasFocus(progress.button()));
             EXPECT_NE(SendMessageW(progress.window, WM_GETICON, ICON_SMALL, 0), 0);
         },
         {{.overall = 12, .current = 34},
          {.overall = 250,
           .overallLabel = u"All & everything",
           .current = -3,
           .currentLabel = path}});
}

const std::vector<std::function<void(const Progress&)>> kWaysOut = {
    [](const Progress& progress) { progress.user.key(progress.window, VK_ESCAPE); },
    [](const Progress& progress) { progress.user.post(progress.window, WM_CLOSE); },
    [](const Progress& progress) { progress.user.post(progress.window, WM_SYSCOMMAND, SC_CLOSE); },
    [](const Progress& progress) {  // Alt+F4
        progress.user.post(progress.controls[0], WM_SYSKEYDOWN, VK_F4, 0x20000001);
    }};

TEST(ProgressWindow, TellsOfEachCancelOnceAndStays) {
    std::vector<std::function<void(const Progress&)>> ways = kWaysOut;
    ways.emplace_back([](const Progress& progress) { progress.user.click(progress.button()); });
    ways.emplace_back(
        [](const Progress& progress) { progress.user.key(progress.button(), VK_SPACE); });
    ways.emplace_back(
        [](const Progress& progress) { progress.user.key(progress.button(), VK_RETURN); });
    const int cancels = work(u"Cancel", [&](const Progress& progress) {
        for (std::size_t way = 0; way < ways.size(); ++way) {
            SCOPED_TRACE(way);
            ways[way](progress);
            progress.user.waitUntil("the work hears of it",
                                    [&] { return progress.cancels == static_cast<int>(way) + 1; });
            EXPECT_TRUE(IsWindowVisible(progress.window));
        }
    });
    EXPECT_EQ(cancels, static_cast<int>(ways.size()));
}

TEST(ProgressWindow, OfWorkThatMustBeDoneCannotBeClosed) {
    const int cancels = work({}, [](const Progress& progress) {
        EXPECT_EQ(progress.controls.size(), 4u);
        EXPECT_TRUE(GetMenuState(GetSystemMenu(progress.window, FALSE), SC_CLOSE, MF_BYCOMMAND) &
                    MF_GRAYED);
        for (const auto& way : kWaysOut) {
            way(progress);
            progress.user.settle(progress.window);
            EXPECT_TRUE(IsWindowVisible(progress.window));
        }
    });
    EXPECT_EQ(cancels, 0);
}

TEST(ProgressWindow, LetsTheHostPaintAndDoNothingElse) {
    HostWindow host;
    const int before = host.paintings();
    work(u"Cancel", [&](const Progress& progress) {
        EXPECT_EQ(GetWindow(progress.window, GW_OWNER), host.get());
        EXPECT_FALSE(IsWindowEnabled(host.get()));
        SetTimer(host.get(), 1, 1, nullptr);
        progress.user.post(host.get(), HostWindow::kWork);
        InvalidateRect(host.get(), nullptr, TRUE);
        progress.user.waitUntil("the host paints", [&] { return host.paintings() > before; });
        progress.user.settle(progress.window);
        EXPECT_EQ(host.workDone(), 0);
    });
    EXPECT_TRUE(IsWindowEnabled(host.get()));
    EXPECT_EQ(GetActiveWindow(), host.get());
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
    EXPECT_EQ(host.workDone(), 1) << "it waited for the end of the work";
}

TEST(ProgressWindow, TakesTheEndOfTheHostForACancelAndHandsItOn) {
    for (const std::u16string& cancel : {std::u16string(u"Cancel"), std::u16string()}) {
        const int cancels = work(cancel, [&](const Progress& progress) {
            PostThreadMessageW(GetWindowThreadProcessId(progress.window, nullptr), WM_QUIT, 7, 0);
            progress.user.settle(progress.window);
            if (!cancel.empty())
                progress.user.waitUntil("the work hears of it",
                                        [&] { return progress.cancels == 1; });
        });
        EXPECT_EQ(cancels, cancel.empty() ? 0 : 1);
        MSG message{};
        EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
        EXPECT_EQ(message.wParam, 7u);
    }
}

TEST(ProgressWindow, MayGoWithItsOwnerInTheMiddleOfTheWork) {
    auto host = std::make_unique<HostWindow>();
    native::ProgressWindow window(u"Export", u"Cancel", kIcon);
    ASSERT_TRUE(window.isOpen());
    window.show(1, u"Overall", 1, u"Current");
    host.reset();
    window.show(2, u"Overall", 2, u"Current");
    EXPECT_FALSE(window.takeCancel());
}

TEST(ProgressWindow, LeavesNothingBehind) {
    checkNoDrawingObjectsStay([] {
        native::ProgressWindow window(u"Export", u"Cancel", kIcon);
        window.show(50, u"Overall", 50, u"Current");
    });
}

TEST(ProgressWindowLayout, HasRoomForTheTextsOfEveryLanguage) {
    for (const std::string language : {"de", "en", "es", "fr", "it", "pl", "pt"}) {
        SCOPED_TRACE(language);
        const TextLookup text = textsOfLanguage(language);
        const State state{.overall = 30,
                          .overallLabel = text("progress_bar_overall_progrss"),
                          .current = 60,
                          .currentLabel = text("progress_bar_saving") + u" house.ifc"};
        work(
            text("btnCancelName"),
            [&](const Progress& progress) {
                for (const char* const key :
                     {"progress_bar_loading", "progress_bar_deleting", "current_progress"})
                    checkRoom(progress.controls[2], text(key), 0);
                checkRoom(progress.controls[0], state.overallLabel, 0);
                checkRoom(progress.controls[2], state.currentLabel, 0);
                checkRoom(progress.button(), text("btnCancelName"),
                          native::scaled(progress.window, 8));
                checkPlaces(progress.window);
                keepPicture(progress.window, "progress_" + language);
            },
            {state}, text("progress_dialog_name"));
    }
}

}  // namespace
