// The user's whole story, on a model of every release: edit, undo, redo, save, reopen, export, and
// open what was exported.

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/text.h"
#include "tests/flows/flow_host.h"

namespace {

struct StoryCase {
    const char* name;
    std::u16string path;
};

const StoryCase kStories[] = {
    {"Sample", platform::fromUtf8(QUILLET_SOURCE_DIR "/samples/sample_house.ifc")},
#define QUILLET_SHARED_MODEL(name, path) \
    { name, platform::fromUtf8(QUILLET_SHARED_DIR "/models/" path) }
    QUILLET_SHARED_MODEL("IFC2X_FINAL", "ifc2x/adt_fjk_project_repaired.ifc"),
    QUILLET_SHARED_MODEL("IFC2X2_PLATFORM",
                         "ifc2x2/relabelled_platform_windows_in_curved_wall.ifc"),
    QUILLET_SHARED_MODEL("IFC2X2_FINAL", "ifc2x2/relabelled_incorrect_cutting.ifc"),
    QUILLET_SHARED_MODEL("IFC2X3", "ifc2x3/revit2011_duplex.ifc"),
    QUILLET_SHARED_MODEL("IFC4", "ifc4/archicad20_fzk_haus.ifc"),
    QUILLET_SHARED_MODEL("IFC4X1", "ifc4x1/bridge_test.ifc"),
    QUILLET_SHARED_MODEL("IFC4X2", "ifc4x2/relabelled_flat.ifc"),
    QUILLET_SHARED_MODEL("IFC4X3_ADD2", "ifc4x3/sketchup_building_add2.ifc"),
    QUILLET_SHARED_MODEL("Zipped", "ifczip/four_walls_site.ifczip"),
    QUILLET_SHARED_MODEL("HandmadeIFC2X_FINAL", "handmade/hand_a_IFC2X_FINAL.ifc"),
    QUILLET_SHARED_MODEL("HandmadeIFC2X2_PLATFORM", "handmade/hand_a_IFC2X2_PLATFORM.ifc"),
    QUILLET_SHARED_MODEL("HandmadeIFC2X2_FINAL", "handmade/hand_a_IFC2X2_FINAL.ifc"),
    QUILLET_SHARED_MODEL("HandmadeIFC2X3", "handmade/hand_a_IFC2X3.ifc"),
    QUILLET_SHARED_MODEL("HandmadeIFC4", "handmade/hand_a_IFC4.ifc"),
    QUILLET_SHARED_MODEL("HandmadeIFC4X1", "handmade/hand_a_IFC4X1.ifc"),
    QUILLET_SHARED_MODEL("HandmadeIFC4X2", "handmade/hand_a_IFC4X2.ifc"),
    QUILLET_SHARED_MODEL("HandmadeIFC4X3_ADD2", "handmade/hand_a_IFC4X3_ADD2.ifc"),
#undef QUILLET_SHARED_MODEL
};

class Story : public testing::TestWithParam<StoryCase> {};

/// An object with a set of single values and one of quantities where there are such; else any.
const standin::Object* richestObject(FlowHost& flow) {
    const standin::Object* best = nullptr;
    std::size_t most = 0;
    for (const standin::Object* object : flow.editableObjects()) {
        std::size_t rows = 0;
        for (const auto& [guid, set] : seenSetsOf(*object))
            rows += set.properties.size();
        if (!best || rows > most) {
            best = object;
            most = rows;
        }
    }
    return best;
}

/// The GUID of the set of that name, empty when there is none.
std::u16string setGuid(const standin::Object& object, const std::u16string& name) {
    for (const auto& [guid, set] : seenSetsOf(object))
        if (set.name == name)
            return guid;
    return {};
}

/// The value type of a property.
std::u16string entityNameOf(const standin::Object& object, const std::u16string& setGuid,
                            const std::u16string& property) {
    for (const standin::Row& row : object.display.findSet(setGuid, {})->rows)
        if (row.name == property)
            return row.entityName;
    return {};
}

TEST_P(Story, EndsWithTheValuesInTheModelItself) {
    if (!std::filesystem::exists(GetParam().path))
        GTEST_SKIP() << "no " << platform::toUtf8(GetParam().path);
    FlowHost flow;
    ASSERT_TRUE(flow.start({GetParam().path}));
    const SeenObjects asRead = flow.seen();
    // What is wrong with the file itself is reported when it is exported, too.
    const bool hasFaults = !flow.host().objects().files()[0].reports.empty();
    const standin::Object* const object = richestObject(flow);
    ASSERT_NE(object, nullptr);

    // One object.
    std::size_t edits = 0;
    const auto done = [&](bool recorded) {
        EXPECT_TRUE(recorded) << "edit " << edits << "\n" << flow.complaints();
        edits += recorded ? 1 : 0;
    };
    done(flow.addSet(*object, u"Pset_Prüfung \x6F22"));
    const std::u16string added = setGuid(*object, u"Pset_Prüfung \x6F22");
    ASSERT_FALSE(added.empty());
    done(flow.addProperty(*object, added, {.name = u"Zustand", .value = u"neu & 'gut' <1>"}));
    done(flow.addProperty(*object, added, {.name = u"Gone", .value = u"x"}));
    done(flow.editProperty(*object, added, u"Zustand", {.value = u"geprüft"}));
    done(flow.editProperty(*object, added, u"Zustand", {.name = u"Status"}));
    done(flow.deleteProperty(*object, added, u"Gone"));
    for (const auto& [guid, set] : seenSetsOf(*object)) {
        if (guid == added || set.properties.empty())
            continue;
        const auto& [name, property] = *set.properties.begin();
        const bool isQuantity = !property.quantityType.empty();
        const std::u16string value = isQuantity ? u"12" : u"7";
        const std::u16string type = entityNameOf(*object, guid, name);
        const bool isTruth = type == u"IfcBoolean" || type == u"IfcLogical";
        if (property.value != value && !isTruth)
            done(flow.editProperty(*object, guid, name, {.value = value}));
        if (isQuantity)
            done(flow.addProperty(
                *object, guid,
                {.name = u"NewLength", .value = u"2.25", .quantityType = u"IfcQuantityLength"},
                true));
        if (set.properties.size() > 1)
            done(flow.deleteProperty(*object, guid, set.properties.rbegin()->first));
        done(flow.renameSet(*object, guid, set.name + u" (renamed) " + guid.substr(0, 8)));
    }

    // Many objects.
    std::vector<const standin::Object*> many = flow.editableObjects();
    std::erase_if(many, [](const standin::Object* each) {
        return each->entityName == u"IfcProject" || each->entityName == u"IfcSite";
    });
    many.resize(std::min<std::size_t>(many.size(), 5));
    done(flow.editMany(many, {{"edit", u"add-set"},
                              {"set", u"Pset_Many"},
                              {"name", u"Mark"},
                              {"value", u"M-1"},
                              {"policy", u"3"}}));
    done(flow.editMany(many, {{"edit", u"add-property"},
                              {"set", u"Pset_Many"},
                              {"name", u"Level"},
                              {"value", u"low"},
                              {"policy", u"3"}}));
    done(flow.editMany(many, {{"edit", u"edit-property"},
                              {"set", u"Pset_Many"},
                              {"name", u"Level"},
                              {"value", u"high"}}));
    done(flow.editMany(many, {{"edit", u"edit-property"},
                              {"set", u"Pset_Many"},
                              {"name", u"Mark"},
                              {"new-name", u"Sign"}}));
    done(flow.editMany(many, {{"edit", u"add-property"},
                              {"set", u"Pset_Many"},
                              {"name", u"Gone"},
                              {"value", u"x"},
                              {"policy", u"3"}}));
    done(flow.editMany(many,
                       {{"edit", u"delete-property"}, {"set", u"Pset_Many"}, {"name", u"Gone"}}));
    for (const standin::Object* each : many) {
        const SeenSets sets = seenSetsOf(*each);
        const auto found = sets.find(setGuid(*each, u"Pset_Many"));
        ASSERT_NE(found, sets.end());
        EXPECT_EQ(found->second.properties,
                  (std::map<std::u16string, SeenProperty>{{u"Level", {.value = u"high"}},
                                                          {u"Sign", {.value = u"M-1"}}}));
    }

    // All back, all again.
    const SeenObjects edited = flow.seen();
    EXPECT_NE(edited, asRead);
    EXPECT_EQ(flow.host().undoList().doneCount(), edits);
    while (flow.host().undoList().canUndo())
        flow.host().undo();
    EXPECT_EQ(difference(asRead, flow.seen()), "");
    while (flow.host().undoList().canRedo())
        flow.host().redo();
    EXPECT_EQ(difference(edited, flow.seen()), "");

    // Saved, closed, and opened again.
    const std::string log = flow.savedLog();
    EXPECT_FALSE(flow.host().needsSave());
    const std::u16string project = flow.host().project().path();
    flow.host().close();
    ASSERT_TRUE(flow.reopen({project})) << flow.host().error();
    EXPECT_EQ(difference(edited, flow.seen()), "");
    EXPECT_EQ(flow.savedLog(), log);

    // Exported, and the export opened without the edits.
    const std::u16string target = flow.folder() / u"out_edited.ifc";
    if (hasFaults)
        flow.answerMessage(u"no");  // not to see the log
    EXPECT_TRUE(flow.exportTo(target));
    EXPECT_EQ(flow.host().dialogs().unusedAnswers(), 0u);
    EXPECT_EQ(flow.host().dialogs().unexpectedQuestions(), 0u)
        << flow.complaints() << flow.exportLog();
    EXPECT_EQ(flow.host().dialogs().messages(), std::vector<std::string>());
    flow.host().dialogs().forgetShown();
    flow.host().close();
    ASSERT_TRUE(flow.reopen({target})) << flow.host().error() << flow.complaints();
    const auto expected = withoutGuids(edited);
    const auto found = withoutGuids(flow.seen());
    for (const auto& [guid, sets] : expected)
        EXPECT_EQ(sets, found.contains(guid) ? found.at(guid) : std::vector<SeenSet>())
            << platform::toUtf8(guid);
    EXPECT_EQ(flow.complaints(), "");
}

INSTANTIATE_TEST_SUITE_P(Models, Story, testing::ValuesIn(kStories),
                         [](const auto& test) { return test.param.name; });

}  // namespace
