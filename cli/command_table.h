#pragma once

#include <span>

#include "cli/arguments.h"
#include "cli/cli_texts.h"

namespace cli {

namespace options {

inline constexpr Option kHelp{"--help", "", texts::kHelpHelp};
inline constexpr Option kQuiet{"--quiet", "", texts::kQuietHelp};
inline constexpr Option kAllReports{"--all-reports", "", texts::kAllReportsHelp};
inline constexpr Option kLog{"--log", "", texts::kLogHelp};
inline constexpr Option kJson{"--json", "", texts::kJsonHelp};
inline constexpr Option kForce{"--force", "", texts::kForceHelp};
inline constexpr Option kForceEdits{"--force", "", texts::kForceEditsHelp};
inline constexpr Option kEntry{"--entry", "NAME", texts::kEntryHelp};
inline constexpr Option kObject{"--object", "OBJECT", texts::kObjectHelp, true};
inline constexpr Option kType{"--type", "TYPE", texts::kTypeHelp};
inline constexpr Option kSet{"--pset", "SET", texts::kSetHelp};
inline constexpr Option kProperty{"--property", "NAME", texts::kPropertyHelp};
inline constexpr Option kValue{"--value", "TEXT", texts::kValueHelp};
inline constexpr Option kValueType{"--value-type", "TYPE", texts::kValueTypeHelp};
inline constexpr Option kQuantity{"--quantity", "TYPE", texts::kQuantityHelp};
inline constexpr Option kUnit{"--unit", "UNIT", texts::kUnitHelp};
inline constexpr Option kPrefix{"--prefix", "PREFIX", texts::kPrefixHelp};
inline constexpr Option kNewName{"--to", "NAME", texts::kNewNameHelp};
inline constexpr Option kEdits{"--edits", "FILE", texts::kEditsHelp};

}  // namespace options

/// All commands, in the order of the help.
std::span<const Command> commands();

/// The help on the program as a whole.
std::string programHelp();

}  // namespace cli
