#include "edits/export_models.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "edits/export_targets.h"
#include "edits/last_path.h"
#include "platform/same_file.h"
#include "platform/shell_open.h"
#include "tests/edits/fake_host.h"
#include "tests/support/reports.h"
#include "tests/support/step_model.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace IFC;
using Texts = std::vector<std::string>;

constexpr std::string_view kProject =
    "#1=IFCPROJECT('2O2Fr$t4X7Zf8NOew3FNr2',$,'p',$,$,$,$,$,$);\n";

using OpenProgress = decltype(ExportOptions::openProgress);

/// A user who presses "cancel" once, when he has been asked so often.
class ImpatientUser : public ProgressView {
public:
    ImpatientUser(int patience, bool& hasCancelled)
        : patience_(patience), hasCancelled_(hasCancelled) {}
    void show(int, const std::u16string&, int, const std::u16string&) noexcept override {}
    bool takeCancel() noexcept override {
        hasCancelled_ |= patience_ == 0;
        return patience_-- == 0;
    }

    static OpenProgress after(int questions, bool& hasCancelled) {
        return [questions, &hasCancelled](const std::u16string&) {
            return std::make_unique<ImpatientUser>(questions, hasCancelled);
        };
    }

private:
    int patience_;
    bool& hasCancelled_;
};

class ExportModels : public testing::Test {
protected:
    ExportModels()
        : openBefore_(platform::setOpenFileHandler([this](std::u16string_view path) {
              opened_.emplace_back(path);
              return true;
          })) {}
    ~ExportModels() override { platform::setOpenFileHandler(openBefore_); }

    /// Lets the host load a file of the folder.
    std::u16string load(std::u16string_view name, bool isGood = true) {
        const std::u16string path =
            folder_.write(name, isGood ? stepFile(kProject) : std::string("no model"));
        host_.files[host_.files.size() + 1] = path;
        host_.objects[10].number = 1;
        return path;
    }
    void addSetTo(const std::u16string& path) {
        IfcPropertySet set(u"0uNK6qhSj5RvPSUfVkbX1t", u"Added");
        set.properties[u"P"].name = u"P";
        EditTarget target;
        target.fileName = path;
        target.objectNumber = 1;
        session_.store.addPropertySet(target, set);
    }
    /// What was shown, each "caption|text".
    Texts run(platform::MessageAnswer answer = platform::MessageAnswer::No,
              const OpenProgress& openProgress = {}) {
        AnsweredMessages boxes(answer);
        exportModels(session_, {.ignoreEnumerationErrors = true,
                                .pluginFolder = folder_ / u"",
                                .openProgress = openProgress});
        return boxes.entries;
    }
    bool exists(std::u16string_view name) { return platform::fileExists(folder_ / name); }
    std::u16string lastPath() { return readLastPath(folder_ / u""); }

    FakeHost host_;
    EditSession session_{host_.calls};
    TempFolder folder_;
    std::vector<std::u16string> opened_;

private:
    platform::OpenFileHandler openBefore_;
};

const Texts kWarning = {"Quillet|<files_generated_with_warning_msg>"};
const Texts kFailure = {"Quillet|<error_show_log_question>"};

TEST_F(ExportModels, WritesOneFileUnderTheChosenNameAndLeavesNoLog) {
    const std::u16string source = load(u"house.ifc");
    addSetTo(source);
    host_.saveName = folder_ / u"mine.ifc";
    EXPECT_EQ(run(), Texts());
    EXPECT_EQ(host_.takeCalls(),
              Texts({"params <filter_caption>|house_edited|.ifc", "dialog for one"}));
    EXPECT_NE(folder_.read(u"mine.ifc").find("'Added'"), std::string::npos);
    EXPECT_EQ(folder_.read(u"house.ifc"), stepFile(kProject));
    EXPECT_FALSE(exists(u"house_IFC_LOG.txt"));
    EXPECT_EQ(lastPath(), *host_.saveName);
    EXPECT_NE(session_.store.find(source), nullptr) << "an export keeps the edits";
}

