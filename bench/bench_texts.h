// What the programs of bench/ say to their user.

#pragma once

#include <string_view>

namespace bench::texts {

inline constexpr std::string_view kMakeModelUsage =
    "usage: make_model OUTPUT.ifc --megabytes N [--schema IFC2X3|IFC4] [--forward PERCENT] "
    "[--gaps] [--seed S]\n"
    "  --megabytes N       size of the model, in millions of bytes (1 to 10000)\n"
    "  --schema            release of the model, IFC4 by default\n"
    "  --forward PERCENT   share of instances that refer to a later line, 0 to 70, 0 by default\n"
    "  --gaps              instance numbers with large gaps, up to 2147483647\n"
    "  --seed S            another model of the same kind\n";
inline constexpr std::string_view kNotUnderstood = "make_model: not understood: ";
inline constexpr std::string_view kCannotWrite = "make_model: cannot write ";

inline constexpr std::string_view kBenchUsage =
    "usage: quillet-bench TASK MODEL [TARGET]\n"
    "  scan MODEL           count the semicolons of the file in memory\n"
    "  tokenise MODEL       read all tokens\n"
    "  read MODEL           read the model\n"
    "  write MODEL TARGET   write the model that was read before\n"
    "  edit MODEL TARGET    read, change a text in a property set that several objects share, "
    "write\n";
inline constexpr std::string_view kEditsBenchUsage = "usage: edits-bench OBJECTS\n";
inline constexpr std::string_view kWindowsBenchUsage =
    "usage: windows-bench PLUGIN_FOLDER OBJECTS DISTINCT_VALUES\n";
inline constexpr std::string_view kBenchFailed = "quillet-bench: ";
inline constexpr std::string_view kCannotRead = "the file cannot be read";
inline constexpr std::string_view kNoSharedText =
    "no property set with a text is shared by several objects";

}  // namespace bench::texts
