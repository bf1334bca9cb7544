#include "cli/command_table.h"

#include <algorithm>
#include <limits>

#include "cli/session.h"

namespace cli {
namespace {

using namespace options;

constexpr const Option* kInfoOptions[] = {&kJson, &kAllReports, &kQuiet, &kLog, &kHelp};
constexpr const Option* kApplyOptions[] = {&kEntry, &kForce, &kAllReports, &kQuiet, &kLog, &kHelp};
constexpr const Option* kCopyOptions[] = {&kForce, &kAllReports, &kQuiet, &kLog, &kHelp};
constexpr const Option* kSetOptions[] = {&kObject,     &kType,  &kSet,    &kProperty, &kValue,
                                         &kValueType,  &kUnit,  &kPrefix, &kEdits,    &kForceEdits,
                                         &kAllReports, &kQuiet, &kLog,    &kHelp};
constexpr const Option* kAddOptions[] = {
    &kObject, &kType,  &kSet,        &kProperty,   &kQuantity, &kValue, &kValueType, &kUnit,
    &kPrefix, &kEdits, &kForceEdits, &kAllReports, &kQuiet,    &kLog,   &kHelp};
constexpr const Option* kRenameOptions[] = {&kObject,  &kType,  &kSet,        &kProperty,
                                            &kNewName, &kEdits, &kForceEdits, &kAllReports,
                                            &kQuiet,   &kLog,   &kHelp};
constexpr const Option* kDeleteOptions[] = {&kObject, &kType,       &kSet,        &kProperty,
                                            &kEdits,  &kForceEdits, &kAllReports, &kQuiet,
                                            &kLog,    &kHelp};

constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

constexpr Command kCommands[] = {
    {"info", "MODEL", 1, 1, kInfoOptions, texts::kInfoSummary, texts::kInfoHelp,
     texts::kInfoExample, showInfo},
    {"psets", "MODEL [OBJECT...]", 1, kAnyNumber, kInfoOptions, texts::kSetsSummary,
     texts::kSetsHelp, texts::kSetsExample, showSets},
    {"apply", "MODEL EDITS OUTPUT", 3, 3, kApplyOptions, texts::kApplySummary, texts::kApplyHelp,
     texts::kApplyExample, applyLoggedEdits},
    {"copy", "MODEL OUTPUT", 2, 2, kCopyOptions, texts::kCopySummary, texts::kCopyHelp,
     texts::kCopyExample, copyModel},
    {"set", "MODEL OUTPUT", 2, 2, kSetOptions, texts::kSetPropertySummary, texts::kSetPropertyHelp,
     texts::kSetPropertyExample, setProperty, texts::kEditHelp},
    {"add", "MODEL OUTPUT", 2, 2, kAddOptions, texts::kAddSummary, texts::kAddHelp,
     texts::kAddExample, addProperty, texts::kEditHelp},
    {"rename", "MODEL OUTPUT", 2, 2, kRenameOptions, texts::kRenameSummary, texts::kRenameHelp,
     texts::kRenameExample, renamePropertyOrSet, texts::kEditHelp},
    {"delete", "MODEL OUTPUT", 2, 2, kDeleteOptions, texts::kDeleteSummary, texts::kDeleteHelp,
     texts::kDeleteExample, deletePropertyOrSet, texts::kEditHelp},
};

}  // namespace

std::span<const Command> commands() { return kCommands; }

std::string programHelp() {
    std::string text(texts::kUsage);
    text.append(texts::kProgramName).append(texts::kProgramHelpBegin);
    for (const Command& command : kCommands) {
        constexpr std::size_t kSummaryColumn = 24;
        std::string line = "  " + std::string(command.name);
        line.resize(kSummaryColumn, ' ');
        text.append(line).append(command.summary).append("\n");
    }
    return text.append(texts::kProgramHelpEnd);
}

}  // namespace cli
