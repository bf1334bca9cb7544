#pragma once

#include <QObject>
#include <cstdint>
#include <string>
#include <vector>

#include "edits/editing_windows.h"
#include "plugin/host_calls.h"

/// Opens the edit-many window and waits until it is closed.
class EditMany : public QObject {
    Q_OBJECT

public:
    /// host: borrowed. pluginFolder: where form and images are; UTF-16, without a separator at its
    /// end.
    EditMany(const HostCalls& host, std::u16string pluginFolder);
    ~EditMany() override;

    /// objects: host object ids in the order of the selection; none opens an empty window.
    /// apply: called, while the window is there, when the user has accepted changes.
    /// resultPolicy: the adding policy chosen, 0 to 3, or 4 for none; untouched when there was no
    /// window. showInitialValues: changed values tell by a tool tip what they were.
    /// @return false when a window is open already, or there is no screen or no usable form; the
    /// user was told.
    bool run(const std::vector<std::uint64_t>& objects, const IFC::ApplyManyEdits& apply,
             std::int32_t& resultPolicy, bool showInitialValues = true);

public slots:
    /// Shows the loading dialog; with false, closes it a second later.
    void ShowProgressBar(bool show);

private:
    void runWindow(const std::vector<std::uint64_t>& objects, const IFC::ApplyManyEdits& apply,
                   std::int32_t& resultPolicy, bool isOwnApplication);

    const HostCalls& host_;
    std::u16string pluginFolder_;
};