TEST_F(ExportModels, WritesSeveralFilesIntoTheChosenFolder) {
    load(u"a.ifc");
    addSetTo(load(u"b.ifc"));
    host_.saveName = folder_ / u"";
    EXPECT_EQ(run(), Texts());
    EXPECT_EQ(host_.takeCalls(), Texts({"params |a_edited|", "dialog for several"}));
    EXPECT_EQ(folder_.read(u"a_edited.ifc").find("'Added'"), std::string::npos);
    EXPECT_NE(folder_.read(u"b_edited.ifc").find("'Added'"), std::string::npos);
    EXPECT_EQ(lastPath(), folder_ / u"b_edited.ifc");
}

TEST_F(ExportModels, EndsBeforeAnythingIsReadWhenTheUserDoesNotAgree) {
    load(u"a.ifc");
    EXPECT_EQ(run(), Texts()) << "cancelled";
    host_.saveName = folder_.write(u"there.ifc", "old");
    host_.messageAnswer = 7;
    EXPECT_EQ(run(), Texts());
    EXPECT_EQ(host_.noted.back(),
              "box 52 <files_already_exists_caption><files_already_exists_message>");
    EXPECT_EQ(folder_.read(u"there.ifc"), "old");
    EXPECT_EQ(folder_.count(), 2) << "no log, no other file";
    host_.messageAnswer = 6;
    run();
    EXPECT_NE(folder_.read(u"there.ifc").find("IFCPROJECT"), std::string::npos);
}

TEST_F(ExportModels, AsksAboutEveryNameThatItMayReplace) {
    load(u"a.ifc");
    const std::u16string zipped = load(u"b.ifczip", false);
    host_.saveName = folder_ / u"";
    host_.messageAnswer = 7;
    for (const std::u16string_view name : {u"b_edited.ifc", u"b_edited.ifczip"}) {
        const std::u16string path = folder_.write(name, "old");
        host_.takeCalls();
        run();
        EXPECT_EQ(host_.noted.back().substr(0, 6), "box 52");
        platform::removeFile(path);
    }
}

struct FailureCase {
    std::vector<bool> good;
    Texts boxes;
};

TEST_F(ExportModels, TellsWhatFailedAndShowsTheLog) {
    const FailureCase cases[] = {
        {{false}, kFailure}, {{false, false}, kFailure}, {{false, true}, kWarning}};
    for (const FailureCase& each : cases) {
        host_.files.clear();
        opened_.clear();
        std::u16string name = u"f0.ifc";
        for (const bool isGood : each.good) {
            load(name, isGood);
            ++name[1];
        }
        host_.saveName = folder_ / (each.good.size() == 1 ? u"out.ifc" : u"");
        host_.messageAnswer = 6;
        EXPECT_EQ(run(platform::MessageAnswer::Yes), each.boxes);
        EXPECT_EQ(opened_, std::vector<std::u16string>{folder_ / u"f0_IFC_LOG.txt"});
        EXPECT_GT(folder_.read(u"f0_IFC_LOG.txt").size(), 40u);
        EXPECT_FALSE(session_.reporter.errorSeen());
    }
    EXPECT_TRUE(exists(u"f1_edited.ifc"));
}

TEST_F(ExportModels, AVanishedFileDoesNotStopTheOthers) {
    platform::removeFile(load(u"a.ifc"));
    load(u"b.ifc");
    host_.saveName = folder_ / u"";
    EXPECT_EQ(run(), kWarning);
    EXPECT_TRUE(exists(u"b_edited.ifc"));
}

TEST_F(ExportModels, CancelledAnywhereLeavesWholeFilesOnly) {
    load(u"a.ifc");
    load(u"b.ifc");
    host_.saveName = folder_ / u"";
    host_.messageAnswer = 6;
    const Texts question = {"Cancel|Are you sure you want to cancel?"};
    bool hasCancelled = true;
    int written = 0;
    for (int questions = 0; hasCancelled; ++questions) {
        for (const char16_t* const target : {u"a_edited.ifc", u"b_edited.ifc"})
            folder_.write(target, "old");
        hasCancelled = false;
        const Texts boxes =
            run(platform::MessageAnswer::Yes, ImpatientUser::after(questions, hasCancelled));
        EXPECT_EQ(boxes, hasCancelled ? question : Texts()) << questions;
        const bool isFirstWritten = folder_.read(u"a_edited.ifc") != "old";
        const bool isSecondWritten = folder_.read(u"b_edited.ifc") != "old";
        EXPECT_EQ(isSecondWritten, !hasCancelled) << questions;
        EXPECT_TRUE(isFirstWritten || !isSecondWritten) << questions;
        for (const char16_t* const target : {u"a_edited.ifc", u"b_edited.ifc"}) {
            const std::string text = folder_.read(target);
            EXPECT_TRUE(text == "old" || text.ends_with("END-ISO-10303-21;\n")) << questions;
        }
        EXPECT_EQ(folder_.count(), 4 + (written > 0 || isFirstWritten ? 1 : 0)) << questions;
        written += isFirstWritten ? 1 : 0;
    }
    EXPECT_GT(written, 2) << "also while the second was in hand";
}

