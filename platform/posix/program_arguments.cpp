#include "platform/program_arguments.h"

#include "platform/text.h"

namespace platform {

std::vector<std::u16string> programArguments(int argc, const char* const* argv) {
    std::vector<std::u16string> arguments;
    arguments.reserve(static_cast<std::size_t>(argc));
    for (int i = 0; i < argc; ++i)
        arguments.push_back(fromPathBytes(argv[i]));
    return arguments;
}

}  // namespace platform
