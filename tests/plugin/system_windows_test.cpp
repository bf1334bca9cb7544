// The plug-in with the system's windows, which are fakes here.

#include "plugin/system_windows.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/text.h"
#include "plugin/log_progress.h"
#include "plugin/plugin.h"
#include "tests/plugin/fake_host.h"
#include "tests/support/reports.h"
#include "tests/support/step_model.h"
#include "tests/support/temp_folder.h"

namespace {

using Lines = std::vector<std::string>;

/// What the user sees and does; outlives the plug-in.
struct FakeUser {
    Lines seen;
    std::function<void(const std::function<void(std::size_t, bool)>& change)> inOptions;
    bool canOpen = true;
    bool isProgressOpen = false;
    bool cancels = false;
};

class FakeProgress : public IFC::ProgressView {
public:
    explicit FakeProgress(FakeUser& user) : user_(user) { user_.isProgressOpen = true; }
    ~FakeProgress() override { user_.isProgressOpen = false; }

    void show(int overallPercent, const std::u16string& overallLabel, int currentPercent,
              const std::u16string& currentLabel) noexcept override {
        user_.seen.push_back(std::to_string(overallPercent) + " " + platform::toUtf8(overallLabel) +
                             ", " + std::to_string(currentPercent) + " " +
                             platform::toUtf8(currentLabel));
    }
    bool takeCancel() noexcept override { return std::exchange(user_.cancels, false); }

private:
    FakeUser& user_;
};

class FakeSystemWindows : public SystemWindows {
public:
    explicit FakeSystemWindows(FakeUser& user) : user_(user) {}

    bool showOptions(const OptionsWindowInput& input,
                     const std::function<void(std::size_t, bool)>& changed) override {
        std::string line = platform::toUtf8(input.title);
        for (const auto& [caption, isOn] : input.options)
            line += "|" + platform::toUtf8(caption) + (isOn ? " on" : " off");
        user_.seen.push_back(line + "|" + platform::toUtf8(input.close));
        EXPECT_TRUE(input.iconFile.ends_with(u"options.ico"));
        if (user_.inOptions)
            user_.inOptions(changed);
        return user_.canOpen;
    }
    std::unique_ptr<IFC::ProgressView> openProgress(const ProgressWindowInput& input) override {
        user_.seen.push_back(platform::toUtf8(input.title) + "|" + platform::toUtf8(input.cancel));
        EXPECT_TRUE(input.iconFile.ends_with(u"edit.ico"));
        return user_.canOpen ? std::make_unique<FakeProgress>(user_) : nullptr;
    }
    std::chrono::milliseconds progressDelay() const override { return {}; }

private:
    FakeUser& user_;
};

class WindowsOfPlugin : public testing::Test {
protected:
    static constexpr HostButtonId kOptions = 7;  // by the order in which the ribbon is built
    static constexpr HostButtonId kFirstBox = 8;
    static constexpr HostButtonId kSecondBox = 9;
    static constexpr HostButtonId kExport = 5;
    static constexpr HostButtonId kItems = 9;  // that each load makes

    void load(std::u16string_view module = u"quillet.dll") {
        plugin.reset();
        plugin = std::make_unique<Plugin>(host.api, std::make_unique<FakeSystemWindows>(user),
                                          folder / module);
        plugin->load(FakeHost::kHandle, 0, 0);
        ++loads_;
        host.ribbon.clear();
        user.seen.clear();
    }
    void click(HostButtonId button) {
        host.clicked = (loads_ - 1) * kItems + button;
        host.clickedCallback();
    }
    std::string saved() const { return folder.read(u"config.txt"); }

