#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <optional>

#include "platform/hidden_export.h"
#include "standin/desktop/main_window.h"
#include "standin/headless/script.h"

namespace standin {

/// A script that drives the windows. Its lines run from the event loop, also from that of a window
/// which an earlier line has opened.
class DesktopScript : public QObject, public Script {
public:
    using Finished = std::function<void(ScriptStatus status)>;

    /// window: borrowed.
    DesktopScript(MainWindow& window, Output out, Output err);

    /// Returns at once. finished: called when the script is done, perhaps with windows still open.
    void start(std::string_view name, std::string_view text, Finished finished);

    MainWindow& window() { return window_; }

protected:
    void beginAction(const Action& action) override;
    bool mayWait(const ScriptNotYet& notYet) override;

private:
    void scheduleTick();
    void tick();
    void finish();

    MainWindow& window_;
    Finished finished_;
    static constexpr int kNoLine = -1;

    /// The event loop, counted from the outermost, in which the line runs that is at work.
    int loopOfLine_ = kNoLine;
    bool hasMoreLines_ = true;
    bool isToBeTriedAgain_ = false;
    std::optional<QElapsedTimer> waiting_;    // for what a line needs
    std::optional<QElapsedTimer> finishing_;  // for lines that are still at work
};

/// Actions that only a program with windows has.
std::span<const Action> windowActions();

/// What the desktop program says of itself, with its own actions.
std::string desktopHelp();

/// A real host has no function that answers windows for the user. Hides ours from plug-ins, or not.
/// @return false when the program cannot do so.
bool hideAnsweredWindows(bool isHidden);

}  // namespace standin
