// What there is of the plug-in when its library is loaded: the plug-in object, and the functions
// that the host looks up in the library.
#include "plugin/host_abi.h"
#include "plugin/host_api.h"
#include "plugin/plugin.h"

#define QUILLET_DECLARE(name, result, arguments) extern "C" result name arguments noexcept;
QUILLET_PLUGIN_EXPORTS(QUILLET_DECLARE)
#undef QUILLET_DECLARE

namespace {

using cpp::atHostBoundary;
using cpp::PluginBase;

Plugin plugin(hostApi());

constexpr std::int32_t kNotAccepted = 0;

}  // namespace

std::int32_t get_api_verion(std::uintptr_t hostValue, HostApiVersion* version) noexcept {  // sic
    return atHostBoundary(std::int32_t{0},
                          [&](PluginBase& p) { return p.reportApiVersion(hostValue, version); });
}

void get_plugin_info(HostPluginInfo* info) noexcept {
    if (info)
        atHostBoundary([&](PluginBase& p) { p.fillPluginInfo(*info); });
}

void on_plugin_load(HostHandle handle, std::uint16_t flag, std::uintptr_t hostValue) noexcept {
    atHostBoundary([&](PluginBase& p) { p.load(handle, flag, hostValue); });
}

void on_plugin_unload() noexcept {
    atHostBoundary([](PluginBase& p) { p.pluginUnloading(); });
}

void on_gui_colors_change(std::uintptr_t colors) noexcept {
    atHostBoundary([&](PluginBase& p) { p.colorsChanged(colors); });
}

std::int32_t on_drag_enter(std::int32_t a, std::int32_t b, std::int32_t c) noexcept {
    return atHostBoundary(kNotAccepted, [&](PluginBase& p) { return p.dragEntered(a, b, c); });
}

std::int32_t on_drag_over(std::int32_t a, std::int32_t b, std::int32_t c) noexcept {
    return atHostBoundary(kNotAccepted, [&](PluginBase& p) { return p.draggedOver(a, b, c); });
}

std::int32_t on_drop(std::uintptr_t handle, std::int32_t a, std::int32_t b,
                     std::int32_t c) noexcept {
    return atHostBoundary(kNotAccepted, [&](PluginBase& p) { return p.dropped(handle, a, b, c); });
}

void on_model_load_v2(std::uint8_t flag, std::uintptr_t a, std::uintptr_t b) noexcept {
    atHostBoundary([&](PluginBase& p) { p.modelLoadedV2(flag, a, b); });
}

void on_model_save_v2(std::uintptr_t a, std::uintptr_t b) noexcept {
    atHostBoundary([&](PluginBase& p) { p.projectSavingV2(a, b); });
}

void on_changing_property_or_set(const HostChangeRequest* request, std::uintptr_t a) noexcept {
    if (request)
        atHostBoundary([&](PluginBase& p) { p.changeRequested(*request, a); });
}

void on_undo_redo_action(std::uintptr_t, std::int32_t action) noexcept {
    atHostBoundary([&](PluginBase& p) { p.undoRedoRequested(action); });
}
