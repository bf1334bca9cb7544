#pragma once

#include <memory>
#include <string>

#include "edits/editing_windows.h"
#include "plugin/host_calls.h"

/// The windows to edit in: those of a host that answers for its user, if it is one, else our own.
/// Null when there are none. host: borrowed by the windows, loaded. pluginFolder: of this library,
/// where forms and images lie.
std::unique_ptr<IFC::EditingWindows> makeEditingWindows(const HostCalls& host,
                                                        const std::u16string& pluginFolder);

/// Our own windows; null where this build has none.
std::unique_ptr<IFC::EditingWindows> makeOwnWindows(const HostCalls& host,
                                                    const std::u16string& pluginFolder);
