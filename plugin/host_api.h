#pragma once

#include <functional>

#include "plugin/host_abi.h"

/// The host's functions by name; null where the host lacks one. Call them through HostCalls.
struct HostApi {
#define QUILLET_SLOT(name, result, arguments) result(*name) arguments = nullptr;
    QUILLET_HOST_FUNCTIONS(QUILLET_SLOT)
#undef QUILLET_SLOT
};

/// Address of a function by its name, null when there is none.
using FunctionLookup = std::function<void*(const char* name)>;

/// Looks every function up.
HostApi resolveHostApi(const FunctionLookup& lookup);

/// The functions of the process's main module; looked up once, when they are first asked for.
const HostApi& hostApi();
