#pragma once

#include <memory>
#include <string>

#include "platform/dynamic_library.h"
#include "plugin/host_abi.h"

namespace standin {

/// What a plug-in tells of itself.
struct PluginInfo {
    std::u16string name;
    std::u16string maker;
    std::u16string webPage;
    std::u16string email;
    std::u16string dataFolder;
};

/// The twelve functions that a plug-in exports.
struct PluginExports {
#define QUILLET_SLOT(name, result, arguments) result(*name) arguments = nullptr;
    QUILLET_PLUGIN_EXPORTS(QUILLET_SLOT)
#undef QUILLET_SLOT
};

/// A plug-in's library in this process, found by the names of its exports.
class PluginLibrary {
public:
    /// @return null, and why in `error` (UTF-8), when the file is no plug-in.
    static std::unique_ptr<PluginLibrary> load(const std::u16string& path, std::string& error);

    const PluginExports& exports() const { return exports_; }

private:
    explicit PluginLibrary(const std::u16string& path) : library_(path) {}

    platform::DynamicLibrary library_;
    PluginExports exports_;
};

}  // namespace standin
