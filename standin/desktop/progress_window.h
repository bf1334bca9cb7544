#pragma once

#include <QDialog>
#include <QLabel>
#include <QProgressBar>

namespace standin {

/// Two bars, for the whole and for its part. It stays until it is hidden: what it shows cannot be
/// cancelled.
class ProgressWindow : public QDialog {
    Q_OBJECT

public:
    explicit ProgressWindow(QWidget* parent);

    void begin(const QString& caption);
    void setOverall(int percent, const QString& label);
    void setCurrent(int percent, const QString& label);
    /// Shows at once what was set, since nobody runs an event loop meanwhile.
    void paintNow();

    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QLabel* overallLabel_ = nullptr;
    QProgressBar* overall_ = nullptr;
    QLabel* currentLabel_ = nullptr;
    QProgressBar* current_ = nullptr;
};

}  // namespace standin
