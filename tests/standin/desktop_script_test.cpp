#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>

#include "platform/main_module.h"
#include "platform/text.h"
#include "tests/standin/desktop_fixture.h"

namespace {

/// What a script gives: its status, and below it what it printed and reported.
std::string ran(Desktop& desktop, const std::string& text) {
    std::string shown;
    const auto collect = [&](std::string_view line) { shown += line; };
    standin::DesktopScript script(desktop.window(), collect, collect);
    std::optional<standin::ScriptStatus> status;
    script.start("test", text, [&](standin::ScriptStatus found) { status = found; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return status.has_value(); }, 20'000));
    return (status ? std::to_string(static_cast<int>(*status)) : "?") + "\n" + shown;
}

constexpr const char* kHeld = "0\nexpectations held: ";

TEST(DesktopScripts, DriveTheMainWindow) {
    Desktop desktop;
    desktop.openHouse();
    EXPECT_EQ(ran(desktop,
                  "tree-select \"West wall\" #65\n"
                  "expect-text objectCount \"8 objects, 2 selected\"\n"
                  "tree-select #65\n"
                  "panel Finish Colour\n"
                  "key F2\n"
                  "press \"Add property\"\n"
                  "type objectSearch \"w\u00E4st \\\\ \U0001F3E0\"\n"
                  "expect-text objectSearch \"w\u00E4st \\\\ \U0001F3E0\"\n"
                  "type objectSearch \"\"\n"
                  "expect-text \"Search name, type or GUID\" \"\"\n"
                  "expect-enabled Undo no\n"
                  "expect-row propertyTree Colour \"red, 'oxblood'\"\n"
                  "choose Language Polski\n"
                  "expect-text languageBox Polski\n"
                  "menu objectTree\n"
                  "press \"Select all of this type\"\n"
                  "expect-text objectCount \"8 objects, 2 selected\"\n"),
              std::string(kHeld) + "7, failed: 0\n");
    const auto& events = desktop.plugin().events;
    for (const char* event : {"request 0 Finish Colour", "request 2 Finish Colour", "menu"})
        EXPECT_EQ(std::count(events.begin(), events.end(), event), 1) << event;
    EXPECT_EQ(desktop.host().language(), u"pl");
}

TEST(DesktopScripts, GoOnWhileAWindowIsOpen) {
    Desktop desktop;
    desktop.openHouse();
    Recorder& plugin = desktop.plugin();
    std::vector<std::int32_t> answers;
    std::string entered;
    // Two windows, one after the other, and a third one over the second.
    plugin.react = [&](const std::string& event) {
        if (!event.starts_with("request"))
            return;
        answers.push_back(plugin.host.message_box(plugin.handle, u"First", u"Go on?", 4));
        QDialog dialog;
        dialog.setWindowTitle(QStringLiteral("Second"));
        QLineEdit field(&dialog);
        field.setObjectName(QStringLiteral("field"));
        QPushButton more(QStringLiteral("&More"), &dialog);
        more.move(0, 60);
        QObject::connect(&more, &QPushButton::clicked, [&] {
            answers.push_back(plugin.host.message_box(plugin.handle, u"Third", u"Sure?", 1));
            dialog.accept();
        });
        dialog.exec();
        entered = field.text().toStdString();
    };
    const QString picture = toQString(desktop.playground().folder() / u"second.png");
    EXPECT_EQ(ran(desktop,
                  "tree-select #65\npanel Finish Colour\nkey F2\n"
                  "window First\npress Yes\n"
                  "window Second\ntype field typed\n"
                  "screenshot " +
                      picture.toStdString() +
                      "\n"
                      "press More\nwindow Third\nexpect-text qt_msgbox_label Sure?\nkey Escape\n"
                      "no-window Second\nundo\n"),
              "2\ntest:14: there is nothing to undo\n");
    EXPECT_EQ(answers, (std::vector<std::int32_t>{6, 2}));
    EXPECT_EQ(entered, "typed");
    EXPECT_GT(QPixmap(picture).width(), 0);
    // The host is not called again while the plug-in is at work: the line waits.
    answers.clear();
    QTimer::singleShot(300, [] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            box->done(QMessageBox::No);
        QTimer::singleShot(0, [] {
            if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                dialog->reject();
        });
    });
    EXPECT_EQ(ran(desktop, "key F2\nselect #77\nexpect-text propertyHead \"West wall\"\n"),
              std::string(kHeld) + "1, failed: 0\n");
    EXPECT_EQ(answers, std::vector<std::int32_t>{7});
}

TEST(DesktopScripts, LetWindowsBeAnsweredOnlyWhenToldTo) {
    const auto isExported = [] { return platform::mainModuleSymbol("answer_window") != nullptr; };
    Desktop desktop;
    const std::string load =
        "load \"" + std::filesystem::path(desktop.playground().pluginPath()).generic_string() +
        "\"\n";
    for (const bool isAnswered : {false, true, false}) {
        const std::string choice = isAnswered ? "on\n" : "off\n";
        EXPECT_EQ(ran(desktop, "answered-windows " + choice + load),
                  std::string(kHeld) + "0, failed: 0\n");
        EXPECT_EQ(isExported(), isAnswered);
        EXPECT_EQ(desktop.plugin().host.answer_window != nullptr, isAnswered);
    }
    standin::hideAnsweredWindows(false);
}

TEST(DesktopScripts, ErrorsNameTheirLine) {
    const std::pair<const char*, const char*> cases[] = {
        {"\nexpect-text objectCount \"9 objects\"\n",
         "1\ntest:2: expected objectCount with \"9 objects\", found \"8 objects\"\n"
         "expectations held: 0, failed: 1\n"},
        {"dance", "2\ntest:1: there is no such action: dance\n"},
        {"press nothing", "2\ntest:1: there is no such widget: nothing\n"},
        {"press Undo", "2\ntest:1: the widget is disabled: Undo\n"},
        {"choose objectSearch x", "2\ntest:1: the widget is of another kind: objectSearch\n"},
        {"choose Language Latin", "2\ntest:1: there is no such item: Latin\n"},
        {"key Hyper+Q", "2\ntest:1: these are no keys: Hyper+Q\n"},
        {"resize big", "2\ntest:1: a size has the form 800x600: big\n"},
        {"scroll objectTree 101", "2\ntest:1: 101 is no number from 0 to 100"},
        {"screenshot no/such/folder/a.png", "2\ntest:1: the picture cannot be written: no"},
    };
    Desktop desktop;
    desktop.openHouse();
    for (const auto& [script, result] : cases) {
        const std::string found = ran(desktop, script);
        EXPECT_EQ(found.substr(0, std::string_view(result).size()), result);
    }
}

TEST(DesktopScripts, HelpNamesEveryActionWithAnExampleThatFits) {
    const std::string help = standin::desktopHelp();
    for (const standin::Action& action : standin::windowActions()) {
        EXPECT_NE(help.find("\n  " + std::string(action.name)), std::string::npos);
        const std::size_t words =
            standin::splitWords(action.example).size() - standin::splitWords(action.name).size();
        EXPECT_EQ(action.example.find(action.name), 0U);
        EXPECT_TRUE(words >= action.wordsAtLeast && words <= action.wordsAtMost) << action.example;
    }
}

}  // namespace
