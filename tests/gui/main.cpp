#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
#ifndef Q_OS_WIN  // where a session without a display has windows all the same
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);  // which tests could not work
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    // What the last test left for an event loop that does not come.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return result;
}
