#include "tests/gui/window_test_tools.h"

MessageAnswerer::MessageAnswerer(std::function<void(QMessageBox&)> answer) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, answer = std::move(answer)] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        ++count_;
        answer(*box);
        if (box->isVisible())
            box->reject();
    });
    timer_.start(1);
}
