#pragma once

#include <cstdint>
#include <exception>
#include <new>
#include <string>

#include "plugin/host_abi.h"
#include "plugin/host_calls.h"

namespace cpp {

/// What any plug-in of the host needs: the host's functions, the folders, the language texts, and a
/// handler for everything that the host tells its plug-ins, which does nothing until a plug-in
/// overrides it. There is one plug-in object in a library, made when the library is loaded.
///
/// All is called on the host's user-interface thread.
class PluginBase {
public:
    /// api: borrowed, as are all its functions. displayName: the plug-in's name for the user.
    /// modulePath: of the library that the plug-in is in.
    PluginBase(const HostApi& api, std::u16string displayName, const std::u16string& modulePath);
    PluginBase(const PluginBase&) = delete;
    PluginBase& operator=(const PluginBase&) = delete;

    /// The plug-in object that serves the host; null while there is none.
    static PluginBase* current();

    /// Writes the version of the host's interface that the plug-in was made for, then tells the
    /// plug-in what the host says of itself. @return what the plug-in answers.
    std::int32_t reportApiVersion(std::uintptr_t hostValue, HostApiVersion* version);

    /// Takes the host's handle, registers for the host's events and starts the plug-in. Events that
    /// the host cannot register never come.
    void load(HostHandle handle, std::uint16_t flag, std::uintptr_t hostValue);

    /// Item of the ribbon or gallery that was clicked last, 0 when the host does not tell.
    HostButtonId clickedButton() const;
    HostObjectId clickedDrawObject() const;

    // Slot order is fixed.
    virtual ~PluginBase();
    virtual std::int32_t apiMajorVersion() const { return 5; }
    virtual std::int32_t apiMinorVersion() const { return 49; }
    virtual std::int32_t versionNotified(std::uintptr_t) { return 0; }
    /// The texts stay valid as long as the plug-in object.
    virtual void fillPluginInfo(HostPluginInfo& info);
    virtual void unusedAfterInfo() {}
    virtual std::int32_t dragEntered(std::int32_t, std::int32_t, std::int32_t) { return 0; }
    virtual std::int32_t draggedOver(std::int32_t, std::int32_t, std::int32_t) { return 0; }
    virtual std::int32_t dropped(std::uintptr_t, std::int32_t, std::int32_t, std::int32_t) {
        return 0;
    }
    virtual void pluginLoaded(std::uint16_t, std::uintptr_t) {}
    virtual void pluginUnloading() {}
    virtual void unusedAfterUnload() {}
    virtual void colorsChanged(std::uintptr_t) {}
    virtual void measureChanged() {}
    virtual void modelCleared() {}
    virtual void mainWindowClosing() {}
    virtual void selectionChanged() {}
    virtual void hovered() {}
    virtual void drawing() {}
    virtual void drawObjectClicked(HostObjectId) {}
    virtual void contextMenuOpening() {}
    virtual void galleryContextMenuOpening(HostButtonId) {}
    virtual void tabChanged() {}
    virtual void propertyChanged() {}
    virtual void objectListChanged() {}
    virtual void buttonClicked(HostButtonId) {}
    virtual void tabSheetPlaced() {}
    virtual void tabSheetChanged() {}
    virtual void messageReceived() {}
    virtual void modelLoadedV2(std::uint8_t, std::uintptr_t, std::uintptr_t) {}
    virtual void projectSavingV2(std::uintptr_t, std::uintptr_t) {}
    virtual void changeRequested(const HostChangeRequest&, std::uintptr_t) {}
    /// Stores the ids of the host's two pseudo-objects.
    virtual void modelLoaded();
    virtual void projectSaved() {}
    virtual const std::u16string& dataFolder() const { return dataFolder_; }
    // Behind the fixed slots.
    virtual void undoRedoRequested(std::int32_t) {}
    /// Told of what a handler threw; throws nothing itself. what: UTF-8; null when memory ran out.
    virtual void faultCaught(const char* what) noexcept;

protected:
    /// The texts in the host's language, or else in English. The user is told when the host can
    /// load texts, but neither of the two.
    void loadLanguage();

    HostEventCallback buttonClickForwarder() const { return buttonClickForwarder_; }
    HostCalls& host() { return host_; }
    const std::u16string& moduleFolder() const { return moduleFolder_; }
    void setDataFolder(std::u16string folder) { dataFolder_ = std::move(folder); }

private:
    void registerEvents();

    // Field order is fixed.
    HostEventCallback buttonClickForwarder_ = nullptr;
    HostCalls host_;  // with the host's handle
    std::u16string dataFolder_;
    std::u16string languageFilePrefix_;
    std::u16string warningCaption_;
    std::u16string warningText_;
    std::u16string displayName_;
    std::u16string moduleFolder_;
    HostObjectId allObjectsId_ = 0;
    HostObjectId selectedObjectsId_ = 0;
};

/// What every export and every callback is: calls `body` with the plug-in object and lets nothing
/// that it throws reach the host. @return `neutral` without a plug-in object, or after a fault.
template <class Result, class Body>
Result atHostBoundary(Result neutral, Body body) noexcept {
    PluginBase* const plugin = PluginBase::current();
    if (!plugin)
        return neutral;
    try {
        return body(*plugin);
    } catch (const std::bad_alloc&) {
        plugin->faultCaught(nullptr);
    } catch (const std::exception& fault) {
        plugin->faultCaught(fault.what());
    } catch (...) {
        plugin->faultCaught("");
    }
    return neutral;
}

template <class Body>
void atHostBoundary(Body body) noexcept {
    atHostBoundary(0, [&](PluginBase& plugin) {
        body(plugin);
        return 0;
    });
}

}  // namespace cpp
