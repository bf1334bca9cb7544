#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "edits/progress_view.h"

/// What an options window shows. Texts are shown as they are.
struct OptionsWindowInput {
    struct Option {
        std::u16string caption;
        bool isOn = false;
    };

    std::u16string title;
    std::vector<Option> options;
    std::u16string close;     ///< caption of the button
    std::u16string iconFile;  ///< path
};

/// What a progress window shows besides its bars.
struct ProgressWindowInput {
    std::u16string title;
    std::u16string cancel;    ///< caption of the button; empty: cannot be cancelled
    std::u16string iconFile;  ///< path
};

/// The plug-in's windows that are the system's own.
class SystemWindows {
public:
    SystemWindows() = default;
    SystemWindows(const SystemWindows&) = delete;
    SystemWindows& operator=(const SystemWindows&) = delete;
    virtual ~SystemWindows() = default;

    /// Modal: returns when the window is closed. changed: told of each change at once. @return
    /// whether the window could be opened.
    virtual bool showOptions(const OptionsWindowInput& input,
                             const std::function<void(std::size_t option, bool isOn)>& changed) = 0;
    /// Opens a window that is there until the view goes; the host's take no input meanwhile. Null
    /// when that fails.
    virtual std::unique_ptr<IFC::ProgressView> openProgress(const ProgressWindowInput& input) = 0;
    /// How long work may take before a window is opened for it.
    virtual std::chrono::milliseconds progressDelay() const {
        return std::chrono::milliseconds(500);
    }
};

/// Those of the system in use; null where this build has none.
std::unique_ptr<SystemWindows> makeSystemWindows();
