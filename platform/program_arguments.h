#pragma once

#include <string>
#include <vector>

namespace platform {

/// The arguments of main as UTF-16, the program's own name first. On Windows they come from the
/// command line itself, since argv has lost what the ANSI code page lacks; elsewhere they are
/// converted by `fromPathBytes`.
std::vector<std::u16string> programArguments(int argc, const char* const* argv);

}  // namespace platform
