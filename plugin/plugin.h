#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "edits/command_history.h"
#include "edits/edit_session.h"
#include "edits/editing_windows.h"
#include "plugin/host_api.h"
#include "plugin/plugin_base.h"
#include "plugin/ribbon.h"
#include "plugin/settings.h"

class EditFlows;

/// The plug-in: made when its library is loaded, gone with it, and all that it installed in this
/// process is gone then too.
class Plugin : public cpp::PluginBase {
public:
    /// api: borrowed.
    explicit Plugin(const HostApi& api);

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
    /// The captions of the progress window.
    struct ProgressTexts {
        std::u16string overall;
        std::u16string loading;
        std::u16string deleting;
        std::u16string saving;
    };

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
    void toggle(bool& option, HostButtonId checkBox);
    std::u16string optionsPath() const;
    bool usesGeometryCache();

    IFC::EditSession session_;
    IFC::CommandHistory history_;
    PluginOptions options_;
    Ribbon ribbon_;
    ProgressTexts progressTexts_;
    std::u16string hostConfigPath_;
    LibraryTexts libraryTexts_;
    std::unique_ptr<IFC::EditingWindows> windows_;
};
