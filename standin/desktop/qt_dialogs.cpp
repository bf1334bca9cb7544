#include "standin/desktop/qt_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>

#include "standin/desktop/desktop_texts.h"
#include "standin/desktop/qt_text.h"

namespace standin {
namespace {

/// So often the bars are painted; more would slow down what they show.
constexpr qint64 kPaintEveryMs = 40;

/// A button and its number among those of Windows.
struct Button {
    QMessageBox::StandardButton button;
    std::int32_t number;
};
constexpr Button kButtons[] = {{QMessageBox::Ok, 1},     {QMessageBox::Cancel, 2},
                               {QMessageBox::Abort, 3},  {QMessageBox::Retry, 4},
                               {QMessageBox::Ignore, 5}, {QMessageBox::Yes, 6},
                               {QMessageBox::No, 7}};

/// By the lowest four bits of a message's flags.
QMessageBox::StandardButtons buttonsOf(std::uint32_t flags) {
    switch (flags & 0xF) {
        case 1: return QMessageBox::Ok | QMessageBox::Cancel;
        case 2: return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
        case 3: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case 4: return QMessageBox::Yes | QMessageBox::No;
        case 5: return QMessageBox::Retry | QMessageBox::Cancel;
        default: return QMessageBox::Ok;
    }
}

QMessageBox::Icon iconOf(std::uint32_t flags) {
    switch (flags & 0xF0) {
        case 16: return QMessageBox::Critical;
        case 32: return QMessageBox::Question;
        case 48: return QMessageBox::Warning;
        case 64: return QMessageBox::Information;
        default: return QMessageBox::NoIcon;
    }
}

/// What Escape means: the answer that agrees to nothing.
QMessageBox::StandardButton escapeOf(QMessageBox::StandardButtons buttons) {
    for (const auto button : {QMessageBox::Cancel, QMessageBox::No, QMessageBox::Ignore})
        if (buttons.testFlag(button))
            return button;
    return QMessageBox::Ok;
}

/// "ifc" of "ifc", ".ifc" and "*.ifc".
QString bareExtension(const std::u16string& extension) {
    return toQString(extension).section(QLatin1Char('.'), -1);
}

}  // namespace

std::optional<QString> askForNewFile(QFileDialog& dialog, const QString& suffix) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    QString path = dialog.selectedFiles().front();
    if (!suffix.isEmpty() && QFileInfo(path).suffix().isEmpty()) {
        path += QLatin1Char('.') + suffix;
        // The dialog has looked for the name without it.
        if (QFileInfo::exists(path)) {
            QMessageBox box(QMessageBox::Warning, dialog.windowTitle(),
                            toQString(texts::kReplaceQuestion).arg(QFileInfo(path).fileName()),
                            QMessageBox::Yes | QMessageBox::No, dialog.parentWidget());
            box.setObjectName(QStringLiteral("replacePrompt"));
            box.setTextFormat(Qt::PlainText);
            if (box.exec() != QMessageBox::Yes)
                return std::nullopt;
        }
    }
    return QDir::toNativeSeparators(path);
}

QtDialogs::QtDialogs(QWidget* parent) : parent_(parent) {}

QWidget* QtDialogs::owner() const {
    QWidget* const modal = QApplication::activeModalWidget();
    return modal ? modal : parent_;
}

std::int32_t QtDialogs::messageBox(const std::u16string& caption, const std::u16string& text,
                                   std::uint32_t flags) {
    QMessageBox box(owner());
    box.setWindowTitle(toQString(caption));
    box.setTextFormat(Qt::PlainText);
    box.setText(toQString(text));
    box.setIcon(iconOf(flags));
    box.setStandardButtons(buttonsOf(flags));
    box.setEscapeButton(escapeOf(box.standardButtons()));
    const int answer = box.exec();
    for (const Button& button : kButtons)
        if (button.button == answer)
            return button.number;
    return 0;  // the program ends
}

std::optional<std::u16string> QtDialogs::saveDialog(const SaveDialogRequest& request) {
    const QString name = toQString(request.defaultName);
    QFileDialog dialog(owner());
    dialog.setObjectName(QStringLiteral("saveDialog"));
    dialog.setDirectory(folder_);
    QString suffix;
    if (request.forSeveralFiles) {
        dialog.setWindowTitle(toQString(texts::kSaveIntoFolder));
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
        dialog.setLabelText(QFileDialog::Accept, toQString(texts::kChooseFolder));
    } else {
        dialog.setWindowTitle(toQString(texts::kSaveAsTitle));
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        if (request.defaultExtension)
            suffix = bareExtension(*request.defaultExtension);
        if (request.extension) {
            const QString caption =
                request.filterCaption ? toQString(*request.filterCaption) : QString();
            dialog.setNameFilter(caption + QLatin1String(" (*.") +
                                 bareExtension(*request.extension) + QLatin1Char(')'));
        }
        dialog.selectFile(name);
    }
    const std::optional<QString> path = askForNewFile(dialog, suffix);
    return path ? std::optional(fromQString(*path)) : std::nullopt;
}

void QtDialogs::showProgress(bool show, const std::u16string& caption) {
    if (!show) {
        if (progress_)
            progress_->hide();
        progress_.reset();
        return;
    }
    if (!progress_)
        progress_ = std::make_unique<ProgressWindow>(parent_);
    progress_->begin(toQString(caption));
    paintedAgo_.start();
}

void QtDialogs::updateProgress(std::int32_t overallPercent, const std::u16string& overallLabel,
                               std::int32_t currentPercent, const std::u16string& currentLabel) {
    if (!progress_)
        return;
    progress_->setOverall(overallPercent, toQString(overallLabel));
    progress_->setCurrent(currentPercent, toQString(currentLabel));
    if (paintedAgo_.elapsed() < kPaintEveryMs)
        return;
    progress_->paintNow();
    paintedAgo_.start();
}

}  // namespace standin
