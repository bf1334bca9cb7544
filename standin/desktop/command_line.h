#pragma once

#include <string>
#include <vector>

namespace standin {

struct CommandLine {
    std::vector<std::u16string> files;
    std::u16string script;
    std::u16string language;  ///< empty for the one chosen last
    bool isRestoring = true;
    bool isHelpWanted = false;
};

/// arguments: the program's name first. Throws std::runtime_error, in UTF-8, for what is not
/// understood.
CommandLine parseCommandLine(const std::vector<std::u16string>& arguments);

}  // namespace standin
