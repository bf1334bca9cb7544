#include "tests/gui/scope_library.h"

#include <QLabel>
#include <QTimer>
#include <string>

#include "gui/application_scope.h"
#include "gui/message_boxes.h"
#include "platform/message_box.h"

namespace {

/// Runs a window for a moment, as a plug-in does. @return whether everything was as it should be.
bool runWindow() {
    const ApplicationScope scope;
    if (!scope.isReady() || !scope.isOwner())
        return false;
    QLabel window("Window");
    QTimer::singleShot(0, &window, &QWidget::close);
    QTimer::singleShot(1, &window, [] { QCoreApplication::exit(7); });
    window.show();
    // It would have ended with the last window, with 0.
    return QApplication::exec() == 7 && QApplication::testAttribute(Qt::AA_EnableHighDpiScaling) &&
           QApplication::testAttribute(Qt::AA_UseHighDpiPixmaps);
}

}  // namespace

bool runWindows(const char* windowSystem) {
    qputenv("QT_QPA_PLATFORM", windowSystem);
    const bool isFirstRight = runWindow();
    return isFirstRight && runWindow() && !qApp;
}

int messagesWithoutScreen(const char* windowSystem) {
    qputenv("QT_QPA_PLATFORM", windowSystem);
    qputenv("DISPLAY", ":4711");
    qputenv("WAYLAND_DISPLAY", "no-such-socket");
    int messages = 0;
    const auto before =
        platform::setMessageBoxHandler([&](std::u16string_view text, std::u16string_view,
                                           platform::MessageButtons, platform::MessageIcon) {
            messages += text == u"no_screen!" ? 1 : 100;
            return platform::MessageAnswer::Ok;
        });
    {
        // Without an application the boxes leave the message to who showed messages before.
        const QtMessageBoxes boxes({});
        const ApplicationScope scope([](const char* key) {
            const std::string text = std::string(key) + '!';
            return std::u16string(text.begin(), text.end());
        });
        if (scope.isReady() || scope.isOwner() || qApp)
            messages += 100;
    }
    platform::setMessageBoxHandler(before);
    return messages;
}
