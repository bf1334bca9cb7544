// A user who presses, types, scrolls and closes anything: nothing may crash or hang, and whenever
// no window is open, the display and the edit log say the same. QUILLET_CLICKER_SECONDS (for each
// kind of window) and QUILLET_CLICKER_SEED make it a longer or another one.

#include <gtest/gtest.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "platform/text.h"
#include "standin/desktop/main_window.h"
#include "standin/desktop/settings.h"
#include "tests/flows/flow_host.h"
#include "tests/flows/log_view.h"
#include "tests/windows/pilot.h"

namespace {

constexpr unsigned kHangSeconds = 120;

unsigned numberFrom(const char* variable, unsigned otherwise) {
    const char* text = std::getenv(variable);
    return text ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : otherwise;
}

const QString kTexts[] = {
    QStringLiteral("blue"),
    QStringLiteral("12.5"),
    QStringLiteral("-1e400"),
    QStringLiteral("<b>bold</b> & \"quoted\" 'text'"),
    QString::fromUtf8("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xF0\x9F\x8F\xA0 \xE2\x80\xAE"),
    QStringLiteral("two\nlines\tand a tab"),
    QString(10'000, QLatin1Char('x')),
    QString(),
};

constexpr Qt::Key kKeys[] = {Qt::Key_Tab,       Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Escape,
                             Qt::Key_Space,     Qt::Key_Up,      Qt::Key_Down,   Qt::Key_PageDown,
                             Qt::Key_Backspace, Qt::Key_Delete,  Qt::Key_Home,   Qt::Key_End};

// Unlike those of QTest these let a widget go with the first of its events.

void sendMouse(const QPointer<QWidget>& widget, QEvent::Type type, const QPoint& place) {
    if (!widget)
        return;
    const Qt::MouseButtons held =
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, widget->mapToGlobal(place), Qt::LeftButton, held,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void clickAt(QWidget& widget, const QPoint& place, bool isDouble = false) {
    const QPointer<QWidget> clicked = &widget;
    sendMouse(clicked, QEvent::MouseButtonPress, place);
    sendMouse(clicked, QEvent::MouseButtonRelease, place);
    if (isDouble) {
        sendMouse(clicked, QEvent::MouseButtonDblClick, place);
        sendMouse(clicked, QEvent::MouseButtonRelease, place);
    }
}

void sendKey(const QPointer<QWidget>& widget, int key, Qt::KeyboardModifiers modifiers,
             const QString& text = {}) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (!widget)
            return;
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(widget, &event);
    }
}

/// Does something at random in the uppermost window, whenever the events are done.
class Clicker {
public:
    explicit Clicker(unsigned seed) : random_(seed) { schedule(); }
    ~Clicker() { alarm(0); }
    Clicker(const Clicker&) = delete;
    Clicker& operator=(const Clicker&) = delete;

    std::size_t turns() const { return turns_; }
    std::mt19937& random() { return random_; }
    /// From then on what is open is closed.
    void hurryIn(int ms) {
        QTimer::singleShot(ms, &context_, [this] { isHurried_ = true; });
    }

private:
    void schedule() {
        alarm(kHangSeconds);  // ends the process when no turn comes
        // Not 0: timers of the windows would never have their turn.
        QTimer::singleShot(1, &context_, [this] { turn(); });
    }

    void turn() {
        schedule();
        QPointer<QWidget> window = uppermostWindow();
        if (!window)
            return;
        ++turns_;
        // It could rename and delete what is not ours.
        if (auto* const files = qobject_cast<QFileDialog*>(window))
            return files->reject();
        if (isHurried_)
            return close(*window);
        const auto kind = static_cast<unsigned>(random_() % 1000);
        if (kind < 4)
            return close(*window);
        if (kind < 10)
            return window->resize(300 + static_cast<int>(random_() % 900),
                                  200 + static_cast<int>(random_() % 700));
        if (kind < 30) {
            if (QWidget* const ok = findWidget(QStringLiteral("OkButton"), window))
                clickAt(*ok, ok->rect().center());
            return;
        }
        if (QWidget* const widget = anyWidget(*window))
            actOn(*widget);
    }

    void close(QWidget& window) {
        const auto* const box = qobject_cast<QMessageBox*>(&window);
        if (box && !box->buttons().isEmpty()) {
            const QList<QAbstractButton*> buttons = box->buttons();
            QAbstractButton& button =
                *buttons[static_cast<int>(random_() % static_cast<unsigned>(buttons.size()))];
            clickAt(button, button.rect().center());
            return;
        }
        window.close();
    }

    QWidget* anyWidget(const QWidget& window) {
        QList<QWidget*> widgets = window.findChildren<QWidget*>();
        widgets.erase(std::remove_if(widgets.begin(), widgets.end(),
                                     [](const QWidget* widget) {
                                         return !widget->isVisible() || !widget->isEnabled() ||
                                                widget->visibleRegion().isEmpty();
                                     }),
                      widgets.end());
        return widgets.isEmpty()
                   ? nullptr
                   : widgets[static_cast<int>(random_() % static_cast<unsigned>(widgets.size()))];
    }

