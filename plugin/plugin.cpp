#include "plugin/plugin.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "edits/export_models.h"
#include "edits/last_path.h"
#include "edits/project_log.h"
#include "ifc/io/log_file.h"
#include "ifc/model/property_operations.h"
#include "platform/main_module.h"
#include "platform/message_box.h"
#include "platform/shell_open.h"
#include "platform/text.h"
#include "plugin/edit_flows.h"
#include "plugin/make_editing_windows.h"
#include "plugin/plugin_paths.h"
#include "plugin/plugin_texts.h"

namespace {

/// Kept: the host knows itself by no longer path.
constexpr std::size_t kLongestProgramPath = 260;

/// An option of the plug-in, by its number.
struct OptionOfUser {
    bool PluginOptions::*value;
    HostButtonId Ribbon::*checkBox;
    const char* captionKey;
};

constexpr OptionOfUser kOptions[] = {
    {&PluginOptions::ignoreEnumerationErrors, &Ribbon::ignoreEnumerationErrors,
     texts::kIgnoreEnumerationErrorsKey},
    {&PluginOptions::eraseWhiteSigns, &Ribbon::eraseWhiteSigns, texts::kEraseWhiteSignsKey}};

std::u16string hostProgramPath() {
    return platform::mainModulePath().substr(0, kLongestProgramPath);
}

}  // namespace

Plugin::LibraryTexts::LibraryTexts(const HostCalls& host)
    : before_(IFC::setGetTextFunction([&host](const char* key) { return host.text(key); })) {}

Plugin::LibraryTexts::~LibraryTexts() { IFC::setGetTextFunction(std::move(before_)); }

Plugin::Plugin(const HostApi& api, std::unique_ptr<SystemWindows> windows,
               const std::u16string& modulePath)
    : PluginBase(api, texts::kPluginName, modulePath),
      session_(host()),
      history_(host()),
      libraryTexts_(host()),
      systemWindows_(std::move(windows)) {
    // Made before this is complete, so that they are there until it is gone.
    LogFile::instance();
    platform::setMessageBoxHandler(platform::setMessageBoxHandler({}));
}

Plugin::~Plugin() { LogFile::instance().close(); }

void Plugin::fillPluginInfo(HostPluginInfo& info) {
    useDataFolderOfHost();
    PluginBase::fillPluginInfo(info);
    info.maker = texts::kMaker;
    info.webPage = texts::kMakerWebPage;
    info.email = texts::kMakerEmail;
}

void Plugin::useDataFolderOfHost() { setDataFolder(paths::dataFolderOfHost(hostProgramPath())); }

void Plugin::pluginLoaded(std::uint16_t, std::uintptr_t) {
    useDataFolderOfHost();  // a host need not have asked for the information record
    windows_.reset();       // gives back what it replaced before its successor replaces it
    windows_ = makeEditingWindows(host(), moduleFolder());
    loadLanguage();
    readOptions(optionsPath(), options_);
    progressTexts_ = {.overall = host().text(texts::kOverallProgressKey),
                      .loading = host().text(texts::kLoadingKey),
                      .deleting = host().text(texts::kDeletingKey),
                      .saving = host().text(texts::kSavingKey)};
    ribbon_ = buildRibbon(host(), dataFolder(), options_, buttonClickForwarder());
    hostConfigPath_ = paths::hostConfigPath(moduleFolder(), hostProgramPath());
}

void Plugin::pluginUnloading() { writeOptions(optionsPath(), options_); }

std::u16string Plugin::optionsPath() const {
    return paths::inFolder(moduleFolder(), texts::kOptionsFile);
}

void Plugin::contextMenuOpening() { ribbon_.addToContextMenu(host()); }

void Plugin::buttonClicked(HostButtonId button) {
    if (button == 0)
        return;  // items that could not be made have this id
    if (button == ribbon_.exportModels)
        exportModels();
    else if (button == ribbon_.addPropertySet)
        flows().addPropertySet();
    else if (button == ribbon_.editMany)
        flows().editMany();
    else if (button == ribbon_.openRecent)
        openRecentFile();
    else if (button == ribbon_.options)
        showOptions();
    else if (button == ribbon_.edit && host().loadedIfcFilesCount() > 0)
        session_.files.refresh(host(), session_.store);
    for (std::size_t option = 0; option < std::size(kOptions); ++option)
        if (button == ribbon_.*kOptions[option].checkBox)
            setOption(option, !(options_.*kOptions[option].value));
}

EditFlows Plugin::flows() { return {session_, history_, windows_.get(), options_}; }