TEST_F(ExportModels, GoesOnWhenTheCancelWasNotMeant) {
    load(u"a.ifc");
    host_.saveName = folder_ / u"mine.ifc";
    bool hasCancelled = true;
    for (int questions = 0; hasCancelled; ++questions) {
        hasCancelled = false;
        run(platform::MessageAnswer::No, ImpatientUser::after(questions, hasCancelled));
        EXPECT_TRUE(exists(u"mine.ifc")) << questions;
        platform::removeFile(folder_ / u"mine.ifc");
    }
}

TEST_F(ExportModels, MayReplaceTheFileThatWasChosenByItsName) {
    const std::u16string source = load(u"house.ifc");
    addSetTo(source);
    host_.saveName = folder_ / u"./house.ifc";
    host_.messageAnswer = 6;
    EXPECT_EQ(run(), Texts());
    EXPECT_NE(folder_.read(u"house.ifc").find("'Added'"), std::string::npos);
    EXPECT_NE(folder_.read(u"house.ifc").find("IFCPROJECT"), std::string::npos);
}

TEST_F(ExportModels, NeverReplacesALoadedFileByAnother) {
    load(u"a.ifc");
    load(u"a_edited.ifc");
    host_.saveName = folder_ / u".";
    host_.messageAnswer = 6;
    EXPECT_EQ(run(), kWarning);
    EXPECT_EQ(folder_.read(u"a_edited.ifc"), stepFile(kProject));
    EXPECT_TRUE(exists(u"a_edited_edited.ifc"));
    EXPECT_NE(folder_.read(u"a_IFC_LOG.txt").find("is loaded in Arvenhold"), std::string::npos);
}

TEST_F(ExportModels, NeedsFiles) {
    EXPECT_EQ(run(), Texts());
    EXPECT_EQ(host_.takeCalls(), Texts({"box 0 <Quillet><no_file_selected_message>"}));
    load(u"a.step");
    EXPECT_EQ(run(), Texts({"Quillet Error|<could_not_open_file_extension> " +
                            platform::toUtf8(folder_ / u"a.step")}));
    EXPECT_EQ(host_.takeCalls(),
              Texts({"box 64 <no_active_project_caption><no_active_project_massage>"}));
}

TEST(ExportTargets, OfOneNameAreToldApart) {
    const auto jobs = exportJobs({u"/x/h.ifc", u"/y/H.ifc", u"/z.ahx|h.ifc"}, u"/out/");
    ASSERT_EQ(jobs.size(), 3u);
    EXPECT_EQ(jobs[0].target, u"/out/h_edited.ifc");
    EXPECT_EQ(jobs[1].target, u"/out/H_2_edited.ifc");
    EXPECT_EQ(jobs[2].target, u"/out/h_3_edited.ifc");
}

TEST(SameFile, IsKnownByOtherPathsAndLinks) {
    TempFolder folder;
    const std::u16string file = folder.write(u"a.ifc", "x");
    std::error_code noLinks;
    std::filesystem::create_hard_link(file, folder / u"link.ifc", noLinks);
    EXPECT_TRUE(platform::isSameFile(file, folder / u"./a.ifc"));
    EXPECT_TRUE(noLinks || platform::isSameFile(file, folder / u"link.ifc"));
    EXPECT_TRUE(platform::isSameFile(folder / u"new.ifc", folder / u"./new.ifc"));
    EXPECT_FALSE(platform::isSameFile(file, folder / u"b.ifc"));
}

}  // namespace
