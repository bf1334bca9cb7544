#pragma once

#include <string>
#include <vector>

#include "edits/error_reporter.h"
#include "edits/loaded_files.h"
#include "edits/pending_edits.h"
#include "plugin/host_calls.h"

namespace IFC {

/// What the edit log of the open project holds and this program does not understand.
struct UnreadLog {
    /// Each is kept behind the edits at every save (edits/edit_log.h).
    std::vector<std::string> texts;
    /// The host did not hand the log over; the user is asked before it is overwritten.
    bool isUnreadable = false;
};

/// What commands, edit log and export work on; there is one for the plug-in's life, and all borrow
/// it.
struct EditSession {
    /// hostCalls: borrowed.
    explicit EditSession(const HostCalls& hostCalls) : host(hostCalls), reporter(hostCalls) {}
    EditSession(const EditSession&) = delete;
    EditSession& operator=(const EditSession&) = delete;

    const HostCalls& host;
    PendingEdits store;
    LoadedFiles files;
    ErrorReporter reporter;
    UnreadLog unreadLog;
};

}  // namespace IFC
