#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <sstream>
#include <string>

#include "platform/dynamic_library.h"
#include "platform/text.h"
#include "plugin/host_abi.h"

namespace {

const std::u16string kLibrary = platform::fromUtf8(QUILLET_LIBRARY);

std::set<std::string> exportList() {
    std::set<std::string> names;
#define QUILLET_NAME(name, result, arguments) names.insert(#name);
    QUILLET_PLUGIN_EXPORTS(QUILLET_NAME)
#undef QUILLET_NAME
    return names;
}

TEST(Library, AnswersBeforeAHostHasLoadedThePlugin) {
    const platform::DynamicLibrary library(kLibrary);
    ASSERT_TRUE(library.isOpen()) << library.error();
    for (const std::string& name : exportList())
        EXPECT_NE(library.symbol(name.c_str()), nullptr) << name;
    using GetVersion = std::int32_t (*)(std::uintptr_t, HostApiVersion*);
    HostApiVersion version{};
    reinterpret_cast<GetVersion>(library.symbol("get_api_verion"))(0, &version);
    EXPECT_EQ(version.major, 5);
    EXPECT_EQ(version.minor, 48);
    using GetInfo = void (*)(HostPluginInfo*);
    HostPluginInfo info{};
    reinterpret_cast<GetInfo>(library.symbol("get_plugin_info"))(&info);
    EXPECT_EQ(platform::toUtf8(info.name), "Quillet plugin");
    EXPECT_NE(platform::toUtf8(info.dataFolder).find("quillet_data"), std::string::npos);
    using Undo = void (*)(std::uintptr_t, std::int32_t);
    for (std::int32_t action = -1; action < 4; ++action)
        reinterpret_cast<Undo>(library.symbol("on_undo_redo_action"))(0, action);
}

/// A test program exports none of the host's functions, so this is a host that lacks them all.
TEST(Library, CanBeLoadedAndUnloadedAHundredTimes) {
    using Load = void (*)(HostHandle, std::uint16_t, std::uintptr_t);
    for (int i = 0; i < 100; ++i) {
        const platform::DynamicLibrary library(kLibrary);
        ASSERT_TRUE(library.isOpen()) << i << ": " << library.error();
        reinterpret_cast<Load>(library.symbol("on_plugin_load"))(1, 0, 0);
    }
}

#ifdef QUILLET_NM
struct PipeCloser {
    void operator()(std::FILE* pipe) const { pclose(pipe); }
};

TEST(Library, ExportsNothingElse) {
    const std::unique_ptr<std::FILE, PipeCloser> pipe(
        popen(QUILLET_NM " -D --defined-only '" QUILLET_LIBRARY "'", "r"));
    ASSERT_TRUE(pipe);
    std::string listing;
    std::array<char, 4096> piece{};
    while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), pipe.get()))
        listing.append(piece.data(), count);
    std::set<std::string> exported;
    std::istringstream lines(listing);
    for (std::string address, type, name; lines >> address >> type >> name;)
        exported.insert(name);
    EXPECT_EQ(exported, exportList()) << listing;
}
#endif

}  // namespace
