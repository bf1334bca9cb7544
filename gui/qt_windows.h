#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "edits/editing_windows.h"
#include "gui/message_boxes.h"
#include "plugin/host_calls.h"

/// The windows of this folder. While it lives, the messages of the process are shown by them too,
/// whenever they can be.
class QtWindows : public IFC::EditingWindows {
public:
    /// host: borrowed. pluginFolder: where the form and the images are; UTF-16, without a separator
    /// at its end.
    QtWindows(const HostCalls& host, std::u16string pluginFolder);

    std::optional<IFC::PropertyWindowResult> askProperty(
        const IFC::PropertyWindowInput& input) override;
    void editMany(const std::vector<std::uint64_t>& objects,
                  const IFC::ApplyManyEdits& apply) override;

private:
    const HostCalls& host_;
    std::u16string pluginFolder_;
    QtMessageBoxes messageBoxes_;
};
