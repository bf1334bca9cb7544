#include <gtest/gtest.h>

#include "platform/whole_file.h"
#include "standin/core/display_table.h"
#include "tests/standin/playground.h"
#include "tests/support/zip_archive.h"

namespace {

/// Makes the plug-in write `bytes` as "Data.xml" at each save.
void writeAtSave(Recorder& plugin, const std::string& bytes) {
    plugin.react = [&plugin, bytes](const std::string& event) {
        if (event == "save" && plugin.host.begin_write_ahx_v2(plugin.handle, u"Data.xml"))
            for (const char byte : bytes)  // the pieces are put together
                plugin.host.write_ahx_v2(plugin.handle, &byte, 1);
    };
}

std::string readEntry(Recorder& plugin, const char16_t* name) {
    if (!plugin.host.begin_read_ahx_v2(plugin.handle, name))
        return "no entry";
    std::string bytes(static_cast<std::size_t>(plugin.host.get_ahx_size_v2(plugin.handle)), '?');
    plugin.host.read_ahx_v2(plugin.handle, bytes.data(), static_cast<std::int64_t>(bytes.size()));
    return bytes;
}

TEST(Projects, KeepModelsAndTheEntriesOfThePlugin) {
    Playground playground;
    standin::Host& host = playground.host();
    Recorder& plugin = playground.plugin();
    std::filesystem::create_directory(std::filesystem::path(playground.folder() / u"b"));
    ASSERT_TRUE(host.open(
        {playground.house(u"H\u00E4user 1.ifc"), playground.house(u"b/H\u00E4user 1.ifc")}))
        << host.error();
    writeAtSave(plugin, "<File/>");
    const std::u16string project = playground.folder() / u"Mein Projekt \u00DF.ahx";
    EXPECT_FALSE(host.save());  // it has no name yet
    ASSERT_TRUE(host.save(project)) << host.error();
    ASSERT_TRUE(host.open({project})) << host.error();
    ASSERT_EQ(host.objects().files().size(), 2U);
    EXPECT_EQ(readEntry(plugin, u"Data.xml"), "<File/>");
    EXPECT_EQ(readEntry(plugin, u"Other.xml"), "no entry");
    for (const standin::LoadedFile& file : host.objects().files()) {
        const std::u16string path = plugin.host.get_project_path(plugin.handle, file.id);
        EXPECT_EQ(standin::fileNameOf(path), u"H\u00E4user 1.ifc");
        EXPECT_TRUE(platform::readWholeFile(path) == platform::readWholeFile(playground.house()));
    }
    plugin.react = nullptr;
    ASSERT_TRUE(host.save());
    EXPECT_EQ(readEntry(plugin, u"Data.xml"), "<File/>") << "carried over";
    const std::u16string extracted = host.objects().files()[0].path;
    host.close();
    EXPECT_FALSE(platform::fileExists(extracted));
    EXPECT_EQ(plugin.events,
              (std::vector<std::string>{"load", "loaded", "save", "saved", "undo 2", "clear",
                                        "load", "loaded", "save", "saved", "undo 2", "clear"}));
    EXPECT_TRUE(host.violations().empty()) << host.violations()[0];
}

TEST(Projects, SurviveASaveThatFails) {
    Playground playground;
    standin::Host& host = playground.host();
    Recorder& plugin = playground.plugin();
    ASSERT_TRUE(host.open({playground.house()}));
    writeAtSave(plugin, "old");
    const std::u16string project = playground.folder() / u"house.ahx";
    ASSERT_TRUE(host.save(project));
    const auto before = platform::readWholeFile(project);
    const std::ptrdiff_t filesBefore = playground.folder().count();
    writeAtSave(plugin, "new");
    plugin.host.need_save_ahx(plugin.handle, true);
    for (std::int64_t bytes = 0; bytes < static_cast<std::int64_t>(before->size()); bytes += 97) {
        host.faults().diskBytes = bytes;
        EXPECT_FALSE(host.save()) << bytes;
        ASSERT_EQ(platform::readWholeFile(project), before) << bytes;
        ASSERT_EQ(playground.folder().count(), filesBefore);
    }
    host.faults().clear();
    EXPECT_TRUE(host.needsSave());
    EXPECT_EQ(readEntry(plugin, u"Data.xml"), "old");
    EXPECT_FALSE(host.save(playground.folder() / u"no/such/folder.ahx"));
    EXPECT_FALSE(host.save(playground.house()));
    EXPECT_TRUE(playground.folder().read(u"Haus am S\u00FCdhang.ifc").starts_with("ISO-10303-21"));
    std::filesystem::permissions(std::filesystem::path(project),
                                 std::filesystem::perms::owner_read);
    EXPECT_FALSE(host.save());
    EXPECT_EQ(platform::readWholeFile(project), before);
    std::filesystem::permissions(std::filesystem::path(project), std::filesystem::perms::owner_all);
    EXPECT_TRUE(host.save());
    EXPECT_EQ(readEntry(plugin, u"Data.xml"), "new");
    EXPECT_FALSE(host.needsSave());
}

TEST(Projects, KeepDisplaysWithTheGeometryCacheOnly) {
    for (const bool isUsed : {true, false}) {
        Playground playground;
        standin::Host& host = playground.host();
        Recorder& plugin = playground.plugin();
        ASSERT_TRUE(host.setGeometryCache(isUsed));
        EXPECT_EQ(platform::readWholeFile(playground.programFolder() + u"/main.cfg")
                          ->find("use_geometry_cache") == std::string::npos,
                  isUsed);
        ASSERT_TRUE(host.open({playground.house()}));
        const std::string asRead = standin::displayTable(playground.southWall());
        HostPropertyRequest request{};
        request.action = kHostRemove;
        request.objectId = playground.southWall().id;
        request.objectGuid = u"3aP0vaNNWm5LC0gJaDf$li";
        request.instanceNumber = 65;
        request.setName = u"Finish";
        ASSERT_NE(plugin.host.add_del_or_change_property(plugin.handle, &request, nullptr), 0U);
        const std::string edited = standin::displayTable(playground.southWall());
        ASSERT_NE(edited, asRead);
        ASSERT_TRUE(host.save(playground.folder() / u"house.ahx"));
        ASSERT_TRUE(host.open({playground.folder() / u"house.ahx"}));
        EXPECT_EQ(standin::displayTable(playground.southWall()), isUsed ? edited : asRead);
        EXPECT_EQ(readEntry(plugin, u"Display.bin"), "no entry") << "the host's own";
    }
}

TEST(Projects, BadFilesLeaveWhatIsOpen) {
    Playground playground;
    standin::Host& host = playground.host();
    ASSERT_TRUE(host.open({playground.house()}));
    const HostObjectId wall = playground.southWall().id;
    const TempFolder& folder = playground.folder();
    writeZip(folder / u"escape.ahx", {{"../evil.ifc", "ISO"}});
    writeZip(folder / u"empty.ahx", {{"Data.xml", "<File/>"}});
    writeZip(folder / u"model.ahx", {{"a.ifc", "this is no model"}});
    const std::string house = *platform::readWholeFile(playground.house());
    writeZip(folder / u"cut.ahx", {{"a.ifc", house}});
    folder.write(u"cut.ahx", folder.read(u"cut.ahx").substr(0, 900));
    const std::pair<std::u16string, std::string> cases[] = {
        {folder / u"escape.ahx", "../evil.ifc"},
        {folder / u"empty.ahx", "no model"},
        {folder / u"model.ahx", "no model"},
        {folder / u"cut.ahx", "cut.ahx"},
        {folder / u"missing.ifc", "missing.ifc cannot be read"},
        {folder / u"picture.png", "neither"},
    };
    for (const auto& [path, reason] : cases) {
        EXPECT_FALSE(host.open({path}));
        EXPECT_NE(host.error().find(reason), std::string::npos) << host.error();
        EXPECT_TRUE(host.objects().find(wall));
    }
    EXPECT_FALSE(platform::fileExists(folder / u"../evil.ifc"));
    writeZip(folder / u"display.ahx", {{"a.ifc", house}, {"Display.bin", "QDSP damaged"}});
    EXPECT_TRUE(host.open({folder / u"display.ahx"}));
    EXPECT_NE(standin::displayTable(playground.southWall()).find("Finish"), std::string::npos);
}

}  // namespace
