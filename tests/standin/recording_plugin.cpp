#include "tests/standin/recording_plugin.h"

#include "platform/main_module.h"
#include "platform/text.h"

#ifdef _WIN32
#define EXPORTED extern "C" __declspec(dllexport)
#else
#define EXPORTED extern "C" __attribute__((visibility("default")))
#endif

namespace {

Recorder& recorder() {
    static Recorder state;
    return state;
}

void tell(const std::string& event) {
    recorder().events.push_back(event);
    if (recorder().react)
        recorder().react(event);
}

std::string utf8(const char16_t* text) { return text ? platform::toUtf8(text) : "(null)"; }

}  // namespace

EXPORTED Recorder* recorder_of_the_tests() { return &recorder(); }

EXPORTED int32_t get_api_verion(uintptr_t, HostApiVersion* version) {
    *version = {5, 48};
    return 0;
}

EXPORTED void get_plugin_info(HostPluginInfo* info) {
    info->name = u"Recorder";
    info->dataFolder = u"data/";
}

EXPORTED void on_plugin_load(HostHandle handle, uint16_t, uintptr_t) {
    Recorder& state = recorder();
    state.handle = handle;
#define LOOK_UP(name, result, arguments) \
    state.host.name = reinterpret_cast<result(*) arguments>(platform::mainModuleSymbol(#name));
    QUILLET_HOST_FUNCTIONS(LOOK_UP)
#undef LOOK_UP
    if (state.host.on_save_ahx)
        state.host.on_save_ahx(handle, [] { tell("saved"); });
    if (state.host.on_model_load)
        state.host.on_model_load(handle, [] { tell("loaded"); });
    if (state.host.on_model_clear)
        state.host.on_model_clear(handle, [] { tell("clear"); });
    if (state.host.on_selection_change)
        state.host.on_selection_change(handle, [] { tell("selection"); });
    if (state.host.on_context_menu)
        state.host.on_context_menu(handle, [] { tell("menu"); });
}

EXPORTED void on_plugin_unload() { tell("unload"); }
EXPORTED void on_gui_colors_change(uintptr_t) {}
EXPORTED int32_t on_drag_enter(int32_t, int32_t, int32_t) { return 0; }
EXPORTED int32_t on_drag_over(int32_t, int32_t, int32_t) { return 0; }
EXPORTED int32_t on_drop(uintptr_t, int32_t, int32_t, int32_t) { return 0; }
EXPORTED void on_model_load_v2(uint8_t, uintptr_t, uintptr_t) { tell("load"); }
EXPORTED void on_model_save_v2(uintptr_t, uintptr_t) { tell("save"); }
EXPORTED void on_changing_property_or_set(const HostChangeRequest* request, uintptr_t) {
    tell("request " + std::to_string(request->action) + " " + utf8(request->setName) + " " +
         utf8(request->propertyName));
}
EXPORTED void on_undo_redo_action(uintptr_t, int32_t code) { tell("undo " + std::to_string(code)); }
