#include "standin/desktop/progress_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QEventLoop>
#include <QVBoxLayout>

#include "standin/desktop/desktop_texts.h"
#include "standin/desktop/qt_text.h"

namespace standin {
namespace {

constexpr int kWidth = 460;

}  // namespace

ProgressWindow::ProgressWindow(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setObjectName(QStringLiteral("progressWindow"));
    setWindowModality(Qt::ApplicationModal);
    auto* const layout = new QVBoxLayout(this);
    const auto addBar = [&](QLabel*& label, QProgressBar*& bar, const char* labelName,
                            const char* barName) {
        label = new QLabel;
        label->setObjectName(QLatin1String(labelName));
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        bar = new QProgressBar;
        bar->setObjectName(QLatin1String(barName));
        bar->setRange(0, 100);
        label->setBuddy(bar);
        layout->addWidget(label);
        layout->addWidget(bar);
    };
    addBar(overallLabel_, overall_, "overallLabel", "overallBar");
    addBar(currentLabel_, current_, "currentLabel", "currentBar");
    setMinimumWidth(kWidth);
}

void ProgressWindow::begin(const QString& caption) {
    setWindowTitle(caption.isEmpty() ? toQString(texts::kProgress) : caption);
    setOverall(0, {});
    setCurrent(0, {});
    show();
    paintNow();
}

void ProgressWindow::setOverall(int percent, const QString& label) {
    overall_->setValue(qBound(0, percent, 100));
    overallLabel_->setText(label);
}

void ProgressWindow::setCurrent(int percent, const QString& label) {
    current_->setValue(qBound(0, percent, 100));
    currentLabel_->setText(label);
}

void ProgressWindow::paintNow() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void ProgressWindow::closeEvent(QCloseEvent* event) { event->ignore(); }

}  // namespace standin
