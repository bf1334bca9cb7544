// Two models in one project, one of them zipped, with umlauts and blanks in all paths; wherever the
// program and the models lie.

#include <gtest/gtest.h>

#include "platform/folders.h"
#include "platform/text.h"
#include "platform/whole_file.h"
#include "tests/flows/flow_host.h"
#include "tests/support/zip_archive.h"

namespace {

struct Place {
    const char* name;
    std::u16string inside;
    TempFolder::Way way = TempFolder::Way::Local;
};

const Place kPlaces[] = {
    {"Here", u""},
    {"FarDown", longFolderName()},
    {"OnTheNetwork", u"", TempFolder::Way::Network},
    {"FarDownOnTheNetwork", longFolderName(), TempFolder::Way::Network},
};

class TwoModels : public testing::TestWithParam<Place> {
protected:
    TwoModels() {
        const std::string sample =
            platform::readWholeFile(
                platform::fromUtf8(QUILLET_SOURCE_DIR "/samples/sample_house.ifc"))
                .value_or("");
        platform::createFolders(flow.folder() / u"Mödelle und Pläne");
        platform::createFolders(flow.folder() / u"Züge");
        plain = flow.folder().write(u"Mödelle und Pläne/Haus A.ifc", sample);
        zipped = flow.folder() / u"Züge/Häuser B.ifczip";
        writeZip(zipped, {{"Häuser B.ifc", sample}});
    }

    void SetUp() override {
        if (GetParam().way == TempFolder::Way::Network &&
            !(flow.folder().isOnNetwork() && flow.folder().exists()))
            GTEST_SKIP() << "folders have no names on the network here";
    }

    const standin::Object& wallIn(std::size_t file) {
        for (const auto& object : flow.host().objects().files()[file].objects)
            if (object->entityName.starts_with(u"IfcWall"))
                return *object;
        throw std::runtime_error("the sample has no wall");
    }

    static SeenObjects seenIn(const standin::LoadedFile& file) {
        SeenObjects objects;
        for (const auto& object : file.objects)
            if (isEditable(*object))
                objects[object->guid] = seenSetsOf(*object);
        return objects;
    }

    FlowHost flow{GetParam().inside, GetParam().way};
    std::u16string plain;
    std::u16string zipped;
};

TEST_P(TwoModels, KeepTheirEditsApartFromSaveToExport) {
    ASSERT_TRUE(flow.start({plain, zipped}));
    ASSERT_EQ(flow.host().objects().files().size(), 2u);
    // The same objects with the same GUIDs in both.
    ASSERT_TRUE(flow.addSet(wallIn(0), u"Set in A")) << flow.complaints();
    ASSERT_TRUE(flow.addSet(wallIn(1), u"Set in B")) << flow.complaints();
    for (const std::size_t file : {0u, 1u}) {
        const standin::Object& wall = wallIn(file);
        for (const auto& [guid, set] : seenSetsOf(wall))
            if (set.name.starts_with(u"Set in")) {
                ASSERT_TRUE(flow.addProperty(wall, guid,
                                             {.name = u"File", .value = file == 0 ? u"A" : u"B"}));
            }
    }
    std::vector<SeenObjects> edited;
    for (const standin::LoadedFile& file : flow.host().objects().files())
        edited.push_back(seenIn(file));
    EXPECT_NE(edited[0], edited[1]);

    const std::string log = flow.savedLog();
    const std::u16string project = flow.host().project().path();
    flow.host().close();
    ASSERT_TRUE(flow.reopen({project})) << flow.host().error();
    for (const std::size_t file : {0u, 1u})
        EXPECT_EQ(difference(edited[file], seenIn(flow.host().objects().files()[file])), "");
    EXPECT_EQ(flow.savedLog(), log);

    platform::createFolders(flow.folder() / u"Ausgabe für alle");
    flow.exportTo(flow.folder() / u"Ausgabe für alle");
    EXPECT_EQ(flow.complaints(), "");
    const std::u16string names[] = {u"Ausgabe für alle/Haus A_edited.ifc",
                                    u"Ausgabe für alle/Häuser B_edited.ifc"};
    for (const std::size_t file : {0u, 1u}) {
        flow.host().close();
        ASSERT_TRUE(flow.reopen({flow.folder() / names[file]})) << flow.host().error();
        EXPECT_EQ(withoutGuids(seenIn(flow.host().objects().files()[0])),
                  withoutGuids(edited[file]));
    }
}

TEST_P(TwoModels, OfOneNameAreToldApartByTheirPaths) {
    const std::u16string other = flow.folder().write(
        u"Züge/Haus A.ifc", flow.folder().read(u"Mödelle und Pläne/Haus A.ifc"));
    ASSERT_TRUE(flow.start({plain, other}));
    ASSERT_TRUE(flow.addSet(wallIn(1), u"Only in the second")) << flow.complaints();
    const SeenObjects first = seenIn(flow.host().objects().files()[0]);
    const SeenObjects second = seenIn(flow.host().objects().files()[1]);
    EXPECT_NE(first, second);
    flow.savedLog();
    const std::u16string project = flow.host().project().path();
    flow.host().close();
    ASSERT_TRUE(flow.reopen({project})) << flow.host().error();
    EXPECT_EQ(difference(first, seenIn(flow.host().objects().files()[0])), "");
    EXPECT_EQ(difference(second, seenIn(flow.host().objects().files()[1])), "");
}

INSTANTIATE_TEST_SUITE_P(Places, TwoModels, testing::ValuesIn(kPlaces),
                         [](const auto& place) { return std::string(place.param.name); });

}  // namespace
