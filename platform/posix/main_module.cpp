#include "platform/main_module.h"

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <string>

#include "platform/text.h"

namespace platform {
namespace {

/// What the loader knows of the module that `address` lies in; null when that is none.
const link_map* moduleOf(const void* address) {
    Dl_info found = {};
    void* entry = nullptr;
    if (::dladdr1(address, &found, &entry, RTLD_DL_LINKMAP) == 0)
        return nullptr;
    return static_cast<const link_map*>(entry);
}

/// The program itself has no name in the loader's list.
bool isProgram(const link_map& module) { return !module.l_name || *module.l_name == '\0'; }

std::u16string resolvedPath(const char* path) {
    char resolved[PATH_MAX];
    return fromPathBytes(::realpath(path, resolved) ? resolved : path);
}

}  // namespace

void* mainModuleSymbol(const char* name) {
    static void* const program = ::dlopen(nullptr, RTLD_LAZY | RTLD_NOLOAD);
    void* const symbol = program ? ::dlsym(program, name) : nullptr;
    // The libraries that the program was linked with are searched too, and the C library has a
    // function "select" that is not the host's.
    const link_map* const module = symbol ? moduleOf(symbol) : nullptr;
    return module && isProgram(*module) ? symbol : nullptr;
}

std::u16string mainModulePath() {
    std::string path(PATH_MAX, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0)
        return {};
    path.resize(static_cast<std::size_t>(length));
    return fromPathBytes(path);
}

std::u16string ownModulePath() {
    const link_map* const module = moduleOf(reinterpret_cast<const void*>(&ownModulePath));
    if (!module)
        return {};
    return isProgram(*module) ? mainModulePath() : resolvedPath(module->l_name);
}

}  // namespace platform
