#include <gtest/gtest.h>

#include "platform/dynamic_library.h"
#include "platform/text.h"
#include "tests/gui/scope_library.h"

namespace {

template <class Function>
Function* functionOf(const platform::DynamicLibrary& library, const char* name) {
    return reinterpret_cast<Function*>(library.symbol(name));
}

#ifdef _WIN32
constexpr const char* kWindowSystem = "windows";
#else
constexpr const char* kWindowSystem = "offscreen";
#endif

TEST(ApplicationOfALibrary, CanBeMadeAgainAfterTheLibraryWasUnloaded) {
    for (int time = 0; time < 3; ++time) {
        const platform::DynamicLibrary library(platform::fromUtf8(QUILLET_SCOPE_LIBRARY));
        ASSERT_TRUE(library.isOpen()) << library.error();
        EXPECT_TRUE(functionOf<decltype(runWindows)>(library, "runWindows")(kWindowSystem));
    }
}

#ifndef _WIN32  // which always has a screen
TEST(ApplicationOfALibrary, SaysThatThereIsNoScreenInsteadOfEndingTheProcess) {
    const platform::DynamicLibrary library(platform::fromUtf8(QUILLET_SCOPE_LIBRARY));
    ASSERT_TRUE(library.isOpen()) << library.error();
    const auto messages =
        functionOf<decltype(messagesWithoutScreen)>(library, "messagesWithoutScreen");
    for (const char* const windowSystem : {"", "xcb", "wayland;xcb"})
        EXPECT_EQ(messages(windowSystem), 1) << windowSystem;
    EXPECT_TRUE(functionOf<decltype(runWindows)>(library, "runWindows")("xcb;offscreen"))
        << "the second kind needs no screen";
}
#endif

}  // namespace
