#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QObject>
#include <QString>
#include <cstddef>
#include <memory>

/// The small box that stands on the screen while something takes its time. It cannot be closed by
/// the user.
class LoadingDialog : public QObject {
    Q_OBJECT

public:
    explicit LoadingDialog(const QString& text);
    ~LoadingDialog() override;

    QDialog& dialog() { return *dialog_; }

    /// Shows it, application-modal. It is painted by the event loop or by setProgress().
    void show();
    void close();

    /// Shows the percentage below the text, repaints, and lets all events but the user's input be
    /// processed; at most every 50 ms, and always when all is done. total: 0 takes the percentage
    /// away.
    void setProgress(std::size_t done, std::size_t total);

private:
    QString text_;
    std::unique_ptr<QDialog> dialog_;
    QLabel* label_;  // of the dialog
    QElapsedTimer sinceRepaint_;
};
