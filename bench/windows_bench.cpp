// windows-bench PLUGIN_FOLDER OBJECTS DISTINCT: opens the edit-many window on so many objects of 20
// properties each, the first property with DISTINCT different values, and does in it what a user
// does. Prints one line of JSON: seconds of each step without the window's own timers, the heap in
// use once all rows are loaded, how many value rows had widgets at once, and the longest time that
// the window did not react while nothing told that it is busy.

#include <malloc.h>

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <deque>
#include <functional>
#include <iostream>

#include "bench/bench_texts.h"
#include "bench/made_host.h"
#include "edits/edit_many.h"
#include "gui/edit_many.h"
#include "gui/edit_many_gui.h"
#include "platform/text.h"

namespace {

namespace texts = bench::texts;

// The window's own waiting before it begins.
constexpr double kOpenDelay = 0.2;
constexpr double kRegroupDelay = 0.5;
constexpr int kBeatMs = 5;
// Of the made host.
const QString kManyValues = QStringLiteral("Property 0");
const QString kFewValues = QStringLiteral("Property 2");

double heapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

QWidget* windowNamed(const char* className) {
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->inherits(className))
            return window;
    return nullptr;
}

bool isBusyShown() {
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->objectName() == QLatin1String("LoadingDialog"))
            return true;
    return false;
}

/// Every few milliseconds, as long as the window reacts.
class Heartbeat {
public:
    Heartbeat() {
        timer_.callOnTimeout([this] { beat(); });
        timer_.start(kBeatMs);
        since_.start();
    }
    double longestSilence() const { return longest_; }

private:
    void beat() {
        const double silence = static_cast<double>(since_.nsecsElapsed()) / 1e9;
        if (!wasBusyShown_)
            longest_ = std::max(longest_, silence);
        wasBusyShown_ = isBusyShown();
        since_.start();
    }

    QTimer timer_;
    QElapsedTimer since_;
    bool wasBusyShown_ = false;
    double longest_ = 0;
};

/// The user, step by step from the event loop, also within the loops of windows.
class User {
public:
    explicit User(double heapBefore) : heapBefore_(heapBefore) {
        runTime_.start();
        steps_ = {[this] { return findWindow(); }, [this] { return isIdle(); },
                  [this] { return regroup(); },    [this] { return isRegrouped(); },
                  [this] { return isIdle(); },     [this] { return expand(); },
                  [this] { return scroll(); },     [this] { return chooseForAll(); },
                  [] { return accept(); }};
        schedule();
    }

    void applied(double seconds) { applySeconds_ = seconds; }
    void print(std::size_t objects, const Heartbeat& heart) const {
        std::cout << "{\"open\": " << openSeconds_ << ", \"regroup\": " << regroupSeconds_
                  << ", \"expand\": " << expandSeconds_ << ", \"scroll_steps\": " << scrollSteps_
                  << ", \"worst_scroll_step\": " << worstScroll_ << ", \"live_rows\": " << liveRows_
                  << ", \"apply_per_object\": " << applySeconds_ / static_cast<double>(objects)
                  << ", \"heap\": " << heap_ << ", \"silence\": " << heart.longestSilence()
                  << "}\n";
    }

private:
    using Step = std::function<bool()>;

    void schedule() {
        QTimer::singleShot(1, &context_, [this] {
            schedule();
            if (steps_.empty() || isSettling_)
                return;
            const Step step = steps_.front();
            steps_.pop_front();
            if (!step())
                steps_.push_front(step);
        });
    }

    /// Has the window lay itself out and repaint.
    void settle() {
        isSettling_ = true;
        QApplication::processEvents();
        isSettling_ = false;
    }

    double seconds() const { return static_cast<double>(runTime_.nsecsElapsed()) / 1e9; }
    template <class Widget>
    Widget* child(const char* name) const {
        return window_->findChild<Widget*>(QLatin1String(name));
    }
    /// The button of that name in the line of a property.
    QWidget* buttonOf(const QString& property, const char* name) const {
        for (const QTextEdit* field :
             window_->findChildren<QTextEdit*>(QStringLiteral("PropertyNameEdit")))
            if (field->toPlainText() == property)
                for (QWidget* const button : window_->findChildren<QWidget*>(QLatin1String(name)))
                    if (std::abs(button->geometry().center().y() - field->geometry().center().y()) <
                        field->height() / 2)
                        return button;
        return nullptr;
    }

    bool findWindow() {
        window_ = qobject_cast<EditManyGui*>(windowNamed("EditManyGui"));
        if (!window_)
            return false;
        QObject::connect(window_, &EditManyGui::CreatingGuiFinished, &context_, [this] {
            if (openSeconds_ == 0) {
                openSeconds_ = seconds() - kOpenDelay;
                heap_ = heapInUse() - heapBefore_;
            } else {
                regroupSeconds_ = seconds() - regroupBegin_ - kRegroupDelay;
            }
        });
        return true;
    }
    bool isIdle() const { return openSeconds_ > 0 && !isBusyShown(); }

