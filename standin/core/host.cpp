#include "standin/core/host.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "ifc/io/paths.h"
#include "platform/text.h"
#include "platform/whole_file.h"
#include "standin/core/display_cache.h"
#include "standin/core/standin_texts.h"

namespace standin {
namespace {

Host* currentHost = nullptr;

#ifdef _WIN32
constexpr std::u16string_view kPluginFile = u"quillet.dll";
#else
constexpr std::u16string_view kPluginFile = u"quillet.so";
#endif
constexpr std::u16string_view kConfigurationFile = u"main.cfg";
/// The configuration lists what the user has switched off.
constexpr std::string_view kConfigurationHead = "# Options that are switched off, one a line\n";
constexpr std::string_view kGeometryCacheOption = "use_geometry_cache\n";
constexpr std::int32_t kMajorVersion = 5;

std::u16string textOf(const char16_t* text) { return text ? text : std::u16string(); }

std::u16string pluginFolder(const std::u16string& programFolder) {
    return joined(joined(programFolder, u"plugins"), u"quillet");
}

/// Counts itself while it lives.
class Counted {
public:
    explicit Counted(int& count) : count_(count) { ++count_; }
    ~Counted() { --count_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

private:
    int& count_;
};

HostHandle nextHandle() {
    static HostHandle handle = 0x51540000;
    return handle += 0x10;
}

}  // namespace

Host::Host(Options options) : options_(std::move(options)) {
    assert(!currentHost);
    currentHost = this;
    setGeometryCache(options_.usesGeometryCache);
}

Host::~Host() {
    close();
    unloadPlugin();
    currentHost = nullptr;
}

Host* Host::current() { return currentHost; }

bool Host::fail(std::string error) {
    error_ = std::move(error);
    return false;
}

template <class Call>
void Host::enterPlugin(Call call) {
    if (!plugin_)
        return;
    loans_.expire();
    {
        const Counted counted(callsIntoPlugin_);
        call(plugin_->exports());
    }
    loans_.expire();
}

// ---- the plug-in ----

bool Host::loadPlugin(std::u16string path) {
    if (plugin_)
        return fail(std::string(texts::kPluginLoaded));
    if (path.empty())
        path = joined(pluginFolder(options_.programFolder), kPluginFile);
    std::string error;
    plugin_ = PluginLibrary::load(path, error);
    if (!plugin_)
        return fail(std::move(error));
    pluginVersion_ = {};
    enterPlugin([this](const PluginExports& plugin) { plugin.get_api_verion(0, &pluginVersion_); });
    if (pluginVersion_.major != kMajorVersion) {
        plugin_.reset();
        return fail(platform::toUtf8(path) + " " + std::string(texts::kOtherVersion) +
                    std::to_string(pluginVersion_.major) + "." +
                    std::to_string(pluginVersion_.minor));
    }
    handle_ = nextHandle();
    enterPlugin([this](const PluginExports& plugin) {
        HostPluginInfo info{};
        plugin.get_plugin_info(&info);
        pluginInfo_ = {.name = textOf(info.name),
                       .maker = textOf(info.maker),
                       .webPage = textOf(info.webPage),
                       .email = textOf(info.email),
                       .dataFolder = textOf(info.dataFolder)};
    });
    pluginPath_ = path;
    enterPlugin([this](const PluginExports& plugin) { plugin.on_plugin_load(handle_, 0, 0); });
    return true;
}

void Host::unloadPlugin() {
    enterPlugin([](const PluginExports& plugin) { plugin.on_plugin_unload(); });
    // What points into the library goes before it.
    events_.clear();
    messageCallback_ = nullptr;
    ribbon_.clear();
    undoList_.clear();
    texts_.clear();
    plugin_.reset();
    handle_ = 0;
    tellObserver(HostPart::Ribbon);
    tellObserver(HostPart::UndoList);
}

// ---- files ----

bool Host::open(const std::vector<std::u16string>& paths) {
    std::string error;
    std::optional<OpenedFiles> opened = readFiles(paths, error);
    if (!opened)
        return fail(std::move(error));
    close();
    begin(*opened);
    return true;
}

void Host::begin(OpenedFiles& opened) {
    project_.begin(opened);
    for (LoadedFile& file : opened.files)
        objects_.add(std::move(file));
    error_.clear();
    const std::string* const displays = project_.entry(Project::kDisplayEntry);
    if (displays && options_.usesGeometryCache && !readDisplays(*displays, objects_))
        error_ = texts::kBadDisplayEntry;
    tellObserver(HostPart::Files);
    tellObserver(HostPart::NeedsSave);
    enterPlugin([](const PluginExports& plugin) { plugin.on_model_load_v2(0, 0, 0); });
    raise("on_model_load");
}

void Host::close() {
    if (objects_.files().empty())
        return;
    forgetUndo();
    raise("on_model_clear");
    objects_.clear();
    project_.clear();
    needsSave_ = false;
    tellObserver(HostPart::Files);
    tellObserver(HostPart::NeedsSave);
}

bool Host::save(std::u16string path) {
    if (objects_.files().empty())
        return fail(std::string(texts::kNothingOpen));
    if (path.empty())
        path = project_.path();
    if (path.empty())
        return fail(std::string(texts::kNoProjectPath));
    // Under the name of a model a project would take its place.
    if (FileStream::extensionOf(path) != u".ahx")
        return fail(platform::toUtf8(path) + " " + std::string(texts::kNoProjectName));
    project_.beginSave();
    enterPlugin([](const PluginExports& plugin) { plugin.on_model_save_v2(0, 0); });
    std::optional<std::string> displays;
    if (options_.usesGeometryCache)
        displays = writeDisplays(objects_);
    std::string error;
    if (!project_.endSave(path, objects_, displays, faults_.diskBytes, error))
        return fail(std::move(error));
    setNeedsSave(false);
    raise("on_save_ahx");
    return true;
}

bool Host::reopenInLanguage(const std::u16string& code) {
    std::optional<OpenedFiles> opened;
    if (!objects_.files().empty()) {
        std::vector<std::u16string> paths;
        for (const LoadedFile& file : objects_.files())
            paths.push_back(file.path);
        if (!project_.path().empty())
            paths = {project_.path()};
        std::string error;
        opened = readFiles(paths, error);
        if (!opened)
            return fail(std::move(error));
    }
    close();
    const std::u16string plugin = pluginPath_;
    const bool wasLoaded = isPluginLoaded();
    unloadPlugin();
    setLanguage(code);
    const bool isLoaded = !wasLoaded || loadPlugin(plugin);
    if (opened)
        begin(*opened);
    return isLoaded;
}

// ---- what the user does ----

void Host::select(std::vector<HostObjectId> objects) {
    objects_.select(std::move(objects));
    tellObserver(HostPart::Selection);
    raise("on_selection_change");
}

bool Host::requestChange(HostChangeAction action, const std::u16string& setName,
                         const std::u16string& setGuid, const std::u16string& propertyName,
                         bool asQuantity) {
    if (!plugin_)
        return fail(std::string(texts::kNoPlugin));
    enterPlugin([&](const PluginExports& plugin) {
        HostChangeRequest request{};
        request.action = action;
        request.quantity = asQuantity ? 1 : 0;
        request.setName = loans_.lend(setName);
        request.setGuid = loans_.lend(setGuid);
        request.propertyName = propertyName.empty() ? nullptr : loans_.lend(propertyName);
        plugin.on_changing_property_or_set(&request, 0);
    });
    return true;
}

bool Host::click(HostButtonId item) {
    const RibbonItem* const button = ribbon_.find(item);
    if (!button || !button->isEnabled || !button->clicked)
        return false;
    clickedButton_ = item;
    const HostEventCallback clicked = button->clicked;
    enterPlugin([clicked](const PluginExports&) { clicked(); });
    clickedButton_ = 0;
    return true;
}

bool Host::click(std::u16string_view text) {
    const RibbonItem* const button = ribbon_.findByText(text);
    return button && click(button->id);
}

const std::vector<HostButtonId>& Host::openContextMenu() {
    ribbon_.contextMenu().clear();
    raise("on_context_menu");
    return ribbon_.contextMenu();
}

bool Host::undo() {
    if (!undoList_.canUndo())
        return false;
    undoList_.stepBack();
    tellObserver(HostPart::UndoList);
    enterPlugin([](const PluginExports& plugin) { plugin.on_undo_redo_action(0, kHostUndo); });
    return true;
}

bool Host::redo() {
    if (!undoList_.canRedo())
        return false;
    undoList_.stepForward();
    tellObserver(HostPart::UndoList);
    enterPlugin([](const PluginExports& plugin) { plugin.on_undo_redo_action(0, kHostRedo); });
    return true;
}

void Host::forgetUndo() {
    undoList_.clear();
    tellObserver(HostPart::UndoList);
    enterPlugin([](const PluginExports& plugin) { plugin.on_undo_redo_action(0, kHostForget); });
}

bool Host::setGeometryCache(bool isUsed) {
    options_.usesGeometryCache = isUsed;
    std::string configuration(kConfigurationHead);
    if (!isUsed)
        configuration += kGeometryCacheOption;
    const std::u16string path = joined(options_.programFolder, kConfigurationFile);
    return platform::writeWholeFile(path, configuration) ||
           fail(platform::toUtf8(path) + " " + std::string(texts::kCannotWrite));
}

void Host::raise(std::string_view event) {
    const auto found = events_.find(event);
    if (found == events_.end())
        return;
    const std::vector<HostEventCallback> callbacks = found->second;
    for (const HostEventCallback callback : callbacks)
        enterPlugin([callback](const PluginExports&) { callback(); });
}

// ---- for the exported functions ----

void Host::addUndo(std::u16string text) {
    undoList_.add(std::move(text));
    tellObserver(HostPart::UndoList);
}

void Host::setNeedsSave(bool needed) {
    needsSave_ = needed;
    tellObserver(HostPart::NeedsSave);
}

void Host::repaint() {
    ++repaintCount_;
    tellObserver(HostPart::Display);
}

int Host::callCount(std::string_view function) const {
    const auto found = calls_.find(function);
    return found == calls_.end() ? 0 : found->second;
}

bool Host::readCall(HostHandle handle, const char* function) {
    loans_.expire();
    ++calls_[function];
    if (handle == handle_)
        return true;
    violate(function, texts::kWrongHandle);
    return false;
}

void Host::violate(std::string_view function, std::string_view what) {
    violations_.push_back(std::string(function) + std::string(what));
}

void Host::hostFailed(std::string_view function, std::string_view why) noexcept {
    try {
        violate(function, std::string(texts::kHostFault) + std::string(why));
    } catch (const std::exception&) {
        // No memory even for saying so.
    }
}

Object* Host::objectFor(const char* function, HostObjectId id) {
    Object* const object = objects_.find(id);
    if (!object)
        violate(function, std::string(texts::kUnknownId) + std::to_string(id));
    return object;
}

bool Host::describe(const char* function, HostObjectId id, HostObjectInfo* info) {
    if (!info) {
        violate(function, texts::kNullArgument);
        return false;
    }
    if (const LoadedFile* const file = objects_.findFile(id)) {
        *info = {};
        info->id = info->fileId = id;
        info->parentId = Objects::kAllObjects;
        info->name = loans_.lend(fileNameOf(file->path));
        return true;
    }
    const Object* const object = objectFor(function, id);
    if (!object)
        return false;
    *info = {};
    info->id = object->id;
    info->fileId = object->fileId;
    info->parentId = object->parentId;
    if (!object->guid.empty())
        info->guid = loans_.lend(platform::toUtf8(object->guid));
    info->name = loans_.lend(object->name);
    info->entityName = loans_.lend(object->entityName);
    info->instanceNumber = object->instanceNumber;
    return true;
}

HostProperty Host::lentRow(const DisplayedSet& set, const Row* row) {
    HostProperty record{};
    record.setName = loans_.lend(set.name);
    record.setGuid = loans_.lend(set.guid);
    record.setEntityName = loans_.lend(set.entityName);
    const Changes& changes = row ? row->changes : set.changes;
    record.changeId = changes.empty() ? 0 : changes.back();
    if (!row) {
        record.kind = kHostEmptySet;
        return record;
    }
    record.name = loans_.lend(row->name);
    record.initialName = loans_.lend(row->initialName);
    record.value = loans_.lend(row->value);
    record.entityName = loans_.lend(row->entityName);
    record.quantityType = loans_.lend(row->quantityType);
    record.prefix = loans_.lend(row->prefix);
    record.unit = loans_.lend(row->unit);
    record.kind = row->kind;
    record.valueType = row->valueType;
    record.state = row->state;
    return record;
}

std::int32_t Host::properties(HostObjectId id, HostProperty* buffer, std::int32_t capacity) {
    const Object* const object = objectFor("get_object_properties2", id);
    if (!object)
        return 0;
    std::int32_t count = 0;
    const auto store = [&](const DisplayedSet& set, const Row* row) {
        if (buffer && count < capacity)
            buffer[count] = lentRow(set, row);
        ++count;
    };
    for (const DisplayedSet& set : object->display.sets) {
        for (const Row& row : set.rows)
            store(set, &row);
        if (set.rows.empty())
            store(set, nullptr);
    }
    return count;
}

HostChangeId Host::changeDisplay(const HostPropertyRequest* request, const HostProperty* records) {
    constexpr const char* kFunction = "add_del_or_change_property";
    if (!request) {
        violate(kFunction, texts::kNullArgument);
        return 0;
    }
    Object* const object = objectFor(kFunction, request->objectId);
    if (!object)
        return 0;
    if (textOf(request->objectGuid) != object->guid ||
        request->instanceNumber != object->instanceNumber)
        violations_.emplace_back(texts::kOtherObject);
    if (!object->display.apply(*request, records, nextChange_, violations_))
        return 0;
    tellObserver(HostPart::Display);
    return nextChange_++;
}

bool Host::loadTexts(const std::u16string& name) {
    const std::u16string beside = pluginFolder(options_.programFolder);
    for (const std::u16string& folder :
         {std::u16string(), beside, joined(beside, u"quillet_data"), options_.programFolder}) {
        const std::u16string path = folder.empty() ? name : joined(folder, name);
        // A bare name is no path: the folder in which the program was started is nobody's.
        if ((!folder.empty() || fileNameOf(name) != name) && texts_.load(path))
            return true;
    }
    return false;
}

void Host::registerEvent(std::string_view event, HostEventCallback callback) {
    if (callback)
        events_[std::string(event)].push_back(callback);
    else
        violate(event, texts::kNullArgument);
}

}  // namespace standin
