#pragma once

#include <optional>
#include <string>

#include "edits/editing_windows.h"
#include "gui/text_lookup.h"

/// Asks for a property or the name of a set in a window of the system's own kind, and waits for it.
/// What cannot be taken is said in a message, and the window stays open. textOf: for the captions
/// that are not in `input`, and for messages. pluginFolder: where the icon is; UTF-16, without a
/// separator at its end. @return nothing when it is cancelled, when the host ends its messages, and
/// while there is such a window already.
std::optional<IFC::PropertyWindowResult> askInNativePropertyDialog(
    const IFC::PropertyWindowInput& input, const TextLookup& textOf,
    const std::u16string& pluginFolder);
