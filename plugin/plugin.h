#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "edits/command_history.h"
#include "edits/edit_session.h"
#include "edits/editing_windows.h"
#include "platform/main_module.h"
#include "plugin/host_api.h"
#include "plugin/log_progress.h"
#include "plugin/plugin_base.h"
#include "plugin/ribbon.h"
#include "plugin/settings.h"
#include "plugin/system_windows.h"

class EditFlows;

/// The plug-in: made when its library is loaded, gone with it, and all that it installed in this
/// process is gone then too.
class Plugin : public cpp::PluginBase {
public:
    /// api: borrowed. windows: null where there are none. modulePath: of the library that the
    /// plug-in is in; its files lie beside it.
    explicit Plugin(const HostApi& api,
                    std::unique_ptr<SystemWindows> windows = makeSystemWindows(),
                    const std::u16string& modulePath = platform::ownModulePath());

    // Slot order is fixed.
    ~Plugin() override;
    std::int32_t apiMinorVersion() const override { return 48; }
    void fillPluginInfo(HostPluginInfo& info) override;
    void pluginLoaded(std::uint16_t flag, std::uintptr_t hostValue) override;
    void pluginUnloading() override;
    void contextMenuOpening() override;
    void buttonClicked(HostButtonId button) override;
    void modelLoadedV2(std::uint8_t flag, std::uintptr_t, std::uintptr_t) override;
    void projectSavingV2(std::uintptr_t, std::uintptr_t) override;
    void changeRequested(const HostChangeRequest& request, std::uintptr_t) override;
    void undoRedoRequested(std::int32_t action) override;
    void faultCaught(const char* what) noexcept override;

private:
    /// The texts of the IFC library come from the host while this lives.
    class LibraryTexts {
    public:
        explicit LibraryTexts(const HostCalls& host);
        ~LibraryTexts();
        LibraryTexts(const LibraryTexts&) = delete;
        LibraryTexts& operator=(const LibraryTexts&) = delete;

    private:
        std::function<std::u16string(const char*)> before_;
    };

    void useDataFolderOfHost();
    EditFlows flows();
    void exportModels();
    void openRecentFile();
    /// option: by its number (plugin.cpp).
    void setOption(std::size_t option, bool isOn);
    void showOptions();
    std::u16string optionsPath() const;
    /// Windows that nobody sees would wait for ever: null with a host that answers for its user.
    SystemWindows* systemWindows();
    /// A window for work that takes long; null where there is none. cancel: caption of the button,
    /// empty when there is to be none.
    std::unique_ptr<IFC::ProgressView> progressWindow(const std::u16string& title,
                                                      const std::u16string& cancel);
    /// Runs work on the edit log with such a window.
    void withLogProgress(const std::function<void(const IFC::LogProgressCallback& progress)>& work);
    bool usesGeometryCache();

    IFC::EditSession session_;
    IFC::CommandHistory history_;
    PluginOptions options_;
    Ribbon ribbon_;
    ProgressTexts progressTexts_;
    std::u16string hostConfigPath_;
    LibraryTexts libraryTexts_;
    std::unique_ptr<IFC::EditingWindows> windows_;
    std::unique_ptr<SystemWindows> systemWindows_;
    bool areOptionsOpen_ = false;
};
