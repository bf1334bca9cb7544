#include "platform/dynamic_library.h"

#include <dlfcn.h>

#include "platform/text.h"

namespace platform {

DynamicLibrary::DynamicLibrary(const std::u16string& path)
    : handle_(::dlopen(toPathBytes(path).c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (!handle_)
        error_ = ::dlerror();
}

DynamicLibrary::~DynamicLibrary() {
    if (handle_)
        ::dlclose(handle_);
}

void* DynamicLibrary::symbol(const char* name) const {
    return handle_ ? ::dlsym(handle_, name) : nullptr;
}

}  // namespace platform
