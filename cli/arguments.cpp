#include "cli/arguments.h"

#include <algorithm>

#include "cli/cli_texts.h"
#include "cli/command_table.h"
#include "platform/text.h"

namespace cli {
namespace {

const Option* findOption(const Command& command, std::u16string_view name) {
    const auto found =
        std::find_if(command.options.begin(), command.options.end(), [&](const Option* option) {
            return std::equal(option->name.begin(), option->name.end(), name.begin(), name.end(),
                              [](char letter, char16_t unit) {
                                  return unit == static_cast<unsigned char>(letter);
                              });
        });
    return found != command.options.end() ? *found : nullptr;
}

std::string lineOf(const Option& option) {
    std::string line = "  " + std::string(option.name);
    if (!option.value.empty())
        line += " " + std::string(option.value);
    constexpr std::size_t kTextColumn = 24;
    line.resize(std::max(line.size() + 1, kTextColumn), ' ');
    for (const char c : option.help) {
        line.push_back(c);
        if (c == '\n')
            line.append(kTextColumn, ' ');
    }
    return line + "\n";
}

}  // namespace

std::u16string_view Arguments::value(const Option& option) const {
    const auto found = options_.find(option.name);
    return found != options_.end() ? std::u16string_view(found->second.back())
                                   : std::u16string_view();
}

std::vector<std::u16string> Arguments::values(const Option& option) const {
    const auto found = options_.find(option.name);
    return found != options_.end() ? found->second : std::vector<std::u16string>();
}

bool Arguments::add(const Option& option, std::u16string_view value) {
    std::vector<std::u16string>& values = options_[option.name];
    values.emplace_back(value);
    return option.mayRepeat || values.size() == 1;
}

std::u16string parseArguments(std::span<const std::u16string> words, const Command& command,
                              Arguments& arguments) {
    arguments.command = &command;
    bool areOptionsOver = false;
    for (std::size_t at = 0; at < words.size(); ++at) {
        const std::u16string_view word = words[at];
        if (areOptionsOver || word.size() < 2 || word[0] != u'-') {
            arguments.operands.emplace_back(word);
            continue;
        }
        if (word == u"--") {
            areOptionsOver = true;
            continue;
        }
        const std::size_t equals = word.find(u'=');
        const std::u16string_view name = word == u"-h" ? u"--help" : word.substr(0, equals);
        const Option* option = findOption(command, name);
        if (!option)
            return std::u16string(texts::kUnknownOption).append(name);
        std::u16string_view value;
        if (option->value.empty()) {
            if (equals != word.npos)
                return std::u16string(texts::kOptionTakesNoValue).append(name);
        } else if (equals != word.npos) {
            value = word.substr(equals + 1);
        } else if (++at < words.size()) {
            value = words[at];
        } else {
            return std::u16string(texts::kOptionNeedsValue).append(name);
        }
        if (!arguments.add(*option, value))
            return std::u16string(texts::kOptionGivenTwice).append(name);
    }
    if (arguments.has(options::kHelp))
        return {};
    if (arguments.operands.size() < command.operandsAtLeast)
        return std::u16string(texts::kOperandMissing) + platform::fromUtf8(command.operands);
    if (arguments.operands.size() > command.operandsAtMost)
        return std::u16string(texts::kOperandTooMany) + arguments.operands[command.operandsAtMost];
    return {};
}

std::string helpOf(const Command& command) {
    std::string text(texts::kUsage);
    text.append(texts::kProgramName).append(" ").append(command.name);
    text.append(" ").append(command.operands).append(texts::kUsageOptions);
    text.append("\n").append(command.help).append(command.commonHelp).append("\n");
    for (const Option* option : command.options)
        text += lineOf(*option);
    text.append(texts::kExample).append(texts::kProgramName).append(" ").append(command.example);
    return text + "\n";
}

}  // namespace cli
