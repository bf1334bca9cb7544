#include "standin/desktop/desktop_script.h"

#include <QThread>
#include <QTimer>
#include <algorithm>
#include <memory>
#include <utility>

#include "standin/desktop/desktop_texts.h"
#include "standin/desktop/foreign_window.h"

namespace standin {
namespace {

constexpr int kTickMs = 10;
constexpr int kPatienceMs = 30'000;
/// So long lines may still be at work when the last one is done.
constexpr int kEndPatienceMs = 5'000;

/// How deep the event loops are nested. Our Qt does not count those of other toolkits, each of
/// which has a window of its own open.
int currentLoop() {
    return QThread::currentThread()->loopLevel() + static_cast<int>(ForeignWindow::titles().size());
}

bool isAmong(std::span<const Action> actions, const Action& action) {
    return std::any_of(actions.begin(), actions.end(),
                       [&](const Action& one) { return one.run == action.run; });
}

}  // namespace

DesktopScript::DesktopScript(MainWindow& window, Output out, Output err)
    : Script(window.host(), std::move(out), std::move(err), windowActions()), window_(window) {}

void DesktopScript::start(std::string_view name, std::string_view text, Finished finished) {
    begin(name, text);
    finished_ = std::move(finished);
    scheduleTick();
}

void DesktopScript::scheduleTick() {
    // A timer of its own each time: one that is at work does not fire again in an inner loop.
    QTimer::singleShot(kTickMs, this, [this] { tick(); });
}

void DesktopScript::tick() {
    if (!finished_)
        return;
    scheduleTick();
    // While a line is at work, the next one has to wait, unless that line waits for the user in an
    // event loop of its own.
    const int loop = currentLoop();
    if (loop <= loopOfLine_)
        return;
    if (!hasMoreLines_) {
        if (!finishing_)
            finishing_.emplace().start();
        if (loopOfLine_ == kNoLine || !canGoOn() || finishing_->hasExpired(kEndPatienceMs))
            finish();
        return;
    }
    window_.refresh();  // what a person would see by now
    const int outer = std::exchange(loopOfLine_, loop);
    isToBeTriedAgain_ = false;
    hasMoreLines_ = step();
    loopOfLine_ = outer;
    if (!isToBeTriedAgain_)
        waiting_.reset();
}

void DesktopScript::finish() {
    const Finished finished = std::exchange(finished_, nullptr);
    finished(conclude());
}

void DesktopScript::beginAction(const Action& action) {
    const bool needsHost = isAmong(fileActions(), action) || isAmong(userActions(), action);
    if (needsHost && host().isInPlugin())
        throw ScriptNotYet(std::string(texts::kPluginAtWork), kPatienceMs);
    if (!ForeignWindow::hasArrived())
        throw ScriptNotYet(std::string(texts::kInputWaiting), kPatienceMs);
}

bool DesktopScript::mayWait(const ScriptNotYet& notYet) {
    if (!waiting_)
        waiting_.emplace().start();
    isToBeTriedAgain_ = !waiting_->hasExpired(notYet.limitMs());
    return isToBeTriedAgain_;
}

bool hideAnsweredWindows(bool isHidden) {
    static std::unique_ptr<platform::HiddenExport> hidden;
    if (!isHidden) {
        hidden.reset();
        return true;
    }
    if (!hidden)
        hidden = std::make_unique<platform::HiddenExport>("answer_window");
    return hidden->isHidden();
}

std::string desktopHelp() {
    return std::string(texts::kDesktopUsage) + actionHelp(windowActions());
}

}  // namespace standin
