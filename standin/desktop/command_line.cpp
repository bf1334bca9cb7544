#include "standin/desktop/command_line.h"

#include <stdexcept>

#include "platform/text.h"
#include "standin/desktop/desktop_texts.h"
#include "standin/desktop/languages.h"

namespace standin {

CommandLine parseCommandLine(const std::vector<std::u16string>& arguments) {
    CommandLine line;
    bool areOptions = true;
    for (std::size_t at = 1; at < arguments.size(); ++at) {
        const std::u16string& argument = arguments[at];
        if (!areOptions || !argument.starts_with(u"--")) {
            line.files.push_back(argument);
            continue;
        }
        const auto value = [&] {
            if (at + 1 == arguments.size())
                throw std::runtime_error(std::string(texts::kNoOptionValue) +
                                         platform::toUtf8(argument));
            return arguments[++at];
        };
        if (argument == u"--")
            areOptions = false;
        else if (argument == u"--help")
            line.isHelpWanted = true;
        else if (argument == u"--no-restore")
            line.isRestoring = false;
        else if (argument == u"--script")
            line.script = value();
        else if (argument == u"--language")
            line.language = value();
        else
            throw std::runtime_error(std::string(texts::kUnknownOption) +
                                     platform::toUtf8(argument));
    }
    if (!line.language.empty() && !isLanguage(line.language))
        throw std::runtime_error(std::string(texts::kUnknownLanguage) +
                                 platform::toUtf8(line.language));
    return line;
}

}  // namespace standin