    void actOn(QWidget& widget) {
        const QPoint place(static_cast<int>(random_() % static_cast<unsigned>(widget.width())),
                           static_cast<int>(random_() % static_cast<unsigned>(widget.height())));
        if (auto* const slider = qobject_cast<QAbstractSlider*>(&widget))
            if (slider->maximum() > slider->minimum())
                return slider->setSliderPosition(
                    slider->minimum() +
                    static_cast<int>(random_() % static_cast<unsigned>(slider->maximum() -
                                                                       slider->minimum() + 1)));
        switch (random_() % 8) {
            case 0:
            case 1:
            case 2: clickAt(widget, place); break;
            case 3: clickAt(widget, place, true); break;
            case 4: {
                QWheelEvent wheel(place, widget.mapToGlobal(place), {},
                                  {0, random_() % 2 ? 120 : -120}, Qt::NoButton, Qt::NoModifier,
                                  Qt::NoScrollPhase, false);
                QApplication::sendEvent(&widget, &wheel);
                break;
            }
            case 5:
                sendKey(&widget, kKeys[random_() % std::size(kKeys)],
                        random_() % 8 ? Qt::NoModifier : Qt::ControlModifier);
                break;
            default: {
                const QPointer<QWidget> field = &widget;
                for (const QChar& character : kTexts[random_() % std::size(kTexts)].left(200))
                    sendKey(field, Qt::Key_unknown, Qt::NoModifier, character);
            }
        }
    }

    QObject context_;
    std::mt19937 random_;
    std::size_t turns_ = 0;
    bool isHurried_ = false;
};

/// Opens a kind of window for objects chosen at random.
struct Opening {
    const char* name;
    void (*open)(FlowHost& flow, std::mt19937& random);
};

const standin::Object& anyObject(FlowHost& flow, std::mt19937& random) {
    const std::vector<const standin::Object*> objects = flow.editableObjects();
    return *objects[random() % objects.size()];
}

void openEditMany(FlowHost& flow, std::mt19937& random) {
    std::vector<HostObjectId> ids;
    for (const standin::Object* object : flow.editableObjects())
        ids.push_back(object->id);
    std::shuffle(ids.begin(), ids.end(), random);
    ids.resize(1 + random() % ids.size());
    flow.host().select(std::move(ids));
    flow.click(FlowHost::Item::EditMany);
}

void openAddSet(FlowHost& flow, std::mt19937& random) {
    flow.host().select({anyObject(flow, random).id});
    flow.click(FlowHost::Item::AddSet);
}

void openProperty(FlowHost& flow, std::mt19937& random) {
    const standin::Object& object = anyObject(flow, random);
    flow.host().select({object.id});
    if (object.display.sets.empty())
        return;
    const standin::DisplayedSet& set = object.display.sets[random() % object.display.sets.size()];
    static constexpr HostChangeAction kActions[] = {kHostAskEditProperty, kHostAskEditProperty,
                                                    kHostAskAddProperty, kHostAskRenameSet};
    const std::u16string property =
        set.rows.empty() ? std::u16string() : set.rows[random() % set.rows.size()].name;
    flow.host().requestChange(kActions[random() % std::size(kActions)], set.name, set.guid,
                              property, random() % 2 == 0);
}

void openMainWindow(FlowHost& flow, std::mt19937&) {
    standin::Settings settings{QString()};
    standin::MainWindow window(flow.host(), settings);
    window.show();
    window.activateWindow();
    QEventLoop loop;
    QTimer waiting;
    waiting.callOnTimeout([&] {
        if (!window.isVisible())
            loop.quit();
    });
    waiting.start(1);
    loop.exec();
}

const Opening kOpenings[] = {{"EditMany", openEditMany},
                             {"AddSet", openAddSet},
                             {"Property", openProperty},
                             {"MainWindow", openMainWindow}};

class RandomClicker : public testing::TestWithParam<Opening> {};

TEST_P(RandomClicker, KeepsDisplayAndLogInStep) {
    const unsigned seconds = numberFrom("QUILLET_CLICKER_SECONDS", 3);
    const unsigned seed = numberFrom("QUILLET_CLICKER_SEED", 1);
    FlowHost flow(u"en", false, FlowHost::Windows::Real);
    ASSERT_TRUE(flow.start({platform::fromUtf8(QUILLET_SOURCE_DIR "/samples/sample_house.ifc")}));
    const SeenObjects model = flow.seen();
    Clicker clicker(seed);
    std::size_t openings = 0;
    QElapsedTimer time;
    time.start();
    clicker.hurryIn(static_cast<int>(seconds) * 1000);
    while (time.elapsed() < seconds * 1000LL) {
        ++openings;
        GetParam().open(flow, clicker.random());
        ASSERT_EQ(difference(withLog(model, flow.savedLog()), flow.seen()), "")
            << "seed " << seed << ", opening " << openings;
        ASSERT_TRUE(flow.host().violations().empty()) << flow.host().violations().front();
        flow.host().dialogs().forgetShown();  // the user was told of this and that
        if (clicker.random()() % 4 == 0)
            flow.host().undo();
    }
    std::printf("%zu openings, %zu turns, %zu entries of the undo list\n", openings,
                clicker.turns(), flow.host().undoList().texts().size());
}

INSTANTIATE_TEST_SUITE_P(Windows, RandomClicker, testing::ValuesIn(kOpenings),
                         [](const auto& each) { return each.param.name; });

}  // namespace
