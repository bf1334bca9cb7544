#include "plugin/host_api.h"

#include "platform/main_module.h"

HostApi resolveHostApi(const FunctionLookup& lookup) {
    HostApi api;
#define QUILLET_LOOK_UP(name, result, arguments) \
    api.name = reinterpret_cast<decltype(api.name)>(lookup(#name));
    QUILLET_HOST_FUNCTIONS(QUILLET_LOOK_UP)
#undef QUILLET_LOOK_UP
    return api;
}

const HostApi& hostApi() {
    static const HostApi api = resolveHostApi(platform::mainModuleSymbol);
    return api;
}
