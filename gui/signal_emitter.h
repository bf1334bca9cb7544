#pragma once

#include <QObject>

/// Tells those who have no connection to the edit-many window what happens in it.
class SignalEmitter : public QObject {
    Q_OBJECT

public:
    static SignalEmitter& instance();

signals:
    /// The range of the window's vertical scroll bar has changed.
    void ScrollBarRangeChangedSignal();

private:
    SignalEmitter() = default;
};
