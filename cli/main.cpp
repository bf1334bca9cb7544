#include <cstdio>

#include "cli/cli_texts.h"
#include "cli/quillet_cli.h"
#include "platform/interrupt.h"
#include "platform/program_arguments.h"
#include "platform/terminal.h"

namespace {

void write(std::FILE* stream, std::string_view bytes) {
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
}

}  // namespace

int main(int argc, char** argv) {
    const platform::Utf8Output utf8;
    platform::watchInterrupts();
    std::vector<std::u16string> arguments = platform::programArguments(argc, argv);
    if (!arguments.empty())
        arguments.erase(arguments.begin());  // the program's own name
    const cli::Console console{.out = [](std::string_view bytes) { write(stdout, bytes); },
                               .err = [](std::string_view bytes) { write(stderr, bytes); },
                               .showsProgress = platform::isTerminal(stderr),
                               .interrupted = platform::interrupted};
    cli::ExitStatus status = cli::run(arguments, console);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        write(stderr, cli::texts::kOutputLost);
        status = cli::ExitStatus::NotDone;
    }
    return static_cast<int>(status);
}
