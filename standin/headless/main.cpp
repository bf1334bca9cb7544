#include <cstdio>
#include <iostream>
#include <iterator>

#include "platform/main_module.h"
#include "platform/program_arguments.h"
#include "platform/terminal.h"
#include "platform/text.h"
#include "platform/whole_file.h"
#include "standin/core/disk.h"
#include "standin/headless/headless_texts.h"
#include "standin/headless/script.h"

namespace {

void write(std::FILE* stream, std::string_view bytes) {
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
}

int cannotRun(const std::string& why) {
    write(stderr, "quillet-standin: " + why + "\n");
    return static_cast<int>(standin::ScriptStatus::CannotRun);
}

}  // namespace

int main(int argc, char** argv) {
    const platform::Utf8Output utf8;
    const std::vector<std::u16string> arguments = platform::programArguments(argc, argv);
    if (arguments.size() > 2)
        return cannotRun(std::string(standin::texts::kTooManyArguments));
    if (arguments.size() == 2 && arguments[1] == u"--help") {
        write(stdout, standin::scriptHelp());
        return 0;
    }
    std::string name = "-";
    std::string text;
    if (arguments.size() == 2) {
        name = platform::toUtf8(arguments[1]);
        const auto bytes = platform::readWholeFile(arguments[1]);
        if (!bytes)
            return cannotRun(name + ": " + std::string(standin::texts::kNoScript));
        text = *bytes;
    } else {
        text.assign(std::istreambuf_iterator<char>(std::cin), {});
    }
    standin::Host host({.programFolder = standin::folderOf(platform::mainModulePath())});
    standin::Script script(
        host, [](std::string_view bytes) { write(stdout, bytes); },
        [](std::string_view bytes) {
            std::fflush(stdout);
            write(stderr, bytes);
        });
    return static_cast<int>(script.run(name, text));
}
