#include <algorithm>
#include <exception>
#include <new>

#include "cli/cli_texts.h"
#include "cli/command_table.h"
#include "cli/printable.h"
#include "cli/quillet_cli.h"
#include "cli/session.h"
#include "ifc/io/parser_texts.h"
#include "platform/message_box.h"
#include "platform/text.h"

namespace cli {
namespace {

/// While it lives, message boxes are reports. Nobody is there to answer, but who stops the program
/// is sure.
class MessagesAsReports {
public:
    explicit MessagesAsReports(Reports& reports)
        : before_(platform::setMessageBoxHandler(
              [&reports](std::u16string_view text, std::u16string_view caption,
                         platform::MessageButtons buttons, platform::MessageIcon) {
                  if (text == ::texts::kCancelQuestion)
                      return platform::MessageAnswer::Yes;
                  reports.add({}, std::u16string(caption).append(u": ").append(text));
                  return platform::neutralAnswer(buttons);
              })) {}
    ~MessagesAsReports() { platform::setMessageBoxHandler(std::move(before_)); }
    MessagesAsReports(const MessagesAsReports&) = delete;
    MessagesAsReports& operator=(const MessagesAsReports&) = delete;

private:
    platform::MessageBoxHandler before_;
};

std::string ownLine(std::string_view text) {
    return std::string(texts::kProgramName).append(": ").append(text);
}

void printUsageProblem(Screen& screen, std::u16string_view problem, const Command* command) {
    screen.printError(ownLine(printable(problem)));
    std::string hint = std::string(texts::kSeeHelp).append(texts::kProgramName).append(" ");
    if (command)
        hint.append(command->name).append(" ");
    screen.printError(hint.append(options::kHelp.name));
}

void printClosingLine(Session& session, ExitStatus status) {
    std::string line = printable(session.note);
    if (status == ExitStatus::NotDone)
        line = session.screen.interrupted() ? texts::kCancelled : texts::kNotDone;
    if (const std::size_t count = session.reports.count()) {
        line.append(line.empty() ? "" : ", ").append(std::to_string(count));
        line.append(count == 1 ? texts::kOneReport : texts::kSomeReports);
    }
    if (!line.empty())
        session.screen.printNote(ownLine(line));
}

ExitStatus execute(const Arguments& arguments, const Console& console) {
    Screen screen(console, arguments.has(options::kQuiet));
    LogFile log;
    Reports reports(screen, log, arguments.has(options::kAllReports));
    const MessagesAsReports messages(reports);
    Session session{arguments, screen, log, reports, {}, {}};
    const ExitStatus status = arguments.command->execute(session);
    if (!session.usageProblem.empty()) {
        printUsageProblem(screen, session.usageProblem, arguments.command);
        return ExitStatus::NotDone;
    }
    log.close();
    reports.printHidden();
    printClosingLine(session, status);
    if (status == ExitStatus::Done && reports.count() > 0)
        return ExitStatus::DoneWithReports;
    return status;
}

ExitStatus dispatch(std::span<const std::u16string> words, const Console& console) {
    Screen screen(console, false);
    if (words.empty()) {
        console.err(programHelp());
        return ExitStatus::NotDone;
    }
    const std::u16string& first = words.front();
    if (first == u"--help" || first == u"-h") {
        screen.print(programHelp());
        return ExitStatus::Done;
    }
    if (first == u"--version") {
        screen.print(std::string(texts::kProgramName) + " " QUILLET_VERSION "\n");
        return ExitStatus::Done;
    }
    const std::string name = platform::toUtf8(first);
    const auto known = commands();
    const auto command = std::find_if(known.begin(), known.end(),
                                      [&](const Command& entry) { return entry.name == name; });
    if (command == known.end()) {
        printUsageProblem(screen, std::u16string(texts::kUnknownCommand) + first, nullptr);
        return ExitStatus::NotDone;
    }
    Arguments arguments;
    const std::u16string problem = parseArguments(words.subspan(1), *command, arguments);
    if (!problem.empty()) {
        printUsageProblem(screen, problem, &*command);
        return ExitStatus::NotDone;
    }
    if (arguments.has(options::kHelp)) {
        screen.print(helpOf(*command));
        return ExitStatus::Done;
    }
    return execute(arguments, console);
}

}  // namespace

ExitStatus run(std::span<const std::u16string> arguments, const Console& console) noexcept {
    try {
        return dispatch(arguments, console);
    } catch (const std::bad_alloc&) {
        console.err(texts::kOutOfMemoryLine);
    } catch (const std::exception& fault) {
        console.err(ownLine(fault.what()) + "\n");
    }
    return ExitStatus::NotDone;
}

}  // namespace cli
