#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <functional>

#include "tests/support/language_texts.h"

/// While it lives, lets `answer` see and close every message box that is opened; a box that it
/// leaves open is closed as with Escape.
class MessageAnswerer {
public:
    explicit MessageAnswerer(std::function<void(QMessageBox&)> answer);

    int count() const { return count_; }

private:
    QTimer timer_;
    int count_ = 0;
};