void Plugin::exportModels() {
    IFC::exportModels(session_, {.ignoreEnumerationErrors = options_.ignoreEnumerationErrors,
                                 .pluginFolder = moduleFolder(),
                                 .openProgress = [this](const std::u16string& title) {
                                     return progressWindow(title, host().text(texts::kCancelKey));
                                 }});
}

SystemWindows* Plugin::systemWindows() {
    return host().answersWindows() ? nullptr : systemWindows_.get();
}

std::unique_ptr<IFC::ProgressView> Plugin::progressWindow(const std::u16string& title,
                                                          const std::u16string& cancel) {
    SystemWindows* const windows = systemWindows();
    if (!windows)
        return nullptr;
    const ProgressWindowInput input{.title = title,
                                    .cancel = cancel,
                                    .iconFile = dataFolder() + std::u16string(texts::kEditImage)};
    return std::make_unique<DelayedProgress>(
        [windows, input] { return windows->openProgress(input); }, windows->progressDelay());
}

void Plugin::withLogProgress(
    const std::function<void(const IFC::LogProgressCallback& progress)>& work) {
    // What is to be told to the user is told when the window is gone.
    const IFC::ErrorReporter::Collecting collecting(session_.reporter);
    // No edit may be lost: there is nothing to cancel.
    const auto window = progressWindow(std::u16string(texts::kCaption), {});
    if (!window)
        return work({});
    LogProgressBars bars(*window, progressTexts_);
    work([&bars](const IFC::LogProgress& progress) { bars.show(progress); });
}

void Plugin::openRecentFile() {
    const std::u16string path = IFC::readLastPath(moduleFolder());
    if (!platform::openWithDefaultProgram(path))
        session_.reporter.report(texts::kOpenRecentFailedKey, path);
}

void Plugin::setOption(std::size_t option, bool isOn) {
    const auto& [value, checkBox, captionKey] = kOptions[option];
    options_.*value = isOn;
    ribbon_.showDown(host(), ribbon_.*checkBox, isOn);
    writeOptions(optionsPath(), options_);
}

void Plugin::showOptions() {
    SystemWindows* const windows = systemWindows();
    if (!windows || std::exchange(areOptionsOpen_, true))
        return;
    struct Closing {
        bool& isOpen;
        ~Closing() { isOpen = false; }
    } const closing{areOptionsOpen_};
    OptionsWindowInput input{.title = host().text(texts::kOptionsKey),
                             .options = {},
                             .close = host().text(texts::kCloseKey),
                             .iconFile = dataFolder() + std::u16string(texts::kOptionsImage)};
    for (const auto& [value, checkBox, captionKey] : kOptions)
        input.options.push_back({host().text(captionKey), options_.*value});
    const bool isShown = windows->showOptions(
        input, [this](std::size_t option, bool isOn) { setOption(option, isOn); });
    if (!isShown)
        platform::showMessageBox(texts::kOptionsWindowFailed, texts::kSettingsErrorCaption,
                                 platform::MessageButtons::Ok, platform::MessageIcon::Warning);
}

bool Plugin::usesGeometryCache() {
    return readHostOption(HostOption::UseGeometryCache, hostConfigPath_,
                          session_.reporter.callback());
}

void Plugin::modelLoadedV2(std::uint8_t, std::uintptr_t, std::uintptr_t) {
    modelLoaded();
    session_.files.refresh(host(), session_.store);
    ribbon_.enable(host(), ribbon_.exportModels, host().allObjectsCount() > 0);
    withLogProgress([this](const IFC::LogProgressCallback& progress) {
        IFC::loadProjectLog(
            session_, [this](const std::u16string&) { return usesGeometryCache(); }, progress);
    });
}

void Plugin::projectSavingV2(std::uintptr_t, std::uintptr_t) {
    withLogProgress([this](const IFC::LogProgressCallback& progress) {
        IFC::saveProjectLog(
            session_, [this](const std::u16string&) { return usesGeometryCache(); }, progress);
    });
}

void Plugin::changeRequested(const HostChangeRequest& request, std::uintptr_t) {
    flows().changeRequested(request);
}

void Plugin::undoRedoRequested(std::int32_t action) { history_.act(action); }

void Plugin::faultCaught(const char* what) noexcept {
    try {
        const std::u16string text =
            what ? platform::fromUtf8(what) : std::u16string(texts::kOutOfMemoryFault);
        session_.reporter.report("", text);
    } catch (...) {
        PluginBase::faultCaught(what);
    }
}
