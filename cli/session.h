#pragma once

#include <string>

#include "cli/arguments.h"
#include "cli/reports.h"
#include "cli/screen.h"
#include "ifc/io/log_file.h"

namespace cli {

/// What all parts of one run share.
struct Session {
    const Arguments& arguments;
    Screen& screen;
    LogFile& log;  // open only while the user wants one
    Reports& reports;
    std::u16string note;          // what was done, for the closing line
    std::u16string usageProblem;  // what a command finds wrong with the command line
};

// What the commands do. Each prints its result and gives Done or NotDone; reports are counted by
// the session.
ExitStatus showInfo(Session& session);
ExitStatus showSets(Session& session);
ExitStatus applyLoggedEdits(Session& session);
ExitStatus copyModel(Session& session);
ExitStatus setProperty(Session& session);
ExitStatus addProperty(Session& session);
ExitStatus renamePropertyOrSet(Session& session);
ExitStatus deletePropertyOrSet(Session& session);

}  // namespace cli
