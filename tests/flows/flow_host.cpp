#include "tests/flows/flow_host.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/text.h"
#include "platform/whole_file.h"

namespace {

void copyFile(const std::u16string& from, const std::u16string& to) {
    platform::writeWholeFile(to, platform::readWholeFile(from).value_or(""));
}

}  // namespace

void layOutPlugin(const TempFolder& folder) {
    namespace fs = std::filesystem;
    const fs::path source = QUILLET_PLUGINS_FOLDER;
    for (const auto& entry : fs::recursive_directory_iterator(source)) {
        if (entry.is_directory())
            continue;
        const std::u16string name =
            u"plugins/" + entry.path().lexically_relative(source).u16string();
        // What the plug-in writes may lie there from a run by hand.
        if (name.ends_with(u"/config.txt") || name.ends_with(u"/LastPath.txt"))
            continue;
        platform::createFolders(fs::path(folder / name).parent_path().u16string());
        std::error_code failed;  // on another disk, or too far down for the standard library
        fs::create_hard_link(entry.path(), folder / name, failed);
        if (failed)
            copyFile(entry.path().u16string(), folder / name);
    }
}

FlowHost::FlowHost(const std::u16string& language, bool usesGeometryCache, Windows windows)
    : language_(language), usesGeometryCache_(usesGeometryCache), windows_(windows) {
    layOutPlugin(folder_);
    restart();
}

FlowHost::FlowHost(std::u16string_view inside, TempFolder::Way way)
    : folder_(inside, way),
      language_(u"en"),
      usesGeometryCache_(false),
      windows_(Windows::Answered) {
    layOutPlugin(folder_);
    restart();
}

FlowHost::~FlowHost() = default;

void FlowHost::restart() {
    host_.reset();
    host_ = std::make_unique<standin::Host>(
        standin::Host::Options{.programFolder = folder_ / u"",
                               .language = language_,
                               .usesGeometryCache = usesGeometryCache_});
    if (windows_ == Windows::Real)
        host().faults().lack("answer_window");
}

bool FlowHost::start(const std::vector<std::u16string>& sources) {
    std::vector<std::u16string> paths;
    for (const std::u16string& source : sources) {
        paths.push_back(source);
        if (source.starts_with(folder_ / u""))
            continue;
        paths.back() = folder_ / std::filesystem::path(source).filename().u16string();
        if (!platform::fileExists(paths.back()))
            copyFile(source, paths.back());
    }
    if (!host().isPluginLoaded() && !host().loadPlugin()) {
        ADD_FAILURE() << host().error();
        return false;
    }
    if (!host().open(paths)) {
        ADD_FAILURE() << host().error();
        return false;
    }
    return true;
}

bool FlowHost::recorded(std::size_t doneBefore) {
    return host().undoList().doneCount() == doneBefore + 1;
}

bool FlowHost::request(HostChangeAction action, const standin::Object& object,
                       const std::u16string& setGuid, const std::u16string& property,
                       bool isQuantity) {
    const std::size_t before = host().undoList().doneCount();
    host().select({object.id});
    const standin::DisplayedSet* const set = object.display.findSet(setGuid, {});
    host().requestChange(action, set ? set->name : std::u16string(), setGuid, property, isQuantity);
    return recorded(before);
}

void FlowHost::answerProperty(const Entered& entered, const std::u16string& setName) {
    standin::WindowFields fields;
    const auto enter = [&](const char* key, const std::u16string& value) {
        if (!value.empty())
            fields.emplace_back(key, value);
    };
    enter("set", setName);
    enter("name", entered.name);
    enter("value", entered.value);
    enter("quantity-type", entered.quantityType);
    enter("prefix", entered.prefix);
    enter("unit", entered.unit);
    host().dialogs().answerWindow("property", fields);
}

bool FlowHost::addSet(const standin::Object& object, const std::u16string& name) {
    const std::size_t before = host().undoList().doneCount();
    host().select({object.id});
    answerProperty({}, name);
    click(Item::AddSet);
    return recorded(before);
}

