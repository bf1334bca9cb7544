#include "standin/core/plugin_library.h"

#include "platform/text.h"
#include "standin/core/standin_texts.h"

namespace standin {

std::unique_ptr<PluginLibrary> PluginLibrary::load(const std::u16string& path, std::string& error) {
    std::unique_ptr<PluginLibrary> plugin(new PluginLibrary(path));
    if (!plugin->library_.isOpen()) {
        error = plugin->library_.error();
        return nullptr;
    }
    const char* missing = nullptr;
#define QUILLET_LOOK_UP(name, result, arguments)                                           \
    plugin->exports_.name =                                                                \
        reinterpret_cast<decltype(plugin->exports_.name)>(plugin->library_.symbol(#name)); \
    if (!plugin->exports_.name)                                                            \
        missing = #name;
    QUILLET_PLUGIN_EXPORTS(QUILLET_LOOK_UP)
#undef QUILLET_LOOK_UP
    if (missing) {
        error = platform::toUtf8(path) + " " + std::string(texts::kLacksExport) + missing;
        return nullptr;
    }
    return plugin;
}

}  // namespace standin
