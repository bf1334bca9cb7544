#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "edits/edit_session.h"

/// The edit log in the host's project file: its entry "Data.xml" (edit_log.h).
namespace IFC {

/// Whether the host keeps a geometry cache, and with it the edited display, for the project at that
/// path.
using GeometryCacheReader = std::function<bool(const std::u16string& projectPath)>;

/// How far loading or saving the log is.
struct LogProgress {
    enum class Part { Loading, Deleting, Saving };

    /// Steps, about one for an edited object.
    struct Count {
        std::size_t done = 0;
        std::size_t total = 0;
    };

    Part part = Part::Loading;  ///< Deleting: deleted sets are taken off the host's display
    std::u16string_view file;   ///< the key of the file in hand; valid during the call
    Count ofPart;               ///< this part, of this file
    Count ofAll;
};

/// Called for each step, and when a part begins; may be empty. What it throws ends the work.
using LogProgressCallback = std::function<void(const LogProgress&)>;

/// Fills the store from the project that was opened, in place of what it held, and brings the
/// host's display into line. session.files are those of the project. Objects are found by their
/// GUIDs in the file that the log names; an object that has another instance number by now gets its
/// edits under that one.
///
/// What the log holds for files that are not loaded and for objects that the host does not know
/// stays in the store as it is. What cannot be read at all is kept too (UnreadLog). Everything that
/// was wrong is told in one message.
void loadProjectLog(EditSession& session, const GeometryCacheReader& usesGeometryCache,
                    const LogProgressCallback& progress = {});

/// Writes the store into the project file: a fragment for each loaded file, then the edits of files
/// that are not loaded, then what could not be read. A log that the host could not hand over is
/// only overwritten when the user agrees. The entry stays as it is until the whole text is there.
/// @return whether the entry was written.
bool saveProjectLog(EditSession& session, const GeometryCacheReader& usesGeometryCache,
                    const LogProgressCallback& progress = {});

}  // namespace IFC
