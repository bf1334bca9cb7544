// Hosts that lack a function, or whose functions do nothing or tell lies; files that are not what
// they were.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/text.h"
#include "plugin/host_abi.h"
#include "standin/core/project_archive.h"
#include "tests/flows/flow_host.h"
#include "tests/flows/window_closer.h"

namespace {

const std::u16string kSample = platform::fromUtf8(QUILLET_SOURCE_DIR "/samples/sample_house.ifc");

#define QUILLET_NAME(name, result, arguments) #name,
const char* const kHostFunctions[] = {QUILLET_HOST_FUNCTIONS(QUILLET_NAME)};
#undef QUILLET_NAME

enum class Trouble { Lacks, DoesNothing, IsNegative, IsWrong };

struct FaultCase {
    const char* function;
    Trouble trouble;
};

std::vector<FaultCase> allFaults() {
    std::vector<FaultCase> cases;
    for (const char* function : kHostFunctions)
        for (const Trouble trouble :
             {Trouble::Lacks, Trouble::DoesNothing, Trouble::IsNegative, Trouble::IsWrong})
            cases.push_back({function, trouble});
    return cases;
}

std::string bytesOf(const std::u16string& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Does all that a user does, without looking at the result.
void useAll(FlowHost& flow) {
    const std::vector<const standin::Object*> objects = flow.editableObjects();
    const standin::Object& object = *objects.back();
    flow.addSet(object, u"Set of a fault");
    std::u16string guid;
    for (const auto& [setGuid, set] : seenSetsOf(object))
        guid = setGuid;
    flow.addProperty(object, guid, {.name = u"New", .value = u"1"});
    flow.editProperty(object, guid, u"New", {.value = u"2"});
    flow.deleteProperty(object, guid, u"New");
    flow.renameSet(object, guid, u"Other name");
    flow.editMany({objects.front(), &object},
                  {{"edit", u"add-set"}, {"set", u"Many"}, {"name", u"A"}, {"value", u"b"}});
    flow.deleteSet(object, guid);
    while (flow.host().undoList().canUndo() && flow.host().undo()) {
    }
    while (flow.host().undoList().canRedo() && flow.host().redo()) {
    }
    flow.host().openContextMenu();
    flow.click(FlowHost::Item::IgnoreEnumerationErrors);
    flow.exportTo(flow.folder() / u"faulty_edited.ifc");
}

class HostFault : public testing::TestWithParam<FaultCase> {};

/// Neither crashes nor hangs, breaks no rule of the interface, loses no edit that it took, and is
/// whole again with a whole host.
TEST_P(HostFault, IsSurvived) {
    // A host that does not answer windows has a user who sees them.
    const WindowCloser user;
    FlowHost flow;
    const std::string function = GetParam().function;
    standin::Host& host = flow.host();
    switch (GetParam().trouble) {
        case Trouble::Lacks: ASSERT_TRUE(host.faults().lack(function)); break;
        case Trouble::DoesNothing: host.faults().set(function, standin::Fault::Nothing); break;
        case Trouble::IsNegative: host.faults().set(function, standin::Fault::Negative); break;
        case Trouble::IsWrong: host.faults().set(function, standin::Fault::Wrong); break;
    }
    ASSERT_TRUE(host.loadPlugin()) << host.error();
    const std::u16string model = flow.folder().write(u"sample_house.ifc", bytesOf(kSample));
    ASSERT_TRUE(host.open({model})) << host.error();
    useAll(flow);
    const std::u16string project = flow.folder() / u"faulty.ahx";
    EXPECT_TRUE(host.save(project)) << host.error();
    host.close();
    ASSERT_TRUE(host.open({project})) << host.error();
    host.close();
    host.unloadPlugin();
    // A lie may make the plug-in ask about what there is not; nothing else may.
    if (GetParam().trouble != Trouble::IsWrong) {
        EXPECT_EQ(host.violations(), std::vector<std::string>());
    }

    host.faults().clear();
    flow.restart();
    ASSERT_TRUE(flow.start({kSample}));
    EXPECT_TRUE(flow.addSet(*flow.editableObjects().back(), u"Whole again")) << flow.complaints();
}

std::string nameOf(const testing::TestParamInfo<FaultCase>& test) {
    constexpr const char* kTroubles[] = {"Lacks", "DoesNothing", "IsNegative", "IsWrong"};
    return std::string(test.param.function) + "_" + kTroubles[static_cast<int>(test.param.trouble)];
}

INSTANTIATE_TEST_SUITE_P(AllFunctions, HostFault, testing::ValuesIn(allFaults()), nameOf);

/// A project with an edit, and a message box that answers itself.
class ProjectFault : public testing::Test {
protected:
    ProjectFault() {
        model = flow.folder().write(u"house.ifc", bytesOf(kSample));
        project = flow.folder() / u"house.ahx";
        EXPECT_TRUE(flow.start({model}));
        EXPECT_TRUE(flow.addSet(object(), u"Kept"));
        EXPECT_TRUE(flow.addProperty(object(), guidOf(u"Kept"), {.name = u"A", .value = u"1"}));
        EXPECT_TRUE(flow.host().save(project)) << flow.host().error();
    }
    const standin::Object& object() { return *flow.editableObjects().back(); }
    std::u16string guidOf(const std::u16string& name) {
        for (const auto& [guid, set] : seenSetsOf(object()))
            if (set.name == name)
                return guid;
        return {};
    }

    FlowHost flow;
    std::u16string model;
    std::u16string project;
};

TEST_F(ProjectFault, AFullDiskAtSaveLeavesTheProjectAsItWas) {
    const std::string before = bytesOf(project);
    ASSERT_TRUE(flow.addSet(object(), u"Too much"));
    flow.host().faults().diskBytes = 100;
    EXPECT_FALSE(flow.host().save());
    EXPECT_EQ(bytesOf(project), before);
    flow.host().faults().clear();
    EXPECT_TRUE(flow.host().save()) << flow.host().error();
    flow.host().close();
    ASSERT_TRUE(flow.reopen({project}));
    EXPECT_FALSE(guidOf(u"Too much").empty());
}

TEST_F(ProjectFault, AHostThatCannotReadTheLogDoesNotLoseIt) {
    const std::string log = *flow.host().project().entry(u"Data.xml");
    flow.host().close();
    flow.host().faults().set("read_ahx_v2", standin::Fault::Nothing);
    ASSERT_TRUE(flow.reopen({project}));
    flow.host().faults().clear();
    flow.host().save();  // any question is answered with no
    ASSERT_NE(flow.host().project().entry(u"Data.xml"), nullptr);
    EXPECT_EQ(*flow.host().project().entry(u"Data.xml"), log);
}

TEST_F(ProjectFault, AnInputThatVanishedIsReportedAndTheOthersAreExported) {
    const std::u16string other = flow.folder().write(u"other.ifc", bytesOf(kSample));
    flow.host().close();
    ASSERT_TRUE(flow.reopen({model, other}));
    ASSERT_TRUE(flow.addSet(*flow.host().objects().files()[1].objects.back(), u"Set"));
    std::filesystem::remove(model);
    flow.answerMessage(u"no");  // not to see the log
    flow.exportTo(flow.folder() / u"");
    EXPECT_FALSE(std::filesystem::exists(flow.folder() / u"house_edited.ifc"));
    EXPECT_TRUE(std::filesystem::exists(flow.folder() / u"other_edited.ifc"));
    EXPECT_EQ(flow.host().dialogs().unexpectedQuestions(), 0u) << flow.complaints();
    EXPECT_EQ(flow.host().dialogs().unusedAnswers(), 0u);
}

/// The number of the edited object names another one by now.
TEST_F(ProjectFault, AnInputThatChangedIsNotEditedInTheWrongPlace) {
    flow.host().close();
    ASSERT_TRUE(flow.reopen({model}));
    const standin::Object& edited = object();
    ASSERT_TRUE(flow.addSet(edited, u"Lost place"));
    ASSERT_TRUE(flow.addProperty(edited, guidOf(u"Lost place"), {.name = u"A", .value = u"1"}));
    std::string bytes = bytesOf(model);
    const std::string guid = platform::toUtf8(edited.guid);
    const std::size_t at = bytes.find(guid);
    ASSERT_NE(at, std::string::npos);
    bytes.replace(at, guid.size(), "3zzzzzzzzzzzzzzzzzzzzz");
    flow.folder().write(u"house.ifc", bytes);
    flow.answerMessage(u"no");
    const std::u16string target = flow.folder() / u"changed_edited.ifc";
    flow.exportTo(target);
    EXPECT_EQ(bytesOf(target).find("Lost place"), std::string::npos);
    EXPECT_EQ(flow.host().dialogs().unexpectedQuestions(), 0u) << flow.complaints();
    EXPECT_EQ(flow.host().dialogs().unusedAnswers(), 0u);
}

TEST_F(ProjectFault, AnExportOverItsInputKeepsAWholeFile) {
    flow.host().dialogs().answerMessage(standin::Dialogs::kYes);  // to overwrite
    flow.exportTo(model);
    const std::string bytes = bytesOf(model);
    EXPECT_NE(bytes.find("\nISO-10303-21;"), std::string::npos);
    EXPECT_NE(bytes.find("END-ISO-10303-21;"), std::string::npos);
}

/// Puts other bytes into an entry of a project file.
void replaceEntry(const FlowHost& flow, const std::u16string& project, const std::u16string& name,
                  const std::string& bytes) {
    std::string error;
    const std::u16string models = flow.folder() / u"models";
    std::filesystem::create_directory(models);
    auto entries = standin::readProject(project, models, error);
    ASSERT_TRUE(entries) << error;
    for (standin::ProjectEntry& entry : *entries)
        if (entry.name == name)
            entry.bytes = bytes;
    ASSERT_TRUE(standin::writeProject(project, *entries, -1, error)) << error;
}

struct LogCase {
    const char* name;
    std::string log;
};

class DamagedLog : public testing::TestWithParam<LogCase> {};

/// Whatever stands in the entry: the project opens, can be edited, saved and exported.
TEST_P(DamagedLog, LeavesAUsableProject) {
    FlowHost flow;
    ASSERT_TRUE(flow.start({kSample}));
    flow.savedLog();
    const std::u16string project = flow.host().project().path();
    flow.host().close();
    replaceEntry(flow, project, u"Data.xml", GetParam().log);
    ASSERT_TRUE(flow.reopen({project})) << flow.host().error();
    flow.host().dialogs().forgetShown();
    EXPECT_TRUE(flow.addSet(*flow.editableObjects().back(), u"New")) << flow.complaints();
    flow.host().dialogs().answerMessage(standin::Dialogs::kYes);
    flow.savedLog();
    flow.exportTo(flow.folder() / u"damaged_edited.ifc");
    EXPECT_EQ(flow.host().violations(), std::vector<std::string>());
    EXPECT_TRUE(std::filesystem::exists(flow.folder() / u"damaged_edited.ifc"));
}

std::string million() {
    std::string log =
        R"(<File FileName="sample_house.ifc" IsCached="false"><IfcPropertySet Name="P" GUID="0000000000000000000000" ObjectGUID="0000000000000000000001" IfcId="1" Type="New">)";
    for (int count = 0; count < 1000000; ++count)
        log += R"(<IfcProperty State="1" IsValueBool="0"><Name>N)" + std::to_string(count) +
               "</Name></IfcProperty>";
    return log + "</IfcPropertySet></File>";
}

INSTANTIATE_TEST_SUITE_P(
    Logs, DamagedLog,
    testing::Values(
        LogCase{"Empty", ""}, LogCase{"Truncated", "<File FileName=\"sample_house.ifc\"><IfcPr"},
        LogCase{"NoXml", "PK\x03\x04 nothing to see"},
        LogCase{
            "UnknownAttributes",
            "<File Version=\"9\" FileName=\"sample_house.ifc\" IsCached=\"maybe\"><IfcPropertySet "
            "New=\"x\"/><Other/></File>"},
        LogCase{"BadIfcId",
                "<File FileName=\"sample_house.ifc\"><IfcPropertySet Name=\"A\" GUID=\"g\" "
                "ObjectGUID=\"o\" IfcId=\"99999999999\" Type=\"New\"/></File>"},
        LogCase{"DuplicateNames",
                "<File FileName=\"sample_house.ifc\"><IfcPropertySet Name=\"A\" GUID=\"g\" "
                "ObjectGUID=\"o\" IfcId=\"1\" Type=\"New\"><IfcProperty State=\"1\">"
                "<Name>N</Name></IfcProperty><IfcProperty State=\"1\"><Name>N</Name></IfcProperty>"
                "</IfcPropertySet></File>"},
        LogCase{"AMillionProperties", million()}),
    [](const auto& test) { return test.param.name; });

}  // namespace
