#pragma once

#include <string>

#include "plugin/host_abi.h"
#include "plugin/host_calls.h"
#include "plugin/settings.h"

/// The plug-in's group of buttons. An item that the host cannot make has the id 0 and is left out.
struct Ribbon {
    HostButtonId edit = 0;
    HostButtonId addPropertySet = 0;
    HostButtonId editMany = 0;
    HostButtonId exportModels = 0;
    HostButtonId openRecent = 0;
    HostButtonId options = 0;
    HostButtonId ignoreEnumerationErrors = 0;
    HostButtonId eraseWhiteSigns = 0;

    void showDown(const HostCalls& host, HostButtonId button, bool down) const;
    void enable(const HostCalls& host, HostButtonId button, bool enabled) const;
    /// Adds the two items for the selected objects to the context menu that the host is building.
    void addToContextMenu(const HostCalls& host) const;
};

/// Makes the buttons. imageFolder: with a separator at its end. clicked: called for a click on any
/// of them.
Ribbon buildRibbon(const HostCalls& host, const std::u16string& imageFolder,
                   const PluginOptions& options, HostEventCallback clicked);
