#include "edits/project_log.h"

#include <gtest/gtest.h>

#include <new>

#include "edits/edit_log.h"
#include "edits/object_numbers.h"
#include "tests/edits/fake_host.h"
#include "tests/support/reports.h"

namespace {

using namespace IFC;
using Texts = std::vector<std::string>;

std::string setXml(const std::string& name, const std::string& guid, const std::string& object,
                   const std::string& number, const std::string& type,
                   const std::string& properties = "") {
    return "    <IfcPropertySet Name=\"" + name + "\" GUID=\"" + guid + "\" ObjectGUID=\"" +
           object + "\" IfcId=\"" + number + "\" Type=\"" + type + "\"" +
           (properties.empty() ? "/>\n" : ">\n" + properties + "    </IfcPropertySet>\n");
}

std::string propertyXml(const std::string& name, const std::string& state) {
    return "<IfcProperty State=\"" + state + "\" IsValueBool=\"0\"><InitialName>" + name +
           "</InitialName><Name>" + name + "</Name><Value>1</Value></IfcProperty>\n";
}

std::string fileXml(const std::string& name, const std::string& sets, bool cached = false) {
    return "<File FileName=\"" + name + "\" IsCached=\"" + (cached ? "true" : "false") +
           (sets.empty() ? "\"/>\n" : "\">\n" + sets + "</File>\n");
}

class ProjectLog : public testing::Test {
protected:
    ProjectLog() {
        host_.files = {{1, u"/p/a.ifc"}, {2, u"/p/b.ifc"}};
        host_.objects = {{11, {1, "oA", 21, {}}}, {12, {2, "oB", 22, {}}}};
    }
    void load(const std::string& xml) {
        host_.entry = xml;
        session_.files.refresh(host_.calls, session_.store);
        loadProjectLog(session_, [this](const std::u16string&) { return usesCache_; });
    }
    /// The entry after a save.
    std::string saved() {
        EXPECT_TRUE(saveProjectLog(session_, [this](const std::u16string&) { return usesCache_; }));
        return *host_.entry;
    }
    const ObjectEdits& object(std::u16string_view file, std::int32_t number) {
        return session_.store.find(file)->objects.at(number);
    }

