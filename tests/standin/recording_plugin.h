#pragma once

#include <functional>
#include <string>
#include <vector>

#include "plugin/host_abi.h"

/// The host's functions as a plug-in finds them; null where the host lacks one.
struct FoundFunctions {
#define QUILLET_SLOT(name, result, arguments) result(*name) arguments = nullptr;
    QUILLET_HOST_FUNCTIONS(QUILLET_SLOT)
#undef QUILLET_SLOT
};

/// The state of the plug-in that the tests load. It does nothing by itself but register for events:
/// a test sees what it was told, and gives it things to do. Test and plug-in come from one
/// compiler, so they may share it.
struct Recorder {
    FoundFunctions host;
    HostHandle handle = 0;
    std::vector<std::string> events;  ///< "load", "save", "undo 0", "request 2 Set Property" ...
    std::function<void(const std::string& event)> react;
};