bool FlowHost::addProperty(const standin::Object& object, const std::u16string& setGuid,
                           const Entered& entered, bool isQuantity) {
    answerProperty(entered);
    // The row that is clicked: any of the set.
    const standin::DisplayedSet* const set = object.display.findSet(setGuid, {});
    const std::u16string row =
        set && !set->rows.empty() ? set->rows.front().name : std::u16string();
    return request(kHostAskAddProperty, object, setGuid, row, isQuantity);
}

bool FlowHost::editProperty(const standin::Object& object, const std::u16string& setGuid,
                            const std::u16string& name, const Entered& entered) {
    answerProperty(entered);
    return request(kHostAskEditProperty, object, setGuid, name);
}

bool FlowHost::deleteProperty(const standin::Object& object, const std::u16string& setGuid,
                              const std::u16string& name) {
    return request(kHostAskDeleteProperty, object, setGuid, name);
}

bool FlowHost::renameSet(const standin::Object& object, const std::u16string& setGuid,
                         const std::u16string& name) {
    answerProperty({}, name);
    return request(kHostAskRenameSet, object, setGuid, {});
}

bool FlowHost::deleteSet(const standin::Object& object, const std::u16string& setGuid) {
    return request(kHostAskDeleteSet, object, setGuid, {});
}

bool FlowHost::editMany(const std::vector<const standin::Object*>& objects,
                        const standin::WindowFields& fields) {
    const std::size_t before = host().undoList().doneCount();
    std::vector<HostObjectId> ids;
    for (const standin::Object* object : objects)
        ids.push_back(object->id);
    host().select(ids);
    host().dialogs().answerWindow("edit-many", fields);
    click(Item::EditMany);
    return recorded(before);
}

bool FlowHost::exportTo(const std::u16string& target) {
    host().dialogs().answerSaveDialog(target);
    return click(Item::Export);
}

std::string FlowHost::exportLog() {
    std::filesystem::path path(host().objects().files().front().path);
    path.replace_extension();
    path += "_IFC_LOG.txt";
    return platform::readWholeFile(path.u16string()).value_or("");
}

void FlowHost::answerMessage(const std::u16string& button) {
    host().dialogs().answerWindow("message", standin::WindowFields{{"button", button}});
}

bool FlowHost::click(Item item) {
    // The items in the order in which the plug-in makes them, behind their group.
    const auto& items = host().ribbon().items();
    const std::size_t place = 1 + static_cast<std::size_t>(item);
    return place < items.size() && host().click(items[place].id);
}

std::vector<const standin::Object*> FlowHost::editableObjects() {
    std::vector<const standin::Object*> objects;
    for (const standin::LoadedFile& file : host().objects().files())
        for (const auto& object : file.objects)
            if (isEditable(*object))
                objects.push_back(object.get());
    return objects;
}

SeenObjects FlowHost::seen() {
    SeenObjects objects;
    for (const standin::Object* object : editableObjects())
        objects[object->guid] = seenSetsOf(*object);
    return objects;
}

SeenObjects FlowHost::seen(const std::vector<std::u16string>& guids) {
    SeenObjects objects;
    for (const std::u16string& guid : guids)
        if (const standin::Object* object = byGuid(guid))
            objects[guid] = seenSetsOf(*object);
    return objects;
}

std::string FlowHost::savedLog() {
    EXPECT_TRUE(host().save(folder_ / u"saved.ahx")) << host().error();
    const std::string* entry = host().project().entry(u"Data.xml");
    return entry ? *entry : std::string();
}

std::string FlowHost::complaints() {
    std::string text;
    for (const std::string& violation : host().violations())
        text += "violation: " + violation + "\n";
    for (const standin::Shown& shown : host().dialogs().shown()) {
        const bool isMessage = shown.kind == standin::Shown::Kind::Message;
        const bool isOwnMessage =
            shown.kind == standin::Shown::Kind::Window && shown.caption == u"message";
        if (!isMessage && !isOwnMessage && !shown.isUnexpected)
            continue;
        text += shown.isUnexpected ? "unexpected: " : "message: ";
        text += platform::toUtf8(shown.caption) + "|" + platform::toUtf8(shown.text) + "\n";
        for (const auto& [key, value] : shown.fields)
            text += "  " + key + ": " + platform::toUtf8(value) + "\n";
    }
    return text;
}
