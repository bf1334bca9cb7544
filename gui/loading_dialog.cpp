#include "gui/loading_dialog.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdint>

#include "gui/dialog_texts.h"

namespace {

constexpr QSize kSize(200, 100);
constexpr std::int64_t kRepaintMs = 50;

/// A dialog that ends when the program says so, not with Escape.
class BusyDialog : public QDialog {
public:
    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

}  // namespace

LoadingDialog::LoadingDialog(const QString& text)
    : text_(text), dialog_(std::make_unique<BusyDialog>()), label_(new QLabel(text)) {
    dialog_->setObjectName(QStringLiteral("LoadingDialog"));
    dialog_->setWindowTitle(QString::fromUtf16(texts::kProductName));
    dialog_->setWindowFlags(dialog_->windowFlags() | Qt::Tool | Qt::CustomizeWindowHint |
                            Qt::WindowTitleHint);
    dialog_->setWindowFlag(Qt::WindowCloseButtonHint, false);
    dialog_->setWindowFlag(Qt::WindowSystemMenuHint, false);
    dialog_->setFixedSize(kSize);
    label_->setObjectName(QStringLiteral("LoadingLabel"));
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    label_->setAlignment(Qt::AlignCenter);
    (new QVBoxLayout(dialog_.get()))->addWidget(label_);
}

LoadingDialog::~LoadingDialog() = default;

void LoadingDialog::show() {
    sinceRepaint_.invalidate();
    dialog_->setWindowModality(Qt::ApplicationModal);
    dialog_->show();
}

void LoadingDialog::close() {
    dialog_->hide();
    label_->setText(text_);
}

void LoadingDialog::setProgress(std::size_t done, std::size_t total) {
    if (sinceRepaint_.isValid() && sinceRepaint_.elapsed() < kRepaintMs && done < total)
        return;
    if (total == 0) {
        label_->setText(text_);
    } else {
        const int percent = static_cast<int>(static_cast<double>(std::min(done, total)) * 100.0 /
                                             static_cast<double>(total));
        label_->setText(text_ + QStringLiteral("\n%1 %").arg(percent));
    }
    sinceRepaint_.start();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