    bool regroup() {
        regroupBegin_ = seconds();
        child<QComboBox>("GroupingTypeQCB")->setCurrentIndex(1);
        return true;
    }
    bool isRegrouped() const { return regroupSeconds_ > 0; }

    bool expand() {
        QElapsedTimer time;
        time.start();
        QTest::mouseClick(buttonOf(kManyValues, "PropertyExpandButton"), Qt::LeftButton);
        settle();
        expandSeconds_ = static_cast<double>(time.nsecsElapsed()) / 1e9;
        return true;
    }

    /// A page down each time, until the end.
    bool scroll() {
        QScrollBar& bar = *child<QScrollArea>("AreaEditPropertySets")->verticalScrollBar();
        const int before = bar.value();
        QElapsedTimer time;
        time.start();
        bar.setValue(before + bar.pageStep());
        settle();
        worstScroll_ = std::max(worstScroll_, static_cast<double>(time.nsecsElapsed()) / 1e9);
        liveRows_ = std::max(
            liveRows_, window_->findChildren<QWidget*>(QStringLiteral("ValueCheckBox")).size());
        ++scrollSteps_;
        return bar.value() >= bar.maximum() && bar.value() <= before;
    }

    /// Gives all objects one value of the second property.
    bool chooseForAll() {
        QScrollBar& bar = *child<QScrollArea>("AreaEditPropertySets")->verticalScrollBar();
        QTest::mouseClick(buttonOf(kManyValues, "PropertyExpandButton"), Qt::LeftButton);
        bar.setValue(0);
        QTest::mouseClick(buttonOf(kFewValues, "PropertyExpandButton"), Qt::LeftButton);
        QTest::mouseClick(buttonOf(kFewValues, "PropertyModeButton"), Qt::LeftButton);
        settle();
        for (QWidget* const each :
             window_->findChildren<QWidget*>(QStringLiteral("SelectButton"))) {
            if (each->isVisible()) {  // others are about to be deleted
                QTest::mouseClick(each, Qt::LeftButton);
                break;
            }
        }
        // The summary runs a loop of its own, in which the next step goes on.
        QTest::mouseClick(child<QWidget>("OkButton"), Qt::LeftButton);
        return true;
    }

    static bool accept() {
        QWidget* const summary = windowNamed("SummaryWindow");
        if (!summary)
            return false;
        QTest::mouseClick(summary->findChild<QWidget*>(QStringLiteral("SummaryAccept")),
                          Qt::LeftButton);
        return true;
    }

    QObject context_;
    std::deque<Step> steps_;
    QElapsedTimer runTime_;
    bool isSettling_ = false;
    EditManyGui* window_ = nullptr;
    double heapBefore_;
    double heap_ = 0;
    double openSeconds_ = 0;
    double regroupBegin_ = 0;
    double regroupSeconds_ = 0;
    double expandSeconds_ = 0;
    double worstScroll_ = 0;
    double applySeconds_ = 0;
    int scrollSteps_ = 0;
    int liveRows_ = 0;
};

bool measure(const std::u16string& pluginFolder, std::size_t objects, std::size_t distinctValues) {
    const bench::MadeHost host(objects, distinctValues);
    HostCalls calls(host.api());
    calls.setHandle(1);
    IFC::EditSession session(calls);
    session.files.refresh(calls, session.store);
    EditMany editMany(calls, pluginFolder);
    const double heapBefore = heapInUse();
    const Heartbeat heart;
    User user(heapBefore);
    std::int32_t policy = 0;
    const bool isOpened = editMany.run(
        host.objects(),
        [&](const IFC::ManyEdits& edits, const IFC::ObjectProgress& progress) {
            QElapsedTimer time;
            time.start();
            const auto group = IFC::applyToMany(session, host.objects(), edits, progress);
            user.applied(static_cast<double>(time.nsecsElapsed()) / 1e9);
        },
        policy);
    user.print(objects, heart);
    return isOpened && host.changeCount() > 0;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const std::size_t objects = argc == 4 ? std::strtoul(argv[2], nullptr, 10) : 0;
    const std::size_t distinctValues = argc == 4 ? std::strtoul(argv[3], nullptr, 10) : 0;
    if (objects == 0 || distinctValues == 0) {
        std::cerr << texts::kWindowsBenchUsage;
        return EXIT_FAILURE;
    }
    return measure(platform::fromUtf8(argv[1]), objects, distinctValues) ? EXIT_SUCCESS
                                                                         : EXIT_FAILURE;
}
