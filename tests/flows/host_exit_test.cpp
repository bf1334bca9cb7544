#include <windows.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "platform/text.h"
#include "tests/flows/flow_host.h"

namespace {

const std::u16string kSample = platform::fromUtf8(QUILLET_SOURCE_DIR "/samples/sample_house.ifc");

bool isQuitWaiting() {
    MSG message;
    return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != 0;
}

/// Asks the thread that made it to end as soon as it shows an enabled window with that title.
class Quitter {
public:
    explicit Quitter(const wchar_t* title)
        : thread_([title, asked = GetCurrentThreadId()] {
              const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
              while (std::chrono::steady_clock::now() < end) {
                  const HWND window = FindWindowW(nullptr, title);
                  const bool isThere = window &&
                                       GetWindowThreadProcessId(window, nullptr) == asked &&
                                       IsWindowVisible(window) && IsWindowEnabled(window);
                  if (isThere)
                      break;
                  std::this_thread::sleep_for(std::chrono::milliseconds(50));
              }
              PostThreadMessageW(asked, WM_QUIT, 0, 0);
          }) {}
    ~Quitter() { thread_.join(); }
    Quitter(const Quitter&) = delete;
    Quitter& operator=(const Quitter&) = delete;

private:
    std::thread thread_;
};

struct Case {
    FlowHost::Item item;
    const wchar_t* title;
};

/// The host's own loop has to see that it is to end, and the windows must not hold it up.
TEST(HostExit, ClosesTheWindowsAndReachesTheHost) {
    FlowHost flow(u"en", false, FlowHost::Windows::Real);
    ASSERT_TRUE(flow.start({kSample}));
    flow.host().select({flow.editableObjects().back()->id});
    for (const Case& each :
         {Case{FlowHost::Item::AddSet, L"Property"}, Case{FlowHost::Item::EditMany, L"Quillet"}}) {
        ASSERT_FALSE(isQuitWaiting());
        {
            const Quitter quitter(each.title);
            flow.click(each.item);
        }
        EXPECT_TRUE(isQuitWaiting())
            << platform::toUtf8(std::u16string(reinterpret_cast<const char16_t*>(each.title)));
        EXPECT_FALSE(FindWindowW(nullptr, each.title));
    }
    EXPECT_TRUE(flow.host().undoList().texts().empty());
}

}  // namespace
