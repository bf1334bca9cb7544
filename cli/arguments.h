#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/quillet_cli.h"

/// What the user asks for, by the table of commands (cli/command_table.h).
namespace cli {

struct Session;

/// An option of the form "--name", "--name VALUE" or "--name=VALUE". All texts are ASCII or UTF-8
/// for the help.
struct Option {
    std::string_view name;   // with its hyphens
    std::string_view value;  // what the help calls the value; empty for an option without one
    std::string_view help;   // lines separated by "\n"
    bool mayRepeat = false;
};

struct Command {
    std::string_view name;
    std::string_view operands;  // as the help shows them
    std::size_t operandsAtLeast;
    std::size_t operandsAtMost;
    std::span<const Option* const> options;
    std::string_view summary;  // one line
    std::string_view help;     // ends in "\n"
    std::string_view example;  // what stands behind the program's name
    ExitStatus (*execute)(Session& session);
    std::string_view commonHelp = {};  // goes on where `help` ends
};

/// The operands and options of one command.
class Arguments {
public:
    const Command* command = nullptr;
    std::vector<std::u16string> operands;

    bool has(const Option& option) const { return options_.contains(option.name); }
    /// Empty when the option is not given.
    std::u16string_view value(const Option& option) const;
    /// Of an option that may repeat, in the order given.
    std::vector<std::u16string> values(const Option& option) const;
    /// @return false when the option is given already and may not repeat.
    bool add(const Option& option, std::u16string_view value);

private:
    std::map<std::string_view, std::vector<std::u16string>> options_;
};

/// Reads what stands behind the command's name. "--" ends the options.
/// @return what is wrong, empty when nothing is; then `arguments` holds it all. With --help the
/// operands are not looked at.
std::u16string parseArguments(std::span<const std::u16string> words, const Command& command,
                              Arguments& arguments);

/// The command's help as it is printed.
std::string helpOf(const Command& command);

}  // namespace cli
