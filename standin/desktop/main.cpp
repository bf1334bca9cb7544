#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <stdexcept>

#include "platform/display.h"
#include "platform/main_module.h"
#include "platform/program_arguments.h"
#include "platform/terminal.h"
#include "platform/text.h"
#include "platform/whole_file.h"
#include "standin/core/disk.h"
#include "standin/desktop/command_line.h"
#include "standin/desktop/desktop_script.h"
#include "standin/desktop/desktop_texts.h"
#include "standin/desktop/foreign_window.h"
#include "standin/desktop/languages.h"
#include "standin/desktop/main_window.h"
#include "standin/desktop/qt_text.h"
#include "standin/desktop/settings.h"

namespace {

using namespace standin;

void write(std::FILE* stream, std::string_view bytes) {
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
    std::fflush(stream);
}

int cannotRun(const std::string& why) {
    write(stderr, std::string(texts::kProgramError) + why + "\n");
    return static_cast<int>(ScriptStatus::CannotRun);
}

bool hasArgument(int argc, char** argv, std::string_view argument) {
    return std::any_of(argv + 1, argv + argc, [&](const char* one) { return one == argument; });
}

std::u16string languageOf(const CommandLine& line, const Settings& settings) {
    const std::u16string chosenLast = fromQString(settings.language());
    if (!line.language.empty())
        return line.language;
    return isLanguage(chosenLast) ? chosenLast : u"en";
}

int run(const QApplication& application, const CommandLine& line) {
    std::string script;
    if (!line.script.empty()) {
        const auto bytes = platform::readWholeFile(line.script);
        if (!bytes)
            return cannotRun(platform::toUtf8(line.script) + ": " +
                             std::string(texts::kScriptUnreadable));
        script = *bytes;
    }
    const bool isRestoring = line.isRestoring && line.script.empty();
    Settings settings(isRestoring ? Settings::defaultFile() : QString());
    Host host({.programFolder = folderOf(platform::mainModulePath()),
               .language = languageOf(line, settings)});
    MainWindow window(host, settings);
    window.show();
    window.activateWindow();
    hideAnsweredWindows(true);
    const bool isLoaded = host.loadPlugin();
    const std::string trouble = host.error();
    std::optional<DesktopScript> runner;
    if (!line.script.empty())
        runner.emplace(
            window, [](std::string_view bytes) { write(stdout, bytes); },
            [](std::string_view bytes) { write(stderr, bytes); });
    // When the event loop runs, so that messages are windows over ours.
    QTimer::singleShot(0, &window, [&] {
        if (!isLoaded && !runner)
            window.showError(QString::fromStdString(trouble));
        QStringList files;
        for (const std::u16string& file : line.files)
            files.push_back(toQString(file));
        window.openFiles(files);
        if (runner)
            runner->start(platform::toUtf8(line.script), script, [](ScriptStatus status) {
                QCoreApplication::exit(static_cast<int>(status));
                ForeignWindow::endAll();
            });
    });
    return application.exec();
}

}  // namespace

int main(int argc, char** argv) {
    const platform::Utf8Output utf8;
    if (hasArgument(argc, argv, "--help")) {  // without a screen too
        write(stdout, standin::desktopHelp());
        return 0;
    }
    // Qt would abort.
    if (!platform::canConnectToDisplay() && !hasArgument(argc, argv, "-platform"))
        return cannotRun(std::string(texts::kNoScreen));
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    // A script finds the same dialogs on every system.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs, hasArgument(argc, argv, "--script"));
    const QApplication application(argc, argv);
    try {
        return run(application, parseCommandLine(platform::programArguments(argc, argv)));
    } catch (const std::exception& error) {
        return cannotRun(error.what());
    }
}
