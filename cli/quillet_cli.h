#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

/// The command line: the library without a host.
namespace cli {

/// Values are the program's exit status.
enum class ExitStatus : int {
    Done = 0,
    DoneWithReports = 1,
    NotDone = 2,  ///< also wrong usage
};

/// What the program is connected to.
struct Console {
    std::function<void(std::string_view utf8)> out;
    std::function<void(std::string_view utf8)> err;
    bool showsProgress = false;  ///< `err` is a terminal
    std::function<bool()>
        interrupted;  ///< whether the user wants the program to stop; empty: never
};

/// Runs one command, shows message boxes as lines of `console.err` meanwhile and throws nothing.
/// arguments: those of the program, without its name.
ExitStatus run(std::span<const std::u16string> arguments, const Console& console) noexcept;

}  // namespace cli
