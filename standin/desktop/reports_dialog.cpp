#include "standin/desktop/reports_dialog.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "standin/desktop/desktop_texts.h"
#include "standin/desktop/qt_text.h"

namespace standin {

ReportsDialog::ReportsDialog(const std::vector<QString>& lines, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("reportsDialog"));
    setWindowTitle(toQString(texts::kReportsTitle));
    resize(760, 420);
    auto* const list = new QListWidget;
    list->setObjectName(QStringLiteral("reportsList"));
    list->setUniformItemSizes(true);
    list->setAlternatingRowColors(true);
    QString text;
    for (const QString& line : lines) {
        list->addItem(line.simplified());
        list->item(list->count() - 1)->setToolTip(asToolTip(line));
        text += line + QLatin1Char('\n');
    }
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton* const copy =
        buttons->addButton(toQString(texts::kCopyReports), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this,
            [text] { QApplication::clipboard()->setText(text); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(list);
    layout->addWidget(buttons);
}

}  // namespace standin