    const TempFolder folder;
    FakeHost host;
    FakeUser user;
    AnsweredMessages messages{platform::MessageAnswer::Yes};
    std::unique_ptr<Plugin> plugin;

private:
    HostButtonId loads_ = 0;
};

std::string optionsWindow(const char* first, const char* second) {
    return std::string("<options>|<option_ignore_enume_errors> ") + first +
           "|<option_erase_white_signs> " + second + "|<btnCloseName>";
}

TEST_F(WindowsOfPlugin, ShowTheSameOptionsAsTheRibbonAndSaveEachChangeAtOnce) {
    load();
    user.inOptions = [&](const auto& change) {
        change(0, false);
        EXPECT_EQ(saved(), "false\ntrue\n");
        change(1, false);
        EXPECT_EQ(saved(), "false\nfalse\n");
        change(0, true);
        EXPECT_EQ(saved(), "true\nfalse\n");
    };
    click(kOptions);
    click(kSecondBox);
    EXPECT_EQ(saved(), "true\ntrue\n");
    click(kFirstBox);
    EXPECT_EQ(saved(), "false\ntrue\n");
    EXPECT_EQ(host.ribbon,
              (Lines{"set_button_down 8 off", "set_button_down 9 off", "set_button_down 8 on",
                     "set_button_down 9 on", "set_button_down 8 off"}));
    user.inOptions = {};
    click(kOptions);
    EXPECT_EQ(user.seen, (Lines{optionsWindow("on", "on"), optionsWindow("off", "on")}));
    load();
    click(kOptions);
    EXPECT_EQ(user.seen, Lines{optionsWindow("off", "on")}) << "from the file";
    EXPECT_EQ(messages.entries, Lines());
}

TEST_F(WindowsOfPlugin, ShowTheOptionsOnceAtATimeAndAgainAfterAFault) {
    load();
    user.inOptions = [&](const auto&) {
        click(kOptions);
        throw std::runtime_error("fault");
    };
    click(kOptions);
    EXPECT_EQ(user.seen.size(), 1u);
    EXPECT_EQ(messages.entries, Lines{"Quillet Error|fault"});
    click(kOptions);
    EXPECT_EQ(user.seen.size(), 2u);
}

TEST_F(WindowsOfPlugin, AreNotOpenedWhereTheHostAnswersForItsUser) {
    host.answer(std::nullopt);
    load();
    click(kOptions);
    plugin->modelLoadedV2(0, 0, 0);
    EXPECT_EQ(user.seen, Lines());
}

TEST_F(WindowsOfPlugin, KeepAnOptionThatCannotBeSavedUntilTheEnd) {
    load(u"missing/quillet.dll");
    click(kFirstBox);
    ASSERT_EQ(messages.entries.size(), 1u);
    EXPECT_TRUE(messages.entries[0].starts_with("Error!|Unable to write config file: "));
    click(kOptions);
    EXPECT_EQ(user.seen, Lines{optionsWindow("off", "on")});
}

/// The entry of the project file, and what is written into it.
std::string entry;

void letHostHaveProjectFile(HostApi& api) {
    api.begin_read_ahx_v2 = [](HostHandle, const char16_t*) { return true; };
    api.get_ahx_size_v2 = [](HostHandle) { return static_cast<std::int64_t>(entry.size()); };
    api.read_ahx_v2 = [](HostHandle, void* buffer, std::int64_t size) {
        std::memcpy(buffer, entry.data(), static_cast<std::size_t>(size));
        return size;
    };
    api.begin_write_ahx_v2 = [](HostHandle, const char16_t*) {
        entry.clear();
        return true;
    };
    api.write_ahx_v2 = [](HostHandle, const void* data, std::int64_t size) {
        entry.append(static_cast<const char*>(data), static_cast<std::size_t>(size));
    };
    api.calculate_object_id = [](HostHandle, const char* guid) {
        return std::strcmp(guid, "3aP0vaNNWm5LC0gJaDf$li") == 0 ? FakeHost::kWall : HostObjectId{0};
    };
}

const std::string kLog =
    R"(<File FileName="house.ifc" IsCached="false">
    <IfcPropertySet Name="N" GUID="1" ObjectGUID="3aP0vaNNWm5LC0gJaDf$li" IfcId="7" Type="New"/>
    <IfcPropertySet Name="D" GUID="2" ObjectGUID="3aP0vaNNWm5LC0gJaDf$li" IfcId="7" Type="Deleted"/>
    <IfcPropertySet Name="G" GUID="3" ObjectGUID="gone" IfcId="9" Type="New"/>
</File>
)";

TEST_F(WindowsOfPlugin, ShowHowFarTheEditLogIsWithoutAWayToCancel) {
    letHostHaveProjectFile(host.api);
    entry = kLog;
    user.cancels = true;
    bool wasOpen = true;
    const auto before = platform::setMessageBoxHandler([&](auto, auto, auto, auto) {
        wasOpen = user.isProgressOpen;
        return platform::MessageAnswer::Ok;
    });
    load();
    plugin->modelLoadedV2(0, 0, 0);
    platform::setMessageBoxHandler(before);
    EXPECT_FALSE(wasOpen) << "of the missing object is told when the window is gone";
    const std::string overall = " <progress_bar_overall_progrss>, ";
    const std::string loading = " <progress_bar_loading>";
    const std::string deleting = " <progress_bar_deleting>";
    // Two objects are found and displayed, and one of them has a set taken away.
    EXPECT_EQ(user.seen,
              (Lines{"Quillet|", "0" + overall + "0" + loading, "20" + overall + "25" + loading,
                     "40" + overall + "50" + loading, "60" + overall + "75" + loading,
                     "80" + overall + "100" + loading, "80" + overall + "0" + deleting,
                     "100" + overall + "100" + deleting}));
    EXPECT_EQ(host.changes, (Lines{"1 N", "3 D"}));

    user.seen.clear();
    plugin->projectSavingV2(0, 0);
    const std::string saving = " <progress_bar_saving> house.ifc";
    EXPECT_EQ(user.seen, (Lines{"Quillet|", "0" + overall + "0" + saving,
                                "50" + overall + "50" + saving, "100" + overall + "100" + saving}));
    EXPECT_EQ(entry, kLog) << "a cancel has no say here";
}

