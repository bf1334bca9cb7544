#include "plugin/plugin_base.h"

#include <cassert>
#include <utility>

#include "platform/message_box.h"
#include "platform/text.h"
#include "plugin/host_api.h"
#include "plugin/plugin_paths.h"
#include "plugin/plugin_texts.h"

namespace cpp {
namespace {

PluginBase*& currentPlugin() {
    static PluginBase* plugin = nullptr;
    return plugin;
}

using Event = void (PluginBase::*)();

/// The callback that passes an event on as it is.
template <Event event>
void forward() noexcept {
    atHostBoundary([](PluginBase& plugin) { (plugin.*event)(); });
}

void forwardButtonClick() noexcept {
    atHostBoundary([](PluginBase& plugin) { plugin.buttonClicked(plugin.clickedButton()); });
}

void forwardDrawObjectClick() noexcept {
    atHostBoundary(
        [](PluginBase& plugin) { plugin.drawObjectClicked(plugin.clickedDrawObject()); });
}

void forwardGalleryContextMenu() noexcept {
    atHostBoundary(
        [](PluginBase& plugin) { plugin.galleryContextMenuOpening(plugin.clickedButton()); });
}

bool forwardMessage() noexcept {
    atHostBoundary([](PluginBase& plugin) { plugin.messageReceived(); });
    return true;
}

}  // namespace

PluginBase::PluginBase(const HostApi& api, std::u16string displayName,
                       const std::u16string& modulePath)
    : host_(api),
      languageFilePrefix_(texts::kLanguageFilePrefix),
      warningCaption_(texts::kCaption),
      warningText_(texts::kNoLanguageFile),
      displayName_(std::move(displayName)) {
    dataFolder_ = paths::defaultDataFolder(modulePath);
    moduleFolder_ = paths::folderOf(modulePath);
    assert(!currentPlugin());
    currentPlugin() = this;
}

PluginBase::~PluginBase() { currentPlugin() = nullptr; }

PluginBase* PluginBase::current() { return currentPlugin(); }

std::int32_t PluginBase::reportApiVersion(std::uintptr_t hostValue, HostApiVersion* version) {
    if (version) {
        version->major = apiMajorVersion();
        version->minor = apiMinorVersion();
    }
    return versionNotified(hostValue);
}

void PluginBase::load(HostHandle handle, std::uint16_t flag, std::uintptr_t hostValue) {
    host_.setHandle(handle);
    buttonClickForwarder_ = &forwardButtonClick;
    registerEvents();
    pluginLoaded(flag, hostValue);
    const HostApi& api = host_.api();
    if (api.on_model_load)
        api.on_model_load(handle, &forward<&PluginBase::modelLoaded>);
    if (api.on_save_ahx)
        api.on_save_ahx(handle, &forward<&PluginBase::projectSaved>);
}

void PluginBase::registerEvents() {
    const HostApi& api = host_.api();
    const auto listen = [this](auto registerCallback, auto callback) {
        if (registerCallback)
            registerCallback(host_.handle(), callback);
    };
    listen(api.on_measure_change, &forward<&PluginBase::measureChanged>);
    listen(api.on_model_clear, &forward<&PluginBase::modelCleared>);
    listen(api.on_main_form_close, &forward<&PluginBase::mainWindowClosing>);
    listen(api.on_selection_change, &forward<&PluginBase::selectionChanged>);
    listen(api.on_hover, &forward<&PluginBase::hovered>);
    listen(api.on_draw, &forward<&PluginBase::drawing>);
    listen(api.on_draw_object_click, &forwardDrawObjectClick);
    listen(api.on_context_menu, &forward<&PluginBase::contextMenuOpening>);
    listen(api.on_gallery_item_context_menu, &forwardGalleryContextMenu);
    listen(api.on_tab_change, &forward<&PluginBase::tabChanged>);
    listen(api.on_tab_sheet_placement, &forward<&PluginBase::tabSheetPlaced>);
    listen(api.on_tab_sheet_change, &forward<&PluginBase::tabSheetChanged>);
    listen(api.on_plugin_message, &forwardMessage);
    listen(api.on_property_change, &forward<&PluginBase::propertyChanged>);
    listen(api.on_object_list_changed, &forward<&PluginBase::objectListChanged>);
}

HostButtonId PluginBase::clickedButton() const {
    const auto clicked = host_.api().clicked_button;
    return clicked ? clicked(host_.handle()) : 0;
}

HostObjectId PluginBase::clickedDrawObject() const {
    const auto clicked = host_.api().get_draw_object_id;
    return clicked ? clicked(host_.handle()) : 0;
}

void PluginBase::fillPluginInfo(HostPluginInfo& info) {
    info = {};
    info.name = displayName_.c_str();
    info.dataFolder = dataFolder_.c_str();
}

void PluginBase::modelLoaded() {
    allObjectsId_ = host_.allObjectsId();
    selectedObjectsId_ = host_.selectedId();
}

void PluginBase::faultCaught(const char* what) noexcept {
    try {
        const std::u16string text =
            what ? platform::fromUtf8(what) : std::u16string(texts::kOutOfMemoryFault);
        platform::showMessageBox(text, texts::kErrorCaption, platform::MessageButtons::Ok,
                                 platform::MessageIcon::Error);
    } catch (...) {
        // There is no memory for the message either.
    }
}

void PluginBase::loadLanguage() {
    if (host_.loadTexts(languageFilePrefix_ + host_.language()) ||
        host_.loadTexts(languageFilePrefix_ + std::u16string(texts::kDefaultLanguage)))
        return;
    if (host_.api().load_texts)
        host_.messageBox(warningCaption_, warningText_,
                         static_cast<std::uint32_t>(platform::MessageIcon::Warning));
}

}  // namespace cpp
