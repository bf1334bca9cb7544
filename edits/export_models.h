#pragma once

#include <functional>
#include <memory>
#include <string>

#include "edits/edit_session.h"
#include "edits/progress_view.h"

namespace IFC {

struct ExportOptions {
    bool ignoreEnumerationErrors = true;  ///< the user's choice
    std::u16string pluginFolder;  ///< where "LastPath.txt" is; without a separator at its end
    /// Opens a progress window with that title, for a host without one; may be empty or give null.
    std::function<std::unique_ptr<ProgressView>(const std::u16string& title)> openProgress = {};
};

/// Writes every loaded IFC file anew, with its pending edits, under names that the user chooses;
/// asks and tells the user everything through the host's dialogs. The store is not changed. What
/// goes wrong with one file is logged, and the export goes on with the next one; no file is touched
/// that the user did not agree to overwrite, and a loaded one only when it was chosen by its own
/// name. When the user cancels, the file in hand is not written and what was there stays; those
/// that are complete by then stay too.
void exportModels(EditSession& session, const ExportOptions& options);

}  // namespace IFC