TEST_F(WindowsOfPlugin, ThatCannotBeOpenedAreToldOrDoneWithout) {
    letHostHaveProjectFile(host.api);
    entry = kLog;
    user.canOpen = false;
    load();
    click(kOptions);
    EXPECT_EQ(messages.entries, Lines{"Error!|Options Window Creation Failed!"});
    plugin->modelLoadedV2(0, 0, 0);
    plugin->projectSavingV2(0, 0);
    EXPECT_EQ(host.changes, (Lines{"1 N", "3 D"}));
    EXPECT_EQ(entry, kLog);
}

std::u16string chosenPath;

TEST_F(WindowsOfPlugin, ShowTheExportWhereTheHostHasNoProgressBar) {
    const std::string project =
        stepFile("#1=IFCPROJECT('2O2Fr$t4X7Zf8NOew3FNr2',$,'p',$,$,$,$,$,$);\n");
    host.filePath = folder.write(u"house.ifc", project);
    chosenPath = folder.write(u"mine.ifc", "old");
    host.api.save_dialog = [](HostHandle, bool) { return true; };
    host.api.get_save_dialog_name = [](HostHandle) { return chosenPath.c_str(); };
    host.api.message_box = [](HostHandle, const char16_t*, const char16_t*, std::uint32_t) {
        return 6;
    };
    const auto exported = [&](bool cancels) {
        load();
        plugin->modelLoadedV2(0, 0, 0);
        user.seen.clear();
        user.cancels = cancels;
        messages.entries.clear();
        click(kExport);
        EXPECT_FALSE(user.isProgressOpen);
        return folder.read(u"mine.ifc");
    };
    EXPECT_EQ(exported(true), "old");
    EXPECT_EQ(messages.entries, Lines{"Cancel|Are you sure you want to cancel?"});
    EXPECT_EQ(user.seen.front(), "<progress_dialog_name>|<btnCancelName>");
    EXPECT_NE(exported(false).find("IFCPROJECT"), std::string::npos);
    EXPECT_EQ(messages.entries, Lines());

    host.api.show_progress_bar = [](HostHandle, bool, bool, const char16_t*) {};
    exported(false);
    EXPECT_FALSE(user.seen.empty()) << "a bar that is never updated is none";
    host.api.update_progress_bar = [](HostHandle, std::int32_t, const char16_t*, std::int32_t,
                                      const char16_t*) {};
    exported(false);
    EXPECT_EQ(user.seen, Lines());
}

TEST(DelayedProgress, OpensItsWindowOnceAndOnlyForWorkThatTakesLong) {
    FakeUser user;
    std::chrono::milliseconds now{1'000'000};
    int opened = 0;
    DelayedProgress progress(
        [&] {
            ++opened;
            return std::make_unique<FakeProgress>(user);
        },
        std::chrono::milliseconds(500), [&now] { return now; });
    now += std::chrono::milliseconds(600);
    progress.show(100, u"all", 100, u"part");
    EXPECT_EQ(opened, 0) << "it is over";
    for (const int elapsed : {0, 499, 500, 501, 5000}) {
        now = std::chrono::milliseconds(1'000'000 + elapsed);
        progress.show(elapsed / 100, u"all", 0, u"part");
        EXPECT_EQ(opened, elapsed < 500 ? 0 : 1) << elapsed;
    }
    EXPECT_EQ(user.seen, (Lines{"5 all, 0 part", "5 all, 0 part", "50 all, 0 part"}));
    user.cancels = true;
    EXPECT_TRUE(progress.takeCancel());
    EXPECT_FALSE(progress.takeCancel());
}

TEST(DelayedProgress, GoesOnWithoutAWindow) {
    int tries = 0;
    DelayedProgress throwing(
        [&]() -> std::unique_ptr<IFC::ProgressView> {
            ++tries;
            throw std::bad_alloc();
        },
        {});
    DelayedProgress without(
        [&] {
            ++tries;
            return nullptr;
        },
        {});
    for (DelayedProgress* const progress : {&throwing, &without}) {
        progress->show(0, u"all", 0, u"part");
        progress->show(1, u"all", 1, u"part");
        EXPECT_FALSE(progress->takeCancel());
    }
    EXPECT_EQ(tries, 2);
}

}  // namespace