    FakeHost host_;
    EditSession session_{host_.calls};
    AnsweredMessages boxes_;
    bool usesCache_ = false;
};

TEST_F(ProjectLog, GoesThroughTheEntryForAllFiles) {
    const std::string log = fileXml("a.ifc", setXml("N", "1", "oA", "21", "New") +
                                                 setXml("D", "2", "oA", "21", "Deleted")) +
                            fileXml("b.ifc", "");
    load(log);
    EXPECT_EQ(object(u"a.ifc", 21).objectId, 11u);
    EXPECT_EQ(saved(), log);
    usesCache_ = true;
    host_.files.erase(1);
    EXPECT_EQ(saved(), fileXml("b.ifc", "", true) + log.substr(0, log.find("<File FileName=\"b")))
        << "what belongs to a file that is not loaded comes after the others, as it was";
    EXPECT_EQ(boxes_.entries, Texts());
}

TEST_F(ProjectLog, BringsOnlyTheDisplayOfFilesWithoutCacheIntoLine) {
    host_.show(11, u"2", u"Old name", u"E");
    const std::string sets =
        setXml("N", "1", "oA", "21", "New", propertyXml("A", "1")) +
        setXml("Ed", "2", "oA", "21", "Edited",
               propertyXml("A", "1") + propertyXml("E", "2") + propertyXml("X", "3")) +
        setXml("D", "3", "oA", "21", "Deleted");
    const Texts all = {
        "change 1 #21 1/N [A=1] after 0",          "change 3 #21 2/Old name/X [X=1] after 0",
        "change 4 #21 2/Old name/E [E=1] after 0", "change 0 #21 2/Old name/A [A=1] after 0",
        "change 4 #21 2/Old name->Ed after 0",     "change 3 #21 3/D after 0"};
    for (const bool logged : {false, true}) {
        for (const bool used : {false, true}) {
            usesCache_ = used;
            load(fileXml("A.IFC", sets, logged));
            EXPECT_EQ(host_.takeCalls(), logged && used ? Texts() : all);
            EXPECT_EQ(object(u"a.ifc", 21).editedSets[0]->properties.size(), 3u);
        }
    }
}

TEST_F(ProjectLog, ReportsConflictsTogether) {
    host_.show(11, u"1", u"In the file", u"P");
    load(fileXml("a.ifc", setXml("N", "1", "oA", "21", "New") +
                              setXml("T", "1", "oA", "21", "Edited",
                                     propertyXml("A", "1") + propertyXml("A", "1"))));
    ASSERT_EQ(boxes_.entries.size(), 1u);
    EXPECT_EQ(boxes_.entries[0],
              "Quillet Error|Property duplication: A of set: T (Data.xml, line 5)\n"
              "Guid duplication of set: T (Data.xml, line 3)\n"
              "Guid duplication of set: N");
    EXPECT_EQ(object(u"a.ifc", 21).newSets.size(), 1u);
    for (const std::string& call : host_.takeCalls())
        EXPECT_FALSE(call.starts_with("change 1")) << "the file's own set is displayed";
}

TEST_F(ProjectLog, KeepsWhatBelongsToNothingLoadedAndSaysSoOnce) {
    const std::string log = fileXml("a.ifc", setXml("N", "1", "gone", "5", "New")) +
                            fileXml("b.ifc", "") +
                            fileXml("c.ifc", setXml("N", "1", "oA", "21", "New"), true);
    load(log);
    EXPECT_EQ(host_.takeCalls(), Texts());
    EXPECT_EQ(boxes_.entries,
              Texts({"Quillet Error|Edits that belong to nothing that is loaded are kept in the "
                     "project file:\na.ifc (objects not found: 1)\nc.ifc (the file is not "
                     "loaded)"}));
    EXPECT_EQ(saved(), log);
}

TEST_F(ProjectLog, FindsTheObjectInTheFileThatIsMeant) {
    host_.objects[12].guid = "oA";  // both files have it; the host only tells the first
    load(fileXml("b.ifc", setXml("N", "1", "oA", "22", "New")));
    EXPECT_EQ(object(u"b.ifc", 22).objectId, 12u);
    EXPECT_EQ(host_.takeCalls(), Texts({"change 1 #22 1/N [=] after 0"}));
}

TEST_F(ProjectLog, FollowsAnObjectToItsNewNumber) {
    load(fileXml("a.ifc", setXml("N", "1", "oA", "5", "New")));
    EXPECT_EQ(object(u"a.ifc", 21).objectId, 11u);
    EXPECT_NE(saved().find("IfcId=\"21\""), std::string::npos);
}

TEST_F(ProjectLog, WritesNothingOfObjectsWithoutGuid) {
    load(fileXml("a.ifc", setXml("N", "1", "oA", "21", "New")));
    host_.objects[11].guid.clear();
    EXPECT_EQ(saved(), fileXml("a.ifc", "") + fileXml("b.ifc", ""));
    EXPECT_EQ(session_.store.find(u"a.ifc")->objects.size(), 1u);
}

TEST_F(ProjectLog, ReportsAFileWithoutPathAndKeepsItsEdits) {
    const std::string sets = setXml("N", "1", "oA", "21", "New");
    load(fileXml("a.ifc", sets));
    host_.files[1].clear();
    EXPECT_EQ(saved(), fileXml("b.ifc", "") + fileXml("a.ifc", sets));
    EXPECT_EQ(boxes_.entries,
              Texts({"Quillet Error|Could not get project path from Arvenhold for file: a.ifc"}));
    host_.mayWrite = false;
    EXPECT_FALSE(saveProjectLog(session_, {}));
}

TEST_F(ProjectLog, NeverLosesWhatItCanNotRead) {
    const std::string good = setXml("N", "1", "oA", "21", "New");
    const std::string malformed[] = {"<File", fileXml("a.ifc", good) + "</File>",
                                     fileXml("a.ifc", good).substr(0, 90),
                                     std::string("a\0--> & &#45; \xFF", 14)};
    for (const std::string& text : malformed) {
        SCOPED_TRACE(text);
        boxes_.entries.clear();
        load(text);
        ASSERT_EQ(boxes_.entries.size(), 2u);
        EXPECT_EQ(boxes_.entries[0], "Quillet|on_model_load_v2: Parsing XML in AHX error");
        EXPECT_TRUE(session_.store.files().empty());
        const std::string once = saved();
        EXPECT_EQ(unreadTextsOf(once), Texts({text}));
        load(once);
        EXPECT_EQ(boxes_.entries.size(), 2u) << "the new log is well-formed";
        EXPECT_EQ(saved(), once);
    }
    const std::string odd =
        setXml("S", "3", "oA", "x", "New") + setXml("O", "4", "oA", "21", "Old");
    load(fileXml("a.ifc", odd + good));
    ASSERT_EQ(session_.unreadLog.texts.size(), 1u);
    for (const char* part : {"Name=\"S\"", "IfcId=\"x\"", "Type=\"Old\"", "FileName=\"a.ifc\""})
        EXPECT_NE(session_.unreadLog.texts[0].find(part), std::string::npos) << part;
    EXPECT_EQ(unreadTextsOf(saved()), session_.unreadLog.texts);
}

TEST_F(ProjectLog, ThatTheHostDoesNotHandOverIsOnlyOverwrittenWhenTheUserAgrees) {
    host_.api.read_ahx_v2 = nullptr;
    load("old");
    {
        AnsweredMessages no(platform::MessageAnswer::No);
        EXPECT_FALSE(saveProjectLog(session_, {}));
        EXPECT_EQ(*host_.entry, "old");
    }
    AnsweredMessages yes(platform::MessageAnswer::Yes);
    EXPECT_EQ(saved(), fileXml("a.ifc", "") + fileXml("b.ifc", ""));
}

TEST_F(ProjectLog, StaysAsItIsWhenSavingFailsOnTheWay) {
    const std::string log = fileXml("a.ifc", setXml("N", "1", "oA", "21", "New"));
    load(log);
    const auto fail = [](const LogProgress&) { throw std::bad_alloc(); };
    EXPECT_THROW(saveProjectLog(session_, {}, fail), std::bad_alloc);
    EXPECT_EQ(*host_.entry, log);
    EXPECT_EQ(saved(), log + fileXml("b.ifc", ""));
}

TEST_F(ProjectLog, CountsTheStepsOfEachPart) {
    host_.objects[13] = {1, "oC", 23, {}};
    const std::string deleted = setXml("D", "2", "oC", "23", "Deleted");
    host_.entry = fileXml("a.ifc", setXml("N", "1", "oA", "21", "New") + deleted) +
                  fileXml("b.ifc", setXml("N", "1", "oB", "22", "New"), true) +
                  fileXml("c.ifc", setXml("N", "1", "oA", "21", "New"));
    Texts parts;  // as each begins, and its last step
    std::size_t all = 0;
    const auto count = [&](const LogProgress& progress) {
        const char* const names[] = {"load ", "delete ", "save "};
        if (progress.ofPart.done == 0)
            parts.push_back(names[static_cast<int>(progress.part)] +
                            platform::toUtf8(progress.file) + " " +
                            std::to_string(progress.ofAll.done));
        EXPECT_LE(progress.ofPart.done, progress.ofPart.total);
        EXPECT_LE(progress.ofAll.done, progress.ofAll.total);
        EXPECT_GE(progress.ofAll.done, all);
        all = progress.ofAll.done;
        if (all == progress.ofAll.total)
            parts.push_back("all " + std::to_string(all));
    };
    session_.files.refresh(host_.calls, session_.store);
    loadProjectLog(
        session_, [](const std::u16string&) { return true; }, count);
    EXPECT_EQ(parts, (Texts{"load a.ifc 0", "delete a.ifc 4", "load b.ifc 5", "all 6"}));
    parts.clear();
    all = 0;
    saveProjectLog(session_, {}, count);
    EXPECT_EQ(parts, (Texts{"save a.ifc 0", "save b.ifc 2", "save c.ifc 3", "all 4"}));
}

TEST_F(ProjectLog, KeepsNamesakesApart) {
    load(fileXml("a.ifc", setXml("N", "1", "oA", "21", "New")));
    host_.files[3] = u"/q/a.ifc";
    session_.files.refresh(host_.calls, session_.store);
    EXPECT_EQ(session_.store.find(u"/p/a.ifc")->objects.size(), 1u);
    EXPECT_EQ(session_.store.find(u"/q/a.ifc"), nullptr);
    const std::string both = saved();
    EXPECT_NE(both.find("\"/q/a.ifc\""), std::string::npos);
    load(both);
    EXPECT_EQ(object(u"/p/a.ifc", 21).objectId, 11u);
}

TEST(ObjectNumbers, CollisionsLeaveObjectsWhereTheyAre) {
    struct Case {
        std::map<std::int32_t, std::int32_t> wanted;
        std::vector<std::int32_t> ends;  // of the objects 10, 20 and 30
    };
    const Case cases[] = {
        {{{10, 11}}, {11, 20, 30}},
        {{{10, 20}, {20, 10}}, {20, 10, 30}},
        {{{10, 20}}, {10, 20, 30}},
        {{{10, 20}, {30, 10}}, {10, 20, 30}},
        {{{10, 5}, {20, 5}, {30, 6}}, {10, 20, 6}},
    };
    const std::int32_t numbers[] = {10, 20, 30};
    for (const Case& each : cases) {
        FileEdits file;
        for (const std::int32_t number : numbers)
            file.objects[number].objectId = static_cast<HostObjectId>(number);
        const FileEdits result = renumbered(file, each.wanted);
        ASSERT_EQ(result.objects.size(), 3u);
        for (std::size_t index = 0; index < 3; ++index) {
            const ObjectEdits* object = result.objects.find(each.ends[index]);
            ASSERT_NE(object, nullptr);
            EXPECT_EQ(object->objectId, static_cast<HostObjectId>(numbers[index]));
        }
    }
}

}  // namespace
