#pragma once

#include <QCheckBox>

/// A check box that knows whether the user has pressed the mouse on it, in contrast to having been
/// checked by the program.
class CustomQCheckBox : public QCheckBox {
    Q_OBJECT

public:
    using QCheckBox::QCheckBox;

    bool wasPressed() const { return wasPressed_; }

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    bool wasPressed_ = false;
};
