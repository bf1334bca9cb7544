#pragma once

#include <memory>

#include "edits/editing_windows.h"
#include "plugin/host_calls.h"

/// The windows to edit in: those of a host that answers for its user, if it is one. Null when there
/// are none. host: borrowed by the windows, loaded.
std::unique_ptr<IFC::EditingWindows> makeEditingWindows(const HostCalls& host);
